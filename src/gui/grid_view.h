#pragma once
// Inside gui/ only: the view of a grid. It reports Click after the current cell has moved,
// DblClick after its Click, and KeyPress for the keys that give a character. A click on a
// head or a mark first makes its column or row current (a mark selects its row, with Shift
// from the current row on); a click on the empty area leaves the current cell where it
// was. Each is a Click on the grid too, and a double click on any of them a DblClick. It keeps the
// cell where a drag or a Shift move began as the current cell (Row, Col) and the far end
// of the selected rows as RowSel.

#include <QProxyStyle>
#include <QTableView>

#include "gui/control.h"

namespace gui {

class GridView : public QTableView {
  public:
    explicit GridView(QWidget* parent = nullptr);

    Handler click;
    Handler dblClick;
    KeyHandler keyPress;

    int anchorRow() const;  // 0-based body row of the current cell as the grid reports it
    int anchorCol() const;
    int farRow() const;  // 0-based body row of the other end of the selection
    void resetAnchor() { extended_ = false; }
    void extendTo(int bodyRow);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) override;

  private:
    void headClicked();  // a Click, unless it ends a double click
    void headDoubleClicked();
    bool extending_ = false;  // the current cell moves as the far end of a selection
    bool extended_ = false;   // the anchor below stands for the current cell
    int anchorRow_ = 0;
    int anchorCol_ = 0;
    bool pressed_ = false;
    bool afterDoubleClick_ = false;  // on a head, the next release ends a double click
};

// Grid lines in the grid's own colour.
class GridStyle : public QProxyStyle {
  public:
    using QProxyStyle::QProxyStyle;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override;
};

}  // namespace gui

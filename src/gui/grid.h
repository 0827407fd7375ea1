#pragma once
// A text grid with one fixed row and one fixed column. Row 0 holds the column heads and
// column 0 the row marks; both are part of the data (TextMatrix(0, c) is a head) and stay
// on screen while the body scrolls. Column 0 never becomes the current column. The grid
// never edits by itself: floating editors above it are the only way into a cell.

#include <QString>
#include <QStringList>
#include <memory>

#include "gui/control.h"

namespace gui {

class GridView;
class GridModel;

enum class ScrollBars { Vertical, Both };

class Grid : public Control {
  public:
    Grid();
    ~Grid();
    Grid(const Grid&) = delete;
    Grid& operator=(const Grid&) = delete;

    // The format string gives the heads, "|" between them; a leading "^" centres a column.
    // Column widths follow the printed width of the heads. Starts with 2 rows.
    void create(Control& parent, const QString& name, const Look& look, const QString& format,
                ScrollBars bars);

    int Rows() const;
    int Cols() const;
    int Row() const;     // current row, 1 or higher
    int Col() const;     // current column, 1 or higher
    int RowSel() const;  // far end of the selected rows; equals Row when one row is selected
    void setRow(int row);
    void setCol(int col);
    void setRowSel(int rowSel);  // selects the rows from Row to rowSel, as a drag does

    QString Text() const;  // text of the current cell
    QString TextMatrix(int row, int col) const;
    void setTextMatrix(int row, int col, const QString& text);
    void setTextArray(int index, const QString& text);  // index = row * Cols + col

    // Adds a row from tab-separated cells, before `index`, or at the end when index < 0.
    void AddItem(const QString& tabbedCells, int index = -1);
    void RemoveItem(int row);

    int RowPos(int row) const;  // twips from the grid's top edge to the row's top edge
    int ColPos(int col) const;  // twips from the grid's left edge to the column's left edge

    void onClick(Handler handler);
    void onDblClick(Handler handler);
    void onKeyPress(KeyHandler handler);

    GridView* view() const { return view_; }
    GridModel* model() const { return model_.get(); }

  private:
    GridView* view_ = nullptr;
    std::unique_ptr<GridModel> model_;
};

}  // namespace gui

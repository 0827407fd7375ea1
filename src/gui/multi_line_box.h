#pragma once
// Inside gui/ only: the widget of a text box over several lines.

#include <QTextEdit>

namespace gui::detail {

// Keeps exactly what was typed or pasted. Lines end in CR LF, as the file wants them; a lone
// CR stays a lone CR (held as a line separator, shown as a new line) and a no-break space
// stays a no-break space. Shift+Enter starts a new line like Enter. A paste of nothing, as
// an X11 clipboard that nobody owns hands over, changes nothing. With a length limit, typing
// stops at it and a paste is cut to it, counted as Text() counts (a line end as two).
class MultiLineBox : public QTextEdit {
  public:
    QString Text() const;
    void setText(const QString& text);
    void setMaxLength(int length) { maxLength_ = length; }

  protected:
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;
    QMimeData* createMimeDataFromSelection() const override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    // How many characters of Text() an insert may add in place of the selection.
    qsizetype room() const;

    int maxLength_ = 0;  // 0: no limit
};

}  // namespace gui::detail

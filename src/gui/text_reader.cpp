#include "gui/text_reader.h"

#include <QAbstractTextDocumentLayout>
#include <QAccessibleWidget>
#include <QLineEdit>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextLayout>

#include "common/text_pieces.h"

namespace gui::detail {
namespace {

using Unit = QAccessible::TextBoundaryType;
using common::Span;

class TextReader : public QAccessibleWidget,
                   public QAccessibleTextInterface,
                   public QAccessibleEditableTextInterface {
  public:
    using QAccessibleTextInterface::text;
    using QAccessibleWidget::QAccessibleWidget;
    using QAccessibleWidget::text;

    void* interface_cast(QAccessible::InterfaceType t) override {
        if (t == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
        if (t == QAccessible::EditableTextInterface)
            return static_cast<QAccessibleEditableTextInterface*>(this);
        return QAccessibleWidget::interface_cast(t);
    }

    QString textAtOffset(int offset, Unit unit, int* start, int* end) const override {
        return piece(offset, unit, 0, start, end);
    }
    QString textBeforeOffset(int offset, Unit unit, int* start, int* end) const override {
        return piece(offset, unit, -1, start, end);
    }
    QString textAfterOffset(int offset, Unit unit, int* start, int* end) const override {
        return piece(offset, unit, 1, start, end);
    }
    void addSelection(int start, int end) override { setSelection(0, start, end); }

  protected:
    virtual Span lineAround(const QString& all, int p) const {
        return common::PlainLineAround(all, p);
    }

  private:
    // Qt's boundary types in their order: character, word, sentence, paragraph, line, none.
    static common::TextPiece PieceOf(Unit unit) {
        using common::TextPiece;
        static constexpr TextPiece kPieces[] = {TextPiece::kCharacter, TextPiece::kWord,
                                                TextPiece::kSentence,  TextPiece::kParagraph,
                                                TextPiece::kLine,      TextPiece::kWhole};
        static_assert(QAccessible::LineBoundary == 4 && QAccessible::NoBoundary == 5);
        return unit >= 0 && unit < 6 ? kPieces[unit] : TextPiece::kWhole;
    }

    // `step` -1 asks for the piece before the one at `offset`, 1 for the one after it.
    QString piece(int offset, Unit unit, int step, int* start, int* end) const {
        const QString all = text(0, characterCount());
        if (offset == -2) offset = cursorPosition();  // -2 stands for the caret, -1 for the end
        if (offset == -1) offset = int(all.size());
        *start = *end = -1;
        const auto line = [this](const QString& text, int p) { return lineAround(text, p); };
        const std::optional<Span> found = common::PieceNear(all, offset, PieceOf(unit), step, line);
        if (!found) return {};
        *start = found->start;
        *end = found->end;
        return all.mid(found->start, found->end - found->start);
    }
};

// The program's boxes show what they hold: there is no password echo to hide.
class LineEditReader : public TextReader {
  public:
    explicit LineEditReader(QLineEdit* edit) : TextReader(edit, QAccessible::EditableText) {
        addControllingSignal(QStringLiteral("textChanged(const QString&)"));
        addControllingSignal(QStringLiteral("returnPressed()"));
    }

    QString text(QAccessible::Text t) const override {
        if (t == QAccessible::Value && !edit()->text().isEmpty()) return edit()->text();
        return QAccessibleWidget::text(t);
    }
    void setText(QAccessible::Text t, const QString& text) override {
        if (t == QAccessible::Value)
            edit()->setText(text);
        else
            QAccessibleWidget::setText(t, text);
    }
    QAccessible::State state() const override {
        QAccessible::State s = QAccessibleWidget::state();
        s.editable = true;
        s.readOnly = edit()->isReadOnly();
        s.selectableText = true;
        return s;
    }

    QString text(int start, int end) const override {
        return start > end ? QString() : edit()->text().mid(start, end - start);
    }
    int characterCount() const override { return int(edit()->text().size()); }
    int cursorPosition() const override { return edit()->cursorPosition(); }
    void setCursorPosition(int position) override { edit()->setCursorPosition(position); }
    int selectionCount() const override { return edit()->hasSelectedText() ? 1 : 0; }
    void selection(int index, int* start, int* end) const override {
        *start = *end = 0;
        if (index != 0) return;
        *start = edit()->selectionStart();
        *end = *start + int(edit()->selectedText().size());
    }
    void setSelection(int index, int start, int end) override {
        if (index == 0) edit()->setSelection(start, end - start);
    }
    void removeSelection(int index) override {
        if (index == 0) edit()->deselect();
    }
    // A character's place on screen, measured from the caret's.
    QRect characterRect(int offset) const override {
        const QString ch = text(offset, offset + 1);
        const QFontMetrics metrics(edit()->font());
        if (ch.isEmpty() || metrics.horizontalAdvance(ch) == 0) return {};
        const QString all = edit()->text();
        const QRect caret = edit()->inputMethodQuery(Qt::ImCursorRectangle).toRect();
        const int x = caret.center().x() + metrics.horizontalAdvance(all.left(offset)) -
                      metrics.horizontalAdvance(all.left(edit()->cursorPosition()));
        return {edit()->mapToGlobal(QPoint(x, caret.top())),
                QSize(metrics.horizontalAdvance(ch), metrics.height())};
    }
    int offsetAtPoint(const QPoint& point) const override {
        return edit()->cursorPositionAt(edit()->mapFromGlobal(point));
    }
    void scrollToSubstring(int start, int end) override {
        edit()->setCursorPosition(end);
        edit()->setCursorPosition(start);
    }
    QString attributes(int offset, int* start, int* end) const override {
        *start = *end = offset;  // one font and colour throughout
        return {};
    }

    void deleteText(int start, int end) override {
        edit()->setText(edit()->text().remove(start, end - start));
    }
    void insertText(int offset, const QString& text) override {
        edit()->setText(edit()->text().insert(offset, text));
    }
    void replaceText(int start, int end, const QString& text) override {
        edit()->setText(edit()->text().replace(start, end - start, text));
    }

  private:
    QLineEdit* edit() const { return static_cast<QLineEdit*>(widget()); }
};

// The document's line ends read as LF; a lone CR, held as a line separator, as itself.
class TextEditReader : public TextReader {
  public:
    explicit TextEditReader(QTextEdit* edit) : TextReader(edit, QAccessible::EditableText) {}

    QString text(QAccessible::Text t) const override {
        if (t == QAccessible::Value) return edit()->toPlainText();
        return QAccessibleWidget::text(t);
    }
    // What a screen reader puts in is typed text, never markup.
    void setText(QAccessible::Text t, const QString& text) override {
        if (t != QAccessible::Value)
            QAccessibleWidget::setText(t, text);
        else if (!edit()->isReadOnly())
            edit()->setPlainText(text);
    }
    QAccessible::State state() const override {
        QAccessible::State s = QAccessibleWidget::state();
        s.selectableText = true;
        s.multiLine = true;
        s.readOnly = edit()->isReadOnly();
        s.editable = !edit()->isReadOnly();
        return s;
    }

    QString text(int start, int end) const override {
        return selected(start, end).selectedText().replace(QChar::ParagraphSeparator, u'\n');
    }
    int characterCount() const override { return edit()->document()->characterCount() - 1; }
    int cursorPosition() const override { return edit()->textCursor().position(); }
    void setCursorPosition(int position) override { edit()->setTextCursor(at(position)); }
    int selectionCount() const override { return edit()->textCursor().hasSelection() ? 1 : 0; }
    void selection(int index, int* start, int* end) const override {
        *start = *end = 0;
        const QTextCursor cursor = edit()->textCursor();
        if (index != 0 || !cursor.hasSelection()) return;
        *start = cursor.selectionStart();
        *end = cursor.selectionEnd();
    }
    void setSelection(int index, int start, int end) override {
        if (index != 0) return;
        edit()->setTextCursor(selected(start, end));
    }
    void removeSelection(int index) override {
        if (index != 0) return;
        QTextCursor cursor = edit()->textCursor();
        cursor.clearSelection();
        edit()->setTextCursor(cursor);
    }
    QRect characterRect(int offset) const override {
        const QString ch = text(offset, offset + 1);
        if (offset < 0 || ch.isEmpty()) return {};
        QRect r = edit()->cursorRect(at(offset));
        r.setWidth(QFontMetrics(edit()->font()).horizontalAdvance(ch));
        r.moveTo(edit()->viewport()->mapToGlobal(r.topLeft()));
        return r;
    }
    int offsetAtPoint(const QPoint& point) const override {
        const QPoint inDocument = edit()->viewport()->mapFromGlobal(point) + scrolled();
        return edit()->document()->documentLayout()->hitTest(inDocument, Qt::ExactHit);
    }
    // Scrolls the piece into view; the caret stays where it is.
    void scrollToSubstring(int start, int end) override {
        const QRect piece = edit()->cursorRect(at(start)).united(edit()->cursorRect(at(end)));
        const QRect view = edit()->viewport()->rect();
        const auto by = [](int low, int high, int viewLow, int viewHigh) {
            return low < viewLow ? low - viewLow : high > viewHigh ? high - viewHigh : 0;
        };
        QScrollBar* across = edit()->horizontalScrollBar();
        QScrollBar* down = edit()->verticalScrollBar();
        across->setValue(across->value() + by(piece.left(), piece.right(), 0, view.right()));
        down->setValue(down->value() + by(piece.top(), piece.bottom(), 0, view.bottom()));
    }
    // The box holds plain text, in its own font and alignment throughout.
    QString attributes(int offset, int* start, int* end) const override {
        const int n = characterCount();
        if (offset == -2) offset = cursorPosition();
        if (offset == -1) offset = n;
        *start = *end = -1;
        if (offset < 0 || offset > n) return {};
        *start = 0;
        *end = n;
        const QFont font = edit()->font();
        const QString size =
            font.pointSize() > 0 ? QStringLiteral("font-size:%1pt;").arg(font.pointSize()) : "";
        const Qt::Alignment align = edit()->document()->defaultTextOption().alignment();
        return QStringLiteral(
                   "font-family:\"%1\";%2font-weight:%3;font-style:%4;text-position:baseline;text-"
                   "align:%5;")
            .arg(font.family(), size, font.bold() ? "bold" : "normal",
                 font.italic() ? "italic" : "normal",
                 align & Qt::AlignHCenter   ? "center"
                 : align & Qt::AlignRight   ? "right"
                 : align & Qt::AlignJustify ? "justify"
                                            : "left");
    }

    void deleteText(int start, int end) override { selected(start, end).removeSelectedText(); }
    void insertText(int offset, const QString& text) override { at(offset).insertText(text); }
    void replaceText(int start, int end, const QString& text) override {
        selected(start, end).insertText(text);
    }

  protected:
    // A paragraph laid out on screen wraps over lines: the line is the one shown.
    Span lineAround(const QString& all, int p) const override {
        const QTextBlock block = edit()->document()->findBlock(p);
        const QTextLayout* layout = block.layout();
        const QTextLine line =
            layout ? layout->lineForTextPosition(p - block.position()) : QTextLine();
        if (!line.isValid()) return TextReader::lineAround(all, p);
        const int start = block.position() + line.textStart();
        const bool last = line.lineNumber() == layout->lineCount() - 1;  // with the line end
        const int end = qMin(last ? block.position() + block.length() : start + line.textLength(),
                             int(all.size()));
        if (start <= p && p < end) return {start, end};
        return TextReader::lineAround(all, p);
    }

  private:
    QTextEdit* edit() const { return static_cast<QTextEdit*>(widget()); }
    QTextCursor at(int offset) const {
        QTextCursor cursor(edit()->document());
        cursor.setPosition(qBound(0, offset, characterCount()));
        return cursor;
    }
    QTextCursor selected(int start, int end) const {
        QTextCursor cursor = at(start);
        cursor.setPosition(qBound(0, end, characterCount()), QTextCursor::KeepAnchor);
        return cursor;
    }
    QPoint scrolled() const {
        return {edit()->horizontalScrollBar()->value(), edit()->verticalScrollBar()->value()};
    }
};

}  // namespace

QAccessibleInterface* NewTextReader(QWidget* input) {
    if (auto* edit = qobject_cast<QLineEdit*>(input)) return new LineEditReader(edit);
    if (auto* edit = qobject_cast<QTextEdit*>(input)) return new TextEditReader(edit);
    return nullptr;
}

}  // namespace gui::detail

#include "gui/multi_line_box.h"

#include <QKeyEvent>
#include <QMimeData>
#include <limits>

namespace gui::detail {
namespace {

// The document breaks a line at a block end (CR LF) or at a line separator (a lone CR). A
// lone LF, as text from other programs ends its lines, is a line end too.
QString ToDocument(QString text) {
    text.replace(QStringLiteral("\r\n"), QChar(QChar::ParagraphSeparator));
    text.replace(u'\r', QChar(QChar::LineSeparator));
    text.replace(u'\n', QChar(QChar::ParagraphSeparator));
    return text;
}

QString FromDocument(QString text, const QString& lineEnd) {
    text.replace(QChar(QChar::ParagraphSeparator), lineEnd);
    text.replace(QChar(QChar::LineSeparator), u'\r');
    return text;
}

// What a character of the document takes of Text(): a block end is CR LF.
qsizetype TextLength(QChar c) {
    return c == QChar(QChar::ParagraphSeparator) ? 2 : 1;
}

// The longest start of document text that takes at most `room` characters of Text(), never
// half a surrogate pair.
QString FittingStart(const QString& text, qsizetype room) {
    qsizetype at = 0;
    for (qsizetype used = 0; at < text.size(); ++at) {
        used += TextLength(text[at]);
        if (used > room) break;
    }
    if (at > 0 && at < text.size() && text[at - 1].isHighSurrogate()) --at;
    return text.left(at);
}

}  // namespace

QString MultiLineBox::Text() const {
    // The raw text, unlike toPlainText, keeps no-break spaces and line separators.
    return FromDocument(document()->toRawText(), QStringLiteral("\r\n"));
}

void MultiLineBox::setText(const QString& text) {
    setPlainText(ToDocument(text));
}

qsizetype MultiLineBox::room() const {
    if (maxLength_ <= 0) return std::numeric_limits<qsizetype>::max();
    qsizetype selected = 0;
    for (const QChar c : textCursor().selectedText()) selected += TextLength(c);
    return maxLength_ - (Text().size() - selected);
}

bool MultiLineBox::canInsertFromMimeData(const QMimeData* source) const {
    return source && source->hasText();
}

void MultiLineBox::insertFromMimeData(const QMimeData* source) {
    if (!canInsertFromMimeData(source)) return;
    QTextCursor cursor = textCursor();
    cursor.insertText(FittingStart(ToDocument(source->text()), room()));
    setTextCursor(cursor);
    ensureCursorVisible();
}

// A copy keeps the lone CR and the no-break space, so that it pastes back as it was.
QMimeData* MultiLineBox::createMimeDataFromSelection() const {
    auto* data = new QMimeData;
    data->setText(FromDocument(textCursor().selectedText(), QStringLiteral("\n")));
    return data;
}

void MultiLineBox::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    // What the key puts in: a line end, or the characters it gives (not a control's code).
    const QString typed = event->text();
    const qsizetype adds =
        enter ? 2
              : (!typed.isEmpty() && typed[0] >= u' ' && typed[0] != u'\x7F' ? typed.size() : 0);
    if (maxLength_ > 0 && adds > 0 && adds > room()) {
        event->accept();
        return;
    }
    if (enter && event->modifiers() & Qt::ShiftModifier) {
        // Qt would put a line separator there, which the file gets as a lone CR.
        QKeyEvent plain(event->type(), event->key(), event->modifiers() & ~Qt::ShiftModifier,
                        event->text(), event->isAutoRepeat(), ushort(event->count()));
        QTextEdit::keyPressEvent(&plain);
        event->setAccepted(plain.isAccepted());
        return;
    }
    QTextEdit::keyPressEvent(event);
}

}  // namespace gui::detail

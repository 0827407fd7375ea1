#include "gui/multi_line_box.h"

#include <QKeyEvent>
#include <QMimeData>

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

}  // namespace

QString MultiLineBox::Text() const {
    // The raw text, unlike toPlainText, keeps no-break spaces and line separators.
    return FromDocument(document()->toRawText(), QStringLiteral("\r\n"));
}

void MultiLineBox::setText(const QString& text) {
    setPlainText(ToDocument(text));
}

bool MultiLineBox::canInsertFromMimeData(const QMimeData* source) const {
    return source && source->hasText();
}

void MultiLineBox::insertFromMimeData(const QMimeData* source) {
    if (!canInsertFromMimeData(source)) return;
    QTextCursor cursor = textCursor();
    cursor.insertText(ToDocument(source->text()));
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

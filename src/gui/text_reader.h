#pragma once
// Inside gui/ only: what a screen reader reads of a text input.

class QAccessibleInterface;
class QWidget;

namespace gui::detail {

// Reads a line edit or a text edit as Qt does, but for the piece of text around an offset (the
// character, word, sentence, line or paragraph at, before or after it). Qt 6.4 looks for that
// piece in a line edit with a search that never ends at some offsets (the word at the end of
// the text), and in a text edit gives the piece at the offset when asked for the one after it.
// Here the text is walked from its start, a piece at a time. Null for any other widget.
QAccessibleInterface* NewTextReader(QWidget* input);

}  // namespace gui::detail

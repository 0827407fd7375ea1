#pragma once
// Inside gui/ only: what a screen reader hears of a control where Qt's own answer does not
// fit the form.

class QWidget;

namespace gui::detail {

// Named like any input: by the label whose buddy it is, else by the frame around it. Qt
// names an editable combo box on Linux by the text in it, so the cell editor would tell
// the value but never the column it edits.
void NameLikeAnInput(QWidget* comboBox);

// A line is decoration: a separator without a name, not a frame titled like its page.
void SpeakAsSeparator(QWidget* line);

}  // namespace gui::detail

#pragma once
// Inside gui/ only: what a screen reader hears of a control where Qt's own answer does not
// fit the form. Each is called on the new widget before anything else, since Qt keeps the
// answer it first gave for a widget.

#include <QString>
#include <functional>

class QAbstractItemView;
class QWidget;

namespace gui::detail {

// Qt names a widget that has no name of its own by the title of the frame around it, so a
// frame on a page, and an empty label, would be read as the page's title. These are named
// by what they show now: the frame by its title, the label by its text, empty or not.
void NameByTitle(QWidget* frame);
void NameByText(QWidget* label);

// Named like any input: by the label whose buddy it is, else by the frame around it. Qt
// names an editable combo box on Linux by the text in it, so the cell editor would tell
// the value but never the column it edits.
void NameLikeAnInput(QWidget* comboBox);

// A line is decoration: a separator without a name, not a frame.
void SpeakAsSeparator(QWidget* line);
// A still picture is decoration too: an image without a name.
void SpeakAsPicture(QWidget* picture);

// An option is also labelled by the label set as its property "rigwrightLabelledBy".
void SpeakAsOption(QWidget* option);

// A line edit or text edit reads its text a character, word, sentence or line at a time, each
// question answered at once: Qt 6.4's own reading of a line edit never answers some of them.
void SpeakAsTextInput(QWidget* input);

// A list says which of its lines is current each time it takes the focus. Qt says only that
// the list has the focus, of which a screen reader reads the list's name and not the line.
void SpeakCurrentLineOnFocus(QAbstractItemView* list);

// The window is read as a frame, the kind of object a screen reader takes for a window.
void SpeakAsWindow(QWidget* window);

// Says a text to a screen reader without moving the focus: a notification that comes on
// screen with the text as its name. The texts said in one turn of the event loop are said
// together, once. `check`, when given, runs as the turn ends and may add what it returns.
void Announce(QWidget* window, const QString& text, std::function<QString()> check = {});

}  // namespace gui::detail

#pragma once
// The modal dialogs: the message box and the save dialog. Tests answer them through the
// seams in gui/seams.h; without a queued answer the real Qt dialog runs.

#include <QFlags>
#include <QString>

namespace gui {

// What a message box shows besides its text: its buttons, its picture and the button that
// Return presses. The values are QMessageBox's own, so that they pass to it as they are;
// QMessageBox is a widget class, which only gui/ includes.
enum class MsgButton : int { None = 0, Ok = 0x400, Yes = 0x4000, No = 0x10000 };
Q_DECLARE_FLAGS(MsgButtons, MsgButton)
Q_DECLARE_OPERATORS_FOR_FLAGS(MsgButtons)
enum class MsgIcon : int { None = 0, Information = 1, Warning = 2, Critical = 3 };

struct MsgStyle {
    MsgButtons buttons = MsgButton::Ok;
    MsgIcon icon = MsgIcon::None;
    MsgButton defaultButton = MsgButton::None;  // none: the box picks one by the buttons' roles
    bool operator==(const MsgStyle&) const = default;
};

// Shows a modal message box; returns the button pressed. The close box gives the button that
// Escape presses: No where there is one, else Ok.
MsgButton MsgBox(const QString& text, const MsgStyle& style, const QString& title);

// The save-file dialog with what the save flow sets on it.
struct SaveDialog {
    QString DialogTitle;
    QString Filter;  // "name|pattern", as "*.R20|*.R20"
    bool OverwritePrompt = true;
    QString FileName;  // in: the proposed name; out: the chosen name with its whole path
    // Runs the dialog. False when the user cancelled or the dialog failed.
    bool ShowSave();
};

}  // namespace gui

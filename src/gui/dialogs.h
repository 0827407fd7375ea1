#pragma once
// The modal dialogs: the message box and the save dialog. Tests answer them through the
// seams in gui/seams.h; without a queued answer the real Qt dialog runs.

#include <QString>

namespace gui {

// Message box styles and answers, by their numbers.
enum MsgStyle : int {
    kOkOnly = 0,
    kYesNo = 4,
    kCritical = 16,
    kExclamation = 48,
    kInformation = 64,
    kDefaultButton2 = 256,
};
enum MsgAnswer : int { kAnswerOk = 1, kAnswerCancel = 2, kAnswerYes = 6, kAnswerNo = 7 };

// Shows a modal message box; returns the button pressed.
int MsgBox(const QString& text, int style, const QString& title);

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

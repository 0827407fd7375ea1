#pragma once
// The dialogs that bring a fixture in: the open-file dialog and the list a mode is chosen
// from. Tests answer the open dialog through gui/seams.h; the list is driven by keys.

#include <QString>
#include <QStringList>

namespace gui {

// The open-file dialog: the platform's own where it has one.
struct OpenDialog {
    QString DialogTitle;
    QStringList Filters;     // as "Fixture definitions (*.R20 *.r20)"
    QString InitDir;         // the folder it starts in, empty for the working folder
    QString SelectedFilter;  // the filter it starts with, empty for the first
    QString FileName;        // out: the chosen file with its whole path
    // Runs the dialog. False when the user cancelled.
    bool ShowOpen();
};

// A modal list of `lines`, line `current` selected, under `title`; `listName` is what a screen
// reader calls the list. The index picked with Enter, OK or a double click; -1 for Escape.
int ChooseFromList(const QString& title, const QString& listName, const QStringList& lines,
                   int current = 0);

}  // namespace gui

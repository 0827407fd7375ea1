#include "wizard/open_fixture.h"

#include <QFileInfo>

#include "gui/dialogs.h"
#include "input/fixture_reader.h"
#include "wizard/main_form.h"

namespace {

void SelectFixtureType(MainForm& f, const input::FixtureFile& file) {
    f.degreespan.setText(file.pan);
    f.degreestilt.setText(file.tilt);
    if (file.mirrorKind == 1) {
        f.mirror.setValue(true);
    } else if (file.mirrorKind == 2) {
        f.movinghead.setValue(true);
    } else if (file.pan == u"0" && file.tilt == u"0") {
        // Kind 0 with no degrees is what the other kind writes; any other kind 0 is a
        // fixture with no type chosen and the degrees typed by hand.
        f.otherkind.setValue(true);
    }
}

// The file's rows take the place of the table's rows; a file without channel lines leaves
// one row that reaches no line of the file.
void FillChannelTable(MainForm& f, const input::FixtureFile& file) {
    gui::Grid& table = f.table;
    if (file.channelRows.isEmpty()) {
        table.setTextMatrix(1, 2, QString());
        return;
    }
    const int startRows = table.Rows() - 1;
    for (const QStringList& cells : file.channelRows) {
        table.AddItem(QStringLiteral("#"));
        const int row = table.Rows() - 1;
        // Cell by cell, since a comment may hold a tab.
        for (int column = 1; column < cells.size(); ++column)
            table.setTextMatrix(row, column, cells[column]);
    }
    for (int i = 0; i < startRows; ++i) table.RemoveItem(1);
}

}  // namespace

void FillFromFixture(MainForm& f, const input::FixtureFile& file) {
    f.manifacturer.setText(file.manufacturer);
    f.model.setText(file.model);
    f.nameondesk.setText(file.nameOnDesk);
    SelectFixtureType(f, file);
    FillChannelTable(f, file);
    f.patchdisplay.setText(file.patchText);
}

void OpenFixtureFile(MainForm& f, const QString& path) {
    const input::ReadOutcome outcome = input::ReadFixtureFile(path);
    if (!outcome.fixture) {
        gui::MsgBox(
            QStringLiteral("File ") + path + QStringLiteral(" could not be read: ") + outcome.error,
            gui::kCritical, f.main.Caption());
        return;
    }
    FillFromFixture(f, *outcome.fixture);
    const QFileInfo opened(path);
    if (opened.suffix().compare(QStringLiteral("R20"), Qt::CaseInsensitive) == 0)
        f.OpenedFile = opened.absoluteFilePath();
}

#include "wizard/open_fixture.h"

#include <QDir>
#include <QFileInfo>

#include "channels/cell_editor.h"
#include "common/channel_presets.h"
#include "gui/choosers.h"
#include "gui/dialogs.h"
#include "gui/grid_model.h"
#include "input/fixture_source.h"
#include "input/qxf_mapping.h"
#include "wizard/engine.h"
#include "wizard/main_form.h"

namespace {

void SelectFixtureType(MainForm& f, const common::Fixture& fixture) {
    using common::FixtureType;
    f.degreespan.setText(fixture.pan);
    f.degreestilt.setText(fixture.tilt);
    switch (fixture.type) {
        case FixtureType::kMirror:
            f.mirror.setValue(true);
            break;
        case FixtureType::kMovingHead:
            f.movinghead.setValue(true);
            break;
        case FixtureType::kOther:
            f.otherkind.setValue(true);
            break;
        case FixtureType::kNone:
            for (gui::OptionButton* option : {&f.movinghead, &f.mirror, &f.otherkind})
                option->setValue(false);
            break;
    }
}

// The fixture's rows take the place of the table's rows; a fixture without channel rows
// leaves one empty row that reaches no line of the file.
void FillChannelTable(MainForm& f, common::TextTable rows) {
    if (rows.rows() == 0) {
        rows.appendRow();
        rows.setCell(0, common::kMark, u"1");
    }
    f.table.model()->ReplaceBody(std::move(rows));
}

// Whether the pages hold anything beyond what the wizard starts with.
bool PagesHoldData(const MainForm& f) {
    for (const gui::TextBox* box : {&f.manifacturer, &f.model, &f.nameondesk})
        if (!box->Text().isEmpty()) return true;
    if (f.movinghead.Value() || f.mirror.Value() || f.otherkind.Value()) return true;
    if (f.patchdisplay.Text() != QString::fromLatin1(common::kDefaultPatchText)) return true;
    if (f.table.Rows() > 2) return true;
    for (int column = 1; column < f.table.Cols(); ++column)
        if (f.table.TextMatrix(1, column) != (column == 2 ? QStringLiteral("0") : QString()))
            return true;
    return false;
}

// The messages name the path as the system writes it: the open dialog and a dropped file give
// "/" on Windows too.
void Refuse(MainForm& f, const QString& path, const QString& reason) {
    gui::MsgBox(QStringLiteral("File ") + QDir::toNativeSeparators(path) +
                    QStringLiteral(" could not be read: ") + reason,
                {.icon = gui::MsgIcon::Critical}, f.main.Caption());
}

// The line of the list for a mode: its name as one line, cut where a line of a list ends
// being readable, and how many channels it has.
QString ModeLine(const input::QxfMode& mode) {
    constexpr qsizetype kLongest = 100;
    QString line = input::OneLine(mode.name.left(kLongest));
    if (mode.name.size() > kLongest) line += u'\u2026';
    const qsizetype count = mode.channels.size();
    if (count == 0) return line + QStringLiteral(" (no channels)");
    return line + QStringLiteral(" (%1 channel%2)").arg(count).arg(count == 1 ? "" : "s");
}

// The pages from a mode of a QLC+ fixture: the one `choice` names, the only one, or the one
// the user picks from the list. A picked mode that cannot fill the pages says why and the list
// comes back, so a file is never refused for one mode of many. Nothing when there is no such
// mode or the user left the list.
std::optional<common::Fixture> PickMode(MainForm& f, const QString& path,
                                        const input::QxfFixture& fixture, const QString& choice) {
    const auto mapped = [&](int mode) {
        input::ReadOutcome read = input::MapQxfMode(fixture, mode);
        if (!read.fixture) Refuse(f, path, read.error);
        return std::move(read.fixture);
    };
    if (!choice.isEmpty()) {
        const std::optional<int> found = input::FindQxfMode(fixture, choice);
        if (found) return mapped(*found);
        Refuse(f, path, QStringLiteral("the fixture has no mode \"%1\"").arg(choice));
        return std::nullopt;
    }
    if (fixture.modes.size() == 1) return mapped(0);
    QStringList lines;
    lines.reserve(fixture.modes.size());
    for (const input::QxfMode& mode : fixture.modes) lines << ModeLine(mode);
    // Titled with the names as the pages show them.
    const QString title = input::OneLine(fixture.manufacturer.left(common::kNameLength) + u' ' +
                                         fixture.model.left(common::kNameLength));
    for (int picked = 0;;) {
        picked = gui::ChooseFromList(title, QStringLiteral("Modes"), lines, picked);
        if (picked < 0) return std::nullopt;
        input::ReadOutcome read = input::MapQxfMode(fixture, picked);
        if (read.fixture) return std::move(read.fixture);
        gui::MsgBox(QStringLiteral("This mode cannot fill the pages: %1. Choose another one.")
                        .arg(read.error),
                    {.icon = gui::MsgIcon::Warning}, f.main.Caption());
    }
}

}  // namespace

void FillFromFixture(MainForm& f, common::Fixture fixture) {
    f.manifacturer.setText(fixture.manufacturer);
    f.model.setText(fixture.model);
    f.nameondesk.setText(fixture.nameOnDesk);
    SelectFixtureType(f, fixture);
    FillChannelTable(f, std::move(fixture.channels));
    f.patchdisplay.setText(fixture.patchText);
}

void ShowOpenedFixture(MainForm& f, common::Fixture fixture) {
    table_Click(f);
    FillFromFixture(f, std::move(fixture));
    f.CurrentStep = 0;
    ShowStep(f);
}

bool OpenFixtureFile(MainForm& f, const QString& path, const QString& mode) {
    input::FixtureSource source = input::ReadFixtureSource(path);
    const bool written = source.written.has_value();
    std::optional<common::Fixture> file = std::move(source.written);
    if (source.qxf) {
        file = PickMode(f, path, *source.qxf, mode);
        if (!file) return false;
    }
    if (!file) {
        Refuse(f, path, source.error);
        return false;
    }
    if (file->patchText.size() > common::kMaxPatchTextLength) {
        Refuse(f, path,
               QStringLiteral("its patch text holds %1 characters, more than the box takes (%2)")
                   .arg(file->patchText.size())
                   .arg(common::kMaxPatchTextLength));
        return false;
    }
    // A value still in the cell editor is something typed too: stored first, as a click
    // elsewhere on the grid stores it, so that the question sees it and a No keeps it.
    if (f.editframe.Visible()) table_Click(f);
    if (PagesHoldData(f)) {
        const gui::MsgButton answer =
            gui::MsgBox(QStringLiteral("Replace what the pages hold with the fixture of %1?")
                            .arg(QDir::toNativeSeparators(path)),
                        {.buttons = gui::MsgButton::Yes | gui::MsgButton::No,
                         .icon = gui::MsgIcon::Warning,
                         .defaultButton = gui::MsgButton::No},
                        f.main.Caption());
        if (answer != gui::MsgButton::Yes) return false;
    }
    ShowOpenedFixture(f, std::move(*file));
    // The first save proposes the file that was opened, in the system's way of writing it; a
    // QLC+ fixture is no file to replace.
    f.OpenedFile =
        written ? QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath()) : QString();
    return true;
}

void openfixture_Click(MainForm& f) {
    gui::OpenDialog dialog;
    dialog.DialogTitle = QStringLiteral("Open a fixture");
    dialog.Filters = {QStringLiteral("Fixture definitions (*.R20 *.r20)"),
                      QStringLiteral("QLC+ fixtures (*.qxf)")};
    // Where QLC+ keeps fixture definitions: the user's own first, then the installed ones.
    for (const QString& folder : {QDir::homePath() + QStringLiteral("/.qlcplus/fixtures"),
                                  QStringLiteral("/usr/share/qlcplus/fixtures")}) {
        if (QFileInfo(folder).isDir()) {
            dialog.InitDir = folder;
            dialog.SelectedFilter = dialog.Filters.last();  // what that folder holds
            break;
        }
    }
    if (dialog.ShowOpen()) OpenFixtureFile(f, dialog.FileName);
}

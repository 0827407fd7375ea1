#include "output/save_flow.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <algorithm>

#include "gui/dialogs.h"
#include "gui/system.h"
#include "output/fixture_file.h"
#include "output/form_fixture.h"
#include "wizard/main_form.h"

namespace {

// The writer gathers its bytes itself; the files are opened unbuffered so that a write the
// system takes only in part shows at once and is not lost in a later flush.
constexpr QIODevice::OpenMode kWriteMode = QIODevice::WriteOnly | QIODevice::Unbuffered;

QString DefaultName(const MainForm& f) {
    const QString name = f.nameondesk.Text();
    // Blanks are spaces only: a name of tabs or no-break spaces is proposed as it stands.
    const bool blank = std::all_of(name.cbegin(), name.cend(), [](QChar c) { return c == u' '; });
    if (blank) return QStringLiteral("MyFixture.R20");
    return name + QStringLiteral(".R20");
}

}  // namespace

std::optional<QString> SaveFixtureFile(const common::Fixture& fixture, const QString& path,
                                       const QDateTime& saved) {
    // A pipe or a device is no file to replace: writing into it could wait for ever on a
    // reader, and the window with it.
    const QFileInfo target(path);
    if (target.exists() && !target.isFile() && !target.isDir())
        return QStringLiteral("Not a regular file");

    // The new text goes to a temporary file beside the target, which replaces the target
    // only once complete; on any failure the temporary file is removed and the old file
    // stays as it was.
    QSaveFile file(path);
    if (!file.open(kWriteMode)) return file.errorString();
    const WriteOutcome written = WriteFixtureFile(fixture, path, saved, file);
    if (!written.ok) {
        file.cancelWriting();
        return written.error;
    }
    if (!file.commit()) return file.errorString();
    return std::nullopt;
}

void finished_Click(MainForm& f) {
    const QString caption = f.main.Caption();
    gui::SaveDialog browse;
    browse.DialogTitle = caption;
    browse.Filter = QStringLiteral("*.R20|*.R20");
    browse.OverwritePrompt = true;
    // After a file was opened, the first save proposes that file, where it is.
    browse.FileName = f.OpenedFile.isEmpty() ? DefaultName(f) : f.OpenedFile;
    if (!browse.ShowSave() || browse.FileName.isEmpty()) return;
    f.OpenedFile.clear();

    // The name as the user knows it, with the system's own separators.
    const QString path = QDir::toNativeSeparators(browse.FileName);
    if (const std::optional<QString> reason = SaveFixtureFile(ReadForm(f), path, gui::Now())) {
        gui::MsgBox(
            QStringLiteral("File ") + path + QStringLiteral(" could not be written: ") + *reason,
            {.icon = gui::MsgIcon::Critical}, caption);
        return;
    }
    gui::MsgBox(QStringLiteral("File ") + path + QStringLiteral(" has been created!"),
                {.icon = gui::MsgIcon::Information}, caption);
}

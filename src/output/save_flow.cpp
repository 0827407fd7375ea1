#include "output/save_flow.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include "gui/dialogs.h"
#include "output/fixture_file.h"
#include "wizard/main_form.h"

namespace {

// The writer gathers its bytes itself; the files are opened unbuffered so that a write the
// system takes only in part shows at once and is not lost in a later flush.
constexpr QIODevice::OpenMode kWriteMode = QIODevice::WriteOnly | QIODevice::Unbuffered;

// A device or a pipe cannot be replaced by a finished temporary file: it is written in place.
std::optional<QString> WriteInPlace(const MainForm& f, const QString& path) {
    QFile file(path);
    if (!file.open(kWriteMode)) return file.errorString();
    const WriteOutcome written = WriteFixtureFile(f, path, file);
    if (!written.ok) return written.error;
    return std::nullopt;
}

QString DefaultName(const MainForm& f) {
    const QString name = f.nameondesk.Text();
    if (name.trimmed().isEmpty()) return QStringLiteral("MyFixture.R20");
    return name + QStringLiteral(".R20");
}

}  // namespace

std::optional<QString> SaveFixtureFile(const MainForm& f, const QString& path) {
    const QFileInfo target(path);
    if (target.exists() && !target.isFile() && !target.isDir()) return WriteInPlace(f, path);

    // The new text goes to a temporary file beside the target, which replaces the target
    // only once complete; on any failure the temporary file is removed and the old file
    // stays as it was.
    QSaveFile file(path);
    if (!file.open(kWriteMode)) return file.errorString();
    const WriteOutcome written = WriteFixtureFile(f, path, file);
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
    browse.FileName = DefaultName(f);
    if (!browse.ShowSave() || browse.FileName.isEmpty()) return;

    // The name as the user knows it, with the system's own separators.
    const QString path = QDir::toNativeSeparators(browse.FileName);
    if (const std::optional<QString> reason = SaveFixtureFile(f, path)) {
        gui::MsgBox(
            QStringLiteral("File ") + path + QStringLiteral(" could not be written: ") + *reason,
            gui::kCritical, caption);
        return;
    }
    gui::MsgBox(QStringLiteral("File ") + path + QStringLiteral(" has been created!"),
                gui::kInformation, caption);
}

#include "output/save_flow.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSaveFile>
#include <algorithm>
#include <cstdio>
#ifdef Q_OS_WIN
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

#include "common/system_names.h"
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

// Puts what was written to `file` on the disk, as QSaveFile does before the new file takes its
// name: after a power cut the name holds the old file or the new one, never an empty one.
void SyncToDisk(QFile& file) {
    const int handle = file.handle();
    if (handle < 0) return;
#ifdef Q_OS_WIN
    _commit(handle);
#else
    fdatasync(handle);
#endif
}

// Gives the file `from` the name `to` in one step. Only the name is looked at, never where a
// link of that name leads; without `replace`, nothing that holds the name is replaced.
std::optional<QString> MoveOnto(const QString& from, const QString& to, bool replace) {
    const std::filesystem::path source = common::SystemPath(from);
    const std::filesystem::path target = common::SystemPath(to);
    std::error_code error;
    if (replace) {
        std::filesystem::rename(source, target, error);
    } else {
#ifdef Q_OS_WIN
        // Windows gives a file a name that is taken only when told to.
        bool moved = _wrename(source.c_str(), target.c_str()) == 0;
#else
        bool moved =
            renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0;
        // A file system that cannot refuse a taken name by itself (NFS): look, then move.
        if (!moved && errno == EINVAL) {
            std::error_code gone;
            if (std::filesystem::exists(std::filesystem::symlink_status(target, gone)))
                errno = EEXIST;
            else
                moved = std::rename(source.c_str(), target.c_str()) == 0;
        }
#endif
        if (!moved) error = std::error_code(errno, std::generic_category());
    }
    if (!error) return std::nullopt;
    return QString::fromLocal8Bit(error.message());
}

}  // namespace

StagedFile StageLibraryFile(const QByteArray& bytes, const QString& path, bool replace) {
    // QSaveFile follows a link at the target on purpose and writes where it leads. Here the
    // text goes to a file made new for it beside the target, never one that was there, and
    // that file takes the target's name once it is complete.
    const QDir folder = QFileInfo(path).dir();
    QFile file;
    for (int tries = 0;; ++tries) {
        file.setFileName(folder.filePath(
            QStringLiteral(".rigwright-%1.tmp")
                .arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'))));
        if (file.open(QIODevice::NewOnly | kWriteMode)) break;
        if (tries == 9) return {{}, file.errorString()};
    }
    if (replace) file.setPermissions(QFileInfo(path).permissions());  // as QSaveFile keeps them
    const WriteOutcome written = SendBytes(bytes, file);
    if (written.ok) SyncToDisk(file);
    file.close();
    if (!written.ok || file.error() != QFileDevice::NoError) {
        file.remove();
        return {{}, written.ok ? file.errorString() : written.error};
    }
    return {file.fileName(), std::nullopt};
}

std::optional<QString> PlaceLibraryFile(const StagedFile& staged, const QString& path,
                                        bool replace) {
    if (staged.error) return staged.error;
    const std::optional<QString> failed = MoveOnto(staged.name, path, replace);
    if (failed) QFile::remove(staged.name);
    return failed;
}

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

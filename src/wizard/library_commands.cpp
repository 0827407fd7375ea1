#include "wizard/library_commands.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QSet>
#include <QTemporaryFile>
#include <functional>
#ifdef Q_OS_WIN
#include <io.h>
#define isatty _isatty
#define fileno _fileno
#else
#include <unistd.h>
#endif

#include "gui/system.h"
#include "input/command_line.h"
#include "input/fixture_source.h"
#include "input/qxf_mapping.h"
#include "output/save_flow.h"
#include "wizard/advice.h"
#include "wizard/fixture_pages.h"

namespace {

constexpr int kProgressFrom = 50;  // fewer files than this go by too fast to need it

// One fixture to fill the form with: a written fixture file, or one mode of a QLC+ fixture.
struct Job {
    QString name;  // how the reports name it: the file, and the mode of a QLC+ fixture
    QString stem;  // manufacturer, model and mode, for the name of a converted file
    std::optional<common::Fixture> fixture;
    QString error;  // why it was refused
};

QString ModeName(const QString& path, const input::QxfMode& mode) {
    return QStringLiteral("%1 (mode \"%2\")").arg(path, input::OneLine(mode.name));
}

// Letters, digits, "." and "_" of a text, as a part of a file name.
QString FileNamePart(const QString& text) {
    QString kept;
    for (const QChar c : text)
        if ((c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
            c == u'.' || c == u'_')
            kept += c;
    return kept.isEmpty() ? QStringLiteral("_") : kept;
}

// Whether files can be made in the folder, made first when missing. Only making one tells:
// the permission bits pass an administrator, yet /proc or a read-only mount refuse every file.
bool CanMakeFilesIn(const QDir& folder) {
    if (!QDir().mkpath(folder.path())) return false;
    QTemporaryFile probe(folder.filePath(QStringLiteral(".rigwright-XXXXXX")));
    return probe.open();
}

// Every fixture a file brings, handed to `take` one at a time: the file itself when it is a
// written fixture file, each mode of a QLC+ fixture (or the one `mode` names), or the reason it
// brings none. A mode is mapped only when its turn comes, so that a fixture of many thousand
// modes never has them all in memory at once.
void ForEachJob(const QString& path, const QString& mode, const std::function<void(Job&&)>& take) {
    input::FixtureSource source = input::ReadFixtureSource(path);
    if (source.written) {
        take({path, QFileInfo(path).completeBaseName(), std::move(source.written), {}});
        return;
    }
    if (!source.qxf) {
        take({path, {}, std::nullopt, source.error});
        return;
    }
    const input::QxfFixture& fixture = *source.qxf;
    QList<int> modes;
    if (mode.isEmpty()) {
        for (int i = 0; i < fixture.modes.size(); ++i) modes << i;
    } else if (const std::optional<int> found = input::FindQxfMode(fixture, mode)) {
        modes << *found;
    } else {
        take({path, {}, std::nullopt, QStringLiteral("the fixture has no mode \"%1\"").arg(mode)});
        return;
    }
    for (const int i : modes) {
        input::ReadOutcome mapped = input::MapQxfMode(fixture, i);
        const QString stem = FileNamePart(fixture.manufacturer) + u'-' +
                             FileNamePart(fixture.model) + u'-' +
                             FileNamePart(fixture.modes[i].name);
        take({ModeName(path, fixture.modes[i]), stem, std::move(mapped.fixture), mapped.error});
    }
}

// The reports of one run, and whether anything went wrong.
class Reports {
  public:
    Reports(const LibraryStreams& streams, qsizetype files)
        : streams_(streams),
          files_(files),
          showProgress_(streams.progress && files > kProgressFrom) {}
    ~Reports() { clearProgress(); }

    void say(const QString& text) {
        clearProgress();
        std::fputs((text + u'\n').toLocal8Bit().constData(), streams_.out);
    }
    void refuse(const QString& text) {
        failed_ = true;
        clearProgress();
        std::fputs((text + u'\n').toLocal8Bit().constData(), streams_.err);
    }
    void fileDone() {
        ++done_;
        if (!showProgress_) return;
        const QLocale english(QLocale::English);
        const QString line =
            QStringLiteral("\r%1 of %2").arg(english.toString(done_), english.toString(files_));
        std::fputs(line.toLocal8Bit().constData(), streams_.err);
        std::fflush(streams_.err);
        progressShown_ = true;
    }
    void markFailed() { failed_ = true; }
    int exitCode() const { return failed_ ? 1 : 0; }

  private:
    void clearProgress() {
        if (!progressShown_) return;
        std::fputs("\r\033[K", streams_.err);
        progressShown_ = false;
    }

    const LibraryStreams& streams_;
    qsizetype files_;
    qsizetype done_ = 0;
    bool showProgress_;
    bool progressShown_ = false;
    bool failed_ = false;
};

}  // namespace

LibraryStreams LibraryStreams::Standard() {
    return {stdout, stderr, isatty(fileno(stderr)) != 0};
}

int ConvertFixtures(const input::CommandLine& line, const LibraryStreams& streams) {
    const QDir target(line.targetDir);
    if (!CanMakeFilesIn(target)) {
        std::fputs(QStringLiteral("rigwright: cannot write into %1\n")
                       .arg(QDir::toNativeSeparators(line.targetDir))
                       .toLocal8Bit()
                       .constData(),
                   streams.err);
        return 1;
    }
    Reports reports(streams, line.files.size());
    QSet<QString> written;  // names given in this run, in lower case: none is given twice
    for (const QString& path : line.files) {
        ForEachJob(path, line.mode, [&](Job&& job) {
            if (!job.fixture) {
                reports.refuse(job.name + QStringLiteral(": ") + job.error);
                return;
            }
            QString name = job.stem + QStringLiteral(".R20");
            for (int n = 2; written.contains(name.toLower()); ++n)
                name = job.stem + u'-' + QString::number(n) + QStringLiteral(".R20");
            written.insert(name.toLower());
            const QString file = QDir::toNativeSeparators(target.absoluteFilePath(name));
            if (!line.force && QFileInfo::exists(file)) {
                reports.refuse(job.name + QStringLiteral(": ") + file +
                               QStringLiteral(" exists; --force replaces it"));
                return;
            }
            const common::Fixture finished = AtFinishPage(std::move(*job.fixture), gui::Now());
            if (const std::optional<QString> reason = SaveFixtureFile(finished, file, gui::Now())) {
                reports.refuse(job.name + QStringLiteral(": ") + file +
                               QStringLiteral(" could not be written: ") + *reason);
                return;
            }
            reports.say(file);
        });
        reports.fileDone();
    }
    return reports.exitCode();
}

int CheckFixtures(const input::CommandLine& line, const LibraryStreams& streams) {
    Reports reports(streams, line.files.size());
    for (const QString& path : line.files) {
        ForEachJob(path, line.mode, [&](Job&& job) {
            if (!job.fixture) {
                reports.refuse(job.name + QStringLiteral(": ") + job.error);
                return;
            }
            // The advice looks at no comment: only the degrees change on the way there.
            ApplyTypeDegrees(*job.fixture);
            const QString advice = FirstFault(*job.fixture);
            if (!advice.isEmpty()) reports.markFailed();
            reports.say(job.name + QStringLiteral(": ") +
                        (advice.isEmpty() ? QStringLiteral("ok") : advice));
        });
        reports.fileDone();
    }
    return reports.exitCode();
}

#include "wizard/library_commands.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QSet>
#include <QTemporaryFile>
#include <QThreadPool>
#include <algorithm>
#include <chrono>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#ifdef Q_OS_WIN
#include <io.h>
#define isatty _isatty
#define fileno _fileno
#else
#include <unistd.h>
#endif

#include "common/code_page.h"
#include "common/system_names.h"
#include "gui/system.h"
#include "input/command_line.h"
#include "input/file_arguments.h"
#include "input/fixture_source.h"
#include "input/qxf_mapping.h"
#include "output/fixture_file.h"
#include "output/save_flow.h"
#include "wizard/advice.h"
#include "wizard/fixture_pages.h"

namespace {

constexpr int kProgressFrom = 50;  // fewer files than this go by too fast to need it

// The longest file name most file systems take, in bytes (the names made here are ASCII), less
// the room for a number that keeps it apart ("-2" … "-99999") and ".R20".
constexpr qsizetype kMaxStem = 255 - 10;

// Messages are read on a terminal: a longer one is shortened in its longest parts, none of
// which becomes shorter than kShortestPart.
constexpr qsizetype kMaxMessage = 199;
constexpr qsizetype kShortestPart = 24;

// One fixture to fill the form with: a written fixture file, or one mode of a QLC+ fixture.
struct Job {
    QString name;        // how the reports name it: the file, and the mode of a QLC+ fixture
    QStringList naming;  // manufacturer, model and mode, for the name of a converted file
    std::optional<common::Fixture> fixture;
    QString error;  // why it was refused
};

QString ModeName(const QString& path, const input::QxfMode& mode) {
    return QStringLiteral("%1 (mode \"%2\")").arg(path, input::OneLine(mode.name));
}

QString FirstLine(const QString& lines) {
    // Found, not split: a text of millions of lines makes no list of them.
    return lines.left(lines.indexOf(QLatin1String("\r\n")));
}

// Letters that are no Latin letter with a mark, so that taking the marks away leaves them as
// they are, spelled as their languages spell them without their own letters.
constexpr std::pair<char16_t, const char*> kSpelled[] = {
    {u'\u00DF', "ss"}, {u'\u1E9E', "SS"}, {u'\u00E6', "ae"}, {u'\u00C6', "AE"}, {u'\u0153', "oe"},
    {u'\u0152', "OE"}, {u'\u00F8', "o"},  {u'\u00D8', "O"},  {u'\u0142', "l"},  {u'\u0141', "L"},
    {u'\u0111', "d"},  {u'\u0110', "D"},  {u'\u00F0', "d"},  {u'\u00D0', "D"},  {u'\u00FE', "th"},
    {u'\u00DE', "Th"}, {u'\u0127', "h"},  {u'\u0126', "H"},  {u'\u0131', "i"}};

// Letters, digits, "." and "_" of a text, as a part of a file name: a letter with a mark (Ü, é,
// ﬁ) is written without it, and the letters of kSpelled as spelled there.
QString FileNamePart(const QString& text) {
    QString kept;
    for (const QChar c : text.normalized(QString::NormalizationForm_KD)) {
        if ((c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9') ||
            c == u'.' || c == u'_')
            kept += c;
        for (const auto& [letter, spelled] : kSpelled)
            if (c == letter) kept += QLatin1String(spelled);
    }
    return kept;
}

// The name of a converted file without ".R20": MANUFACTURER-MODEL-MODE, the mode only when
// there is one. It never starts with ".", which would hide it (from "*.R20" too), nor with "-".
// A name too long for a file system is cut, and a hash of the whole keeps it apart from other
// names cut to the same start, run after run.
QString Stem(const QString& manufacturer, const QString& model, const QString& mode) {
    QString first = FileNamePart(manufacturer);
    while (first.startsWith(u'.')) first.remove(0, 1);
    const QString second = FileNamePart(model), third = FileNamePart(mode);
    QString stem = (first.isEmpty() ? QStringLiteral("_") : first) + u'-' +
                   (second.isEmpty() ? QStringLiteral("_") : second);
    if (!third.isEmpty()) stem += u'-' + third;
    if (stem.size() <= kMaxStem) return stem;
    const QByteArray hash = QCryptographicHash::hash(stem.toUtf8(), QCryptographicHash::Sha1);
    return stem.first(kMaxStem - 9) + u'-' + QString::fromLatin1(hash.toHex().first(8));
}

// What tells fixtures apart in a library: the NAME line and the mode (the first line for the
// desk), as a written file gives them back, since its code page may not hold every character.
QString Identity(const common::Fixture& fixture) {
    const QString text = fixture.manufacturer + QStringLiteral("\" \"") + fixture.model + u'\n' +
                         FirstLine(fixture.patchText);
    return FromFileBytes(ToFileBytes(text)).value_or(text);
}

// What holds a name in the target folder.
enum class Place {
    kFree,
    kSame,   // a file of the same fixture, which --force replaces
    kOther,  // a file of another fixture or no fixture file, a folder: the next name is tried
    kLink,   // counts as a file that exists, and --force leaves it too: writing through it
             // would change a file outside the folder, replacing it would undo what whoever
             // made it meant (one file shared by two libraries, say). They decide.
};

Place PlaceOf(const QString& file, const QString& identity) {
    const QFileInfo info(file);
    if (info.isSymLink()) return Place::kLink;
    if (!info.exists()) return Place::kFree;
    if (!info.isFile()) return Place::kOther;
    const input::ReadOutcome read = input::ReadFixtureFile(file);
    return read.fixture && Identity(*read.fixture) == identity ? Place::kSame : Place::kOther;
}

// Why no file can be made in the folder, made first when missing; nothing when files can be.
// Only making one tells: the permission bits pass an administrator, yet /proc or a read-only
// mount refuse every file.
std::optional<QString> WhyNoFilesIn(const QString& folder) {
    if (common::HasKeptBytes(folder)) return QStringLiteral("its name is not UTF-8");
    std::error_code error;
    std::filesystem::create_directories(common::SystemPath(folder), error);
    if (error) return QString::fromLocal8Bit(error.message());
    QTemporaryFile probe(QDir(folder).filePath(QStringLiteral(".rigwright-XXXXXX")));
    if (!probe.open()) return probe.errorString();
    return std::nullopt;
}

// Every fixture a file brings, handed to `take` one at a time: the file itself when it is a
// written fixture file, each mode of a QLC+ fixture (or the one `mode` names), or the reason it
// brings none. A mode is mapped only when its turn comes, so that a fixture of many thousand
// modes never has them all in memory at once.
void ForEachJob(const input::NamedFile& named, const QString& mode,
                const std::function<void(Job&&)>& take) {
    // Reports name the file as the system writes its names.
    const QString path = QDir::toNativeSeparators(named.path);
    if (!named.error.isEmpty()) {
        take({path, {}, std::nullopt, named.error});
        return;
    }
    input::FixtureSource source = input::ReadFixtureSource(named.path);
    if (source.written) {
        const common::Fixture& f = *source.written;
        QStringList naming{f.manufacturer, f.model, FirstLine(f.patchText)};
        take({path, std::move(naming), std::move(source.written), {}});
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
        take({ModeName(path, fixture.modes[i]),
              {fixture.manufacturer, fixture.model, fixture.modes[i].name},
              std::move(mapped.fixture),
              mapped.error});
    }
}

// `text` cut to `length` characters in its middle, so that the start and the end of a path or
// a name still show.
QString Elided(const QString& text, qsizetype length) {
    qsizetype head = (length - 1) / 3, tail = length - 1 - head;
    if (head > 0 && text[head - 1].isHighSurrogate()) --head;
    if (tail > 0 && text[text.size() - tail].isLowSurrogate()) --tail;
    return text.first(head) + u'\u2026' + text.last(tail);
}

// `pattern` with %1, %2 … filled by `parts`.
QString Filled(const QString& pattern, const QStringList& parts) {
    QString line;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const int n =
            pattern[i] == u'%' && i + 1 < pattern.size() ? pattern[i + 1].digitValue() : -1;
        if (n > 0) {
            line += parts.value(n - 1);
            ++i;
        } else {
            line += pattern[i];
        }
    }
    return line;
}

// The same, where a line that would be too long has its longest parts cut to one length, as
// long as the line allows.
QString Message(const QString& pattern, QStringList parts) {
    const qsizetype fixed = Filled(pattern, QStringList(parts.size())).size();
    const auto length = [&](qsizetype cap) {
        qsizetype sum = fixed;
        for (const QString& part : parts) sum += std::min(part.size(), cap);
        return sum;
    };
    qsizetype cap = 0;
    for (const QString& part : parts) cap = std::max(cap, part.size());
    while (cap > kShortestPart && length(cap) > kMaxMessage) --cap;
    for (QString& part : parts)
        if (part.size() > cap) part = Elided(part, cap);
    return Filled(pattern, parts);
}

// The reports of one run, and whether anything went wrong.
class Reports {
  public:
    Reports(const LibraryStreams& streams, qsizetype files)
        : streams_(streams),
          files_(files),
          showProgress_(streams.progress && files > kProgressFrom) {}
    ~Reports() { clearProgress(); }

    // A line of the run's result, on `out`, whole.
    void say(const QString& text) { print(streams_.out, text); }
    // A refusal and a note on `err`, of the message `pattern` with its parts.
    void refuse(const QString& pattern, const QStringList& parts) {
        failed_ = true;
        note(pattern, parts);
    }
    void note(const QString& pattern, const QStringList& parts) {
        print(streams_.err, Message(pattern, parts));
    }
    void fileDone() {
        ++done_;
        drawProgress();
    }
    void markFailed() { failed_ = true; }
    int exitCode() const { return failed_ ? 1 : 0; }

  private:
    // One line, at once: a run stopped midway has shown every file it wrote. The progress
    // makes room for it and then stands again below it.
    void print(std::FILE* stream, const QString& text) {
        clearProgress();
        std::fputs(common::ToSystemBytes(text + u'\n').constData(), stream);
        std::fflush(stream);
        drawProgress();
    }
    void drawProgress() {
        if (!showProgress_ || done_ == 0) return;
        const QLocale english(QLocale::English);
        const QString line =
            QStringLiteral("\r%1 of %2").arg(english.toString(done_), english.toString(files_));
        std::fputs(line.toLatin1().constData(), streams_.err);
        std::fflush(streams_.err);
        progressShown_ = true;
    }
    void clearProgress() {
        if (!progressShown_) return;
        std::fputs("\r\033[K", streams_.err);
        std::fflush(streams_.err);
        progressShown_ = false;
    }

    const LibraryStreams& streams_;
    qsizetype files_;
    qsizetype done_ = 0;
    bool showProgress_;
    bool progressShown_ = false;
    bool failed_ = false;
};

// What a run does with each file in its turn, the turns in the order of the input. Most of the
// time of a converted file goes to waiting for the disk, so a few files are composed and written
// at once on threads of their own; deciding, naming and printing stay here. A written file
// takes its name and is printed only in its turn, after every file before it, so the names
// appear in the order of the lines that report them.
class Turns {
  public:
    Turns() { pool_.setMaxThreadCount(kThreads); }
    ~Turns() { finish(); }

    // `act` in its turn.
    void then(std::function<void()> act) {
        queue_.push_back({{}, [act = std::move(act)](StagedFile) { act(); }});
        drain(false);
    }
    // The bytes `compose` gives written now beside `path` on a thread of the pool, then `act`
    // with what came of it in its turn. At most kInFlight files wait at once, so a long run
    // holds no more.
    void write(std::function<QByteArray()> compose, const QString& path, bool replace,
               std::function<void(StagedFile)> act) {
        auto staged = std::make_shared<std::promise<StagedFile>>();
        queue_.push_back({staged->get_future(), std::move(act)});
        ++inFlight_;
        pool_.start([staged, compose = std::move(compose), path, replace] {
            staged->set_value(StageLibraryFile(compose(), path, replace));
        });
        drain(false);
    }
    // Every turn taken.
    void finish() { drain(true); }

  private:
    static constexpr int kThreads = 4;
    static constexpr int kInFlight = 2 * kThreads;

    struct Turn {
        std::future<StagedFile> staged;  // invalid for a turn that writes nothing
        std::function<void(StagedFile)> act;
    };

    // The turns that can be taken, in order: all with `all`, else the ones whose files are
    // written, and the first one that waits when too many files do.
    void drain(bool all) {
        while (!queue_.empty()) {
            Turn& turn = queue_.front();
            StagedFile staged;
            if (turn.staged.valid()) {
                const bool ready =
                    turn.staged.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
                if (!all && !ready && inFlight_ < kInFlight) return;
                staged = turn.staged.get();
                --inFlight_;
            }
            const std::function<void(StagedFile)> act = std::move(turn.act);
            queue_.pop_front();
            act(std::move(staged));
        }
    }

    QThreadPool pool_;
    std::deque<Turn> queue_;
    int inFlight_ = 0;
};

// Decides where the file of one job goes in `target`, under its name or, where that holds
// another fixture, the next free one, and hands it to `turns`. `given` holds the names given in
// this run, in lower case: none is given twice, not even where case makes no difference to the
// file system, and a name is given before its file exists.
void Convert(Job& job, const QDir& target, bool force, QSet<QString>& given, Reports& reports,
             Turns& turns) {
    const auto refuse = [&](const QString& pattern, const QStringList& parts) {
        turns.then([&reports, pattern, parts] { reports.refuse(pattern, parts); });
    };
    if (!job.fixture) return refuse(QStringLiteral("%1: %2"), {job.name, job.error});
    const QString identity = Identity(*job.fixture);
    const QString stem = Stem(job.naming[0], job.naming[1], job.naming[2]);
    QString name, file, taken;
    Place place = Place::kOther;
    for (int n = 1; place == Place::kOther; ++n) {
        if (!name.isEmpty() && taken.isEmpty()) taken = name;
        name = stem + (n > 1 ? u'-' + QString::number(n) : QString()) + QStringLiteral(".R20");
        file = QDir::toNativeSeparators(target.absoluteFilePath(name));
        place = given.contains(name.toLower()) ? Place::kOther : PlaceOf(file, identity);
    }
    given.insert(name.toLower());
    if (place == Place::kLink)
        return refuse(QStringLiteral("%1: %2 is a symbolic link: left as it is"), {job.name, file});
    if (place == Place::kSame && !force)
        return refuse(QStringLiteral("%1: %2 exists; --force replaces it"), {job.name, file});
    const bool replace = place == Place::kSame;
    // The file as Finished writes it on the finish page, reached now: a value, composed where
    // it is written.
    const auto compose = [fixture = std::move(*job.fixture), file, now = gui::Now()] {
        return FixtureFileBytes(AtFinishPage(fixture, now), file, now);
    };
    turns.write(
        compose, file, replace,
        [&reports, job = job.name, file, replace, taken, name](StagedFile staged) {
            if (const std::optional<QString> reason = PlaceLibraryFile(staged, file, replace))
                return reports.refuse(QStringLiteral("%1: %2 could not be written: %3"),
                                      {job, file, *reason});
            if (!taken.isEmpty())
                reports.note(QStringLiteral("%1: %2 holds another fixture; this one is %3"),
                             {job, taken, name});
            reports.say(file);
        });
}

}  // namespace

LibraryStreams LibraryStreams::Standard() {
    return {stdout, stderr, isatty(fileno(stderr)) != 0};
}

int ConvertFixtures(const input::CommandLine& line, const LibraryStreams& streams) {
    const QList<input::NamedFile> files = input::FilesOfArguments(line.files, line.matchWildcards);
    Reports reports(streams, files.size());
    if (const std::optional<QString> why = WhyNoFilesIn(line.targetDir)) {
        reports.refuse(QStringLiteral("rigwright: cannot write into %1: %2"),
                       {QDir::toNativeSeparators(line.targetDir), *why});
        return reports.exitCode();
    }
    const QDir target(line.targetDir);
    QSet<QString> given;
    QSet<QString> converted;  // the files converted, by their canonical paths: each only once
    Turns turns;
    for (const input::NamedFile& named : files) {
        const QString canonical = QFileInfo(named.path).canonicalFilePath();
        if (canonical.isEmpty() || !converted.contains(canonical)) {
            converted.insert(canonical);
            ForEachJob(named, line.mode,
                       [&](Job&& job) { Convert(job, target, line.force, given, reports, turns); });
        }
        turns.then([&reports] { reports.fileDone(); });
    }
    turns.finish();
    return reports.exitCode();
}

int CheckFixtures(const input::CommandLine& line, const LibraryStreams& streams) {
    const QList<input::NamedFile> files = input::FilesOfArguments(line.files, line.matchWildcards);
    Reports reports(streams, files.size());
    for (const input::NamedFile& named : files) {
        ForEachJob(named, line.mode, [&](Job&& job) {
            if (!job.fixture) {
                reports.refuse(QStringLiteral("%1: %2"), {job.name, job.error});
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

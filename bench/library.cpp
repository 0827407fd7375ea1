// The benchmark rows of what comes in from files: opening large fixtures to a painted window
// against the empty start, reading and mapping every QLC+ fixture Debian ships, and the
// command line converting and checking all of them.
#include "library.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <cstdio>

#include "floor_window.h"
#include "gui/application.h"
#include "gui/seams.h"
#include "gui/system.h"
#include "input/command_line.h"
#include "input/fixture_reader.h"
#include "input/fixture_source.h"
#include "input/qxf_mapping.h"
#include "output/form_fixture.h"
#include "output/save_flow.h"
#include "wizard/engine.h"
#include "wizard/library_commands.h"
#include "wizard/main_form.h"
#include "wizard/start.h"

namespace {

const QString kFixtures = QStringLiteral("/usr/share/qlcplus/fixtures");

QStringList InstalledFixtures() {
    QStringList files;
    QDirIterator it(kFixtures, {QStringLiteral("*.qxf")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) files << it.next();
    files.sort();
    return files;
}

// The figures a child prints: milliseconds, and resident MiB where it gives them.
QList<QByteArray> ChildFigures(const QString& self, const QStringList& args) {
    QProcess p;
    p.start(self, args);
    p.waitForFinished(60000);
    return p.readAllStandardOutput().trimmed().split(' ');
}

double StartMs(const QString& self, const QStringList& args) {
    return ChildFigures(self, args).value(0).toDouble();
}

// The floors of the library commands: what any program must do with the same files.

// Reading every file and walking its XML, token by token.
double XmlWalkMs(const QStringList& files) {
    QElapsedTimer timer;
    timer.start();
    for (const QString& path : files) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) continue;
        QXmlStreamReader xml(file.readAll());
        while (!xml.atEnd()) xml.readNext();
    }
    return timer.nsecsElapsed() / 1e6;
}

// Writing as many files of the same sizes into `folder`, one after the other, each through a
// temporary file that replaces it when complete.
double SaveFilesMs(const QStringList& like, const QString& folder) {
    QDir().mkpath(folder);
    QElapsedTimer timer;
    timer.start();
    for (const QString& path : like) {
        QSaveFile file(folder + u'/' + QFileInfo(path).fileName());
        file.open(QIODevice::WriteOnly);
        file.write(QByteArray(QFileInfo(path).size(), 'x'));
        file.commit();
    }
    return timer.nsecsElapsed() / 1e6;
}

// Reading every file and splitting it into its lines.
double ReadLinesMs(const QStringList& files) {
    QElapsedTimer timer;
    timer.start();
    qsizetype lines = 0;
    for (const QString& path : files) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly)) lines += file.readAll().split('\n').size();
    }
    return lines > 0 ? timer.nsecsElapsed() / 1e6 : 0;
}

// Milliseconds of one run of the program with `args`, its output thrown away.
double ProgramMs(const QString& program, const QStringList& args) {
    QProcess p;
    p.setStandardOutputFile(QProcess::nullDevice());
    p.setStandardErrorFile(QProcess::nullDevice());
    QElapsedTimer timer;
    timer.start();
    p.start(program, args);
    p.waitForFinished(600000);
    return timer.nsecsElapsed() / 1e6;
}

}  // namespace

int OpenChild(int argc, char** argv) {
    QElapsedTimer timer;
    timer.start();
    gui::Application app(argc, argv);
    gui::seams::Reset();  // no real dialog can come up
    MainForm form;
    const QString file = QString::fromLocal8Bit(argv[2]);
    StartWizard(form, file == u"-" ? QString() : file, QString::fromLocal8Bit(argv[3]));
    bench::PaintNow(form.main);
    std::printf("%f %f\n", timer.nsecsElapsed() / 1e6, bench::ResidentMiB());
    return 0;
}

int ConvertMemoryChild(int argc, char** argv) {
    gui::Application app(argc, argv);
    const QStringList files = InstalledFixtures();
    QTemporaryDir dir;
    const LibraryStreams quiet{std::tmpfile(), std::tmpfile(), false};
    input::CommandLine line;
    line.targetDir = dir.filePath(QStringLiteral("first"));
    line.files = files.mid(0, 10);
    ConvertFixtures(line, quiet);
    const double first = bench::ResidentMiB();
    line.targetDir = dir.filePath(QStringLiteral("all"));
    line.files = files;
    ConvertFixtures(line, quiet);
    std::printf("%f %f\n", first, bench::ResidentMiB());
    return 0;
}

void LibraryRows(std::vector<bench::Row>& rows, const QString& self, MainForm& f) {
    QTemporaryDir dir;
    // A written fixture file of the table's 32,767 rows, as the wizard writes it.
    const QString bigFile = dir.filePath(QStringLiteral("BIG.R20"));
    for (int row = 1; row < f.table.Rows(); ++row) {  // 8-bit rows at the offsets 1 to 32,767
        f.table.setTextMatrix(row, 1, QString::number(row));
        f.table.setTextMatrix(row, 2, QStringLiteral("0"));
    }
    f.CurrentStep = 2;
    nexts_Click(f);  // the channel count follows the table on the finish page
    SaveFixtureFile(ReadForm(f), bigFile, gui::Now());
    if (const input::ReadOutcome read = input::ReadFixtureFile(bigFile); !read.fixture) {
        rows.push_back(
            {"open a fixture file of 32,767 rows: refused, " + read.error, 0, "", 0, 0, 0});
        return;
    }

    const QStringList files = InstalledFixtures();
    if (files.isEmpty()) {
        rows.push_back({"QLC+ fixtures: skipped, " + kFixtures + " is missing", 0, "", 0, 0, 0});
    }
    // Every mode read and mapped; the largest is the one opened below.
    QElapsedTimer timer;
    timer.start();
    int modes = 0;
    QString largest, largestMode;
    qsizetype most = 0;
    for (const QString& path : files) {
        const input::FixtureSource source = input::ReadFixtureSource(path);
        if (!source.qxf) continue;
        for (int m = 0; m < source.qxf->modes.size(); ++m, ++modes) {
            input::MapQxfMode(*source.qxf, m);
            if (source.qxf->modes[m].channels.size() <= most) continue;
            most = source.qxf->modes[m].channels.size();
            largest = path;
            largestMode = QString::number(m + 1);
        }
    }
    const double readMs = timer.nsecsElapsed() / 1e6;

    // Offscreen, the start to the first paint in process; on a display, to the window shown.
    const bool visible = !qEnvironmentVariableIsEmpty("DISPLAY");
    const auto once = [&](const QString& file, const QString& mode) {
        return visible ? VisibleOnce(self, {"--visible-form", file, mode})
                       : StartMs(self, {"--open-form", file, mode});
    };
    std::vector<double> empty, big, qxf;
    for (int i = 0; i < 11; ++i) {
        empty.push_back(once(QStringLiteral("-"), {}));
        big.push_back(once(bigFile, {}));
        if (!largest.isEmpty()) qxf.push_back(once(largest, largestMode));
    }
    const double start = bench::Median(empty);
    const QString to = visible ? QStringLiteral(", to the window shown")
                               : QStringLiteral(", to the first paint (offscreen)");
    rows.push_back(
        {"open a fixture file of 32,767 rows" + to, bench::Median(big), "ms", start, 1.3, 0});
    std::vector<double> emptyMiB, bigMiB;
    for (int i = 0; i < 3; ++i) {
        emptyMiB.push_back(ChildFigures(self, {"--open-form", "-", {}}).value(1).toDouble());
        bigMiB.push_back(ChildFigures(self, {"--open-form", bigFile, {}}).value(1).toDouble());
    }
    rows.push_back({"open a fixture file of 32,767 rows: resident memory beyond the empty start",
                    bench::Median(bigMiB) - bench::Median(emptyMiB), "MiB", 0, 0, 8});
    if (files.isEmpty()) return;
    rows.push_back({QStringLiteral("open the largest QLC+ mode (%1 channels)").arg(most) + to,
                    bench::Median(qxf), "ms", start, 1.2, 0});
    rows.push_back({QStringLiteral("read and map all %L1 modes of %L2 QLC+ fixtures")
                        .arg(modes)
                        .arg(files.size()),
                    readMs, "ms", 0, 0, 1000});

    const QString program =
        QCoreApplication::applicationDirPath() + QStringLiteral("/../src/rigwright");
    // Each row is the median of a few runs, the command and its floor taking turns, so that a
    // moment's load on the machine moves neither alone.
    constexpr int kRuns = 3;
    std::vector<double> walkMs, checkMs;
    for (int run = 0; run < kRuns; ++run) {
        walkMs.push_back(XmlWalkMs(files));
        checkMs.push_back(ProgramMs(program, QStringList{"--check"} + files));
    }
    rows.push_back({QStringLiteral("--check of all %L1 QLC+ fixtures; floor: walking their XML")
                        .arg(files.size()),
                    bench::Median(checkMs), "ms", bench::Median(walkMs), 1.5, 0});
    std::vector<double> convertMs, saveMs;
    QStringList written;
    for (int run = 0; run < kRuns; ++run) {  // each into a folder of its own, empty at first
        const QString out = dir.filePath(QStringLiteral("lib%1").arg(run));
        convertMs.push_back(ProgramMs(program, QStringList{"--convert", "--to", out} + files));
        if (written.isEmpty())
            for (const QString& name : QDir(out).entryList({QStringLiteral("*.R20")}))
                written << out + u'/' + name;
        saveMs.push_back(SaveFilesMs(written, dir.filePath(QStringLiteral("floor%1").arg(run))));
    }
    rows.push_back({QStringLiteral("--convert of all %L1 modes; floor: saving files of their sizes")
                        .arg(modes),
                    bench::Median(convertMs), "ms", bench::Median(saveMs), 1.25, 0});
    std::vector<double> linesMs, checkWrittenMs;
    for (int run = 0; run < kRuns; ++run) {
        linesMs.push_back(ReadLinesMs(written));
        checkWrittenMs.push_back(ProgramMs(program, QStringList{"--check"} + written));
    }
    rows.push_back({QStringLiteral("--check of the %L1 converted files; floor: reading their lines")
                        .arg(written.size()),
                    bench::Median(checkWrittenMs), "ms", bench::Median(linesMs), 3.0, 0});

    QProcess p;
    p.start(self, {"--convert-memory", "-"});
    p.waitForFinished(600000);
    const QList<QByteArray> mib = p.readAllStandardOutput().trimmed().split(' ');
    rows.push_back({"--convert: resident memory after all files, against the first 10",
                    mib.value(1).toDouble(), "MiB", mib.value(0).toDouble(), 1.2, 0});
}

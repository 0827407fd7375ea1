// rigwright-bench: measures the wizard's work against a floor taken in the same run and
// prints one row per target. Run headless: QT_QPA_PLATFORM=offscreen.
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSaveFile>
#include <QTemporaryDir>
#include <cstdio>

#include <vector>
#include "channels/channel_table.h"
#include "channels/presets.h"
#include "gui/application.h"
#include "gui/dialogs.h"
#include "gui/seams.h"
#include "gui/testing.h"
#include "measure.h"
#include "output/save_flow.h"
#include "ranges/range_operations.h"
#include "ranges/range_table.h"
#include "wizard/engine.h"
#include "wizard/main_form.h"
#include "wizard/start.h"

namespace {

const QString kPanRow =
    QStringLiteral("#\t1\t0\tFADEABLE LTP\tE>\t3\t61\tPan\t1\tN\t100\t128\t0\t0\tdefault");

// Fills the channel grid up to `channelRows` rows with distinct offsets.
void FillTable(MainForm& f, int channelRows) {
    gui::Grid& t = f.table;
    while (t.Rows() - 1 < channelRows) {
        const int offset = t.Rows();
        QString row = kPanRow;
        row.replace(QStringLiteral("#\t1\t"), QStringLiteral("#\t%1\t").arg(offset));
        t.AddItem(row);
    }
    while (t.Rows() - 1 > channelRows) t.RemoveItem(t.Rows() - 1);
}

// Fills the channel grid as a technician pressing the 25 presets in turn would, up to
// `channelRows` rows, each row at the next offset: rows that differ in type, label, key and
// bounds from one to the next.
void FillWithPresets(MainForm& f, int channelRows) {
    gui::Grid& t = f.table;
    const int first = t.Rows();
    for (int i = 0; i < 25; ++i) Command6_Click(f, static_cast<std::int16_t>(i));
    std::vector<QStringList> pressed;
    for (int r = first; r < t.Rows(); ++r) {
        QStringList cells;
        for (int c = 0; c < t.Cols(); ++c) cells.append(t.TextMatrix(r, c));
        pressed.push_back(cells);
    }
    while (t.Rows() > 2) t.RemoveItem(t.Rows() - 1);
    t.RemoveItem(1);
    int offset = 1;
    for (size_t i = 0; t.Rows() - 1 < channelRows; ++i) {
        QStringList cells = pressed[i % pressed.size()];
        const bool wide = cells[2] != u"0";
        cells[1] = QString::number(offset);
        if (wide) cells[2] = QString::number(offset + 1);
        offset += wide ? 2 : 1;
        t.AddItem(cells.join(u'\t'));
    }
}

// Child process: one start of the form (or of the bare floor window); prints
// "<milliseconds> <resident MiB after start> <resident MiB at full table>".
int StartChild(int argc, char** argv, bool bare, const QByteArray& arg) {
    // From before the application object: what the program sets up there counts too.
    QElapsedTimer timer;
    timer.start();
    double full = -1;
    if (bare) {
        gui::testing::BareWindow::Application app(argc, argv);
        gui::testing::BareWindow window(QString::fromLatin1(arg).split(u','));
        window.PaintNow();
        const double ms = timer.nsecsElapsed() / 1e6;
        std::printf("%f %f %f\n", ms, bench::ResidentMiB(), full);
        return 0;
    }
    gui::Application app(argc, argv);
    gui::seams::Reset();  // no real dialog can come up
    MainForm form;
    StartWizard(form);
    gui::testing::PaintNow(form.main);
    const double ms = timer.nsecsElapsed() / 1e6;
    const double afterStart = bench::ResidentMiB();
    if (arg == "kinds") {
        std::printf("kinds %s\n", qPrintable(gui::testing::ControlKinds(form.main).join(u',')));
        return 0;
    }
    FillTable(form, channels::kMaxChannelRows);
    full = bench::ResidentMiB();
    std::printf("%f %f %f\n", ms, afterStart, full);
    return 0;
}

struct StartFigures {
    double ms, mib, fullMib;
};

StartFigures StartOnce(const QString& self, const QStringList& args) {
    QProcess p;
    p.start(self, args);
    p.waitForFinished(60000);
    const QList<QByteArray> f = p.readAllStandardOutput().trimmed().split(' ');
    if (f.size() < 3) return {-1, -1, -1};
    return {f[0].toDouble(), f[1].toDouble(), f[2].toDouble()};
}

// Starts of the form and of its floor in turn, each in a process of its own; the medians.
std::pair<StartFigures, StartFigures> RunStarts(const QString& self, const QStringList& form,
                                                const QStringList& bare, int repeats) {
    std::vector<double> ms[2], mib[2], full[2];
    for (int i = 0; i < repeats; ++i) {
        int side = 0;
        for (const QStringList* args : {&form, &bare}) {
            const StartFigures one = StartOnce(self, *args);
            if (one.ms >= 0) {
                ms[side].push_back(one.ms);
                mib[side].push_back(one.mib);
                full[side].push_back(one.fullMib);
            }
            ++side;
        }
    }
    auto median = [&](int side) {
        return StartFigures{bench::Median(ms[side]), bench::Median(mib[side]),
                            bench::Median(full[side])};
    };
    return {median(0), median(1)};
}

QString KindsOfForm(const QString& self) {
    QProcess p;
    p.start(self, {QStringLiteral("--start-form"), QStringLiteral("kinds")});
    p.waitForFinished(60000);
    for (const QByteArray& line : p.readAllStandardOutput().split('\n'))
        if (line.startsWith("kinds ")) return QString::fromLatin1(line.mid(6));
    return {};
}

struct SaveFigures {
    double save, flushed, bare, safe;
    qsizetype bytes;
};

// The save puts the file safely on the disk: a temporary file, flushed, then moved over the
// old one. Its floor is one fwrite of the same bytes, flushed to the disk as well; the bare
// fwrite and the safe write in one piece are measured beside it.
SaveFigures MeasureSave(MainForm& f, const QTemporaryDir& dir) {
    const QString target = dir.filePath(QStringLiteral("BIG.R20"));
    auto save = [&] { finished_Click(f); };
    auto answers = [&] {
        gui::seams::QueueSaveAnswer(target);
        gui::seams::QueueMsgBoxAnswer(gui::kAnswerOk);
    };
    answers();
    save();  // the bytes the floors write
    QFile written(target);
    written.open(QIODevice::ReadOnly);
    const QByteArray bytes = written.readAll();
    const QByteArray floorPath = dir.filePath(QStringLiteral("floor.R20")).toLocal8Bit();
    auto fwriteOnce = [&](bool flushed) {
        FILE* out = std::fopen(floorPath.constData(), "wb");
        std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), out);
        if (flushed) bench::FlushToDisk(out);
        std::fclose(out);
    };
    const QString safePath = dir.filePath(QStringLiteral("safe.R20"));
    auto safeWrite = [&] {
        QSaveFile out(safePath);
        out.open(QIODevice::WriteOnly);
        out.write(bytes);
        out.commit();
    };
    const std::vector<double> ms = bench::MediansInTurn(
        15,
        {{save, answers}, {[&] { fwriteOnce(true); }}, {[&] { fwriteOnce(false); }}, {safeWrite}});
    return {ms[0], ms[1], ms[2], ms[3], bytes.size()};
}

void AddSaveRows(std::vector<bench::Row>& rows, const SaveFigures& s, const QString& work) {
    const QString ms = QStringLiteral("ms");
    rows.push_back(
        {QStringLiteral("%1 (%2 bytes)").arg(work).arg(s.bytes), s.save, ms, s.flushed, 2.0, 200});
    rows.push_back({QStringLiteral("  the same, against one bare fwrite, not flushed"), s.save, ms,
                    s.bare, 0, 0});
    rows.push_back({QStringLiteral("  the same, against one safe write of the bytes"), s.save, ms,
                    s.safe, 0, 0});
}

}  // namespace

int main(int argc, char** argv) {
    if (argc >= 3 && QByteArray(argv[1]) == "--start-form")
        return StartChild(argc, argv, false, QByteArray(argv[2]));
    if (argc >= 3 && QByteArray(argv[1]) == "--start-bare")
        return StartChild(argc, argv, true, QByteArray(argv[2]));

    gui::Application app(argc, argv);
    const QString self = QCoreApplication::applicationFilePath();
    std::vector<bench::Row> rows;

    // Start and memory, each start in a process of its own.
    const QString kinds = KindsOfForm(self);
    const auto [form, bare] =
        RunStarts(self, {QStringLiteral("--start-form"), QStringLiteral("full")},
                  {QStringLiteral("--start-bare"), kinds}, 21);
    rows.push_back({QStringLiteral("start: application, form, Form_Load, first paint (%1)")
                        .arg(kinds.count(u',') + 1),
                    form.ms, QStringLiteral("ms"), bare.ms, 1.5, 0});
    rows.push_back({QStringLiteral("resident memory after start"), form.mib, QStringLiteral("MiB"),
                    bare.mib, 1.2, 0});
    rows.push_back({QStringLiteral("memory added by 32,767 channel rows"), form.fullMib - form.mib,
                    QStringLiteral("MiB"), 0, 0, 30});

    gui::seams::Reset();
    MainForm f;
    StartWizard(f);

    // Saving a full table: rows that repeat but for their offsets, then the presets in turn.
    QTemporaryDir dir;
    FillTable(f, channels::kMaxChannelRows);
    AddSaveRows(rows, MeasureSave(f, dir), QStringLiteral("save 32,767 rows"));
    {
        MainForm presets;
        StartWizard(presets);
        FillWithPresets(presets, channels::kMaxChannelRows);
        AddSaveRows(rows, MeasureSave(presets, dir),
                    QStringLiteral("save 32,767 rows of the presets in turn"));
    }

    // NextFreeDmx over the full table.
    volatile int sink = 0;
    const double next = bench::MedianMs(21, [&] { sink = sink + NextFreeDmx(f); });
    rows.push_back(
        {QStringLiteral("NextFreeDmx at 32,767 rows"), next, QStringLiteral("ms"), 0, 0, 5});

    // One preset added to a table of 32,766 rows.
    FillTable(f, channels::kMaxChannelRows - 1);
    const double preset = bench::MedianMs(
        21, [&] { Command6_Click(f, 0); }, [&] { FillTable(f, channels::kMaxChannelRows - 1); });
    rows.push_back(
        {QStringLiteral("preset added to 32,766 rows"), preset, QStringLiteral("ms"), 0, 0, 5});

    // Auto split of 0..255 into 256 ranges, bars included, on the page on show.
    f.CurrentStep = 6;
    ShowStep(f);
    const double split = bench::MedianMs(
        11, [&] { rgo_Click(f); },
        [&] {
            rclear_Click(f);
            f.range.setRow(1);
            Command2_Click(f);
            f.arno.setText(QStringLiteral("256"));
        });
    rows.push_back({QStringLiteral("auto split 0..255 into 256 with the bars (%1 rows)")
                        .arg(f.range.Rows() - 1),
                    split, QStringLiteral("ms"), 0, 0, 50});

    bench::Print(rows);
    return 0;
}

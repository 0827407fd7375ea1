// rigwright-bench: measures what a person feels, each figure against its target, and prints
// one row per target. Run headless: QT_QPA_PLATFORM=offscreen. With DISPLAY set it also
// times the start to a visible window on that display.
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdio>
#include <functional>
#include <vector>

#include "channels/cell_editor.h"
#include "channels/channel_table.h"
#include "channels/presets.h"
#include "floor_window.h"
#include "gui/application.h"
#include "gui/dialogs.h"
#include "gui/seams.h"
#include "library.h"
#include "measure.h"
#include "output/save_flow.h"
#include "ranges/range_operations.h"
#include "ranges/range_table.h"
#include "wizard/engine.h"
#include "wizard/main_form.h"
#include "wizard/start.h"

namespace {

constexpr int kFixtureRows = 512;  // the most channels a DMX fixture has
constexpr int kRepeats = 11;

// The rows that the 25 presets write, pressed once each and taken out again.
std::vector<QStringList> PresetRows(MainForm& f) {
    gui::Grid& t = f.table;
    const int before = t.Rows();
    for (int i = 0; i < 25; ++i) Command6_Click(f, static_cast<std::int16_t>(i));
    std::vector<QStringList> rows;
    for (int r = before; r < t.Rows(); ++r) {
        QStringList cells;
        for (int c = 0; c < t.Cols(); ++c) cells.append(t.TextMatrix(r, c));
        rows.push_back(cells);
    }
    while (t.Rows() > before) t.RemoveItem(t.Rows() - 1);
    return rows;
}

// Brings the channel grid to `channelRows` rows: the presets in turn, as a technician
// pressing them would, each row at offsets of its own.
void SetChannelRows(MainForm& f, int channelRows) {
    static const std::vector<QStringList> presets = PresetRows(f);
    gui::Grid& t = f.table;
    while (t.Rows() - 1 > channelRows) t.RemoveItem(t.Rows() - 1);
    while (t.Rows() - 1 < channelRows) {
        QStringList cells = presets[static_cast<std::size_t>(t.Rows()) % presets.size()];
        const bool wide = cells[2] != u"0";
        cells[1] = QString::number(2 * t.Rows());
        if (wide) cells[2] = QString::number(2 * t.Rows() + 1);
        t.AddItem(cells.join(u'\t'));
    }
}

// What follows an action before a person sees its result: the posted events handled and
// the whole window painted anew (more than the changed parts a real update repaints).
void ShowResult(MainForm& f) {
    QCoreApplication::sendPostedEvents();
    bench::PaintNow(f.main);
}

// Child process: one start of the form (or of the bare floor window); prints
// "<milliseconds> <resident MiB after start> <resident MiB at a full table>".
int StartChild(int argc, char** argv, bool bare, const QByteArray& arg) {
    // From before the application object: what the program sets up there counts too.
    QElapsedTimer timer;
    timer.start();
    if (bare) {
        bench::BareWindow window(argc, argv, QString::fromLatin1(arg).split(u','));
        window.PaintNow();
        std::printf("%f %f -1\n", timer.nsecsElapsed() / 1e6, bench::ResidentMiB());
        return 0;
    }
    gui::Application app(argc, argv);
    gui::seams::Reset();  // no real dialog can come up
    MainForm form;
    StartWizard(form);
    bench::PaintNow(form.main);
    const double ms = timer.nsecsElapsed() / 1e6;
    const double afterStart = bench::ResidentMiB();
    if (arg == "kinds") {
        std::printf("kinds %s\n", qPrintable(bench::ControlKinds(form.main).join(u',')));
        return 0;
    }
    SetChannelRows(form, common::kMaxChannelRows);
    std::printf("%f %f %f\n", ms, afterStart, bench::ResidentMiB());
    return 0;
}

// Child process on a real display: shows the form (or the bare window) and says "shown" once
// it has painted itself.
int VisibleChild(int argc, char** argv, bool bare, const QByteArray& kinds) {
    const std::function<void()> say = [] {
        std::printf("shown\n");
        std::fflush(stdout);
    };
    if (bare) {
        bench::BareWindow window(argc, argv, QString::fromLatin1(kinds).split(u','));
        window.WaitUntilPainted(say);
        return 0;
    }
    gui::Application app(argc, argv);
    gui::seams::Reset();  // a refused file must not wait for a click
    MainForm form;
    // The form may open a fixture file (and a mode of it) on its way up.
    const QString file = QString::fromLocal8Bit(kinds);
    StartWizard(form, file == u"-" ? QString() : file,
                argc > 3 ? QString::fromLocal8Bit(argv[3]) : QString());
    bench::WaitUntilPainted(form.main, say);
    return 0;
}

QList<QByteArray> RunChild(const QString& self, const QStringList& args) {
    QProcess p;
    p.start(self, args);
    p.waitForFinished(60000);
    return p.readAllStandardOutput().trimmed().split(' ');
}

void StartRows(std::vector<bench::Row>& rows, const QString& self) {
    const QByteArray kindsLine = RunChild(self, {"--start-form", "kinds"}).value(1);
    const QString kinds = QString::fromLatin1(kindsLine);
    // The form and its floor in turn, each start in a process of its own; the medians.
    std::vector<double> ms[2], mib[2], full;
    for (int i = 0; i < 21; ++i) {
        const QList<QByteArray> form = RunChild(self, {"--start-form", "full"});
        const QList<QByteArray> bare = RunChild(self, {"--start-bare", kinds});
        if (form.size() < 3 || bare.size() < 3) continue;
        ms[0].push_back(form[0].toDouble());
        mib[0].push_back(form[1].toDouble());
        full.push_back(form[2].toDouble() - form[1].toDouble());
        ms[1].push_back(bare[0].toDouble());
        mib[1].push_back(bare[1].toDouble());
    }
    const QString widgets = QStringLiteral(" (%1 widgets)").arg(kinds.count(u',') + 1);
    rows.push_back({"start: application, form, Form_Load, first paint" + widgets,
                    bench::Median(ms[0]), "ms", bench::Median(ms[1]), 1.5, 0});
    rows.push_back({"resident memory after start", bench::Median(mib[0]), "MiB",
                    bench::Median(mib[1]), 1.2, 0});
    rows.push_back({"memory added by 32,767 channel rows", bench::Median(full), "MiB", 0, 0, 30});

    if (qEnvironmentVariableIsEmpty("DISPLAY")) {
        rows.push_back(
            {"start to a visible window under X11: skipped, DISPLAY is not set", 0, "", 0, 0, 0});
        return;
    }
    std::vector<double> shown[2];
    for (int i = 0; i < 11; ++i) {
        const double form = VisibleOnce(self, {"--visible-form", "-"});
        const double bare = VisibleOnce(self, {"--visible-bare", kinds});
        if (form < 0 || bare < 0) continue;
        shown[0].push_back(form);
        shown[1].push_back(bare);
    }
    rows.push_back({"start to a visible window under X11" + widgets, bench::Median(shown[0]), "ms",
                    bench::Median(shown[1]), 1.2, 0});
}

// One action as a person sees it: `prepare` sets the scene untimed, then `run` and the
// window painted anew are timed together.
struct Action {
    QString work;
    std::function<void()> prepare;
    std::function<void()> run;
};

double TimeAction(MainForm& f, const Action& action) {
    const auto seen = [&] {
        action.run();
        ShowResult(f);
    };
    return bench::MedianMs(kRepeats, seen, action.prepare);
}

void AddActionRows(std::vector<bench::Row>& rows, MainForm& f, const std::vector<Action>& actions,
                   double bound) {
    // For comparison: the paint alone, on the page of the first action, part of every figure.
    const double paint = TimeAction(f, {{}, actions.front().prepare, [] {}});
    for (const Action& action : actions)
        rows.push_back({action.work, TimeAction(f, action), "ms", 0, 0, bound});
    rows.push_back({QStringLiteral("  of which the window painted anew"), paint, "ms", 0, 0, 0});
}

// Every action on the channel page at `channelRows` rows.
void ChannelActionRows(std::vector<bench::Row>& rows, MainForm& f, int channelRows, double bound) {
    const QString at = QStringLiteral(" at %L1 rows").arg(channelRows);
    // A preset or a new row makes the table `channelRows` long; the others find it so.
    const auto oneShort = [&] { SetChannelRows(f, channelRows - 1); };
    const auto full = [&] {
        SetChannelRows(f, channelRows);
        f.table.setRow(channelRows / 2);
    };
    const auto editOpen = [&] {
        full();
        f.table.setCol(7);
        table_DblClick(f);
        f.editcombo.setText(QStringLiteral("Gobo 2"));
    };
    const auto onChannelPage = [&] {
        f.CurrentStep = 2;
        ShowStep(f);
    };
    QTemporaryDir dir;
    const QString target = dir.filePath(QStringLiteral("BIG.R20"));
    const auto answersQueued = [&] {
        gui::seams::QueueSaveAnswer(target);
        gui::seams::QueueMsgBoxAnswer(gui::MsgButton::Ok);
    };
    onChannelPage();
    AddActionRows(
        rows, f,
        {{"preset pressed" + at, oneShort, [&] { Command6_Click(f, 0); }},
         {"row added" + at, oneShort, [&] { add_Click(f); }},
         {"row deleted" + at, full, [&] { delete_Click(f); }},
         {"cell edit committed" + at, editOpen, [&] { table_Click(f); }},
         {"file saved" + at, answersQueued, [&] { finished_Click(f); }},
         {"page changed to the finish page" + at, onChannelPage, [&] { nexts_Click(f); }}},
        bound);
}

void SplitRows(std::vector<bench::Row>& rows, MainForm& f) {
    f.CurrentStep = 6;
    ShowStep(f);
    const auto oneRangeMarked = [&] {
        rclear_Click(f);
        f.range.setRow(1);
        Command2_Click(f);
        f.arno.setText(QStringLiteral("256"));
    };
    AddActionRows(rows, f,
                  {{"auto split 0..255 into 256 ranges, bars included", oneRangeMarked,
                    [&] { rgo_Click(f); }}},
                  16);
}

}  // namespace

// Milliseconds from starting the program to its "shown", on the display of DISPLAY.
double VisibleOnce(const QString& self, const QStringList& args) {
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    p.setProcessEnvironment(env);
    QElapsedTimer timer;
    timer.start();
    p.start(self, args);
    while (!p.canReadLine() && p.waitForReadyRead(30000)) {
    }
    const double ms = p.readLine().startsWith("shown") ? timer.nsecsElapsed() / 1e6 : -1;
    p.waitForFinished(30000);
    return ms;
}

int main(int argc, char** argv) {
    if (argc >= 3) {
        const QByteArray mode = argv[1];
        if (mode == "--start-form" || mode == "--start-bare")
            return StartChild(argc, argv, mode == "--start-bare", argv[2]);
        if (mode == "--visible-form" || mode == "--visible-bare")
            return VisibleChild(argc, argv, mode == "--visible-bare", argv[2]);
        if (mode == "--open-form" && argc >= 4) return OpenChild(argc, argv);
        if (mode == "--convert-memory") return ConvertMemoryChild(argc, argv);
    }

    gui::Application app(argc, argv);
    std::vector<bench::Row> rows;
    StartRows(rows, QCoreApplication::applicationFilePath());

    gui::seams::Reset();
    MainForm f;
    StartWizard(f);
    // General data that lets the advice on the finish page go on to the channels.
    f.manifacturer.setText(QStringLiteral("Lumenfab"));
    f.model.setText(QStringLiteral("Beam 575"));
    f.nameondesk.setText(QStringLiteral("BEAM575"));
    f.movinghead.setValue(true);
    for (const auto& [channelRows, bound] :
         {std::pair{kFixtureRows, 16.0}, std::pair{common::kMaxChannelRows, 100.0}})
        ChannelActionRows(rows, f, channelRows, bound);
    SplitRows(rows, f);
    LibraryRows(rows, QCoreApplication::applicationFilePath(), f);

    bench::Print(rows);
    return 0;
}

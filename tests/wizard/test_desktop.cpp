// The window as a desktop program: where it opens, the keys that act anywhere in it, what the
// first save after an open proposes, and the marks and heads of both grids as the grid
// control has them.
#include <QAccessible>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <functional>

#include "gui/dialogs.h"
#include "gui/seams.h"
#include "output/save_flow.h"
#include "support/form_fixture.h"
#include "support/testing.h"
#include "wizard/open_fixture.h"

using namespace gui::testing;
using Act = std::function<void(MainForm&)>;
Q_DECLARE_METATYPE(Act)

class TestDesktop : public FormFixture {
    Q_OBJECT

  private slots:
    void placedByWindowManager() { QVERIFY(PlacedByWindowManager(form().main)); }

    // Each key pressed with the focus where the page puts it; what it did, as the calls of
    // the dialogs and the page it leaves.
    void windowKeys_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<int>("saveCalls");
        QTest::addColumn<QString>("message");  // the start of the message shown, if any
        QTest::addColumn<int>("pageAfter");
        const int ctrl = Qt::ControlModifier, none = Qt::NoModifier;
        QTest::newRow("Ctrl+S on Step 4 saves") << 3 << int(Qt::Key_S) << ctrl << 1 << "" << 3;
        QTest::newRow("Ctrl+S elsewhere nothing") << 2 << int(Qt::Key_S) << ctrl << 0 << "" << 2;
        QTest::newRow("Ctrl+Q asks") << 0 << int(Qt::Key_Q) << ctrl << 0 << "Are you sure" << 0;
        QTest::newRow("F1 helps") << 1 << int(Qt::Key_F1) << none << 0 << "Keys that" << 1;
        QTest::newRow("Return presses Next") << 4 << int(Qt::Key_Return) << none << 0 << "" << 5;
    }
    void windowKeys() {
        QFETCH(int, page);
        QFETCH(int, key);
        QFETCH(int, modifiers);
        QFETCH(int, saveCalls);
        QFETCH(QString, message);
        QFETCH(int, pageAfter);
        goToPage(page);
        if (saveCalls) gui::seams::QueueSaveAnswer(std::nullopt);
        if (!message.isEmpty()) gui::seams::QueueMsgBoxAnswer(gui::MsgButton::No);
        PressKey(Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        QCOMPARE(int(gui::seams::SaveDialogCalls().size()), saveCalls);
        QCOMPARE(gui::seams::MsgBoxCalls().size(), std::size_t(message.isEmpty() ? 0 : 1));
        if (!message.isEmpty()) QVERIFY(gui::seams::MsgBoxCalls().front().text.startsWith(message));
        QCOMPARE(int(form().CurrentStep), pageAfter);
        QVERIFY(!gui::seams::EndRequested());
    }

    void escapeHidesPresets() {
        goToPage(2);
        Click(form().adddef);
        QVERIFY(ShownOnScreen(form().defaultsframe));
        PressKey(Qt::Key_Escape);
        QVERIFY(!ShownOnScreen(form().defaultsframe));
        QCOMPARE(FocusName(), QStringLiteral("adddef"));
    }

    // A screen reader hears each page's caption, on Step 4 with the advice and the count.
    void announced_data() {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("heard");
        QTest::newRow("Next to Step 4")
            << 0 << 3
            << "Step 4 - add more text...etc... Manifacturer cannot be empty! Total number of "
               "dmx channels is 0";
        QTest::newRow("Previous to Step 6") << 6 << 5 << "Step 6 - macros";
        QTest::newRow("Step 4 again") << 4 << 3
                                      << "Step 4 - add more text...etc... Manifacturer cannot be "
                                         "empty!";
    }
    void announced() {
        QFETCH(int, from);
        QFETCH(int, page);
        QFETCH(QString, heard);
        goToPage(from);
        Announced(form().main);
        goToPage(page);
        QCOMPARE(Announced(form().main), heard);
    }

    // What a screen reader hears of an act, on a page made ready by what comes first: where
    // the focus goes and what is said.
    void heardOfAct_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<Act>("first");
        QTest::addColumn<Act>("act");
        QTest::addColumn<QStringList>("heard");
        const auto add = [](const char* row, int page, Act first, Act act, QStringList heard) {
            QTest::newRow(row) << page << first << act << heard;
        };
        const Act onToOfRow1 = [](MainForm& f) { ClickCell(f.range, 1, 2); };
        add("a key opens the range editor", 6, onToOfRow1, [](MainForm&) { TypeKeys("7"); },
            {"to, row 1"});
        add("the presets open", 2, {}, [](MainForm& f) { Click(f.adddef); },
            {"add default", "ADD Default types and settings (dmx will be auto incremented)"});
        const Act threeChannelsOnRow4 = [](MainForm& f) {
            Click(f.adddef);
            Click(f.Command6[7]);  // RGB
            ClickCell(f.table, 4, 1);
        };
        add("a line deleted", 2, threeChannelsOnRow4, [](MainForm& f) { Click(f.delete_); },
            {"delete line", "2 channels"});
        const auto press = [](Qt::Key key) { return Act([key](MainForm&) { PressKey(key); }); };
        const Act openSplit = [](MainForm&) {  // from the range grid
            PressKey(Qt::Key_Tab);
            PressKey(Qt::Key_Return);
        };
        const Act splitInFourToOk = [openSplit](MainForm& f) {
            openSplit(f);
            TypeKeys("4");
            for (int tabs = 0; tabs < 5 && FocusName() != u"rgo"; ++tabs) PressKey(Qt::Key_Tab);
        };
        add("an auto split by keys", 6, splitInFourToOk, press(Qt::Key_Return),
            {"Ranges", "4 ranges"});
        const Act openSplitAndLeave = [openSplit](MainForm& f) {
            openSplit(f);
            LeaveAndComeBack(f.main);
        };
        add("an auto split cancelled after a visit to another window", 6, openSplitAndLeave,
            press(Qt::Key_Escape), {"auto split"});
    }
    void heardOfAct() {
        QFETCH(int, page);
        QFETCH(Act, first);
        QFETCH(Act, act);
        QFETCH(QStringList, heard);
        goToPage(page);
        if (first) first(form());
        ScreenReader reader;
        act(form());
        QCOMPARE(reader.heard(), heard);
    }

    // What a screen reader reads of the window, the name field and the fixture types.
    void readAs() {
        auto* window = QAccessible::queryAccessibleInterface(find("main"));
        QCOMPARE(window->role(), QAccessible::Window);
        auto* name = QAccessible::queryAccessibleInterface(find("nameondesk"));
        QCOMPARE(name->text(QAccessible::Description), "(11 char max, no spaces!)");
        QStringList labelled;
        auto* types = QAccessible::queryAccessibleInterface(find("Label5"));
        for (const auto& [other, kind] : types->relations(QAccessible::Labelled))
            labelled << other->object()->objectName();
        QCOMPARE(labelled, QStringList({"movinghead", "mirror", "otherkind"}));
        auto* option = QAccessible::queryAccessibleInterface(find("mirror"));
        QCOMPARE(option->relations(QAccessible::Label).front().first, types);

        // The range grid's heads and marks, and the bars of its ranges.
        goToPage(6);
        auto* range = QAccessible::queryAccessibleInterface(find("range"))->tableInterface();
        auto* cell = range->cellAt(0, 0)->tableCellInterface();
        QCOMPARE(cell->columnHeaderCells().front()->text(QAccessible::Name), "from");
        QCOMPARE(cell->rowHeaderCells().front()->text(QAccessible::Name), "row 1");
        auto* bars = QAccessible::queryAccessibleInterface(find("rpict"));
        QTRY_COMPARE(bars->text(QAccessible::Description), "0 to 255 label here");
    }

    // The first save after an open proposes the opened file; the next ones the name on the
    // desk, in the working folder.
    void openedFileProposedOnce() {
        const QString opened = dataPath(QStringLiteral("output_worked_example.R20"));
        OpenFixtureFile(form(), opened);
        QTemporaryDir dir;
        gui::seams::QueueSaveAnswer(dir.filePath(QStringLiteral("A.R20")));
        gui::seams::QueueMsgBoxAnswer(gui::MsgButton::Ok);
        gui::seams::QueueSaveAnswer(std::nullopt);
        goToPage(3);
        Click(form().finished);
        Click(form().finished);
        const auto& calls = gui::seams::SaveDialogCalls();
        QCOMPARE(calls.size(), std::size_t(2));
        QCOMPARE(calls[0].presetName,
                 QDir::toNativeSeparators(QFileInfo(opened).absoluteFilePath()));
        QCOMPARE(calls[1].presetName, QStringLiteral("BEAM575.R20"));
    }

    // Mark 2, then Shift on mark 3: rows 2 to 3 are selected and "merge" joins them.
    void marksSelectRowsForMerge() {
        MainForm& f = form();
        goToPage(6);
        f.range.setTextMatrix(1, 2, QStringLiteral("9"));
        f.range.AddItem(QStringLiteral("#\t10\t19\tB"));
        f.range.AddItem(QStringLiteral("#\t20\t255\tC"));
        ClickMark(f.range, 2);
        ClickMark(f.range, 3, Qt::ShiftModifier);
        QCOMPARE(QPoint(f.range.Row(), f.range.RowSel()), QPoint(2, 3));
        Click(f.rmerge);
        QCOMPARE(f.range.Rows(), 3);
        QCOMPARE(f.range.TextMatrix(2, 2), QStringLiteral("255"));
    }

    // A double click on a head or a mark opens the editor on the cell it made current.
    void doubleClickOpensEditor_data() {
        QTest::addColumn<int>("col");  // a head's column, or 0 for the mark of row 2
        QTest::addColumn<int>("cell");
        QTest::newRow("head of column 4") << 4 << 1 * 15 + 4;
        QTest::newRow("mark of row 2") << 0 << 2 * 15 + 1;
    }
    void doubleClickOpensEditor() {
        QFETCH(int, col);
        QFETCH(int, cell);
        MainForm& f = form();
        goToPage(2);
        Click(f.add);
        ClickCell(f.table, 1, 1);
        col > 0 ? ClickHead(f.table, col, 2) : ClickMark(f.table, 2, {}, 2);
        QVERIFY(f.editframe.Visible());
        QCOMPARE(f.editframe.Tag().toInt(), cell);
    }
};

RIGWRIGHT_TEST_CLASS(TestDesktop)
#include "test_desktop.moc"

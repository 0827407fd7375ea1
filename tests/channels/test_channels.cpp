// The channel table: its commands, each finishing the open edit first; presets; tool tips;
// and its floating cell editor, driven by keys to the focus and clicks where a mouse lands.
#include <QAbstractItemModelTester>
#include <QPoint>
#include <QTest>

#include "channels/channel_table.h"
#include "channels/edit_classes.h"
#include "channels/presets.h"
#include "common/channel_grid.h"
#include "support/form_fixture.h"
#include "support/testing.h"

using namespace gui::testing;

enum Col { kDmx1 = 1, kDmx2, kKey = 5, kLabel = 7, kRatio = 10, kLocate, kHigh, kLow, kComment };

class TestChannels : public FormFixture {
    Q_OBJECT
  private:
    // then replaceEntry(text)
    void openCell(int row, int col, const QString& text = {}) {
        ClickCell(form().table, row, col, 2);
        if (!text.isNull()) replaceEntry(text);
    }
    // select all in the edit box, then type
    void replaceEntry(const QString& text) {
        QTRY_VERIFY(HasFocus(form().editcombo));
        PressKey(Qt::Key_A, Qt::ControlModifier);
        PressKey(Qt::Key_Delete);  // an empty text types nothing over the selection
        TypeKeys(text);
    }

  private slots:
    // Every test starts on the page of the table, its model watched by a QAbstractItemModelTester.
    void init() {
        FormFixture::init();
        if (!QTest::currentTestFailed()) goToPage(2);
        new QAbstractItemModelTester(ModelOf(form().table), ModelOf(form().table));
    }
    // add, delete, the preset panel, Previous and Next
    void commands() {
        gui::Grid& table = form().table;
        Click(form().delete_);  // the last row stays
        QCOMPARE(table.Rows(), 2);
        // A new row holds nothing but its mark: the row count when it was added, after a delete
        // too.
        Click(form().add);
        Click(form().add);
        QCOMPARE(RowsOf(form().table, u';').mid(1),
                 (QStringList{"2" + QString(14, u';'), "3" + QString(14, u';')}));
        openCell(1, 7,
                 "first");  // add: the open entry lands in its own cell, then the row is added
        Click(form().add);
        QCOMPARE(table.TextMatrix(1, 7) + table.TextMatrix(4, 0), "first4");
        // delete: the edit of row 3 is finished before row 2 goes, so it moves up with its row.
        openCell(3, 14, "third");
        table.setRow(2);
        Click(form().delete_);
        QCOMPARE(table.TextMatrix(2, 14) + table.TextMatrix(2, 0), "third3");
        Click(form().add);
        QCOMPARE(table.TextMatrix(3, 0) + table.TextMatrix(4, 0), "44");
        // The preset panel opens beside the edit and leaves it open; a preset commits it first.
        openCell(1, 1, "7");
        Click(form().adddef);
        QVERIFY(form().defaultsframe.Visible() && form().editframe.Visible());
        QCOMPARE(table.TextMatrix(1, 1), "");
        Click(form().Command6[9]);
        QCOMPARE(table.TextMatrix(1, 1) + table.TextMatrix(5, 1), "78");
        QVERIFY(!form().editframe.Visible());
        Click(form().add);  // after a preset, the mark is the true row index again
        QCOMPARE(table.TextMatrix(5, 0) + table.TextMatrix(6, 0), "#6");
        // Previous leaves the edit open and uncommitted; the Next that comes back commits it.
        openCell(1, 14, "later");
        Click(form().previous);
        QVERIFY(form().CurrentStep == 1 && table.TextMatrix(1, 14).isEmpty());
        Click(form().nexts);
        QVERIFY(form().CurrentStep == 2 && !form().editframe.Visible());
        QCOMPARE(table.TextMatrix(1, 14), "later");
    }
    // A preset adds all its rows or none; `add` stops at the cap too.
    void rowCap() {
        gui::Grid& table = form().table;
        // The model tester would check the whole model at each of the thirty thousand rows.
        qDeleteAll(ModelOf(table)->findChildren<QAbstractItemModelTester*>());
        while (table.Rows() < common::kMaxChannelRows) table.AddItem(QStringLiteral("x"));
        Command6_Click(form(), 6);  // three rows, and one place left
        Command6_Click(form(), 0);
        Click(form().add);
        Command6_Click(form(), 0);
        QCOMPARE(table.Rows() - 1, common::kMaxChannelRows);
        QCOMPARE(table.TextMatrix(table.Rows() - 1, 7), "Pan");
    }
    // Ready-made rows, at the next free offset: one past the largest dmx1 or dmx2 of any row.
    void preset_data() {
        QTest::addColumn<QStringList>("offsets");  // the table before, "dmx1;dmx2" a row
        QTest::addColumn<QList<int>>("presets");
        QTest::addColumn<QStringList>("added");  // the rows added, from dmx1 as far as written
        const auto add = [](const char* name, const QStringList& offsets, const QList<int>& presets,
                            const QStringList& added) {
            QTest::newRow(name) << offsets << presets << added;
        };
        const QString fade = "%1;0;FADEABLE LTP;%2;1;N;100;%3;default";
        add("CMY", {"4;0"}, {6},
            {fade.arg(5).arg("B>;10;1;Cyan", "0;0;255"),
             fade.arg(6).arg("C>;10;61;Magenta", "0;0;255"),
             fade.arg(7).arg("D>;9;61;Yellow", "0;255;51")});
        add("dimmer", {";0"}, {12},
            {"1;0;HTP (usually dimmer);H>;1;1;Dimmer;1;N;100;128;0;0;default"});
        add("gap stays free", {"1;0", "2;0", "5;0"}, {0}, {"6;0"});
        add("dmx2 counts like dmx1", {"3;9"}, {0}, {"10;0"});
        add("equal to the candidate", {"1;"}, {0}, {"2;0"});
        add("zero and negatives never count", {"-5;0", "0;-1"}, {0}, {"1;0"});
        add("leading number of the text, rounded", {" 12.5x;0"}, {0}, {"14;0"});
        add("16 bits take two, then one each", {";0"}, {1, 0, 0}, {"1;2", "3;0", "4;0"});
        add("16 bits past 511", {"511;0"}, {1}, {"512;513"});
        // Every offset a preset takes, a 16-bit low byte too, is a 16-bit value of its own.
        add("last offset", {"32766;0"}, {1, 0, 0, 6}, {"32767;0"});
        add("16 bits at the last offset", {"32765;0"}, {1, 1}, {"32766;32767"});
        add("three rows or none", {"32765;0"}, {7, 6}, {});
        add("three rows up to the last offset", {"32764;0"}, {7},
            {"32765;0", "32766;0", "32767;0"});
        add("index outside", {";0"}, {-1, 25, 32767}, {});
    }
    void preset() {
        QFETCH(QStringList, offsets);
        QFETCH(QList<int>, presets);
        QFETCH(QStringList, added);
        for (QString& row : offsets) row.prepend(u"#;");
        SetRows(form().table, offsets, u';');
        const QStringList before = RowsOf(form().table, u';');
        for (const int i : presets) {
            Click(form().adddef);
            i >= 0 && i < 25 ? Click(form().Command6[i]) : Command6_Click(form(), std::int16_t(i));
            QVERIFY(!form().defaultsframe.Visible());
            // The focus goes back where it was, not on to "Next >", which a Space would press.
            if (i >= 0 && i < 25) QCOMPARE(FocusName(), QStringLiteral("adddef"));
        }
        QStringList got = RowsOf(form().table, u';');
        QCOMPARE(got.mid(0, before.size()), before);  // a preset never fills the rows there were
        got = got.mid(before.size());
        for (int i = 0; i < got.size() && i < added.size(); ++i)
            got[i] = got[i].section(u';', 1, 1 + int(added[i].count(u';')));
        QCOMPARE(got, added);
    }
    // By keys alone: a key on the grid opens the editor without being typed; Enter stores the
    // entry.
    void entry_data() {
        QTest::addColumn<int>("col");
        QTest::addColumn<QString>("old");
        QTest::addColumn<int>("pick");  // the list item picked, -1: none
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("expected");
        struct Row {
            int col;
            const char *typed, *expected, *old = "7";
            int pick = -1;
        };
        // clang-format off
        const Row rows[] = {
            // Each class at its bounds; rounding goes half to even, and the bounds apply after it.
            {kDmx1, "3.5", "4"}, {kDmx1, "2.5", "2"}, {kDmx1, "0.5", "7"}, {kDmx1, "511", "511"},
            {kDmx1, "511.5", "7"}, {kDmx1, "  +12", "12"}, {kDmx2, "-1", "7"}, {kDmx2, "512", "7"},
            {kKey, "0", "7"}, {kKey, "20", "20"}, {kKey, "21", "7"}, {kKey, "12x", "12"},
            {kRatio, "-1", "7"}, {kRatio, "100.5", "100"}, {kRatio, "101", "7"}, {kRatio, "050.0", "50"},
            {kLocate, "-1", "-1"}, {kLocate, "-1.5", "7"}, {kLocate, "-0.4", "0"}, {kLow, "256", "7"},
            // No leading number gives 0; beyond 16 bits there is no value at all, not even 0.
            {kDmx1, "abc", "7"}, {kDmx2, "abc", "0"}, {kDmx2, "40000", "7"}, {kHigh, "255", "255"},
            // Committed at once, as the cell stands (null typed); free text is stored as typed.
            {kDmx2, nullptr, "0", ""}, {kDmx1, nullptr, "", ""}, {kLocate, nullptr, "-1", "-1"},
            {kLabel, "  a b  ", "  a b  "}, {kComment, "40000", "40000"},
            // A choice column stores only a picked item; typing after the pick undoes it.
            {6, "1> A (left)", "61", "61"}, {4, nullptr, "E>", "E>"}, {4, "x", "E>", "E>", 2},
            {6, "", "61> B (right)", "1", 1}, {3, "", "INDEXED LTP (not fadeable, such as gobo)", "", 2},
            {4, "", "0> ---OTHER", "E>", 22}, {8, "", "4 - FD Square", "1", 3},
            {9, "", "C - inverted", "N", 1}};
        // clang-format on
        for (const Row& r : rows)
            QTest::addRow("col %d, '%s' over '%s'", r.col, r.typed ? r.typed : "-", r.old)
                << r.col << r.old << r.pick << (r.typed ? r.typed : QString()) << r.expected;
    }
    void entry() {
        QFETCH(int, col);
        QFETCH(QString, old);
        QFETCH(int, pick);
        QFETCH(QString, typed);
        QFETCH(QString, expected);
        MainForm& f = form();
        f.table.setTextMatrix(1, col, old);
        ClickCell(f.table, 1, col);
        TypeKeys("9");
        QTRY_VERIFY(HasFocus(f.editcombo));
        QCOMPARE(f.editcombo.Text(), old);
        // The frame stands over its cell, titled by its column.
        QCOMPARE(f.editframe.Caption(), f.table.TextMatrix(0, col));
        QCOMPARE(f.editframe.Left(), f.table.Left() + f.table.ColPos(col));
        QCOMPARE(f.editframe.Top(), f.table.Top() + f.table.RowPos(1));
        if (pick >= 0) PickItem(f.editcombo, pick);
        // Into a choice list the text is typed onto the old one or the picked item.
        if (pick >= 0 || typed.isNull() || channels::EditClassOfColumn(col) == channels::kChoice)
            TypeKeys(typed);
        else
            replaceEntry(typed);
        PressKey(Qt::Key_Return);
        QCOMPARE(f.table.TextMatrix(1, col), expected);
        QVERIFY(!f.editframe.Visible() && HasFocus(f.table));
        // With no edit open, a click changes no cell, whatever the edit box still holds; the next
        // key opens the editor again, with no list left over from a choice column.
        f.editcombo.setText(QStringLiteral("5"));
        ClickCell(f.table, 1, kComment);
        QCOMPARE(f.table.TextMatrix(1, col), expected);
        TypeKeys("x");
        QTRY_VERIFY(HasFocus(f.editcombo));
        QCOMPARE(f.editcombo.ListCount(), 0);
    }
    // Every click on the grid commits the open edit into its own cell and closes the preset panel.
    // A click on a cell, a head or a mark moves the current cell; a double click opens the editor.
    void clickCommits_data() {
        QTest::addColumn<QString>("where");
        for (const char* where : {"cell", "head", "corner", "mark", "below the marks", "empty area",
                                  "double click on a cell", "double click on the empty area"})
            QTest::newRow(where) << where;
    }
    void clickCommits() {
        QFETCH(QString, where);
        MainForm& f = form();
        Click(f.add);
        openCell(2, kLabel, "abc");
        Click(f.adddef);
        const int to = where.contains(u"cell") || where == u"head" ? kComment : kLabel;
        const int row = where.contains(u"cell") || where == u"mark" ? 1 : 2;
        if (where == u"cell") ClickCell(f.table, 1, kComment);
        if (where == u"head") ClickHead(f.table, kComment);
        if (where == u"corner") ClickHead(f.table, 0);
        if (where == u"mark") ClickMark(f.table, 1);
        if (where == u"below the marks") ClickBelowMarks(f.table);
        if (where == u"empty area") ClickEmptyArea(f.table);
        if (where == u"double click on a cell") openCell(1, kComment);
        if (where == u"double click on the empty area") ClickEmptyArea(f.table, 2);
        QCOMPARE(f.table.TextMatrix(2, kLabel) + f.table.TextMatrix(1, kComment), "abc");
        QCOMPARE(QPoint(f.table.Col(), f.table.Row()), QPoint(to, row));
        QVERIFY(!f.defaultsframe.Visible());
        const bool open = where.startsWith(u"double");
        QCOMPARE(f.editframe.Visible(), open);
        if (open) QCOMPARE(f.editframe.Tag(), QString::number(f.table.Row() * 15 + to));
    }
    // A cut cell shows its whole text in a tool tip; the user drags column borders wider.
    void cutCellShowsItsTextInATip_data() {
        QTest::addColumn<int>("preset");
        QTest::addColumn<int>("col");   // 3 is "channel type", 7 "attribute label"
        QTest::addColumn<int>("drag");  // pixels the column's right border moves first
        QTest::addColumn<QString>("tip");
        const QString indexed = "INDEXED LTP (not fadeable, such as gobo)";
        QTest::newRow("fadeable type cut") << 0 << 3 << 0 << "FADEABLE LTP";
        QTest::newRow("offset fits") << 12 << 1 << 0 << "";
        QTest::newRow("dragged wide enough") << 4 << 3 << 400 << "";
        QTest::newRow("dragged wider, still cut") << 4 << 3 << 20 << indexed;
        QTest::newRow("dragged narrower, now cut") << 12 << 7 << -60 << "Dimmer";
    }
    void cutCellShowsItsTextInATip() {
        QFETCH(int, preset);
        QFETCH(int, col);
        QFETCH(int, drag);
        QFETCH(QString, tip);
        Click(form().adddef);
        Click(form().Command6[preset]);
        if (drag) DragColumnBorder(form().table, col, drag);
        QCOMPARE(ToolTipOfCell(form().table, 2, col), tip);
        // The blank first row has nothing to show, however narrow its column.
        QCOMPARE(ToolTipOfCell(form().table, 1, col), QString());
    }
};

RIGWRIGHT_TEST_CLASS(TestChannels)
#include "test_channels.moc"

// The range editor and its commit: the rows must tile 0..255 whatever is typed.
#include <QTest>

#include "gui/testing.h"
#include "range_tests.h"
#include "ranges/range_operations.h"
#include "ranges/range_table.h"
#include "wizard/main_form.h"

namespace {

// 0 to 9, 10 to 19 with label L, 20 to 255; the middle row has a mark of its own so that
// the tests see which part keeps it.
const QStringList kThree = {"1|0|9|A", "M|10|19|L", "#|20|255|C"};
const QStringList kStart = {"1|0|255|label here"};

QStringList With(QStringList rows, int index, const QStringList& replacement) {
    rows.removeAt(index);
    for (int i = 0; i < replacement.size(); ++i) rows.insert(index + i, replacement[i]);
    return rows;
}

}  // namespace

void TestRanges::commitOnThreeRanges_data() {
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("expected");

    const QStringList from15 = With(kThree, 1, {"#|10|14|", "M|15|19|L"});
    const QStringList to15 = With(kThree, 1, {"M|10|15|L", "#|16|19|"});
    QTest::newRow("from 15 cuts") << 1 << "15" << from15;
    QTest::newRow("from 19 leaves one value")
        << 1 << "19" << With(kThree, 1, {"#|10|18|", "M|19|19|L"});
    QTest::newRow("from 10 own bound") << 1 << "10" << kThree;
    QTest::newRow("from 9 not above PrevTo") << 1 << "9" << kThree;
    QTest::newRow("from 20 above own to") << 1 << "20" << kThree;
    QTest::newRow("from -1 negative") << 1 << "-1" << kThree;
    QTest::newRow("to 15 cuts") << 2 << "15" << to15;
    QTest::newRow("to 10 leaves one value")
        << 2 << "10" << With(kThree, 1, {"M|10|10|L", "#|11|19|"});
    QTest::newRow("to 19 own bound") << 2 << "19" << kThree;
    QTest::newRow("to 20 not below NextFrom") << 2 << "20" << kThree;
    QTest::newRow("to 9 below own from") << 2 << "9" << kThree;
    QTest::newRow("from blanks around") << 1 << "  15 " << from15;
    QTest::newRow("to blanks around") << 2 << " 15   " << to15;
    QTest::newRow("to beyond 16 bits") << 2 << "40000" << kThree;
    QTest::newRow("from beyond 16 bits") << 1 << "-40000" << kThree;
    for (const char* typed : {"015", "+15", "15.0", "1e1", "15x", "abc", "", "1 5", "-0"}) {
        QTest::addRow("from '%s' not plain", typed) << 1 << typed << kThree;
        QTest::addRow("to '%s' not plain", typed) << 2 << typed << kThree;
    }
}

void TestRanges::commitOnThreeRanges() {
    QFETCH(int, col);
    QFETCH(QString, typed);
    QFETCH(QStringList, expected);
    MainForm& f = form();
    SetRangeRows(f, kThree);
    EditCell(f, 2, col, typed);
    QCOMPARE(RangeRows(f.range), expected);
    QVERIFY(!f.reditframe.Visible());
    QCOMPARE(f.reditframe.Tag(), QStringLiteral("0"));
    QCOMPARE(f.redittext.Tag(), QString::number(col));  // closing leaves the column
}

void TestRanges::commitOnThreeRangesByKeyboard_data() {
    commitOnThreeRanges_data();
}

void TestRanges::commitOnThreeRangesByKeyboard() {
    QFETCH(int, col);
    QFETCH(QString, typed);
    QFETCH(QStringList, expected);
    MainForm& f = form();
    goToPage(6);
    SetRangeRows(f, kThree);
    gui::testing::DoubleClickCell(f.range, 2, col);
    QVERIFY(f.reditframe.Visible());
    QTRY_VERIFY(gui::testing::HasFocus(f.redittext));
    gui::testing::PressKey(f.redittext, Qt::Key_A, Qt::ControlModifier);
    if (typed.isEmpty())
        gui::testing::PressKey(f.redittext, Qt::Key_Delete);
    else
        gui::testing::TypeText(f.redittext, typed);
    QCOMPARE(f.redittext.Text(), typed);
    gui::testing::PressKey(f.redittext, Qt::Key_Return);
    QCOMPARE(RangeRows(f.range), expected);
    QVERIFY(!f.reditframe.Visible());
    QVERIFY(gui::testing::HasFocus(f.range));
}

void TestRanges::commitOnStartTable_data() {
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("from 100") << 1 << "100" << QStringList{"#|0|99|", "1|100|255|label here"};
    QTest::newRow("to 100") << 2 << "100" << QStringList{"1|0|100|label here", "#|101|255|"};
    QTest::newRow("from -1") << 1 << "-1" << kStart;
    QTest::newRow("to 256") << 2 << "256" << kStart;
    QTest::newRow("from 255") << 1 << "255" << QStringList{"#|0|254|", "1|255|255|label here"};
    QTest::newRow("to 0") << 2 << "0" << QStringList{"1|0|0|label here", "#|1|255|"};
}

void TestRanges::commitOnStartTable() {
    QFETCH(int, col);
    QFETCH(QString, typed);
    QFETCH(QStringList, expected);
    MainForm& f = form();
    QCOMPARE(RangeRows(f.range), kStart);  // as the program starts
    EditCell(f, 1, col, typed);
    QCOMPARE(RangeRows(f.range), expected);
}

void TestRanges::labelStoredAsTyped_data() {
    QTest::addColumn<QString>("typed");
    QTest::newRow("blanks before") << "   dimmer";
    QTest::newRow("empty") << "";
    QTest::newRow("looks like a number") << "42";
    QTest::newRow("number beyond 16 bits") << "99999 open";
    QTest::newRow("huge exponent") << "1e400";
}

void TestRanges::labelStoredAsTyped() {
    QFETCH(QString, typed);
    MainForm& f = form();
    SetRangeRows(f, kThree);
    EditCell(f, 2, 3, typed);
    QCOMPARE(RangeRows(f.range), With(kThree, 1, {"M|10|19|" + typed}));
}

void TestRanges::editorOpensOverCell() {
    MainForm& f = form();
    goToPage(6);
    for (int col : {1, 3}) {
        gui::testing::DoubleClickCell(f.range, 1, col);
        QVERIFY(f.reditframe.Visible());
        QCOMPARE(f.reditframe.Caption(), f.range.TextMatrix(0, col));
        QCOMPARE(f.reditframe.Left(), f.range.Left() + f.range.ColPos(col));
        QCOMPARE(f.reditframe.Top(), f.range.Top() + f.range.RowPos(1));
        QCOMPARE(f.reditframe.Tag(), QStringLiteral("1"));
        QCOMPARE(f.redittext.Tag(), QString::number(col));
        QCOMPARE(f.redittext.Text(), f.range.TextMatrix(1, col));
    }
    QCOMPARE(f.reditframe.Caption(), QString(51, u' ') + "label");
    // The text is not selected: typing adds to it.
    QTRY_VERIFY(gui::testing::HasFocus(f.redittext));
    gui::testing::TypeText(f.redittext, "!");
    QCOMPARE(f.redittext.Text(), QStringLiteral("label here!"));
    gui::testing::PressKey(f.redittext, Qt::Key_Return);
    QCOMPARE(f.range.TextMatrix(1, 3), QStringLiteral("label here!"));
}

void TestRanges::keyOnGridOpensEditorWithoutTheKey() {
    MainForm& f = form();
    goToPage(6);
    gui::testing::ClickCell(f.range, 1, 2);
    QVERIFY(!f.reditframe.Visible());
    gui::testing::PressKey(f.range, Qt::Key_7);
    QVERIFY(f.reditframe.Visible());
    QCOMPARE(f.redittext.Text(), QStringLiteral("255"));
    QCOMPARE(f.reditframe.Tag(), QStringLiteral("1"));
    QCOMPARE(f.redittext.Tag(), QStringLiteral("2"));
}

void TestRanges::clickCommitsIntoOpenedCell() {
    MainForm& f = form();
    goToPage(6);
    EditCell(f, 1, 2, "100");
    gui::testing::ClickCell(f.range, 1, 2);
    gui::testing::PressKey(f.range, Qt::Key_Space);
    gui::testing::PressKey(f.redittext, Qt::Key_A, Qt::ControlModifier);
    gui::testing::TypeText(f.redittext, "50");
    gui::testing::ClickCell(f.range, 2, 3);
    QCOMPARE(RangeRows(f.range), (QStringList{"1|0|50|label here", "#|51|100|", "#|101|255|"}));
    QVERIFY(!f.reditframe.Visible());
}

void TestRanges::clickWithoutEditChangesNothing() {
    MainForm& f = form();
    goToPage(6);
    SetRangeRows(f, kThree);
    f.redittext.setText("5");  // left over from an earlier edit; no edit is open
    gui::testing::ClickCell(f.range, 2, 1);
    gui::testing::ClickCell(f.range, 3, 2);
    QCOMPARE(RangeRows(f.range), kThree);
    QVERIFY(!f.reditframe.Visible());
}

void TestRanges::clearRestoresStart() {
    MainForm& f = form();
    SetRangeRows(f, kThree);
    f.range.setRow(3);
    f.range.setCol(1);
    range_DblClick(f);
    Command2_Click(f);
    rclear_Click(f);
    QCOMPARE(RangeRows(f.range), kStart);
    // The clear leaves both floating frames as they were.
    QVERIFY(f.reditframe.Visible());
    QCOMPARE(f.reditframe.Tag(), QStringLiteral("3"));
    QVERIFY(f.autoframe.Visible());
    rclear_Click(f);
    QCOMPARE(RangeRows(f.range), kStart);
}

void TestRanges::commitOnGoneRowChangesNothing() {
    MainForm& f = form();
    struct Case {
        int row, col;
        bool clear;  // else rows 1 and 2 are merged
        QString typed;
        QStringList expected;
    };
    const Case cases[] = {
        {3, 1, true, "25", kStart},
        {2, 3, true, "X", kStart},
        {3, 1, false, "25", {"1|0|19|A", "#|20|255|C"}},
        // A row of that number still stands: the commit applies to whatever it now holds.
        {2, 3, false, "X", {"1|0|19|A", "#|20|255|X"}},
        {2, 2, false, "100", {"1|0|19|A", "#|20|100|C", "#|101|255|"}},
    };
    for (const Case& c : cases) {
        SetRangeRows(f, kThree);
        f.range.setRow(c.row);
        f.range.setCol(c.col);
        range_DblClick(f);
        f.redittext.setText(c.typed);
        if (c.clear) {
            rclear_Click(f);
        } else {
            f.range.setRow(1);
            f.range.setRowSel(2);
            rmerge_Click(f);
        }
        range_Click(f);
        QCOMPARE(RangeRows(f.range), c.expected);
        QVERIFY(!f.reditframe.Visible());
        QCOMPARE(f.reditframe.Tag(), QStringLiteral("0"));
    }
}

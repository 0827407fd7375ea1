// The range editor and its commit: the rows must tile 0..255 whatever is typed.
#include <QTest>

#include "gui/testing.h"
#include "range_tests.h"
#include "ranges/range_operations.h"
#include "ranges/range_table.h"
#include "wizard/main_form.h"

using namespace gui::testing;

namespace {

QStringList Middle(const QStringList& rows) {
    return QStringList{kThree[0]} + rows + QStringList{kThree[2]};
}

}  // namespace

void TestRanges::commit_data() {
    QTest::addColumn<QStringList>("before");  // the edit goes to its last row but one, or row 1
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("keys");  // typed into the widgets, else set and committed by handler
    QTest::addColumn<QStringList>("expected");

    // On three ranges, row 2 (10..19): a cut must leave both parts inside the row.
    const QStringList from15 = Middle({"#|10|14|", "M|15|19|L"});
    QTest::newRow("from 15 cuts") << kThree << 1 << "15" << true << from15;
    QTest::newRow("from 10 own") << kThree << 1 << "10" << false << kThree;
    QTest::newRow("from 9 = PrevTo") << kThree << 1 << "9" << true << kThree;
    QTest::newRow("from 20 > to") << kThree << 1 << "20" << false << kThree;
    QTest::newRow("from blanks") << kThree << 1 << "  15 " << false << from15;
    QTest::newRow("to 15 cuts") << kThree << 2 << "15" << true << Middle({"M|10|15|L", "#|16|19|"});
    QTest::newRow("to 10") << kThree << 2 << "10" << false << Middle({"M|10|10|L", "#|11|19|"});
    QTest::newRow("to 19 own") << kThree << 2 << "19" << false << kThree;
    QTest::newRow("to 20 = NextFrom") << kThree << 2 << "20" << false << kThree;
    QTest::newRow("to 9 < from") << kThree << 2 << "9" << false << kThree;
    // Blanks are spaces: a tab or a no-break space makes the text no plain integer.
    for (const char* typed :
         {"015", "+15", "15.0", "1e1", "15x", "abc", "", "1 5", "-0", "15\t", "\t15", "15\u00a0"}) {
        QTest::addRow("from '%s' not plain", typed) << kThree << 1 << typed << false << kThree;
        QTest::addRow("to '%s' not plain", typed) << kThree << 2 << typed << false << kThree;
    }
    QTest::newRow("to '' by keys") << kThree << 2 << "" << true << kThree;
    for (const char* label : {"   dimmer", "", "1e400"})
        QTest::addRow("label '%s'", label) << kThree << 3 << label << (*label == ' ')
                                           << Middle({QStringLiteral("M|10|19|") + label});

    // On the table the program starts with: 0 and 255 bound it.
    const QStringList start{};
    QTest::newRow("start from 100")
        << start << 1 << "100" << false << QStringList{"#|0|99|", "1|100|255|label here"};
    QTest::newRow("start to 100") << start << 2 << "100" << true
                                  << QStringList{"1|0|100|label here", "#|101|255|"};
    QTest::newRow("start from -1") << start << 1 << "-1" << false << kStart;
    QTest::newRow("start to 256") << start << 2 << "256" << false << kStart;
}

void TestRanges::commit() {
    QFETCH(QStringList, before);
    QFETCH(int, col);
    QFETCH(QString, typed);
    QFETCH(bool, keys);
    QFETCH(QStringList, expected);
    MainForm& f = form();
    if (keys) goToPage(6);
    if (!before.isEmpty()) SetRangeRows(f, before);
    QCOMPARE(TilingFault(f.range), QString());
    const int row = before.isEmpty() ? 1 : before.size() - 1;
    if (keys) {
        DoubleClickCell(f.range, row, col);
        QTRY_VERIFY(HasFocus(f.redittext));
        PressKey(Qt::Key_A, Qt::ControlModifier);
        PressKey(Qt::Key_Delete);
        TypeKeys(typed);
        QCOMPARE(f.redittext.Text(), typed);
        PressKey(Qt::Key_Return);
        QVERIFY(HasFocus(f.range));
    } else {
        EditCell(f, row, col, typed);
    }
    QCOMPARE(RangeRows(f.range), expected);
    QVERIFY(!f.reditframe.Visible());
    QCOMPARE(f.reditframe.Tag(), QStringLiteral("0"));
    QCOMPARE(f.redittext.Tag(), QString::number(col));  // closing leaves the column
}

void TestRanges::editorWidgets() {
    MainForm& f = form();
    goToPage(6);
    EditCell(f, 1, 2, "100");
    DoubleClickCell(f.range, 2, 3);
    QVERIFY(f.reditframe.Visible());
    QCOMPARE(f.reditframe.Caption(), f.range.TextMatrix(0, 3));
    QCOMPARE(f.reditframe.Left(), f.range.Left() + f.range.ColPos(3));
    QCOMPARE(f.reditframe.Top(), f.range.Top() + f.range.RowPos(2));
    QCOMPARE(f.reditframe.Tag(), QStringLiteral("2"));
    // The text is not selected: typing adds to it.
    QTRY_VERIFY(HasFocus(f.redittext));
    TypeKeys("x!");
    PressKey(Qt::Key_Return);
    QCOMPARE(f.range.TextMatrix(2, 3), QStringLiteral("x!"));

    f.redittext.setText("5");  // left over: a click with no edit open ignores it
    ClickCell(f.range, 2, 1);
    ClickCell(f.range, 1, 2);
    QVERIFY(!f.reditframe.Visible());
    TypeKeys("7");  // opens the editor, but is not typed into it
    QCOMPARE(f.redittext.Text(), QStringLiteral("100"));
    QCOMPARE(f.redittext.Tag(), QStringLiteral("2"));
    PressKey(Qt::Key_A, Qt::ControlModifier);
    TypeKeys("50");
    // A click on a head commits into the cell the editor was opened on; the current cell
    // stays.
    ClickHead(f.range, 3);
    QCOMPARE(f.range.Row(), 1);
    QCOMPARE(f.range.Col(), 2);
    QCOMPARE(RangeRows(f.range), (QStringList{"1|0|50|label here", "#|51|100|", "#|101|255|x!"}));
    QVERIFY(!f.reditframe.Visible());
}

// An edit or a split whose row went (clear, or rows 1 and 2 merged) before the commit.
void TestRanges::commitOnGoneRow() {
    MainForm& f = form();
    const struct {
        int row, col;  // col 0: a split into two
        bool clear;
        const char* typed;
        QStringList expected;
    } cases[] = {{3, 1, true, "25", kStart},
                 {3, 1, false, "25", {"1|0|19|A", "#|20|255|C"}},
                 {3, 0, false, "2", {"1|0|19|A", "#|20|255|C"}},
                 // A row of that number still stands: the commit applies to whatever it now holds.
                 {2, 3, false, "X", {"1|0|19|A", "#|20|255|X"}},
                 {2, 2, false, "100", {"1|0|19|A", "#|20|100|C", "#|101|255|"}},
                 {2, 0, false, "2", {"1|0|19|A", "#|20|137|splitted 0", "#|138|255|"}}};
    for (const auto& c : cases) {
        SetRangeRows(f, kThree);
        f.range.setRow(c.row);
        f.range.setCol(std::max(c.col, 1));
        if (c.col) range_DblClick(f);
        Command2_Click(f);
        f.redittext.setText(c.typed);
        f.arno.setText(c.typed);
        f.range.setRow(1);
        f.range.setRowSel(2);
        c.clear ? rclear_Click(f) : rmerge_Click(f);
        // Neither clear nor merge touches the floating frames.
        QVERIFY(f.autoframe.Visible() && f.reditframe.Visible() == (c.col > 0));
        c.col ? range_Click(f) : rgo_Click(f);
        QCOMPARE(RangeRows(f.range), c.expected);
        QVERIFY(!f.reditframe.Visible());
        Command1_Click(f);
    }
}

// The range editor, merges and splits on a row: the rows must tile 0..255 whatever is typed.
#include <QPoint>
#include <QTest>

#include "gui/testing.h"
#include "range_tests.h"
#include "ranges/range_operations.h"
#include "ranges/range_table.h"
#include "wizard/main_form.h"

using namespace gui::testing;

QString RangeRows(const gui::Grid& range) {
    QString rows;
    for (int r = 1; r < range.Rows(); ++r)
        for (int c = 0; c < 4; ++c) rows += range.TextMatrix(r, c) + (c < 3 ? u'|' : u',');
    return rows.chopped(1);
}

void SetRangeRows(MainForm& f, const QString& rows) {
    rclear_Click(f);
    for (const QString& row : rows.split(u',')) f.range.AddItem(QString(row).replace(u'|', u'\t'));
    f.range.RemoveItem(1);
}

// On row `row`: an entry `text` in the from, to or label cell, a merge with row `text`, or a
// split into `text` pieces, each through the handlers the widgets call.
void TestRanges::edit_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto add = [](const QString& before, int row, const char* action, const QString& text,
                        const QString& expected) {
        QTest::addRow("%s '%s' on row %d", action, qPrintable(text), row)
            << before << row << action << text << expected;
    };
    const QString mid = "1|0|9|A,%1,#|20|255|C";  // kThree, its middle row 10..19 replaced
    add(kThree, 2, "from", "15", mid.arg("#|10|14|,M|15|19|L"));
    add(kThree, 2, "from", "  15 ", mid.arg("#|10|14|,M|15|19|L"));  // blanks around
    add(kThree, 2, "from", "10", kThree);
    add(kThree, 2, "from", "9", kThree);  // the to of the row before
    add(kThree, 2, "from", "20", kThree);
    add(kThree, 2, "to", "15", mid.arg("M|10|15|L,#|16|19|"));
    add(kThree, 2, "to", "10", mid.arg("M|10|10|L,#|11|19|"));
    add(kThree, 2, "to", "19", kThree);
    add(kThree, 2, "to", "20", kThree);  // the from of the row after
    add(kThree, 2, "to", "9", kThree);
    // Blanks are spaces: a tab or a no-break space makes the text no plain integer.
    for (const char* typed :
         {"015", "+15", "15.0", "1e1", "15x", "abc", "", "1 5", "-0", "15\t", "\t15", "15\u00a0"})
        for (const char* action : {"from", "to"}) add(kThree, 2, action, typed, kThree);
    add(kThree, 2, "label", "   a b", mid.arg("M|10|19|   a b"));
    add(kThree, 2, "label", "", mid.arg("M|10|19|"));
    add(kStart, 1, "from", "100", "#|0|99|,1|100|255|label here");
    add(kStart, 1, "to", "100", "1|0|100|label here,#|101|255|");
    add(kStart, 1, "from", "-1", kStart);
    add(kStart, 1, "to", "256", kStart);

    const QString four = "1|0|9|A,#|10|19|B,#|20|29|C,#|30|255|D";
    add(four, 2, "merge", "3", "1|0|9|A,#|10|29|B,#|30|255|D");
    add(four, 4, "merge", "1", "1|0|255|A");
    add(four, 2, "merge", "2", four);

    // The first piece keeps the mark; fractional counts keep their fraction.
    add(kStart, 1, "split", " 4 ranges", "1|0|63|splitted 0,#|64|127|,#|128|191|,#|192|255|");
    add(kStart, 1, "split", "3", "1|0|84|splitted 0,#|85|169|,#|170|255|");
    add(kThree, 2, "split", "2.5", mid.arg("M|10|14|splitted 0,#|15|19|"));
    add(kThree, 2, "split", "3.5", mid.arg("M|10|11|splitted 0,#|12|13|,#|14|19|"));
    add(kThree, 3, "split", "2", "1|0|9|A,M|10|19|L,#|20|137|splitted 0,#|138|255|");
    for (const char* count : {"1", "1.9", "abc", "257", "1e9"})
        add(kStart, 1, "split", count, kStart);
}

void TestRanges::edit() {
    QFETCH(QString, before);
    QFETCH(int, row);
    QFETCH(QString, action);
    QFETCH(QString, text);
    QFETCH(QString, expected);
    MainForm& f = form();
    const int col = QStringList{"from", "to", "label"}.indexOf(action) + 1;
    if (before != kStart) SetRangeRows(f, before);  // else the table the program starts with
    f.range.setRow(row);
    if (col > 0) {
        f.range.setCol(col);
        range_DblClick(f);
        f.redittext.setText(text);
        range_Click(f);
    } else if (action == u"merge") {
        f.range.setRowSel(text.toInt());
        rmerge_Click(f);
    } else {
        Command2_Click(f);
        f.arno.setText(text);
        rgo_Click(f);
        QCOMPARE(f.autoframe.Visible(), expected == before);
    }
    QCOMPARE(RangeRows(f.range), expected);
}

void TestRanges::editorWidgets() {
    MainForm& f = form();
    goToPage(6);
    SetRangeRows(f, "1|0|100|label here,#|101|255|a");
    DoubleClickCell(f.range, 2, 3);
    QCOMPARE(f.reditframe.Caption(), f.range.TextMatrix(0, 3));
    QCOMPARE(f.reditframe.Left(), f.range.Left() + f.range.ColPos(3));
    QCOMPARE(f.reditframe.Top(), f.range.Top() + f.range.RowPos(2));
    // The text is not selected: typing adds to it.
    QTRY_VERIFY(HasFocus(f.redittext));
    TypeKeys("x!");
    PressKey(Qt::Key_Return);
    QVERIFY(HasFocus(f.range));
    QCOMPARE(f.range.TextMatrix(2, 3), QStringLiteral("ax!"));

    f.redittext.setText("5");  // left over: a click with no edit open ignores it
    ClickCell(f.range, 2, 1);
    ClickCell(f.range, 1, 2);
    TypeKeys("7");  // opens the editor, but is not typed into it
    QCOMPARE(f.redittext.Text(), QStringLiteral("100"));
    PressKey(Qt::Key_A, Qt::ControlModifier);
    TypeKeys("50");
    // A click on a head commits into the cell the editor was opened on, then moves there.
    ClickHead(f.range, 3);
    QCOMPARE(QPoint(f.range.Col(), f.range.Row()), QPoint(3, 1));
    QCOMPARE(RangeRows(f.range), QStringLiteral("1|0|50|label here,#|51|100|,#|101|255|ax!"));
}

RIGWRIGHT_TEST_MAIN(TestRanges)

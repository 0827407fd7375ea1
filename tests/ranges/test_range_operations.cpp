// Merge and auto split: the worked examples, the dialog, and a long random walk that must
// keep the rows tiling 0..255.
#include <QTest>
#include <random>

#include "gui/testing.h"
#include "range_tests.h"
#include "ranges/range_operations.h"
#include "ranges/range_table.h"
#include "wizard/main_form.h"

using namespace gui::testing;

namespace {

const QStringList kFour = {"1|0|9|A", "#|10|19|B", "#|20|29|C", "#|30|255|D"};

// The pieces of a split: `bounds` holds the from of each piece, then one past the last value;
// the first piece keeps the mark and takes `label`.
QStringList SplitRows(const QString& mark, const QString& label, const QList<int>& bounds) {
    QStringList rows;
    for (int i = 0; i + 1 < bounds.size(); ++i)
        rows << QStringLiteral("%1|%2|%3|%4")
                    .arg(i ? QStringLiteral("#") : mark)
                    .arg(bounds[i])
                    .arg(bounds[i + 1] - 1)
                    .arg(i ? QString() : label);
    return rows;
}

}  // namespace

// A merge of rows `row` to `rowSel`, or with `count` a split of row `row`.
void TestRanges::operation_data() {
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("rowSel");
    QTest::addColumn<QString>("count");  // null: a merge
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QStringList>("expected");
    const auto merge = [](const char* name, const QStringList& before, int row, int rowSel,
                          const QStringList& expected) {
        QTest::newRow(name) << before << row << rowSel << QString() << QString() << expected;
    };
    const QStringList merged = {"1|0|9|A", "#|10|29|B", "#|30|255|D"};
    merge("merge down", kFour, 2, 3, merged);
    merge("merge up", kFour, 3, 2, merged);
    merge("merge all", kFour, 4, 1, {"1|0|255|A"});
    merge("merge one row", kFour, 2, 2, kFour);
    merge("empty first label kept", {"#|0|9|", "1|10|255|X"}, 1, 2, {"#|0|255|"});

    const auto split = [](const char* name, const QStringList& before, int row, const char* count,
                          const char* prefix, const QStringList& expected) {
        QTest::newRow(name) << before << row << 0 << count << prefix << expected;
    };
    const auto whole = [](const QList<int>& b) { return SplitRows("1", "splitted 0", b); };
    split("4 of 0..255", kStart, 1, "4", "splitted", whole({0, 64, 128, 192, 256}));
    split("3 of 0..255", kStart, 1, "3", "splitted", whole({0, 85, 170, 256}));
    split("number with words", kStart, 1, " 4 ranges", "splitted", whole({0, 64, 128, 192, 256}));
    split("empty prefix", kStart, 1, "2", "", SplitRows("1", " 0", {0, 128, 256}));
    // The middle row of three, 10..19; fractional counts keep their fraction.
    const auto middle = [](const QList<int>& b) {
        return QStringList{kThree[0]} + SplitRows("M", "splitted 0", b) + QStringList{kThree[2]};
    };
    split("10 of 10..19", kThree, 2, "10", "splitted",
          middle({10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20}));
    split("2.5 of 10..19", kThree, 2, "2.5", "splitted", middle({10, 15, 20}));
    split("3.5 of 10..19", kThree, 2, "3.5", "splitted", middle({10, 12, 14, 20}));
    split("last row", kThree, 3, "2", "p", {"1|0|9|A", "M|10|19|L", "#|20|137|p 0", "#|138|255|"});
    // A refused count changes nothing and leaves the dialog open.
    for (const char* count : {"1", "1.9", "abc", "257", "1e9"})
        QTest::addRow("refused '%s'", count) << kStart << 1 << 0 << count << "p" << kStart;
}

void TestRanges::operation() {
    QFETCH(QStringList, before);
    QFETCH(int, row);
    QFETCH(int, rowSel);
    QFETCH(QString, count);
    QFETCH(QString, prefix);
    QFETCH(QStringList, expected);
    MainForm& f = form();
    SetRangeRows(f, before);
    f.range.setRow(row);
    if (count.isNull()) {
        f.range.setRowSel(rowSel);
        rmerge_Click(f);
    } else {
        Command2_Click(f);
        QVERIFY(f.autoframe.Visible());
        f.arno.setText(count);
        f.arpre.setText(prefix);
        rgo_Click(f);
        QCOMPARE(f.autoframe.Visible(), expected == before);
        QCOMPARE(f.arno.Text(), count);
    }
    QCOMPARE(RangeRows(f.range), expected);
}

void TestRanges::mergeByDraggingRows() {
    goToPage(6);
    SetRangeRows(form(), kFour);
    DragRows(form().range, 4, 2, 1);
    Click(form().rmerge);
    QCOMPARE(RangeRows(form().range), (QStringList{"1|0|9|A", "#|10|255|B"}));
}

void TestRanges::splitDialog() {
    MainForm& f = form();
    goToPage(6);
    EditCell(f, 1, 2, "0");  // 0..0 and 1..255
    ClickCell(f.range, 2, 1);
    Click(f.Command2);
    const QString caption = QStringLiteral("range # from 1 to 255 (width: 255)");
    QCOMPARE(f.autolabel.Caption(), caption);
    QCOMPARE(f.autoframe.Tag(), QStringLiteral("2"));
    QTRY_VERIFY(HasFocus(f.arno));
    TypeKeys("1");             // the width was selected, so it is replaced
    PressKey(Qt::Key_Return);  // refused: the dialog stays
    QVERIFY(f.autoframe.Visible());
    QCOMPARE(f.arno.Text(), QStringLiteral("1"));

    // A range of one value opens nothing; the open dialog keeps its row.
    ClickCell(f.range, 1, 1);
    Click(f.Command2);
    QCOMPARE(f.autolabel.Caption(), caption);
    QCOMPARE(f.arno.Text(), QStringLiteral("1"));
    Click(f.Command1);
    QVERIFY(!f.autoframe.Visible());
    Click(f.Command2);
    QVERIFY(!f.autoframe.Visible());
    QCOMPARE(RangeRows(f.range), (QStringList{"1|0|0|label here", "#|1|255|"}));

    // OK at once takes the width as it was proposed: 256 ranges of one value.
    rclear_Click(f);
    Click(f.Command2);
    Click(f.rgo);
    QCOMPARE(f.range.Rows(), 257);
    QCOMPARE(TilingFault(f.range), QString());
}

// While the dialog shows, Return is OK and Escape is X wherever the focus stands on the
// form; the keys reach neither the grid nor an open cell editor.
void TestRanges::splitDialogKeys_data() {
    QTest::addColumn<QString>("focus");
    QTest::addColumn<int>("key");
    for (const char* focus : {"arno", "arpre", "range", "redittext", "rmerge"}) {
        QTest::addRow("Return in %s", focus) << focus << int(Qt::Key_Return);
        QTest::addRow("Enter in %s", focus) << focus << int(Qt::Key_Enter);
        QTest::addRow("Escape in %s", focus) << focus << int(Qt::Key_Escape);
    }
}

void TestRanges::splitDialogKeys() {
    QFETCH(QString, focus);
    QFETCH(int, key);
    MainForm& f = form();
    goToPage(6);
    Click(f.Command2);
    f.arno.setText("2");
    if (focus == u"range" || focus == u"redittext") ClickCell(f.range, 1, 3);
    if (focus == u"redittext") TypeKeys("x");  // opens the editor over the dialog's row
    if (focus == u"arpre") Click(f.arpre);
    if (focus == u"rmerge") f.rmerge.SetFocus();
    QTRY_COMPARE(FocusName(), focus);
    PressKey(Qt::Key(key));
    QVERIFY(!f.autoframe.Visible());
    QVERIFY(!f.reditframe.Visible() || (focus == u"redittext" && key == Qt::Key_Escape));
    const QStringList split = {"1|0|127|splitted 0", "#|128|255|"};
    QCOMPARE(RangeRows(f.range), key == Qt::Key_Escape ? kStart : split);
}

void TestRanges::randomOperationsKeepTiling() {
    MainForm& f = form();
    std::mt19937 rng(20240611u);
    const auto pick = [&rng](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(rng);
    };
    // Mostly numbers near a bound of the table, in the forms a user may type them.
    const auto randomText = [&]() -> QString {
        const QString near = QString::number(
            f.range.TextMatrix(pick(1, f.range.Rows() - 1), pick(1, 2)).toInt() + pick(-2, 2));
        // clang-format off
        const QString forms[] = {QString::number(pick(-5, 300)), " " + near + "  ", near + ".5",
                                 QString::number(pick(40000, 99999)), QString(), "0" + near,
                                 "x" + near};
        // clang-format on
        const int k = pick(0, 9);
        return k < 7 ? forms[k] : near;
    };
    int cuts = 0, merges = 0, splits = 0;
    for (int step = 0; step < 4000; ++step) {
        const int rows = f.range.Rows(), op = pick(0, 19);
        f.range.setRow(pick(1, rows - 1));
        f.range.setCol(pick(1, 3));
        if (op == 0) {
            if (pick(0, 9) == 0) rclear_Click(f);
        } else if (op == 1 || op == 2) {
            f.range.setRowSel(pick(1, rows - 1));
            rmerge_Click(f);
            ++merges;
        } else if (op == 3) {
            Command2_Click(f);
        } else if (op == 4 || op == 5) {
            f.arno.setText(pick(0, 3) == 0 ? randomText() : QString::number(pick(2, 40) / 2.0));
            rgo_Click(f);
            ++splits;
        } else {  // op 6 leaves the editor open while the table changes under it
            if (op != 7) {
                range_DblClick(f);
                f.redittext.setText(randomText());
            }
            if (op != 6) range_Click(f);
            cuts += f.range.Rows() > rows;
        }
        const QString fault = TilingFault(f.range);
        if (!fault.isEmpty()) QFAIL(qPrintable(QStringLiteral("step %1: %2").arg(step).arg(fault)));
    }
    // The walk must actually have grown and shrunk the table.
    QVERIFY(cuts > 100 && merges > 100 && splits > 100);
}

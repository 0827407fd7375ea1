// Merge and auto split: the worked examples, the dialog, and a long random walk that must
// keep the rows tiling 0..255.
#include <QTest>
#include <random>

#include "gui/testing.h"
#include "range_tests.h"
#include "ranges/range_operations.h"
#include "ranges/range_table.h"
#include "wizard/main_form.h"

namespace {

const QStringList kFour = {"1|0|9|A", "#|10|19|B", "#|20|29|C", "#|30|255|D"};
const QStringList kThree = {"1|0|9|A", "M|10|19|L", "#|20|255|C"};
const QStringList kStart = {"1|0|255|label here"};

QStringList SplitRows(const QString& first, const QList<int>& bounds) {
    // bounds: from of each piece, then one past the last value.
    QStringList rows;
    for (int i = 0; i + 1 < bounds.size(); ++i)
        rows << QStringLiteral("%1|%2|%3|%4")
                    .arg(i == 0 ? first.section(u'|', 0, 0) : "#")
                    .arg(bounds[i])
                    .arg(bounds[i + 1] - 1)
                    .arg(i == 0 ? first.section(u'|', 1) : QString());
    return rows;
}

}  // namespace

void TestRanges::merge_data() {
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("rowSel");
    QTest::addColumn<QStringList>("expected");
    const QStringList merged = {"1|0|9|A", "#|10|29|B", "#|30|255|D"};
    QTest::newRow("down") << kFour << 2 << 3 << merged;
    QTest::newRow("up") << kFour << 3 << 2 << merged;
    QTest::newRow("all rows") << kFour << 4 << 1 << QStringList{"1|0|255|A"};
    QTest::newRow("one row") << kFour << 2 << 2 << kFour;
    QTest::newRow("empty first label kept")
        << QStringList{"#|0|9|", "1|10|255|X"} << 1 << 2 << QStringList{"#|0|255|"};
}

void TestRanges::merge() {
    QFETCH(QStringList, before);
    QFETCH(int, row);
    QFETCH(int, rowSel);
    QFETCH(QStringList, expected);
    MainForm& f = form();
    SetRangeRows(f, before);
    f.range.setRow(row);
    f.range.setRowSel(rowSel);
    rmerge_Click(f);
    QCOMPARE(RangeRows(f.range), expected);
}

void TestRanges::mergeByDraggingRows() {
    MainForm& f = form();
    goToPage(6);
    SetRangeRows(f, kFour);
    gui::testing::DragRows(f.range, 4, 2, 1);
    gui::testing::Click(f.rmerge);
    QCOMPARE(RangeRows(f.range), (QStringList{"1|0|9|A", "#|10|255|B"}));
}

void TestRanges::split_data() {
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("count");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QStringList>("expected");
    const QString cut0 = "1|splitted 0";
    QTest::newRow("4 of 0..255") << kStart << 1 << "4"
                                 << "splitted" << SplitRows(cut0, {0, 64, 128, 192, 256});
    QTest::newRow("3 of 0..255") << kStart << 1 << "3"
                                 << "splitted" << SplitRows(cut0, {0, 85, 170, 256});
    QTest::newRow("number with words") << kStart << 1 << " 4 ranges"
                                       << "splitted" << SplitRows(cut0, {0, 64, 128, 192, 256});
    QTest::newRow("empty prefix") << kStart << 1 << "2"
                                  << "" << SplitRows("1| 0", {0, 128, 256});
    const auto middle = [](const QList<int>& bounds) {
        return QStringList{"1|0|9|A"} + SplitRows("M|splitted 0", bounds) +
               QStringList{"#|20|255|C"};
    };
    QTest::newRow("3 of 10..19") << kThree << 2 << "3"
                                 << "splitted" << middle({10, 13, 16, 20});
    QTest::newRow("10 of 10..19") << kThree << 2 << "10"
                                  << "splitted"
                                  << middle({10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20});
    QTest::newRow("2.5 of 10..19") << kThree << 2 << "2.5"
                                   << "splitted" << middle({10, 15, 20});
    QTest::newRow("3.5 of 10..19") << kThree << 2 << "3.5"
                                   << "splitted" << middle({10, 12, 14, 20});
    QTest::newRow("last row") << kThree << 3 << "2"
                              << "p"
                              << QStringList{"1|0|9|A", "M|10|19|L", "#|20|137|p 0", "#|138|255|"};
}

void TestRanges::split() {
    QFETCH(QStringList, before);
    QFETCH(int, row);
    QFETCH(QString, count);
    QFETCH(QString, prefix);
    QFETCH(QStringList, expected);
    MainForm& f = form();
    SetRangeRows(f, before);
    f.range.setRow(row);
    Command2_Click(f);
    QVERIFY(f.autoframe.Visible());
    f.arno.setText(count);
    f.arpre.setText(prefix);
    rgo_Click(f);
    QCOMPARE(RangeRows(f.range), expected);
    QVERIFY(!f.autoframe.Visible());
    QCOMPARE(f.arpre.Text(), prefix);
}

void TestRanges::splitRefusedKeepsDialogOpen_data() {
    QTest::addColumn<QString>("count");
    for (const char* count : {"1", "0", "-3", "1.9", "abc", "", "257", "256.5", "1e9"})
        QTest::newRow(count) << count;
}

void TestRanges::splitRefusedKeepsDialogOpen() {
    QFETCH(QString, count);
    MainForm& f = form();
    Command2_Click(f);
    f.arno.setText(count);
    rgo_Click(f);
    QCOMPARE(RangeRows(f.range), kStart);
    QVERIFY(f.autoframe.Visible());
    QCOMPARE(f.arno.Text(), count);
}

void TestRanges::splitDialogOpening() {
    MainForm& f = form();
    goToPage(6);
    EditCell(f, 1, 2, "0");  // 0..0 and 1..255
    f.range.setRow(2);
    gui::testing::Click(f.Command2);
    QVERIFY(f.autoframe.Visible());
    QCOMPARE(f.autolabel.Caption(), QStringLiteral("range # from 1 to 255 (width: 255)"));
    QCOMPARE(f.autoframe.Tag(), QStringLiteral("2"));
    QTRY_VERIFY(gui::testing::HasFocus(f.arno));
    gui::testing::TypeText(f.arno, "4");  // the width was selected, so it is replaced
    QCOMPARE(f.arno.Text(), QStringLiteral("4"));

    // A range of one value opens nothing; the open dialog keeps its row.
    f.range.setRow(1);
    gui::testing::Click(f.Command2);
    QCOMPARE(f.autoframe.Tag(), QStringLiteral("2"));
    QCOMPARE(f.autolabel.Caption(), QStringLiteral("range # from 1 to 255 (width: 255)"));
    QCOMPARE(f.arno.Text(), QStringLiteral("4"));

    gui::testing::Click(f.Command1);
    QVERIFY(!f.autoframe.Visible());
    QCOMPARE(f.autoframe.Tag(), QStringLiteral("2"));
    gui::testing::Click(f.Command2);
    QVERIFY(!f.autoframe.Visible());
    QCOMPARE(RangeRows(f.range), (QStringList{"1|0|0|label here", "#|1|255|"}));
}

void TestRanges::splitAtOnceGivesOneValueRanges() {
    MainForm& f = form();
    goToPage(6);
    gui::testing::Click(f.Command2);
    gui::testing::Click(f.rgo);
    QCOMPARE(f.range.Rows(), 257);
    QCOMPARE(TilingFault(f.range), QString());
    QCOMPARE(RangeRows(f.range).first(), QStringLiteral("1|0|0|splitted 0"));
    QCOMPARE(RangeRows(f.range).last(), QStringLiteral("#|255|255|"));
    QVERIFY(!f.autoframe.Visible());
}

void TestRanges::splitByKeyboard() {
    MainForm& f = form();
    goToPage(6);
    gui::testing::Click(f.Command2);
    gui::testing::PressKey(f.arno, Qt::Key_Escape);
    QVERIFY(!f.autoframe.Visible());
    QCOMPARE(RangeRows(f.range), kStart);

    gui::testing::Click(f.Command2);
    gui::testing::TypeText(f.arno, "1");
    gui::testing::PressKey(f.arno, Qt::Key_Return);  // refused: the dialog stays
    QVERIFY(f.autoframe.Visible());
    QCOMPARE(RangeRows(f.range), kStart);

    f.arno.setText("2");
    gui::testing::Click(f.arpre);
    gui::testing::PressKey(f.arpre, Qt::Key_A, Qt::ControlModifier);
    gui::testing::TypeText(f.arpre, "half");
    gui::testing::PressKey(f.arpre, Qt::Key_Return);
    QVERIFY(!f.autoframe.Visible());
    QCOMPARE(RangeRows(f.range), (QStringList{"1|0|127|half 0", "#|128|255|"}));
}

void TestRanges::splitOfGoneRowChangesNothing() {
    MainForm& f = form();
    // The dialog opens on row `open`, then rows 1 and 2 are merged before OK.
    struct Case {
        int open;
        QStringList expected;
    };
    const Case cases[] = {
        {4, {"1|0|127|splitted 0", "#|128|191|", "#|192|255|"}},
        // Row 3 still stands, now holding 192..255: the split works on that.
        {3, {"1|0|127|splitted 0", "#|128|191|", "#|192|223|splitted 0", "#|224|255|"}},
    };
    for (const Case& c : cases) {
        rclear_Click(f);
        f.range.setRow(1);
        Command2_Click(f);
        f.arno.setText("4");
        rgo_Click(f);
        f.range.setRow(c.open);
        Command2_Click(f);
        f.range.setRow(1);
        f.range.setRowSel(2);
        rmerge_Click(f);
        f.arno.setText("2");
        rgo_Click(f);
        QCOMPARE(RangeRows(f.range), c.expected);
        QVERIFY(!f.autoframe.Visible());
    }
}

void TestRanges::randomOperationsKeepTiling() {
    MainForm& f = form();
    std::mt19937 rng(20240611u);
    const auto pick = [&rng](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(rng);
    };
    const auto randomText = [&]() -> QString {
        const int row = pick(1, f.range.Rows() - 1);
        const int near = f.range.TextMatrix(row, pick(1, 2)).toInt() + pick(-2, 2);
        switch (pick(0, 9)) {
            case 0:
                return QString::number(pick(-5, 300));
            case 1:
                return " " + QString::number(near) + "  ";
            case 2:
                return QString::number(near) + ".5";
            case 3:
                return QString::number(pick(40000, 99999));
            case 4:
                return QString();
            case 5:
                return "0" + QString::number(near);
            case 6:
                return "x" + QString::number(near);
            default:
                return QString::number(near);
        }
    };
    int cuts = 0, merges = 0, splits = 0;
    for (int step = 0; step < 4000; ++step) {
        const int rows = f.range.Rows();
        switch (pick(0, 19)) {
            case 0:
                if (pick(0, 9) == 0) rclear_Click(f);
                break;
            case 1:
            case 2:
                f.range.setRow(pick(1, rows - 1));
                f.range.setRowSel(pick(1, rows - 1));
                rmerge_Click(f);
                ++merges;
                break;
            case 3:
                f.range.setRow(pick(1, rows - 1));
                Command2_Click(f);
                break;
            case 4:
            case 5:
                f.arno.setText(pick(0, 3) == 0 ? randomText() : QString::number(pick(2, 40) / 2.0));
                rgo_Click(f);
                ++splits;
                break;
            case 6:  // an editor left open while the table changes under it
                f.range.setRow(pick(1, rows - 1));
                f.range.setCol(pick(1, 3));
                range_DblClick(f);
                f.redittext.setText(randomText());
                break;
            case 7:
                range_Click(f);
                break;
            default:
                EditCell(f, pick(1, rows - 1), pick(1, 3), randomText());
                cuts += f.range.Rows() > rows;
                break;
        }
        const QString fault = TilingFault(f.range);
        if (!fault.isEmpty()) QFAIL(qPrintable(QStringLiteral("step %1: %2").arg(step).arg(fault)));
    }
    // The walk must actually have grown and shrunk the table.
    QVERIFY(cuts > 100);
    QVERIFY(merges > 100);
    QVERIFY(splits > 100);
}

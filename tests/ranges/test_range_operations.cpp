// Merge, auto split and the bar strip by mouse and keys, and a random walk that keeps the tiling.
#include <QImage>
#include <QSet>
#include <QTest>
#include <random>

#include "gui/testing.h"
#include "range_tests.h"
#include "ranges/range_operations.h"
#include "ranges/range_picture.h"
#include "ranges/range_table.h"
#include "wizard/main_form.h"

using namespace gui::testing;

namespace {

// Empty when the rows tile 0..255 and their count is in bounds, else the rows.
QString TilingFault(const gui::Grid& range) {
    int next = 0;
    for (int r = 1; r < range.Rows(); ++r) {
        const QString from = range.TextMatrix(r, 1), to = range.TextMatrix(r, 2);
        if (from != QString::number(next) || to != QString::number(to.toInt()) || to.toInt() < next)
            return RangeRows(range);
        next = to.toInt() + 1;
    }
    return next == 256 && range.Rows() <= 257 ? QString() : RangeRows(range);
}

const QRgb kBack = qRgb(0xE0, 0xE0, 0xE0);

QList<QRgb> BarColours(MainForm& f) {
    const QImage image = Grab(f.rpict);
    QList<QRgb> colours;
    for (int v : {32, 96, 160, 224})
        colours << (image.pixel(v * (image.width() - 1) / 255, image.height() / 2) | 0xFF000000u);
    return colours;
}

}  // namespace

void TestRanges::mergeAndSplitByMouse() {
    MainForm& f = form();
    goToPage(6);
    SetRangeRows(f, "1|0|0|A,#|1|9|B,#|10|19|C,#|20|255|D");
    ClickCell(f.range, 2, 1);
    Click(f.Command2);
    const QString caption = QStringLiteral("range # from 1 to 9 (width: 9)");
    QCOMPARE(f.autolabel.Caption(), caption);
    QTRY_VERIFY(HasFocus(f.arno));
    TypeKeys("1");             // the width was selected, so it is replaced
    PressKey(Qt::Key_Return);  // refused: the dialog stays
    QVERIFY(f.autoframe.Visible());
    // A range of one value opens nothing; the open dialog keeps its row, and OK splits it.
    ClickCell(f.range, 1, 1);
    Click(f.Command2);
    QCOMPARE(f.autolabel.Caption(), caption);
    f.arno.setText("2");
    Click(f.rgo);
    QCOMPARE(RangeRows(f.range), "1|0|0|A,#|1|4|splitted 0,#|5|9|,#|10|19|C,#|20|255|D");
    DragRows(f.range, 4, 2, 1);
    Click(f.rmerge);
    QCOMPARE(RangeRows(f.range), QStringLiteral("1|0|0|A,#|1|19|splitted 0,#|20|255|D"));

    // The row of an open dialog merged away: OK closes it and changes nothing.
    ClickCell(f.range, 3, 1);
    Click(f.Command2);
    DragRows(f.range, 3, 2, 1);
    Click(f.rmerge);
    QVERIFY(f.autoframe.Visible());
    Click(f.rgo);
    QVERIFY(!f.autoframe.Visible());
    QCOMPARE(RangeRows(f.range), QStringLiteral("1|0|0|A,#|1|255|splitted 0"));

    // OK at once takes the width as it was proposed: 256 ranges of one value, each a bar.
    rclear_Click(f);
    Click(f.Command2);
    Click(f.rgo);
    QCOMPARE(f.range.Rows(), 257);
    QCOMPARE(TilingFault(f.range), QString());
    const QList<QRgb> first = BarColours(f);
    QVERIFY(!first.contains(kBack) && QSet<QRgb>(first.begin(), first.end()).size() > 1);
    // A click with nothing open redraws every bar in new colours.
    ClickCell(f.range, 2, 1);
    QVERIFY(BarColours(f) != first);
    // Nothing of the strip survives the page being hidden, until the next click.
    goToPage(5);
    goToPage(6);
    QCOMPARE(BarColours(f), QList<QRgb>(4, kBack));
    ClickCell(f.range, 1, 1);
    QVERIFY(!BarColours(f).contains(kBack));
}

// While the dialog shows, Return and Enter are OK and Escape is X wherever the focus stands
// on the form; the keys reach neither the grid nor an open cell editor.
void TestRanges::splitDialogKeys_data() {
    QTest::addColumn<QString>("focus");
    QTest::addColumn<int>("key");
    for (const char* focus : {"arno", "range", "redittext", "rmerge"})
        for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
            QTest::addRow("%s, key %x", focus, key) << focus << key;
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
    if (focus == u"rmerge") f.rmerge.SetFocus();
    QTRY_COMPARE(FocusName(), focus);
    PressKey(Qt::Key(key));
    QVERIFY(!f.autoframe.Visible());
    QVERIFY(!f.reditframe.Visible() || (focus == u"redittext" && key == Qt::Key_Escape));
    QCOMPARE(RangeRows(f.range), key == Qt::Key_Escape ? kStart : "1|0|127|splitted 0,#|128|255|");
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
        const QString forms[] = {near, near, near, " " + near + "  ", near + ".5", "0" + near,
                                 "x" + near, QString(), QString::number(pick(-5, 300)),
                                 QString::number(pick(40000, 99999))};
        // clang-format on
        return forms[pick(0, 9)];
    };
    int cuts = 0;  // entries that cut a row in two
    for (int step = 0; step < 4000; ++step) {
        const int rows = f.range.Rows(), op = pick(0, 19);
        f.range.setRow(pick(1, rows - 1));
        f.range.setCol(pick(1, 3));
        if (op == 0 && pick(0, 9) == 0) rclear_Click(f);
        if (op == 1 || op == 2) {
            f.range.setRowSel(pick(1, rows - 1));
            rmerge_Click(f);
        }
        if (op == 3) Command2_Click(f);
        if (op == 4 || op == 5) {
            f.arno.setText(pick(0, 3) == 0 ? randomText() : QString::number(pick(2, 40) / 2.0));
            rgo_Click(f);
        }
        if (op >= 6) {  // op 6 leaves the editor open while the table changes under it
            if (op != 7) range_DblClick(f);
            if (op != 7) f.redittext.setText(randomText());
            if (op != 6) range_Click(f);
            cuts += f.range.Rows() > rows;
        }
        QCOMPARE(TilingFault(f.range), QString());
    }
    QVERIFY(cuts > 100);
}

// A colour in the grey band costs one more try of three draws.
void TestRanges::colours() {
    const int colours[][4] = {{220, 220, 220, 0}, {221, 220, 220, 1}, {229, 230, 230, 1},
                              {230, 230, 230, 0}, {224, 224, 224, 1}, {0, 0, 221, 1},
                              {254, 254, 229, 1}, {0, 0, 220, 0},     {254, 254, 230, 0},
                              {0, 0, 231, 0},     {225, 225, 100, 0}};
    for (const auto& [red, green, blue, refused] : colours) {
        const QList<double> draws = {
            (red + 0.5) / 255, (green + 0.5) / 255, (blue + 0.5) / 255, 0.1, 0.2, 0.3};
        int used = 0;
        const std::int32_t got = RandomColourFrom([&] { return draws.at(used++); });
        QCOMPARE(got, refused ? ColourFromDraws(0.1, 0.2, 0.3) : red + 256 * green + 65536 * blue);
    }
    // Calls in quick succession must not repeat colours for want of a new seed.
    QSet<std::int32_t> seen;
    for (int i = 0; i < 100000; ++i) seen.insert(RandomColour());
    QVERIFY(seen.size() > 90000);
}

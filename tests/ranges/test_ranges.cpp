// The range grid: its editor, merge, auto split and the bar strip; the rows must tile 0..255
// whatever is typed.
#include <QImage>
#include <QPoint>
#include <QSet>
#include <QTest>

#include "ranges/range_operations.h"
#include "ranges/range_picture.h"
#include "ranges/range_table.h"
#include "support/form_fixture.h"
#include "support/testing.h"
#include "wizard/main_form.h"

using namespace gui::testing;

namespace {

const QString kStart = QStringLiteral("1|0|255|label here");
// The middle row has a mark of its own, so that the tests see which part keeps it.
const QString kThree = QStringLiteral("1|0|9|A,M|10|19|L,#|20|255|C");

// The rows of a range table written as "mark|from|to|label", with commas between rows.
QString RangeRows(const gui::Grid& range) {
    return gui::testing::RowsOf(range, u'|').join(u',');
}

void SetRangeRows(MainForm& f, const QString& rows) {
    rclear_Click(f);
    gui::testing::SetRows(f.range, rows.split(u','), u'|');
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

class TestRanges : public FormFixture {
    Q_OBJECT
  private slots:
    // On row `row`: an entry `text` in the from, to or label cell, a merge with row `text`, or a
    // split into `text` pieces, each through the handlers the widgets call.
    void edit_data() {
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
        add(kThree, 2, "to", "15", mid.arg("M|10|15|L,#|16|19|"));
        add(kThree, 2, "to", "10", mid.arg("M|10|10|L,#|11|19|"));
        add(kThree, 2, "from", "19", mid.arg("#|10|18|,M|19|19|L"));
        // No change: the bound as it stands, one in a neighbour's range, one past the other bound.
        for (const char* from : {"10", "9", "20"}) add(kThree, 2, "from", from, kThree);
        for (const char* to : {"19", "20", "9"}) add(kThree, 2, "to", to, kThree);
        // Blanks are spaces: a tab or a no-break space makes the text no plain integer.
        for (const char* typed : {"015", "+15", "15.0", "1e1", "15x", "abc", "", "1 5", "-0",
                                  "15\t", "\t15", "15\u00a0"})
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
    void edit() {
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
    void editorWidgets() {
        MainForm& f = form();
        goToPage(6);
        SetRangeRows(f, "1|0|100|label here,#|101|255|a");
        ClickCell(f.range, 2, 3, 2);
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
        QCOMPARE(f.range.TextMatrix(0, 3).trimmed(), QStringLiteral("label"));  // nor the head row
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
    void mergeAndSplitByMouse() {
        MainForm& f = form();
        goToPage(6);
        SetRangeRows(f, "1|0|0|A,#|1|9|B,#|10|19|C,#|20|255|D");
        ClickCell(f.range, 2, 1);
        Click(f.Command2);
        const QString caption = QStringLiteral("range # from 1 to 9 (width: 9)");
        QCOMPARE(f.autolabel.Caption(), caption);
        QTRY_VERIFY(HasFocus(f.arno));
        TypeKeys("1");  // the width was selected, so it is replaced
        QCOMPARE(f.arno.Text(), QStringLiteral("1"));
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
        for (int r = 1; r < 257; ++r)
            QCOMPARE(f.range.TextMatrix(r, 1) + u'-' + f.range.TextMatrix(r, 2),
                     QString::number(r - 1) + u'-' + QString::number(r - 1));
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
    void splitDialogKeys_data() {
        QTest::addColumn<QString>("focus");
        QTest::addColumn<int>("key");
        for (const char* focus : {"arno", "range", "redittext", "rmerge"})
            for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
                QTest::addRow("%s, key %x", focus, key) << focus << key;
    }
    void splitDialogKeys() {
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
        QCOMPARE(RangeRows(f.range),
                 key == Qt::Key_Escape ? kStart : "1|0|127|splitted 0,#|128|255|");
    }
    // A colour in the grey band costs one more try of three draws.
    void colours() {
        const int colours[][4] = {{220, 220, 220, 0}, {221, 220, 220, 1}, {229, 230, 230, 1},
                                  {230, 230, 230, 0}, {224, 224, 224, 1}, {0, 0, 221, 1},
                                  {254, 254, 229, 1}, {0, 0, 220, 0},     {254, 254, 230, 0},
                                  {0, 0, 231, 0},     {225, 225, 100, 0}};
        for (const auto& [red, green, blue, refused] : colours) {
            const QList<double> draws = {
                (red + 0.5) / 255, (green + 0.5) / 255, (blue + 0.5) / 255, 0.1, 0.2, 0.3};
            int used = 0;
            const std::int32_t got = RandomColourFrom([&] { return draws.at(used++); });
            QCOMPARE(got,
                     refused ? ColourFromDraws(0.1, 0.2, 0.3) : red + 256 * green + 65536 * blue);
        }
        // Calls in quick succession must not repeat colours for want of a new seed.
        QSet<std::int32_t> seen;
        for (int i = 0; i < 100000; ++i) seen.insert(RandomColour());
        QVERIFY(seen.size() > 90000);
    }
};

RIGWRIGHT_TEST_CLASS(TestRanges)
#include "test_ranges.moc"

// The channel table: its commands, each finishing the open edit first; presets; tool tips.
#include <QAbstractItemModelTester>
#include <QTest>

#include "channels/channel_table.h"
#include "channels/presets.h"
#include "channels_test.h"
#include "gui/testing.h"

using namespace gui::testing;

// Every test starts on the page of the table, its model watched by a QAbstractItemModelTester.
void TestChannels::init() {
    FormFixture::init();
    if (!QTest::currentTestFailed()) goToPage(2);
    new QAbstractItemModelTester(ModelOf(form().table), ModelOf(form().table));
}

QStringList TestChannels::bodyRows() {
    QStringList rows;
    for (int r = 1; r < form().table.Rows(); ++r) {
        QStringList cells;
        for (int c = 0; c < form().table.Cols(); ++c) cells << form().table.TextMatrix(r, c);
        rows << cells.join(u';');
    }
    return rows;
}

void TestChannels::openCell(int row, int col, const QString& text) {
    DoubleClickCell(form().table, row, col);
    ReleaseCell(form().table, row, col);
    if (!text.isNull()) replaceEntry(text);
}

void TestChannels::replaceEntry(const QString& text) {
    QTRY_VERIFY(HasFocus(form().editcombo));
    PressKey(Qt::Key_A, Qt::ControlModifier);
    PressKey(Qt::Key_Delete);  // an empty text types nothing over the selection
    TypeKeys(text);
}

void TestChannels::commands() {
    gui::Grid& table = form().table;
    Click(form().delete_);  // the last row stays
    QCOMPARE(table.Rows(), 2);
    // A new row holds nothing but its mark: the row count when it was added, after a delete too.
    Click(form().add);
    Click(form().add);
    QCOMPARE(bodyRows().mid(1), (QStringList{"2" + QString(14, u';'), "3" + QString(14, u';')}));
    openCell(1, 7, "first");  // add: the open entry lands in its own cell, then the row is added
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
void TestChannels::rowCap() {
    gui::Grid& table = form().table;
    // The model tester would check the whole model at each of the thirty thousand rows.
    qDeleteAll(ModelOf(table)->findChildren<QAbstractItemModelTester*>());
    while (table.Rows() < channels::kMaxChannelRows) table.AddItem(QStringLiteral("x"));
    Command6_Click(form(), 6);  // three rows, and one place left
    Command6_Click(form(), 0);
    Click(form().add);
    Command6_Click(form(), 0);
    QCOMPARE(table.Rows() - 1, channels::kMaxChannelRows);
    QCOMPARE(table.TextMatrix(table.Rows() - 1, 7), "Pan");
}

// Ready-made rows, at the next free offset: one past the largest dmx1 or dmx2 of any row.
void TestChannels::preset_data() {
    QTest::addColumn<QStringList>("offsets");  // the table before, "dmx1;dmx2" a row
    QTest::addColumn<QList<int>>("presets");
    QTest::addColumn<QStringList>("added");  // the rows added, from dmx1 as far as written
    const auto add = [](const char* name, const QStringList& offsets, const QList<int>& presets,
                        const QStringList& added) {
        QTest::newRow(name) << offsets << presets << added;
    };
    const QString fade = "%1;0;FADEABLE LTP;%2;1;N;100;%3;default";
    add("CMY", {"4;0"}, {6},
        {fade.arg(5).arg("B>;10;1;Cyan", "0;0;255"), fade.arg(6).arg("C>;10;61;Magenta", "0;0;255"),
         fade.arg(7).arg("D>;9;61;Yellow", "0;255;51")});
    add("dimmer", {";0"}, {12}, {"1;0;HTP (usually dimmer);H>;1;1;Dimmer;1;N;100;128;0;0;default"});
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
    add("three rows up to the last offset", {"32764;0"}, {7}, {"32765;0", "32766;0", "32767;0"});
    add("index outside", {";0"}, {-1, 25, 32767}, {});
}

void TestChannels::preset() {
    QFETCH(QStringList, offsets);
    QFETCH(QList<int>, presets);
    QFETCH(QStringList, added);
    for (const QString& row : offsets)
        form().table.AddItem("#\t" + QString(row).replace(u';', u'\t'));
    form().table.RemoveItem(1);
    const QStringList before = bodyRows();
    for (const int i : presets) {
        Click(form().adddef);
        i >= 0 && i < 25 ? Click(form().Command6[i]) : Command6_Click(form(), std::int16_t(i));
        QVERIFY(!form().defaultsframe.Visible());
        // The focus goes back where it was, not on to "Next >", which a Space would press.
        if (i >= 0 && i < 25) QCOMPARE(FocusName(), QStringLiteral("adddef"));
    }
    QStringList got = bodyRows();
    QCOMPARE(got.mid(0, before.size()), before);  // a preset never fills the rows there were
    got = got.mid(before.size());
    for (int i = 0; i < got.size() && i < added.size(); ++i)
        got[i] = got[i].section(u';', 1, 1 + int(added[i].count(u';')));
    QCOMPARE(got, added);
}

// A cut cell shows its whole text in a tool tip; the user drags column borders wider.
void TestChannels::cutCellShowsItsTextInATip_data() {
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

void TestChannels::cutCellShowsItsTextInATip() {
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

RIGWRIGHT_TEST_MAIN(TestChannels)

// The grid commands and the next free offset.
#include <QTest>

#include "channels/channel_table.h"
#include "channels/presets.h"
#include "channels_test.h"
#include "gui/testing.h"

using gui::testing::Click;

void TestChannels::nextFreeDmx_data() {
    QTest::addColumn<QStringList>("offsets");  // "dmx1;dmx2" a row
    QTest::addColumn<int>("expected");
    QTest::newRow("blank first row") << QStringList{";0"} << 1;
    QTest::newRow("gap stays free") << QStringList{"1;0", "2;0", "5;0"} << 6;
    QTest::newRow("dmx2 counts like dmx1") << QStringList{"3;9"} << 10;
    QTest::newRow("equal to the candidate") << QStringList{"1;"} << 2;
    QTest::newRow("zero and negatives never count") << QStringList{"-5;0", "0;-1"} << 1;
    QTest::newRow("leading number of the text") << QStringList{" 12x;0"} << 13;
    QTest::newRow("largest 16-bit offset") << QStringList{"32767;0"} << 32767;
}

void TestChannels::nextFreeDmx() {
    QFETCH(QStringList, offsets);
    QFETCH(int, expected);
    setOffsets(offsets);
    QCOMPARE(NextFreeDmx(form()), expected);
}

void TestChannels::addAndDelete() {
    watchModel();
    gui::Grid& table = form().table;
    const QStringList first = bodyRows();
    Click(form().delete_);  // the last row stays
    QCOMPARE(bodyRows(), first);
    QCOMPARE(form().errormessage[2].Caption(), QString());

    // A new row holds nothing but its mark: the row count when it was added.
    Click(form().add);
    Click(form().add);
    QCOMPARE(bodyRows().mid(1), (QStringList{"2" + QString(14, u';'), "3" + QString(14, u';')}));
    table.setRow(2);
    Click(form().delete_);
    Click(form().add);
    QCOMPARE(table.TextMatrix(2, 0) + table.TextMatrix(3, 0), "33");
    // After a preset, the mark is the true row index again.
    Click(form().adddef);
    Click(form().Command6[12]);
    Click(form().add);
    QCOMPARE(table.TextMatrix(4, 0) + table.TextMatrix(5, 0), "#5");
}

void TestChannels::commandsCommitTheOpenEditFirst() {
    Click(form().add);
    Click(form().add);
    // add: the entry lands in its own cell, then the row is added.
    openCell(1, 7);
    replaceEntry("first");
    Click(form().add);
    QCOMPARE(form().table.TextMatrix(1, 7), "first");
    QCOMPARE(form().table.Rows(), 5);
    QVERIFY(!form().editframe.Visible());

    // delete: the edit of row 3 is finished before row 2 goes, so it moves up with its row.
    openCell(3, 14);
    replaceEntry("third");
    form().table.setRow(2);
    Click(form().delete_);
    QCOMPARE(form().table.Rows(), 4);
    QCOMPARE(form().table.TextMatrix(2, 14), "third");
    QCOMPARE(form().table.TextMatrix(2, 0), "3");
    QCOMPARE(form().editframe.Tag(), "0");

    // The preset panel opens beside the edit and leaves it open; a preset commits it first.
    openCell(1, 1);
    replaceEntry("7");
    Click(form().adddef);
    QVERIFY(form().defaultsframe.Visible() && form().editframe.Visible());
    QCOMPARE(form().table.TextMatrix(1, 1), "");
    Click(form().Command6[9]);
    QCOMPARE(form().table.TextMatrix(1, 1), "7");
    QCOMPARE(form().table.TextMatrix(4, 1), "8");
    QVERIFY(!form().editframe.Visible());
}

// A preset adds all its rows or none; `add` stops at the cap too.
void TestChannels::rowCap() {
    gui::Grid& table = form().table;
    while (table.Rows() - 1 < channels::kMaxChannelRows - 1) table.AddItem(QStringLiteral("x"));
    Click(form().adddef);
    Click(form().Command6[6]);
    QCOMPARE(table.Rows() - 1, channels::kMaxChannelRows - 1);
    QVERIFY(!form().defaultsframe.Visible());
    Command6_Click(form(), 0);
    Click(form().add);
    Command6_Click(form(), 0);
    QCOMPARE(table.Rows() - 1, channels::kMaxChannelRows);
    QCOMPARE(table.TextMatrix(table.Rows() - 1, 7), "Pan");
}

// The grid commands: add, delete and the preset panel, each finishing the open edit first.
#include <QTest>

#include "channels/channel_table.h"
#include "channels/presets.h"
#include "channels_test.h"
#include "gui/testing.h"

using gui::testing::Click;

void TestChannels::addAndDelete() {
    watchModel();
    gui::Grid& table = form().table;
    const QStringList first = bodyRows();
    Click(form().delete_);  // the last row stays
    QCOMPARE(bodyRows(), first);
    // A new row holds nothing but its mark: the row count when it was added.
    Click(form().add);
    Click(form().add);
    QCOMPARE(bodyRows().mid(1), (QStringList{"2" + QString(14, u';'), "3" + QString(14, u';')}));
    // add: the open entry lands in its own cell, then the row is added.
    openCell(1, 7);
    replaceEntry("first");
    Click(form().add);
    QCOMPARE(table.TextMatrix(1, 7) + table.TextMatrix(4, 0), "first4");
    // delete: the edit of row 3 is finished before row 2 goes, so it moves up with its row.
    openCell(3, 14);
    replaceEntry("third");
    table.setRow(2);
    Click(form().delete_);
    QCOMPARE(table.TextMatrix(2, 14) + table.TextMatrix(2, 0), "third3");
    QVERIFY(!form().editframe.Visible());
    Click(form().add);
    QCOMPARE(table.TextMatrix(3, 0) + table.TextMatrix(4, 0), "44");
    // The preset panel opens beside the edit and leaves it open; a preset commits it first.
    openCell(1, 1);
    replaceEntry("7");
    Click(form().adddef);
    QVERIFY(form().defaultsframe.Visible() && form().editframe.Visible());
    QCOMPARE(table.TextMatrix(1, 1), "");
    Click(form().Command6[9]);
    QCOMPARE(table.TextMatrix(1, 1) + table.TextMatrix(5, 1), "78");
    QVERIFY(!form().editframe.Visible());
    Click(form().add);  // after a preset, the mark is the true row index again
    QCOMPARE(table.TextMatrix(5, 0) + table.TextMatrix(6, 0), "#6");
}

// A preset adds all its rows or none; `add` stops at the cap too.
void TestChannels::rowCap() {
    gui::Grid& table = form().table;
    while (table.Rows() - 1 < channels::kMaxChannelRows - 1) table.AddItem(QStringLiteral("x"));
    Click(form().adddef);
    Click(form().Command6[6]);
    QCOMPARE(table.Rows() - 1, channels::kMaxChannelRows - 1);
    Command6_Click(form(), 0);
    Click(form().add);
    Command6_Click(form(), 0);
    QCOMPARE(table.Rows() - 1, channels::kMaxChannelRows);
    QCOMPARE(table.TextMatrix(table.Rows() - 1, 7), "Pan");
}

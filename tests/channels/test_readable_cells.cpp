// Cells that their column cuts: the whole text in a tool tip, and column borders that the
// user drags wider.
#include <QTest>

#include "channels_test.h"
#include "gui/testing.h"

using gui::testing::Click;
using gui::testing::DragColumnBorder;
using gui::testing::ToolTipOfCell;

void TestChannels::cutCellShowsItsTextInATip_data() {
    QTest::addColumn<int>("preset");
    QTest::addColumn<int>("col");
    QTest::addColumn<int>("drag");  // pixels the column's right border moves first
    QTest::addColumn<QString>("tip");
    // Column 3 is "channel type", 7 "attribute label".
    QTest::newRow("fadeable type cut") << 0 << 3 << 0 << "FADEABLE LTP";
    QTest::newRow("indexed type cut") << 4 << 3 << 0 << "INDEXED LTP (not fadeable, such as gobo)";
    QTest::newRow("htp type cut") << 12 << 3 << 0 << "HTP (usually dimmer)";
    QTest::newRow("offset fits") << 12 << 1 << 0 << "";
    QTest::newRow("label fits") << 12 << 7 << 0 << "";
    QTest::newRow("dragged wide enough") << 4 << 3 << 400 << "";
    QTest::newRow("dragged wider, still cut")
        << 4 << 3 << 20 << "INDEXED LTP (not fadeable, such as gobo)";
    QTest::newRow("dragged narrower, now cut") << 12 << 7 << -60 << "Dimmer";
}

void TestChannels::cutCellShowsItsTextInATip() {
    QFETCH(int, preset);
    QFETCH(int, col);
    QFETCH(int, drag);
    QFETCH(QString, tip);
    gui::Grid& table = form().table;
    Click(form().adddef);
    Click(form().Command6[preset]);
    if (drag != 0) DragColumnBorder(table, col, drag);
    QCOMPARE(ToolTipOfCell(table, 2, col), tip);
    // The blank first row has nothing to show, however narrow its column.
    QCOMPARE(ToolTipOfCell(table, 1, col), QString());
}

void TestChannels::headBordersDrag_data() {
    QTest::addColumn<int>("col");
    QTest::addColumn<int>("drag");
    QTest::newRow("channel type wider") << 3 << 120;
    QTest::newRow("dmx1 wider") << 1 << 40;
    QTest::newRow("locate narrower") << 12 << -20;
}

void TestChannels::headBordersDrag() {
    QFETCH(int, col);
    QFETCH(int, drag);
    watchModel();
    gui::Grid& table = form().table;
    const QStringList before = bodyRows();
    const int start = table.ColPos(col + 1) - table.ColPos(col);
    DragColumnBorder(table, col, drag);
    const int width = table.ColPos(col + 1) - table.ColPos(col);
    // Twips round each pixel, so allow one pixel's worth either way.
    QVERIFY2(qAbs(width - start - drag * 15) <= 15,
             qPrintable(QStringLiteral("%1 -> %2 twips").arg(start).arg(width)));
    QCOMPARE(bodyRows(), before);  // a border drag changes no cell
}

// Cells that their column cuts show the whole text in a tool tip; the user drags the column
// borders to make them wider.
#include <QTest>

#include "channels_test.h"
#include "gui/testing.h"

using namespace gui::testing;

void TestChannels::cutCellShowsItsTextInATip_data() {
    QTest::addColumn<int>("preset");
    QTest::addColumn<int>("col");   // 3 is "channel type", 7 "attribute label"
    QTest::addColumn<int>("drag");  // pixels the column's right border moves first
    QTest::addColumn<QString>("tip");
    const QString indexed = "INDEXED LTP (not fadeable, such as gobo)";
    QTest::newRow("fadeable type cut") << 0 << 3 << 0 << "FADEABLE LTP";
    QTest::newRow("indexed type cut") << 4 << 3 << 0 << indexed;
    QTest::newRow("htp type cut") << 12 << 3 << 0 << "HTP (usually dimmer)";
    QTest::newRow("offset fits") << 12 << 1 << 0 << "";
    QTest::newRow("label fits") << 12 << 7 << 0 << "";
    QTest::newRow("dragged wide enough") << 4 << 3 << 400 << "";
    QTest::newRow("dragged wider, still cut") << 4 << 3 << 20 << indexed;
    QTest::newRow("dragged narrower, now cut") << 12 << 7 << -60 << "Dimmer";
    QTest::newRow("dmx1 wider") << 12 << 1 << 40 << "";
    QTest::newRow("locate narrower") << 12 << 12 << -20 << "";
}

void TestChannels::cutCellShowsItsTextInATip() {
    QFETCH(int, preset);
    QFETCH(int, col);
    QFETCH(int, drag);
    QFETCH(QString, tip);
    watchModel();
    gui::Grid& table = form().table;
    Click(form().adddef);
    Click(form().Command6[preset]);
    const QStringList before = bodyRows();
    const int start = table.ColPos(col + 1) - table.ColPos(col);
    if (drag) DragColumnBorder(table, col, drag);
    // Twips round each pixel, so allow one pixel's worth either way.
    const int width = table.ColPos(col + 1) - table.ColPos(col);
    QVERIFY2(qAbs(width - start - drag * 15) <= 15, qPrintable(QString::number(width)));
    QCOMPARE(bodyRows(), before);  // a border drag changes no cell
    QCOMPARE(ToolTipOfCell(table, 2, col), tip);
    // The blank first row has nothing to show, however narrow its column.
    QCOMPARE(ToolTipOfCell(table, 1, col), QString());
}

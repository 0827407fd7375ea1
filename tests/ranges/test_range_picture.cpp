// The bar strip: colours stay clear of the grey around the back colour, every range gets a
// bar, and nothing of it survives the page being hidden.
#include <QImage>
#include <QSet>
#include <QTest>

#include "gui/testing.h"
#include "range_tests.h"
#include "ranges/range_operations.h"
#include "ranges/range_picture.h"
#include "wizard/main_form.h"

namespace {

const QRgb kBack = qRgb(0xE0, 0xE0, 0xE0);

// A draw that scales to exactly `component`.
double DrawFor(int component) {
    return (component + 0.5) / 255.0;
}

QList<QRgb> BarColours(MainForm& f, const QList<int>& values) {
    const QImage image = gui::testing::Grab(f.rpict);
    QList<QRgb> colours;
    for (int v : values)
        colours << (image.pixel(v * (image.width() - 1) / 255, image.height() / 2) | 0xFF000000u);
    return colours;
}

}  // namespace

void TestRanges::randomColourAvoidsGreyBand() {
    QSet<std::int32_t> seen;
    int repeats = 0;
    std::int32_t previous = -1;
    for (int i = 0; i < 100000; ++i) {
        const std::int32_t colour = RandomColour();
        QVERIFY2(!(colour > 14474460 && colour < 15132390), qPrintable(QString::number(colour)));
        QVERIFY(colour >= 0);
        QVERIFY((colour & 0xFF) < 255 && ((colour >> 8) & 0xFF) < 255 && (colour >> 16) < 255);
        repeats += colour == previous;
        previous = colour;
        seen.insert(colour);
    }
    // Calls in quick succession must not repeat a colour for want of a new seed.
    QVERIFY(repeats < 10);
    QVERIFY(seen.size() > 90000);
}

void TestRanges::greyBandEdges_data() {
    QTest::addColumn<int>("red");
    QTest::addColumn<int>("green");
    QTest::addColumn<int>("blue");
    QTest::addColumn<bool>("refused");
    QTest::newRow("grey 220") << 220 << 220 << 220 << false;
    QTest::newRow("just above grey 220") << 221 << 220 << 220 << true;
    QTest::newRow("just below grey 230") << 229 << 230 << 230 << true;
    QTest::newRow("grey 230") << 230 << 230 << 230 << false;
    QTest::newRow("back grey 224") << 224 << 224 << 224 << true;
    QTest::newRow("pure blue 225") << 0 << 0 << 225 << true;
    QTest::newRow("blue 221 black rest") << 0 << 0 << 221 << true;
    QTest::newRow("blue 229 bright rest") << 254 << 254 << 229 << true;
    QTest::newRow("blue 220 dark rest") << 0 << 0 << 220 << false;
    QTest::newRow("blue 230 bright rest") << 254 << 254 << 230 << false;
    QTest::newRow("blue 219 bright rest") << 254 << 254 << 219 << false;
    QTest::newRow("blue 231 dark rest") << 0 << 0 << 231 << false;
    QTest::newRow("red 225 green 225 blue 100") << 225 << 225 << 100 << false;
}

void TestRanges::greyBandEdges() {
    QFETCH(int, red);
    QFETCH(int, green);
    QFETCH(int, blue);
    QFETCH(bool, refused);
    const std::int32_t colour = red + 256 * green + 65536 * blue;
    QCOMPARE(ColourFromDraws(DrawFor(red), DrawFor(green), DrawFor(blue)), colour);
    // Fed through the drawing loop: a refused colour costs one more try of three draws.
    const QList<double> draws = {DrawFor(red), DrawFor(green), DrawFor(blue), 0.1, 0.2, 0.3};
    int used = 0;
    const std::int32_t got = RandomColourFrom([&] { return draws.at(used++); });
    QCOMPARE(used, refused ? 6 : 3);
    QCOMPARE(got, refused ? ColourFromDraws(0.1, 0.2, 0.3) : colour);
}

void TestRanges::refusedDrawsAreDrawnAgain() {
    // Draws just below 1 never give 255; a run of grey tries is drawn again until one passes.
    QCOMPARE(ColourFromDraws(0.9999999, 0.0, 0.9999999), 254 + 65536 * 254);
    const QList<double> draws = {DrawFor(224), DrawFor(224), DrawFor(224), 0.0,        0.0,
                                 DrawFor(225), DrawFor(10),  DrawFor(10),  DrawFor(10)};
    int used = 0;
    QCOMPARE(RandomColourFrom([&] { return draws.at(used++); }), 10 + 256 * 10 + 65536 * 10);
    QCOMPARE(used, 9);
}

void TestRanges::barsShowSplitAndVanishWithPage() {
    MainForm& f = form();
    goToPage(6);
    const QList<int> middles = {32, 96, 160, 224};
    gui::testing::Click(f.Command2);
    f.arno.setText("4");
    gui::testing::Click(f.rgo);
    const QList<QRgb> first = BarColours(f, middles);
    for (QRgb c : first) QVERIFY(c != kBack);
    QVERIFY(QSet<QRgb>(first.begin(), first.end()).size() > 1);

    // A click with nothing open redraws every bar in new colours.
    gui::testing::ClickCell(f.range, 2, 1);
    QVERIFY(BarColours(f, middles) != first);

    goToPage(5);
    goToPage(6);
    const QImage blank = gui::testing::Grab(f.rpict);
    QVERIFY(!blank.isNull());
    for (int y = 0; y < blank.height(); ++y)
        for (int x = 0; x < blank.width(); ++x) QCOMPARE(blank.pixel(x, y) | 0xFF000000u, kBack);

    gui::testing::ClickCell(f.range, 1, 1);
    for (QRgb c : BarColours(f, middles)) QVERIFY(c != kBack);
}

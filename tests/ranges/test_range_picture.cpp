// The bar strip: colours stay clear of the grey around the back colour, every range gets a
// bar, and nothing of it survives the page being hidden.
#include <QImage>
#include <QSet>
#include <QTest>

#include "gui/testing.h"
#include "range_tests.h"
#include "ranges/range_picture.h"
#include "wizard/main_form.h"

using namespace gui::testing;

namespace {

const QRgb kBack = qRgb(0xE0, 0xE0, 0xE0);

QList<QRgb> BarColours(MainForm& f) {
    const QImage image = Grab(f.rpict);
    QList<QRgb> colours;
    for (int v : {32, 96, 160, 224})
        colours << (image.pixel(v * (image.width() - 1) / 255, image.height() / 2) | 0xFF000000u);
    return colours;
}

}  // namespace

// A colour in the grey band costs one more try of three draws.
void TestRanges::colours() {
    // clang-format off
    const struct { int red, green, blue; bool refused; } colours[] = {
        {220, 220, 220, false}, {221, 220, 220, true}, {229, 230, 230, true},
        {230, 230, 230, false}, {224, 224, 224, true}, {0, 0, 221, true}, {254, 254, 229, true},
        {0, 0, 220, false}, {254, 254, 230, false}, {0, 0, 231, false}, {225, 225, 100, false}};
    // clang-format on
    for (const auto& [red, green, blue, refused] : colours) {
        const QList<double> draws = {
            (red + 0.5) / 255, (green + 0.5) / 255, (blue + 0.5) / 255, 0.1, 0.2, 0.3};
        int used = 0;
        const std::int32_t got = RandomColourFrom([&] { return draws.at(used++); });
        QCOMPARE(got, refused ? ColourFromDraws(0.1, 0.2, 0.3) : red + 256 * green + 65536 * blue);
    }
    // Draws just below 1 never give 255.
    QCOMPARE(ColourFromDraws(0.9999999, 0.0, 0.9999999), 254 + 65536 * 254);
    // Calls in quick succession must not repeat colours for want of a new seed.
    QSet<std::int32_t> seen;
    for (int i = 0; i < 100000; ++i) seen.insert(RandomColour());
    QVERIFY(seen.size() > 90000);
}

void TestRanges::bars() {
    MainForm& f = form();
    goToPage(6);
    Click(f.Command2);
    f.arno.setText("4");
    Click(f.rgo);
    const QList<QRgb> first = BarColours(f);
    QVERIFY(!first.contains(kBack) && QSet<QRgb>(first.begin(), first.end()).size() > 1);
    // A click with nothing open redraws every bar in new colours.
    ClickCell(f.range, 2, 1);
    QVERIFY(BarColours(f) != first);

    goToPage(5);
    goToPage(6);
    const QImage blank = Grab(f.rpict);
    QVERIFY(!blank.isNull());
    for (int y = 0; y < blank.height(); ++y)
        for (int x = 0; x < blank.width(); ++x) QCOMPARE(blank.pixel(x, y) | 0xFF000000u, kBack);
    ClickCell(f.range, 1, 1);
    QVERIFY(!BarColours(f).contains(kBack));
}

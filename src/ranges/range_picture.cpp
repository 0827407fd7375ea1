#include "ranges/range_picture.h"

#include <QStringList>
#include <chrono>

#include "common/number.h"
#include "wizard/main_form.h"

namespace {

constexpr std::int32_t kGrey220 = 14474460;
constexpr std::int32_t kGrey230 = 15132390;

// A small generator, cheap to seed: a redraw of 256 bars seeds it 256 times.
struct SplitMix64 {
    std::uint64_t state;
    std::uint64_t next() {
        std::uint64_t z = (state += 0x9E3779B97F4A7C15ULL);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }
    double draw() { return static_cast<double>(next() >> 11) * 0x1.0p-53; }  // [0, 1)
};

std::uint64_t colourCalls = 0;

int Component(double draw) {
    return static_cast<int>(draw * 255);
}

}  // namespace

std::int32_t ColourFromDraws(double red, double green, double blue) {
    return Component(red) + 256 * Component(green) + 65536 * Component(blue);
}

bool InGreyBand(std::int32_t colour) {
    return colour > kGrey220 && colour < kGrey230;
}

std::int32_t RandomColourFrom(const std::function<double()>& draw) {
    for (;;) {
        const double red = draw();
        const double green = draw();
        const double blue = draw();
        const std::int32_t colour = ColourFromDraws(red, green, blue);
        if (!InGreyBand(colour)) return colour;
    }
}

std::int32_t RandomColour() {
    // Seeded anew at every call; the counter keeps two calls within one clock tick apart.
    const auto ticks = std::chrono::high_resolution_clock::now().time_since_epoch().count();
    ++colourCalls;
    SplitMix64 generator{static_cast<std::uint64_t>(ticks) ^ (colourCalls << 32) ^ colourCalls};
    return RandomColourFrom([&generator] { return generator.draw(); });
}

void DrawRangePicture(MainForm& f) {
    const double height = f.rpict.ScaleHeight();
    const auto bounds = [&f](int row) {
        return std::pair(common::LeadingInt16(f.range.TextMatrix(row, 1)).value_or(0),
                         common::LeadingInt16(f.range.TextMatrix(row, 2)).value_or(0));
    };
    for (int row = 1; row < f.range.Rows(); ++row) {
        f.rpict.setForeColor(RandomColour());
        const auto [from, to] = bounds(row);
        f.rpict.Line(from, 0, to, height);
    }
    // What a screen reader hears of the bars.
    f.rpict.setDescription([&f, bounds] {
        QStringList bars;
        for (int row = 1; row < f.range.Rows(); ++row) {
            const auto [from, to] = bounds(row);
            bars << QStringLiteral("%1 to %2 %3").arg(from).arg(to).arg(f.range.TextMatrix(row, 3));
        }
        return bars.join(QStringLiteral(", "));
    });
}

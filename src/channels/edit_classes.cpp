#include "channels/edit_classes.h"

#include <array>

#include "common/channel_grid.h"

namespace channels {
namespace {

struct Bounds {
    int low;
    int high;
};

// Indexed by class; the first two classes have no bounds.
constexpr std::array<Bounds, 7> kBounds{{
    {0, -1},
    {0, -1},
    {0, 100},
    {-1, 255},
    {1, common::kHighestOffset},
    {0, common::kHighestOffset},
    {1, 20},
}};

// Indexed by column of the channel grid, "#" to "comment".
constexpr std::array<int, common::kChannelColumns> kColumnClass{
    kFreeText, kOffset, kLowByte, kChoice, kChoice, kKey,   kChoice,   kFreeText,
    kChoice,   kChoice, kRatio,   kLevel,  kLevel,  kLevel, kFreeText,
};

const QString kChannelTypes = QLatin1String(common::kHtpType) + u';' +
                              QLatin1String(common::kFadeableType) + u';' +
                              QLatin1String(common::kIndexedType);
const QString kAttributeTypes = QStringLiteral(
    "A> ColourWheel1;N> ColourWheel2;E> Pan;F> Tilt;G> Iris;H> Dimmer;I> Gobo1;J> Gobo2;"
    "K> Gobo1Rotate;M> Gobo2Rotate;L> Focus;O> Shutter;P> Prism;Q> Zoom;R> EffectRotate;"
    "S> Frost;T> R red;U> G green;V> B blue;B> C cyan;C> M magenta;D> Y yellow;0> ---OTHER");
const QString kWheels = QStringLiteral("1> A (left);61> B (right)");
const QString kCurves = QStringLiteral("1 - Linear;2 - Square;3 - On at 50%;4 - FD Square");
const QString kNormalInverted = QStringLiteral("N - normal;C - inverted");

}  // namespace

int EditClassOfColumn(int col) {
    if (col < 0 || col >= static_cast<int>(kColumnClass.size())) return kFreeText;
    return kColumnClass[col];
}

QString ChoiceListOfColumn(int col) {
    switch (col) {
        case 3:
            return kChannelTypes;
        case 4:
            return kAttributeTypes;
        case 6:
            return kWheels;
        case 8:
            return kCurves;
        case 9:
            return kNormalInverted;
        default:
            return {};
    }
}

std::optional<QString> CommittedText(int editClass, const QString& text,
                                     std::optional<std::int16_t> entryValue, int listIndex) {
    if (editClass == kFreeText) return text;
    if (editClass == kChoice) {
        if (listIndex > -1) return text;
        return std::nullopt;
    }
    if (editClass < kRatio || editClass > kKey || !entryValue) return std::nullopt;
    const Bounds b = kBounds[editClass];
    if (*entryValue < b.low || *entryValue > b.high) return std::nullopt;
    return QString::number(*entryValue);
}

}  // namespace channels

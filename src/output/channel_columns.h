#pragma once
// The columns of the channel grid that reach the file, and the kinds of channel that have
// a letter of their own in it.

#include <QLatin1String>
#include <QStringView>

namespace output {

enum Column : int {
    kDmx1 = 1,
    kDmx2 = 2,
    kChannelType = 3,
    kAttributeType = 4,
    kKey = 5,
    kWheel = 6,
    kLabel = 7,
    kCurve = 8,
    kInv = 9,
    kRatio = 10,
    kLocate = 11,
    kHighlight = 12,
    kLowlight = 13,
    kComment = 14,
};

inline constexpr int kLabelLength = 12;

// The channel types that have a letter in the file; any other text has none.
enum class ChannelKind { kOther, kHtp, kFadeable, kIndexed };
ChannelKind KindOf(QStringView channelType);

// The letter of the channel type. The high byte line of a 16-bit channel has a letter of its
// own (lower case, or none for HTP); the other lines carry the plain one.
QLatin1String TypeLetter(ChannelKind kind, bool highByte);

}  // namespace output

#pragma once
// The vocabulary of the channel grid: its columns, how many rows it holds, the names of the
// channel types and the kinds they stand for, and the offsets its rows take.

#include <QLatin1String>
#include <QStringView>

#include "common/text_table.h"

namespace common {

// The columns of a channel row; column 0 is the row's mark.
enum ChannelColumn : int {
    kMark = 0,
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
inline constexpr int kChannelColumns = 15;

// Row counters are 16 bits wide: the grid holds at most this many channel rows.
inline constexpr int kMaxChannelRows = 32767;
// The highest offset the cell editor takes in dmx1 and dmx2.
inline constexpr int kHighestOffset = 511;
// The attribute label reaches the file cut to this many characters.
inline constexpr int kLabelLength = 12;
// The page index of the finish page, where the file is saved and the advice shows.
inline constexpr int kFinishPage = 3;

inline constexpr const char* kHtpType = "HTP (usually dimmer)";
inline constexpr const char* kFadeableType = "FADEABLE LTP";
inline constexpr const char* kIndexedType = "INDEXED LTP (not fadeable, such as gobo)";

// The channel types that have a letter in the file; any other text has none.
enum class ChannelKind { kOther, kHtp, kFadeable, kIndexed };
ChannelKind KindOf(QStringView channelType);

// The lowest offset above every offset (dmx1 or dmx2) of the rows, not held to 16 bits.
double NextOffset(const TextTable& rows);
// The channel count the finish page shows: the highest offset, held to 16 bits.
int ChannelCount(const TextTable& rows);

}  // namespace common

#include "common/channel_grid.h"

#include <algorithm>
#include <limits>

#include "common/number.h"

namespace common {

ChannelKind KindOf(QStringView channelType) {
    if (channelType == QLatin1String(kHtpType)) return ChannelKind::kHtp;
    if (channelType == QLatin1String(kFadeableType)) return ChannelKind::kFadeable;
    if (channelType == QLatin1String(kIndexedType)) return ChannelKind::kIndexed;
    return ChannelKind::kOther;
}

double NextOffset(const TextTable& rows) {
    double candidate = 1;
    for (int row = 0; row < rows.rows(); ++row) {
        for (const int col : {kDmx1, kDmx2}) {
            const double offset = LeadingNumber(rows.cell(row, col));
            // The next offset is rounded as it is stored.
            if (offset >= candidate) candidate = RoundHalfEven(offset + 1);
        }
    }
    return candidate;
}

int ChannelCount(const TextTable& rows) {
    // The next free offset is a 16-bit value: it cannot climb past the largest one.
    constexpr double kMax = std::numeric_limits<std::int16_t>::max();
    return static_cast<int>(std::min(NextOffset(rows), kMax)) - 1;
}

}  // namespace common

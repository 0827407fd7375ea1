#include "ranges/range_rules.h"

#include "common/number.h"

std::optional<std::int16_t> EntryValue(QStringView text) {
    return common::LeadingInt16(text);
}

std::optional<std::int16_t> BoundEntry(QStringView text) {
    const std::optional<std::int16_t> value = EntryValue(text);
    if (!value) return std::nullopt;
    qsizetype begin = 0;
    qsizetype end = text.size();
    const auto blank = [](QChar c) { return c == u' '; };  // a tab is no blank
    while (begin < end && blank(text[begin])) ++begin;
    while (end > begin && blank(text[end - 1])) --end;
    if (text.mid(begin, end - begin) != QString::number(*value)) return std::nullopt;
    return value;
}

std::vector<SplitCut> SplitCutPoints(double pieces, int from, int to) {
    const int width = to - from + 1;
    if (!(pieces >= 2) || pieces > width) return {};
    // The first index and the divisor are rounded each on its own, so a count such as 2.5
    // gives fewer pieces than 3.5 would, and the last piece takes what is left over.
    const int first = static_cast<int>(common::RoundHalfEven(pieces - 1));
    const int divisor = static_cast<int>(common::RoundHalfEven(pieces));
    const int step = width / divisor;
    std::vector<SplitCut> cuts;
    cuts.reserve(static_cast<std::size_t>(first) + 1);
    for (int i = first; i >= 0; --i) cuts.push_back({i, step * i + from - 1});
    return cuts;
}

#pragma once
// The arithmetic of the range grid, kept apart from the widgets: what a typed entry is
// worth, whether it is a plain integer, and where an auto split cuts.

#include <QString>
#include <QStringView>
#include <cstdint>
#include <optional>
#include <vector>

// The value the range editor reads from its text: the number at its start, rounded half to
// even. A number beyond 16 bits has no value.
std::optional<std::int16_t> EntryValue(QStringView text);

// The value of a bound typed into `from` or `to`: only a plain integer counts, blanks
// allowed at both ends, written exactly as its own decimal text ("15", "-3"; not "015",
// "+15", "15.0" or "1e1").
std::optional<std::int16_t> BoundEntry(QStringView text);

// One pass of an auto split: the index written into the label, and the cut point fed to the
// `to` cell of the row.
struct SplitCut {
    int index;
    int point;
};

// The passes that cut the range from..to into `pieces` (which need not be whole), from the
// top of the range to its bottom. Empty when the count is below 2 or above the width.
std::vector<SplitCut> SplitCutPoints(double pieces, int from, int to);

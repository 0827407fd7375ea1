#pragma once
// One fixture as one plain value: everything of it that reaches the fixture file. Files are
// read into it, the form fills itself from it and reads itself into it, and the writer, the
// advice and the library commands work on it.

#include <QString>

#include "common/channel_grid.h"
#include "common/text_table.h"

namespace common {

enum class FixtureType { kNone, kMovingHead, kMirror, kOther };

// The length limits of the boxes on the first page.
inline constexpr int kNameLength = 30;  // manufacturer and model
inline constexpr int kNameOnDeskLength = 11;
// The patch text box holds at most this many characters, a line end as the two of CR LF: as
// many as a 16-bit counter counts. The desk shows a few lines, and a text box lays out every
// line it holds, which for megabytes of lines takes a long while and much memory.
inline constexpr int kMaxPatchTextLength = 32767;

struct Fixture {
    QString manufacturer;
    QString model;
    QString nameOnDesk;
    FixtureType type = FixtureType::kNone;
    QString pan;
    QString tilt;
    TextTable channels{kChannelColumns};  // the rows of the channel grid, without its heads
    QString channelCount;  // as the finish page shows it: the count of `channels` on arrival
    QString patchText;     // lines joined by CR LF
    QString comment;       // lines joined by CR LF
};

}  // namespace common

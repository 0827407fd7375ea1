#pragma once
// The pieces of the byte encoder of channel rows that the grid encoder builds on.

#include <QByteArray>
#include <QStringView>
#include <optional>

#include "output/channel_columns.h"
#include "output/channel_line.h"

namespace output {

// Where the parts of a row's first line lie in what WriteChannelRow wrote, counted from its
// start: the head "key wheel " ends at `headEnd`, the type letter and dmx1 follow, and the
// tail from the blank behind dmx1 to CR LF lies from `tailBegin` to `tailEnd`.
struct RowLayout {
    bool plain = false;  // plain ASCII, written byte by byte; else the parts are not known
    ChannelKind kind = ChannelKind::kOther;
    qsizetype headEnd = 0;
    qsizetype tailBegin = 0;
    qsizetype tailEnd = 0;
};

// Where `size` bytes may be written into `out` from index `at` on: `out` is made larger
// where it lacks that room, never smaller.
char* RoomAt(QByteArray& out, qsizetype at, qsizetype size);

// Both lines of a row into `out` from index `at` on, `out` made larger where it lacks room
// (never smaller); gives the index behind them, or -1 with nothing written when dmx2 holds
// no number.
qsizetype WriteChannelRow(const ChannelCells& cells, QByteArray& out, qsizetype at,
                          RowLayout* layout);

// The text up to the first ">" or blank, one byte a character, at `at`; gives the end and
// gathers the characters into `seen`.
char* WriteToken(char* at, QStringView s, char16_t& seen);

// Whether dmx2 holds a number, and then whether it is above 0 (the row has a low byte line).
std::optional<bool> Dmx2AboveZero(QStringView s);

}  // namespace output

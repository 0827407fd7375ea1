#pragma once
// The ready-made channel rows of the preset panel, as data: the preset buttons add them to
// the grid, and an imported channel that resembles a preset takes its cells from here.

#include <span>

#include "common/channel_grid.h"

namespace common {

inline constexpr int kPresetCount = 25;

// One ready-made row: the button that adds it, whether it is 16-bit, its channel type and the
// fixed tail from the attribute type to the comment, fields led by ";". A 16-bit row takes
// the offset after its own as its low byte. The colour mixes add three rows, in this order,
// each at the next free offset.
struct PresetRow {
    int index;
    bool sixteenBit;
    const char* channelType;
    const char* tail;
};

std::span<const PresetRow> PresetRows();

// The default text of the box whose lines the desk shows when the fixture is patched; the
// first of its lines is empty.
inline constexpr const char* kDefaultPatchText =
    "\r\n\r\nINPUT fixture DMX No.\r\nPress a Fixture\r\nSelect or Swop button to \r\n"
    "make the patch.\r\n";

}  // namespace common

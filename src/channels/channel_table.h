#pragma once
// The channel grid `table`: its commands and the next free offset.

#include <cstdint>

struct MainForm;

void add_Click(MainForm& f);
void delete_Click(MainForm& f);
void adddef_Click(MainForm& f);
std::int16_t NextFreeDmx(const MainForm& f);

namespace channels {

// New lines and presets stop at the most rows the grid holds.
bool RoomForChannelRow(const MainForm& f);
// The lowest offset above every offset of the table, not held to 16 bits.
double NextOffset(const MainForm& f);

}  // namespace channels

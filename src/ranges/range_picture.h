#pragma once
// The strip of coloured bars above the range grid.

#include <cstdint>

struct MainForm;

void DrawRangePicture(MainForm& f);
std::int32_t RandomColour();

#pragma once
// The strip of coloured bars above the range grid.

#include <cstdint>
#include <functional>

struct MainForm;

void DrawRangePicture(MainForm& f);
std::int32_t RandomColour();

// The pieces of RandomColour, open to tests. Three draws from [0, 1) give red, green and
// blue, each scaled to 0..254; colours strictly between grey 220 and grey 230 (the band
// around the strip's back colour) are drawn again from the same generator.
std::int32_t ColourFromDraws(double red, double green, double blue);
bool InGreyBand(std::int32_t colour);
std::int32_t RandomColourFrom(const std::function<double()>& draw);

#pragma once
// How the cell editor treats each column of the channel grid: the class of a column, its
// choice list, and which entries of a class reach the cell. Pure text work, no controls.

#include <QString>
#include <cstdint>
#include <optional>

namespace channels {

// How a commit treats the entry of the editor.
enum EditClass : int {
    kFreeText = 0,  // stored as typed
    kChoice = 1,    // stored only when a list item is picked
    kRatio = 2,     // 0..100
    kLevel = 3,     // -1..255: locate, highlight, lowlight
    kOffset = 4,    // 1..511: dmx1
    kLowByte = 5,   // 0..511: dmx2
    kKey = 6,       // 1..20
};

// The class of a grid column; column 0 and anything past the last column count as free text.
int EditClassOfColumn(int col);

// The choice list of a column as one text with ";" between the items; empty for a column
// without a list.
QString ChoiceListOfColumn(int col);

// What a commit writes into the cell, or nothing when the entry fails its class.
// `entryValue` is the leading number of `text`, rounded, when it fits into 16 bits.
std::optional<QString> CommittedText(int editClass, const QString& text,
                                     std::optional<std::int16_t> entryValue, int listIndex);

}  // namespace channels

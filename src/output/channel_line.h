#pragma once
// One row of the channel grid as a line of the file's DMX section.

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QStringView>
#include <array>
#include <cstdint>
#include <optional>

struct MainForm;

// The line of `row` (1 or higher), its low byte line when `lowByte`; nothing when the
// row's dmx2 cell holds no number.
std::optional<QString> BuildChannelLine(const MainForm& f, std::int16_t row, bool lowByte);

// The same from the cells of one row, indexed by column (0 to 14); missing cells are empty.
std::optional<QString> ChannelLineOf(const QStringList& cells, bool lowByte);

// The cells of one row of the channel grid, column 0 (the line mark) to 14.
inline constexpr int kChannelColumns = 15;
using ChannelCells = std::array<QStringView, kChannelColumns>;

// Both lines of a row as the file holds them, each followed by CR LF, appended to `out`:
// ToFileBytes of the line, and for a row whose dmx2 is above 0 also of its low byte line.
// False, with nothing appended, when dmx2 holds no number. A row of plain text is encoded
// straight into bytes.
bool AppendChannelRowBytes(const ChannelCells& cells, QByteArray& out);

// The text up to the first ">" or blank: "61> B (right)" and "61" both give "61".
QString LeadingToken(const QString& text);
// Leading blanks removed, cut to 12 characters, in double quotes.
QString QuoteLabel(const QString& text);

#pragma once
// One row of the channel grid as a line of the file's DMX section.

#include <QString>
#include <cstdint>
#include <optional>

struct MainForm;

// The line of `row` (1 or higher), its low byte line when `lowByte`, without a line end;
// nothing when the row's dmx2 cell holds no number.
std::optional<QString> BuildChannelLine(const MainForm& f, std::int16_t row, bool lowByte);

// The text up to the first ">" or blank: "61> B (right)" and "61" both give "61".
QString LeadingToken(const QString& text);
// Leading blanks removed, cut to 12 characters, in double quotes.
QString QuoteLabel(const QString& text);

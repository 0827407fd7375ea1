#pragma once
// One row of the channel grid as a line of the file's DMX section.

#include <QLatin1String>
#include <QString>
#include <optional>

#include "common/channel_grid.h"
#include "common/text_table.h"

// The line of channel row `row` (from 0), its low byte line when `lowByte`, without a line
// end; nothing when the row's dmx2 cell holds no number.
std::optional<QString> BuildChannelLine(const common::TextTable& rows, int row, bool lowByte);

// The text up to the first ">" or blank: "61> B (right)" and "61" both give "61".
QString LeadingToken(const QString& text);
// Leading blanks removed, cut to 12 characters, in double quotes.
QString QuoteLabel(const QString& text);

// The letter of the channel type. The high byte line of a 16-bit channel has a letter of its
// own (lower case, or none for HTP); the other lines carry the plain one.
QLatin1String TypeLetter(common::ChannelKind kind, bool highByte);

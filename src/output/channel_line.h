#pragma once
// One row of the channel grid as a line of the file's DMX section.

#include <QString>
#include <cstdint>
#include <optional>

struct MainForm;

// The line of `row` (1 or higher), its low byte line when `lowByte`; nothing when the
// row's dmx2 cell holds no number.
std::optional<QString> BuildChannelLine(const MainForm& f, std::int16_t row, bool lowByte);
QString LeadingToken(const QString& text);
QString QuoteLabel(const QString& text);

// Placeholder handlers until the file writer is built.
#include "output/channel_line.h"
#include "output/save_flow.h"

void finished_Click(MainForm&) {}
std::optional<QString> BuildChannelLine(const MainForm&, std::int16_t, bool) {
    return {};
}
QString LeadingToken(const QString& text) {
    return text;
}
QString QuoteLabel(const QString& text) {
    return text;
}

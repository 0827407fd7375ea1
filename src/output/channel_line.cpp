#include "output/channel_line.h"

#include "common/number.h"
#include "gui/grid_model.h"
#include "output/channel_columns.h"
#include "wizard/main_form.h"

using namespace output;

namespace {

constexpr int kColumns = kChannelColumns;

QString NumberOf(const QString& cell) {
    return common::NumberText(common::LeadingNumber(cell));
}

QStringView TokenOf(QStringView text) {
    qsizetype end = 0;
    while (end < text.size() && text[end] != u'>' && text[end] != u' ') ++end;
    return text.first(end);
}

}  // namespace

ChannelKind output::KindOf(QStringView channelType) {
    // Told apart by length first: a full grid asks this twice per row.
    static constexpr QLatin1String kHtp("HTP (usually dimmer)");
    static constexpr QLatin1String kFadeable("FADEABLE LTP");
    static constexpr QLatin1String kIndexed("INDEXED LTP (not fadeable, such as gobo)");
    const qsizetype size = channelType.size();
    if (size == kHtp.size() && channelType == kHtp) return ChannelKind::kHtp;
    if (size == kFadeable.size() && channelType == kFadeable) return ChannelKind::kFadeable;
    if (size == kIndexed.size() && channelType == kIndexed) return ChannelKind::kIndexed;
    return ChannelKind::kOther;
}

QLatin1String output::TypeLetter(ChannelKind kind, bool highByte) {
    switch (kind) {
        case ChannelKind::kHtp:
            return highByte ? QLatin1String() : QLatin1String("H");
        case ChannelKind::kFadeable:
            return QLatin1String(highByte ? "s" : "L");
        case ChannelKind::kIndexed:
            return QLatin1String(highByte ? "S" : "I");
        case ChannelKind::kOther:
            break;
    }
    return {};
}

QString LeadingToken(const QString& text) {
    return TokenOf(text).toString();
}

QString QuoteLabel(const QString& text) {
    qsizetype start = 0;
    while (start < text.size() && text[start] == u' ') ++start;
    // Count characters, not UTF-16 units, so that a surrogate pair is never cut in two.
    qsizetype end = start;
    for (int taken = 0; taken < kLabelLength && end < text.size(); ++taken) {
        const bool pair =
            text[end].isHighSurrogate() && end + 1 < text.size() && text[end + 1].isLowSurrogate();
        end += pair ? 2 : 1;
    }
    return QLatin1Char('"') + text.mid(start, end - start) + QLatin1Char('"');
}

std::optional<QString> ChannelLineOf(const QStringList& cells, bool lowByte) {
    auto cell = [&cells](int column) { return cells.value(column); };
    const std::optional<double> dmx2 = common::WholeNumber(cell(kDmx2));
    if (!dmx2) return std::nullopt;
    const bool highByte = *dmx2 > 0 && !lowByte;

    // Fields 1 to 12 with one blank between them; an empty field keeps its blanks.
    QString line;
    line.reserve(96);
    auto token = [&](int column) { line.append(TokenOf(cell(column))); };
    auto blank = [&line] { line.append(u' '); };
    if (lowByte) {
        line.append(QLatin1String("0 0"));
    } else {
        token(kKey);
        blank();
        token(kWheel);
    }
    blank();
    line.append(TypeLetter(KindOf(cell(kChannelType)), highByte));
    blank();
    token(lowByte ? kDmx2 : kDmx1);
    blank();
    token(kRatio);
    blank();
    token(kCurve);
    token(kInv);
    blank();
    token(kAttributeType);
    line.append(QLatin1String(" 1 "));
    line.append(QuoteLabel(cell(kLabel)));
    for (int column : {kLocate, kHighlight, kLowlight}) {
        blank();
        line.append(NumberOf(cell(column)));
    }
    // Then the comment of the line behind two blanks and a semicolon.
    line.append(QLatin1String("  ;"));
    line.append(cell(kComment));
    return line;
}

std::optional<QString> BuildChannelLine(const MainForm& f, std::int16_t row, bool lowByte) {
    QStringList cells;
    cells.reserve(kColumns);
    cells.append(QString());  // the line mark is never read
    const gui::GridModel& grid = *f.table.model();
    for (int column = 1; column < kColumns; ++column) cells.append(grid.Cell(row, column));
    return ChannelLineOf(cells, lowByte);
}

#include "output/channel_line.h"

#include "common/number.h"

using namespace common;  // the columns of a channel row and the kinds of channel

QLatin1String TypeLetter(ChannelKind kind, bool highByte) {
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

namespace {

QStringView TokenOf(QStringView text) {
    qsizetype end = 0;
    while (end < text.size() && text[end] != u'>' && text[end] != u' ') ++end;
    return text.first(end);
}

}  // namespace

QString LeadingToken(const QString& text) {
    return text.left(TokenOf(text).size());
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
    return u'"' + text.sliced(start, end - start) + u'"';
}

std::optional<QString> BuildChannelLine(const TextTable& rows, int row, bool lowByte) {
    auto cell = [&](int column) { return rows.cell(row, column); };

    const std::optional<double> dmx2 = common::WholeNumber(cell(kDmx2));
    if (!dmx2) return std::nullopt;
    const bool highByte = *dmx2 > 0 && !lowByte;

    // Fields 1 to 12 with one blank between them: an empty field keeps its blanks.
    QString line;
    line.reserve(80);
    auto token = [&](int column) { line += TokenOf(cell(column)); };
    auto number = [&](int column) {
        line += u' ';
        line += common::NumberText(common::LeadingNumber(cell(column)));
    };
    if (lowByte) {
        line += QLatin1String("0 0");
    } else {
        token(kKey);
        line += u' ';
        token(kWheel);
    }
    line += u' ';
    line += TypeLetter(KindOf(cell(kChannelType)), highByte);
    line += u' ';
    token(lowByte ? kDmx2 : kDmx1);
    line += u' ';
    token(kRatio);
    line += u' ';
    token(kCurve);
    token(kInv);
    line += u' ';
    token(kAttributeType);
    line += QLatin1String(" 1 ");
    line += QuoteLabel(cell(kLabel));
    number(kLocate);
    number(kHighlight);
    number(kLowlight);
    // Then the comment behind two blanks and a semicolon.
    line += QLatin1String("  ;");
    line += cell(kComment);
    return line;
}

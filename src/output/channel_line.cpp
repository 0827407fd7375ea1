#include "output/channel_line.h"

#include "common/number.h"
#include "wizard/main_form.h"

namespace {

// The columns of the channel grid that reach the file.
enum Column : int {
    kDmx1 = 1,
    kDmx2 = 2,
    kChannelType = 3,
    kAttributeType = 4,
    kKey = 5,
    kWheel = 6,
    kLabel = 7,
    kCurve = 8,
    kInv = 9,
    kRatio = 10,
    kLocate = 11,
    kHighlight = 12,
    kLowlight = 13,
    kComment = 14,
    kColumns = 15,
};

constexpr int kLabelLength = 12;

// The letter of the channel type. The high byte line of a 16-bit channel has a letter of its
// own (lower case, or none for HTP); the other lines carry the plain one.
QLatin1String TypeLetter(const QString& channelType, bool highByte) {
    if (channelType == QLatin1String("HTP (usually dimmer)"))
        return highByte ? QLatin1String() : QLatin1String("H");
    if (channelType == QLatin1String("FADEABLE LTP")) return QLatin1String(highByte ? "s" : "L");
    if (channelType == QLatin1String("INDEXED LTP (not fadeable, such as gobo)"))
        return QLatin1String(highByte ? "S" : "I");
    return {};
}

QString NumberOf(const QString& cell) {
    return common::NumberText(common::LeadingNumber(cell));
}

QStringView TokenOf(QStringView text) {
    qsizetype end = 0;
    while (end < text.size() && text[end] != u'>' && text[end] != u' ') ++end;
    return text.first(end);
}

}  // namespace

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
    line.append(TypeLetter(cell(kChannelType), highByte));
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
    for (int column = 1; column < kColumns; ++column) cells.append(f.table.TextMatrix(row, column));
    return ChannelLineOf(cells, lowByte);
}

#include "input/channel_lines.h"

#include "common/number.h"

namespace input {

namespace {

constexpr int kLabelLength = 12;
const QString kHtp = QStringLiteral("HTP (usually dimmer)");
const QString kFadeable = QStringLiteral("FADEABLE LTP");
const QString kIndexed = QStringLiteral("INDEXED LTP (not fadeable, such as gobo)");

// Walks a line field by field; a field ends at the next blank.
class Fields {
  public:
    explicit Fields(QStringView text) : rest_(text) {}
    bool next(QStringView& field) {
        const qsizetype blank = rest_.indexOf(u' ');
        if (blank < 0) return false;
        field = rest_.first(blank);
        rest_ = rest_.sliced(blank + 1);
        return true;
    }
    QStringView rest() const { return rest_; }

  private:
    QStringView rest_;
};

// A number field holds a number as the writer prints it, read from whatever the cell held.
bool IsPrintedNumber(QStringView text) {
    return !text.isEmpty() && common::NumberText(common::LeadingNumber(text)) == text;
}

// What stands behind the closing quote of the label: " {locate} {highlight} {lowlight}  ;"
// and the comment.
bool ReadAfterLabel(QStringView text, ChannelLine& line) {
    if (!text.startsWith(u' ')) return false;
    Fields fields(text.sliced(1));
    QStringView locate, highlight, lowlight;
    if (!fields.next(locate) || !fields.next(highlight) || !fields.next(lowlight)) return false;
    if (!fields.rest().startsWith(QLatin1String(" ;"))) return false;
    if (!IsPrintedNumber(locate) || !IsPrintedNumber(highlight) || !IsPrintedNumber(lowlight))
        return false;
    line.locate = locate.toString();
    line.highlight = highlight.toString();
    line.lowlight = lowlight.toString();
    line.comment = fields.rest().sliced(2).toString();
    return true;
}

// The label holds at most 12 characters and may hold quotes, blanks and semicolons itself:
// the first closing quote behind which the rest of the line reads is taken.
bool ReadLabel(QStringView text, ChannelLine& line) {
    qsizetype at = 0;
    for (int taken = 0; taken <= kLabelLength && at < text.size(); ++taken) {
        if (text[at] == u'"' && ReadAfterLabel(text.sliced(at + 1), line)) {
            line.label = text.first(at).toString();
            return true;
        }
        const bool pair =
            text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        at += pair ? 2 : 1;
    }
    return false;
}

QString TypeOfLetter(const QString& letter) {
    if (letter == u"L" || letter == u"s") return kFadeable;
    if (letter == u"I" || letter == u"S") return kIndexed;
    if (letter == u"H") return kHtp;
    return {};
}

bool IsHighLetter(const QString& letter) {
    return letter == u"s" || letter == u"S";
}

// Whether `low` is the low byte line of the channel whose first line is `high`.
bool IsLowByteOf(const ChannelLine& low, const ChannelLine& high) {
    if (low.key != u"0" || low.wheel != u"0" || low.tail != high.tail) return false;
    const std::optional<double> offset = common::WholeNumber(low.offset);
    if (!offset || *offset <= 0) return false;
    if (IsHighLetter(high.letter)) return TypeOfLetter(low.letter) == TypeOfLetter(high.letter);
    // A first line without a letter is an HTP channel's high byte, or a channel of no type.
    return low.letter == u"H" || low.letter.isEmpty();
}

QStringList CellsOf(const ChannelLine& line) {
    // The curve is a number and the inversion a letter: the field splits where the digits end.
    qsizetype digits = 0;
    while (digits < line.curveAndInv.size() && line.curveAndInv[digits].isDigit()) ++digits;
    const QString attribute = line.attribute.isEmpty() ? QString() : line.attribute + u'>';
    return {QStringLiteral("#"),
            line.offset,
            QStringLiteral("0"),
            TypeOfLetter(line.letter),
            attribute,
            line.key,
            line.wheel,
            line.label,
            line.curveAndInv.left(digits),
            line.curveAndInv.mid(digits),
            line.ratio,
            line.locate,
            line.highlight,
            line.lowlight,
            line.comment};
}

}  // namespace

QString ParseChannelLine(const QString& text, ChannelLine& line) {
    Fields fields(text);
    QStringView parts[8];
    for (int i = 0; i < 8; ++i) {
        if (!fields.next(parts[i]))
            return QStringLiteral(
                "not a channel line: it has fewer than 8 fields before the label");
        if (parts[i].contains(u'>'))
            return QStringLiteral("not a channel line: field %1 holds \">\"").arg(i + 1);
    }
    if (parts[7] != u"1")
        return QStringLiteral("not a channel line: field 8 is \"%1\", not 1").arg(parts[7]);
    const QString letter = parts[2].toString();
    if (!letter.isEmpty() && TypeOfLetter(letter).isEmpty())
        return QStringLiteral("unknown channel type letter \"%1\"").arg(letter);
    if (!fields.rest().startsWith(u'"'))
        return QStringLiteral("not a channel line: the label does not start with a quote");
    if (!ReadLabel(fields.rest().sliced(1), line))
        return QStringLiteral(
            "not a channel line: no label of at most 12 characters is followed by locate, "
            "highlight, lowlight and the comment");
    line.key = parts[0].toString();
    line.wheel = parts[1].toString();
    line.letter = letter;
    line.offset = parts[3].toString();
    line.ratio = parts[4].toString();
    line.curveAndInv = parts[5].toString();
    line.attribute = parts[6].toString();
    line.tail = text.sliced(parts[3].constData() + parts[3].size() - text.constData());
    return {};
}

QString ChannelRows::add(const QString& text, int number) {
    auto at = [number](const QString& reason) {
        return QStringLiteral("line %1: %2").arg(number).arg(reason);
    };
    ChannelLine line;
    const QString error = ParseChannelLine(text, line);
    if (!error.isEmpty()) return at(error);

    if (mayPair_ && IsLowByteOf(line, waiting_)) {
        mayPair_ = false;
        QStringList& row = rows_.last();
        row[2] = line.offset;
        if (!IsHighLetter(waiting_.letter)) row[3] = TypeOfLetter(line.letter);
        return {};
    }
    if (const QString missing = finish(); !missing.isEmpty()) return missing;
    if (rows_.size() >= kMaxChannelRows)
        return at(QStringLiteral("the table holds at most %1 channels").arg(kMaxChannelRows));
    rows_.append(CellsOf(line));
    waiting_ = line;
    waitingNumber_ = number;
    mayPair_ = IsHighLetter(line.letter) || line.letter.isEmpty();
    return {};
}

QString ChannelRows::finish() const {
    if (mayPair_ && IsHighLetter(waiting_.letter))
        return QStringLiteral("line %1: the 16-bit channel has no low byte line behind it")
            .arg(waitingNumber_);
    return {};
}

}  // namespace input

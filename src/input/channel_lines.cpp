#include "input/channel_lines.h"

namespace input {

namespace {

using common::kLabelLength;
constexpr int kMostDigits = 5;  // no offset, key or ratio the wizard writes is longer
const QString kHtp = QLatin1String(common::kHtpType);
const QString kFadeable = QLatin1String(common::kFadeableType);
const QString kIndexed = QLatin1String(common::kIndexedType);

// Walks a line field by field; a field ends at the next blank.
class Fields {
  public:
    explicit Fields(QStringView text) : rest_(text) {}
    bool next(QStringView& field) {
        // A short walk: fields are a few characters long, and a search call costs more.
        qsizetype blank = 0;
        while (blank < rest_.size() && rest_[blank] != u' ') ++blank;
        if (blank == rest_.size()) return false;
        field = rest_.first(blank);
        rest_ = rest_.sliced(blank + 1);
        return true;
    }
    QStringView rest() const { return rest_; }

  private:
    QStringView rest_;
};

bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

// What a cell of a number column becomes in the line: nothing, or its digits.
bool IsDigitsOrNothing(QStringView text) {
    if (text.size() > kMostDigits) return false;
    for (const QChar c : text)
        if (!IsDigit(c)) return false;
    return true;
}

// What the writer prints for locate, highlight and lowlight: a whole number, no leading zero.
bool IsPrintedNumber(QStringView text) {
    const QStringView digits = text.startsWith(u'-') ? text.sliced(1) : text;
    if (digits.isEmpty() || !IsDigitsOrNothing(digits)) return false;
    // "0" stands alone: never "-0" nor "007".
    return digits[0] != u'0' || (digits.size() == 1 && digits.size() == text.size());
}

// The curve's digits and the inversion's letter, as the choice lists give them.
bool SplitCurveAndInv(QStringView text, ChannelLine& line) {
    qsizetype digits = 0;
    while (digits < text.size() && IsDigit(text[digits])) ++digits;
    line.curve = text.first(digits);
    line.inv = text.sliced(digits);
    return digits <= kMostDigits && (line.inv.isEmpty() || line.inv == u"N" || line.inv == u"C");
}

// The attribute type's short form: one letter or digit.
bool IsAttribute(QStringView text) {
    return text.isEmpty() ||
           (text.size() == 1 && (IsDigit(text[0]) || (text[0] >= u'A' && text[0] <= u'Z')));
}

// What stands behind the closing quote of the label: " {locate} {highlight} {lowlight}  ;"
// and the comment.
bool ReadAfterLabel(QStringView text, ChannelLine& line) {
    if (!text.startsWith(u' ')) return false;
    Fields fields(text.sliced(1));
    if (!fields.next(line.locate) || !fields.next(line.highlight) || !fields.next(line.lowlight))
        return false;
    if (!fields.rest().startsWith(QLatin1String(" ;"))) return false;
    if (!IsPrintedNumber(line.locate) || !IsPrintedNumber(line.highlight) ||
        !IsPrintedNumber(line.lowlight))
        return false;
    line.comment = fields.rest().sliced(2);
    return true;
}

// The label holds at most 12 characters and may hold quotes, blanks and semicolons itself:
// the first closing quote behind which the rest of the line reads is taken.
bool ReadLabel(QStringView text, ChannelLine& line) {
    qsizetype at = 0;
    for (int taken = 0; taken <= kLabelLength && at < text.size(); ++taken) {
        if (text[at] == u'"' && ReadAfterLabel(text.sliced(at + 1), line)) {
            line.label = text.first(at);
            return true;
        }
        const bool pair =
            text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        at += pair ? 2 : 1;
    }
    return false;
}

const QString& TypeOfLetter(QStringView letter) {
    static const QString none;
    if (letter == u"L" || letter == u"s") return kFadeable;
    if (letter == u"I" || letter == u"S") return kIndexed;
    if (letter == u"H") return kHtp;
    return none;
}

bool IsHighLetter(QStringView letter) {
    return letter == u"s" || letter == u"S";
}

// An offset the wizard writes is a 16-bit value.
constexpr int kMaxOffset = common::kMaxChannelRows;

// The value of at most five digits, which the line's form has checked already.
int OffsetOf(QStringView digits) {
    int value = 0;
    for (const QChar c : digits) value = value * 10 + (c.unicode() - u'0');
    return value;
}

// The attribute type's short form as the cell holds it: the letter or digit and ">".
const QString& AttributeCell(QStringView attribute) {
    static const QString kNone;
    static const QStringList kForms = [] {
        QStringList forms;
        for (const QChar c : QStringView(u"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"))
            forms << QString(c) + u'>';
        return forms;
    }();
    if (attribute.isEmpty()) return kNone;
    const char16_t c = attribute[0].unicode();
    return kForms[c <= u'9' ? c - u'0' : 10 + c - u'A'];
}

// Whether `low` is the low byte line of the channel whose first line is `high`.
bool IsLowByteOf(const ChannelLine& low, const ChannelLine& high) {
    if (low.key != u"0" || low.wheel != u"0" || low.tail != high.tail) return false;
    if (OffsetOf(low.offset) <= 0) return false;
    if (IsHighLetter(high.letter)) return TypeOfLetter(low.letter) == TypeOfLetter(high.letter);
    // A first line without a letter is an HTP channel's high byte, or a channel of no type.
    return low.letter == u"H" || low.letter.isEmpty();
}

}  // namespace

QString ParseChannelLine(QStringView text, ChannelLine& line) {
    Fields fields(text);
    QStringView parts[8];
    for (int i = 0; i < 8; ++i) {
        if (!fields.next(parts[i]))
            return QStringLiteral(
                "not a channel line: it has fewer than 8 fields before the label");
    }
    if (parts[7] != u"1")
        return QStringLiteral("not a channel line: field 8 is \"%1\", not 1").arg(parts[7]);
    line.letter = parts[2];
    if (!line.letter.isEmpty() && TypeOfLetter(line.letter).isEmpty())
        return QStringLiteral("unknown channel type letter \"%1\"").arg(line.letter);
    const char* names[] = {"the key", "the wheel", nullptr, "the offset", "the ratio"};
    for (const int i : {0, 1, 3, 4}) {
        if (!IsDigitsOrNothing(parts[i]))
            return QStringLiteral("%1 \"%2\" is no whole number").arg(names[i]).arg(parts[i]);
    }
    if (OffsetOf(parts[3]) > kMaxOffset)
        return QStringLiteral("the offset %1 lies beyond %2").arg(parts[3]).arg(kMaxOffset);
    if (!SplitCurveAndInv(parts[5], line))
        return QStringLiteral("\"%1\" is no curve and inversion").arg(parts[5]);
    if (!IsAttribute(parts[6])) return QStringLiteral("\"%1\" is no attribute type").arg(parts[6]);
    if (!fields.rest().startsWith(u'"'))
        return QStringLiteral("not a channel line: the label does not start with a quote");
    if (!ReadLabel(fields.rest().sliced(1), line))
        return QStringLiteral(
            "not a channel line: no label of at most 12 characters is followed by whole "
            "numbers for locate, highlight and lowlight and the comment");
    line.key = parts[0];
    line.wheel = parts[1];
    line.offset = parts[3];
    line.ratio = parts[4];
    line.attribute = parts[6];
    line.tail = text.sliced(parts[3].constData() + parts[3].size() - text.constData());
    return {};
}

QString ChannelRows::add(QStringView text, int number) {
    auto at = [number](const QString& reason) {
        return QStringLiteral("line %1: %2").arg(number).arg(reason);
    };
    ChannelLine line;
    const QString error = ParseChannelLine(text, line);
    if (!error.isEmpty()) return at(error);

    if (mayPair_ && IsLowByteOf(line, waiting_)) {
        mayPair_ = false;
        const int row = rows_.rows() - 1;
        rows_.setCell(row, common::kDmx2, line.offset);
        if (!IsHighLetter(waiting_.letter))
            rows_.setCell(row, common::kChannelType, TypeOfLetter(line.letter));
        highest_ = std::max(highest_, OffsetOf(line.offset));
        return {};
    }
    if (const QString missing = finish(); !missing.isEmpty()) return missing;
    if (rows_.rows() >= common::kMaxChannelRows)
        return at(
            QStringLiteral("the table holds at most %1 channels").arg(common::kMaxChannelRows));
    const auto view = [](QStringView v) {
        return std::u16string_view(reinterpret_cast<const char16_t*>(v.utf16()),
                                   static_cast<std::size_t>(v.size()));
    };
    const Shape shape{view(text.first(line.offset.data() - text.data())), view(line.tail)};
    const auto [known, isNew] = shapes_.try_emplace(shape);
    std::array<quint32, common::kChannelColumns>& numbers = known->second;
    if (isNew) {
        const QStringView cells[] = {u"#",
                                     {},
                                     u"0",
                                     TypeOfLetter(line.letter),
                                     AttributeCell(line.attribute),
                                     line.key,
                                     line.wheel,
                                     line.label,
                                     line.curve,
                                     line.inv,
                                     line.ratio,
                                     line.locate,
                                     line.highlight,
                                     line.lowlight,
                                     line.comment};
        for (int col = 0; col < common::kChannelColumns; ++col)
            numbers[col] = rows_.numberOf(cells[col]);
    }
    numbers[common::kDmx1] = rows_.numberOf(line.offset);
    rows_.appendRow(numbers.data());
    highest_ = std::max(highest_, OffsetOf(line.offset));
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

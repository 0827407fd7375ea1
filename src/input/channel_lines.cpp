#include "input/channel_lines.h"

#include <algorithm>
#include <optional>

#include "common/code_page.h"

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

// The type letter as one character, 0 for none; what is no letter of the file becomes '?'.
char LetterOf(QStringView letter) {
    if (letter.isEmpty()) return 0;
    const char16_t c = letter[0].unicode();
    return letter.size() == 1 && c < 0x80 ? static_cast<char>(c) : '?';
}

const QString& TypeOfLetter(char letter) {
    static const QString none;
    switch (letter) {
        case 'L':
        case 's':
            return kFadeable;
        case 'I':
        case 'S':
            return kIndexed;
        case 'H':
            return kHtp;
        default:
            return none;
    }
}

bool IsHighLetter(char letter) {
    return letter == 's' || letter == 'S';
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

// Whether a low byte line with the letter `low` belongs to a first line with the letter `high`.
bool IsLowLetterOf(char low, char high) {
    if (IsHighLetter(high)) return TypeOfLetter(low) == TypeOfLetter(high);
    // A first line without a letter is an HTP channel's high byte, or a channel of no type.
    return low == 'H' || low == 0;
}

// A line's bytes around its offset: those before it (key, wheel and letter, each with its
// blank), the offset's digits, and those behind them.
struct AroundOffset {
    std::string_view head, digits, tail;
};

// Splits a line at the blanks around its offset, the third and the fourth; false when it has
// fewer.
bool SplitAtOffset(std::string_view line, AroundOffset& around) {
    std::size_t at = 0;
    for (int blanks = 0; blanks < 3; ++at) {
        if (at == line.size()) return false;
        if (line[at] == ' ') ++blanks;
    }
    const std::size_t end = line.find(' ', at);
    if (end == std::string_view::npos) return false;
    around = {line.substr(0, at), line.substr(at, end - at), line.substr(end)};
    return true;
}

// The value of an offset as the parse of a line takes it: at most five digits, or none, and
// within 16 bits; -1 for any other bytes.
int OffsetOfBytes(std::string_view digits) {
    if (digits.size() > kMostDigits) return -1;
    int value = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9') return -1;
        value = value * 10 + (c - '0');
    }
    return value <= kMaxOffset ? value : -1;
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
    if (!line.letter.isEmpty() && TypeOfLetter(LetterOf(line.letter)).isEmpty())
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

QString ChannelRows::add(QByteArrayView bytes, int number) {
    auto at = [number](const QString& reason) {
        return QStringLiteral("line %1: %2").arg(number).arg(reason);
    };
    // A line whose bytes before and behind the offset are those of a line read before reads
    // as that one did but for its offset, which is checked here as the parse checks it.
    const std::string_view line(bytes.data(), static_cast<std::size_t>(bytes.size()));
    AroundOffset around;
    int offset = -1;
    const Shape* shape = nullptr;
    if (SplitAtOffset(line, around)) offset = OffsetOfBytes(around.digits);
    if (offset >= 0) {
        const auto known = shapes_.find({around.head, around.tail});
        if (known != shapes_.end()) shape = &known->second;
    }
    if (!shape) {
        // The first line of its shape, or one that does not read: field by field, as text.
        const std::optional<QString> text = FromFileBytes(bytes);
        if (!text) return at(QStringLiteral("unreadable bytes"));
        ChannelLine fields;
        const QString error = ParseChannelLine(*text, fields);
        if (!error.isEmpty()) return at(error);
        // Key, wheel and letter are ASCII: as many bytes as characters.
        const auto offsetAt = static_cast<std::size_t>(fields.offset.data() - text->data());
        const auto digits = static_cast<std::size_t>(fields.offset.size());
        around = {line.substr(0, offsetAt), line.substr(offsetAt, digits),
                  line.substr(offsetAt + digits)};
        offset = OffsetOf(fields.offset);
        shape = &shapes_.try_emplace({around.head, around.tail}, shapeOf(fields)).first->second;
    }
    // The offset's digits (at most five, as checked) as text, without a string of their own.
    char16_t digits[kMostDigits];
    std::copy(around.digits.begin(), around.digits.end(), digits);
    const QStringView offsetText(digits, static_cast<qsizetype>(around.digits.size()));

    if (mayPair_ && shape->zeroKeyWheel && around.tail == waitingTail_ && offset > 0 &&
        IsLowLetterOf(shape->letter, waitingLetter_)) {
        mayPair_ = false;
        const int row = rows_.rows() - 1;
        rows_.setCell(row, common::kDmx2, offsetText);
        if (!IsHighLetter(waitingLetter_))
            rows_.setCell(row, common::kChannelType, TypeOfLetter(shape->letter));
        highest_ = std::max(highest_, offset);
        return {};
    }
    if (const QString missing = finish(); !missing.isEmpty()) return missing;
    if (rows_.rows() >= common::kMaxChannelRows)
        return at(
            QStringLiteral("the table holds at most %1 channels").arg(common::kMaxChannelRows));
    std::array<quint32, common::kChannelColumns> cells = shape->cells;
    cells[common::kDmx1] = rows_.numberOf(offsetText);
    rows_.appendRow(cells.data());
    highest_ = std::max(highest_, offset);
    waitingLetter_ = shape->letter;
    waitingTail_ = around.tail;
    waitingNumber_ = number;
    mayPair_ = IsHighLetter(shape->letter) || shape->letter == 0;
    return {};
}

ChannelRows::Shape ChannelRows::shapeOf(const ChannelLine& line) {
    Shape shape;
    shape.letter = LetterOf(line.letter);
    shape.zeroKeyWheel = line.key == u"0" && line.wheel == u"0";
    const QStringView cells[] = {u"#",
                                 {},  // the offset, the one cell a shape leaves open
                                 u"0",
                                 TypeOfLetter(shape.letter),
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
        shape.cells[col] = rows_.numberOf(cells[col]);
    return shape;
}

QString ChannelRows::finish() const {
    if (mayPair_ && IsHighLetter(waitingLetter_))
        return QStringLiteral("line %1: the 16-bit channel has no low byte line behind it")
            .arg(waitingNumber_);
    return {};
}

}  // namespace input

// The channel lines of a whole grid straight into the file's bytes. A row of plain ASCII,
// which is nearly every row, is written byte by byte without building its text; any other
// row goes the way of its text and the code page (ChannelLineOf, ToFileBytes).

#include <QStringList>
#include <algorithm>
#include <cstring>

#include "common/number.h"
#include "output/channel_bytes.h"
#include "output/channel_columns.h"
#include "output/channel_line.h"
#include "output/code_page.h"

using namespace output;

namespace {

bool IsBlank(char16_t c) {
    return c == u' ' || c == u'\t';
}
bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

// Skips the blanks in front of a number and its sign; gives the index behind them.
inline qsizetype SkipBlanksAndSign(const QChar* d, qsizetype n, bool& negative) {
    qsizetype i = 0;
    while (i < n && IsBlank(d[i].unicode())) ++i;
    negative = false;
    if (i < n && (d[i] == u'-' || d[i] == u'+')) negative = d[i++] == u'-';
    return i;
}

// Whole numbers of up to this many digits print as they are read (no exponent form).
constexpr qsizetype kPlainDigits = 15;

// Writes into room made beforehand. Every character written is also gathered into `seen`,
// so that one test at the end tells whether the row held anything beyond ASCII. The loops
// work on copies of the write position: a store through a char pointer could otherwise
// change it, and it would be read again for every character.
class Bytes {
  public:
    explicit Bytes(char* at) : p_(at) {}

    void text(QStringView s) {
        char* p = p_;
        char16_t seen = seen_;
        for (const QChar c : s) {
            seen |= c.unicode();
            *p++ = static_cast<char>(c.unicode());
        }
        p_ = p;
        seen_ = seen;
    }
    void literal(const char* s, std::size_t n) {
        std::memcpy(p_, s, n);
        p_ += n;
    }
    template <std::size_t N>
    void literal(const char (&s)[N]) {
        literal(s, N - 1);
    }
    void letter(char c) { *p_++ = c; }
    // The type letter, none or one.
    void letters(QLatin1String s) {
        if (!s.isEmpty()) letter(s.data()[0]);
    }

    // The text up to the first ">" or blank.
    void token(QStringView s) {
        char* p = p_;
        char16_t seen = seen_;
        for (const QChar c : s) {
            if (c == u'>' || c == u' ') break;
            seen |= c.unicode();
            *p++ = static_cast<char>(c.unicode());
        }
        p_ = p;
        seen_ = seen;
    }

    // The label without its leading blanks, cut to 12 characters, in double quotes. Only
    // ASCII counts here: a surrogate sends the row the general way anyway.
    void label(QStringView s) {
        qsizetype start = 0;
        while (start < s.size() && s[start] == u' ') ++start;
        letter('"');
        text(s.sliced(start, std::min<qsizetype>(kLabelLength, s.size() - start)));
        letter('"');
    }

    // NumberText of LeadingNumber: a plain whole number is copied without its sign "+" and
    // its leading zeros; anything else is read and printed the general way.
    void number(QStringView s) {
        const QChar* const d = s.data();
        const qsizetype n = s.size();
        bool negative = false;
        qsizetype i = SkipBlanksAndSign(d, n, negative);
        while (i < n && d[i] == u'0') ++i;
        const qsizetype first = i;
        while (i < n && IsDigit(d[i].unicode())) ++i;
        const bool plain = i == n || (d[i] != u'.' && d[i] != u'e' && d[i] != u'E');
        if (!plain || i - first > kPlainDigits) {
            text(common::NumberText(common::LeadingNumber(s)));
        } else if (i == first) {
            letter('0');  // no number, or zero of either sign
        } else {
            if (negative) letter('-');
            text(s.sliced(first, i - first));
        }
    }

    char* end() const { return p_; }
    char16_t seen() const { return seen_; }
    bool ascii() const { return seen_ < 0x80; }

  private:
    char* p_;
    char16_t seen_ = 0;
};

}  // namespace

// A plain whole number, as nearly every cell holds, is read here in one pass.
std::optional<bool> output::Dmx2AboveZero(QStringView s) {
    const QChar* const d = s.data();
    const qsizetype n = s.size();
    bool negative = false;
    qsizetype i = SkipBlanksAndSign(d, n, negative);
    const qsizetype first = i;
    bool nonZero = false;
    while (i < n && IsDigit(d[i].unicode()) && i - first <= kPlainDigits) nonZero |= d[i++] != u'0';
    if (i > first && i - first <= kPlainDigits) {
        while (i < n && IsBlank(d[i].unicode())) ++i;
        if (i == n) return nonZero && !negative;
    }
    const std::optional<double> value = common::WholeNumber(s);
    if (!value) return std::nullopt;
    return *value > 0;
}

namespace {

// Room enough for both lines of a row: every character of a cell becomes at most one byte,
// a number at most this many, and the fixed parts fit in the rest.
constexpr qsizetype kNumberRoom = 32;
constexpr qsizetype kFixedRoom = 64;

qsizetype RoomFor(const ChannelCells& cells) {
    const qsizetype chars = cells[1].size() + cells[2].size() + cells[3].size() + cells[4].size() +
                            cells[5].size() + cells[6].size() + cells[7].size() + cells[8].size() +
                            cells[9].size() + cells[10].size() + cells[11].size() +
                            cells[12].size() + cells[13].size() + cells[14].size();
    return 2 * (chars + 3 * kNumberRoom + kFixedRoom);
}

// The general way: the text of each line through the code page.
void AppendThroughText(const ChannelCells& cells, bool lowLine, QByteArray& out) {
    QStringList texts;
    texts.reserve(kChannelColumns);
    for (const QStringView cell : cells) texts.append(cell.toString());
    out.append(ToFileBytes(*ChannelLineOf(texts, false)));
    out.append("\r\n", 2);
    if (!lowLine) return;
    out.append(ToFileBytes(*ChannelLineOf(texts, true)));
    out.append("\r\n", 2);
}

}  // namespace

char* output::RoomAt(QByteArray& out, qsizetype at, qsizetype size) {
    if (out.size() - at < size) out.resize(std::max(2 * out.size(), at + size));
    return out.data() + at;
}

qsizetype output::WriteChannelRow(const ChannelCells& cells, QByteArray& out, qsizetype at,
                                  RowLayout* layout) {
    const std::optional<bool> aboveZero = Dmx2AboveZero(cells[kDmx2]);
    if (!aboveZero) return -1;
    const bool lowLine = *aboveZero;

    char* const base = RoomAt(out, at, RoomFor(cells));

    // Fields 1 to 12 with one blank between them, as ChannelLineOf puts them.
    Bytes b(base);
    b.token(cells[kKey]);
    b.letter(' ');
    b.token(cells[kWheel]);
    b.letter(' ');
    char* const head = b.end();
    const ChannelKind kind = KindOf(cells[kChannelType]);
    b.letters(TypeLetter(kind, lowLine));
    b.letter(' ');
    b.token(cells[kDmx1]);
    // From here on both lines are the same.
    char* const tail = b.end();
    b.letter(' ');
    b.token(cells[kRatio]);
    b.letter(' ');
    b.token(cells[kCurve]);
    b.token(cells[kInv]);
    b.letter(' ');
    b.token(cells[kAttributeType]);
    b.literal(" 1 ");
    b.label(cells[kLabel]);
    for (const int column : {kLocate, kHighlight, kLowlight}) {
        b.letter(' ');
        b.number(cells[column]);
    }
    b.literal("  ;");
    b.text(cells[kComment]);
    b.literal("\r\n");
    const std::size_t tailSize = static_cast<std::size_t>(b.end() - tail);

    if (lowLine) {
        b.literal("0 0 ");
        b.letters(TypeLetter(kind, false));
        b.letter(' ');
        b.token(cells[kDmx2]);
        b.literal(tail, tailSize);
    }

    if (!b.ascii()) {
        // The general way, written over the attempt.
        QByteArray lines;
        AppendThroughText(cells, lowLine, lines);
        std::memcpy(RoomAt(out, at, lines.size()), lines.constData(),
                    static_cast<std::size_t>(lines.size()));
        if (layout) layout->plain = false;
        return at + lines.size();
    }
    if (layout) {
        *layout = {true, kind, head - base, tail - base,
                   static_cast<qsizetype>(tail - base + tailSize)};
    }
    return at + (b.end() - base);
}

char* output::WriteToken(char* at, QStringView s, char16_t& seen) {
    Bytes b(at);
    b.token(s);
    seen |= b.seen();
    return b.end();
}

bool AppendChannelRowBytes(const ChannelCells& cells, QByteArray& out) {
    const qsizetype end = output::WriteChannelRow(cells, out, out.size(), nullptr);
    if (end < 0) return false;
    out.resize(end);
    return true;
}

#include "common/number.h"

#include <QLocale>
#include <cmath>
#include <limits>

namespace common {
namespace {

bool IsBlank(QChar c) {
    return c == u' ' || c == u'\t';
}
bool IsDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

// Length of the longest beginning of `text` (from `pos`) that forms a decimal number,
// or 0 when none does. Sign, digits, one decimal point, an exponent with its own sign.
qsizetype NumberLength(QStringView text, qsizetype pos) {
    const qsizetype start = pos;
    const qsizetype n = text.size();
    if (pos < n && (text[pos] == u'+' || text[pos] == u'-')) ++pos;
    qsizetype digits = 0;
    while (pos < n && IsDigit(text[pos])) ++pos, ++digits;
    if (pos < n && text[pos] == u'.') {
        ++pos;
        while (pos < n && IsDigit(text[pos])) ++pos, ++digits;
    }
    if (digits == 0) return 0;
    qsizetype end = pos;
    if (pos < n && (text[pos] == u'e' || text[pos] == u'E')) {
        qsizetype e = pos + 1;
        if (e < n && (text[e] == u'+' || text[e] == u'-')) ++e;
        qsizetype expDigits = 0;
        while (e < n && IsDigit(text[e])) ++e, ++expDigits;
        if (expDigits > 0) end = e;
    }
    return end - start;
}

double Parse(QStringView number) {
    // Most cells hold a plain whole number; read those without the general converter.
    if (number.size() <= 15) {
        qsizetype i = 0;
        const bool negative = number[0] == u'-';
        if (negative || number[0] == u'+') ++i;
        long long whole = 0;
        bool plain = i < number.size();
        for (; i < number.size() && plain; ++i) {
            if (!IsDigit(number[i]))
                plain = false;
            else
                whole = whole * 10 + (number[i].unicode() - u'0');
        }
        if (plain) return negative ? -static_cast<double>(whole) : static_cast<double>(whole);
    }
    bool ok = false;
    double v = number.toDouble(&ok);
    if (ok) return v;
    // toDouble refuses "5." and out-of-range exponents; take what it can and saturate.
    QString copy = number.toString();
    if (copy.endsWith(u'.')) copy.chop(1);
    v = copy.toDouble(&ok);
    if (ok) return v;
    const bool negative = number.startsWith(u'-');
    const qsizetype e = number.indexOf(u'e', 0, Qt::CaseInsensitive);
    const bool tiny = e >= 0 && number.mid(e + 1).startsWith(u'-');
    if (tiny) return negative ? -0.0 : 0.0;
    return negative ? -std::numeric_limits<double>::infinity()
                    : std::numeric_limits<double>::infinity();
}

// Up to this many digits a whole number is exact in 64 bits, and converting it to double
// rounds it just as the general converter rounds its decimal text.
constexpr qsizetype kPlainDigits = 18;

// A plain whole number read in one pass: blanks, an optional sign and digits, then the end
// or a character that cannot continue the number. Most cells hold one (or nothing).
struct Plain {
    enum Kind { kNone, kWhole, kOther } kind;  // no number at the start, plain, anything else
    double value;
    qsizetype end;  // behind the last digit
};

Plain ReadPlain(QStringView text) {
    const QChar* const data = text.data();
    const qsizetype n = text.size();
    qsizetype pos = 0;
    while (pos < n && IsBlank(data[pos])) ++pos;
    bool negative = false;
    if (pos < n && (data[pos] == u'+' || data[pos] == u'-')) negative = data[pos++] == u'-';
    const qsizetype first = pos;
    std::uint64_t whole = 0;
    while (pos < n && IsDigit(data[pos]) && pos - first < kPlainDigits)
        whole = whole * 10 + (data[pos++].unicode() - u'0');
    if (pos < n) {
        const QChar next = data[pos];
        if (next == u'.' || next == u'e' || next == u'E' || IsDigit(next))
            return {Plain::kOther, 0, pos};
    }
    if (pos == first) return {Plain::kNone, 0, pos};
    const double v = static_cast<double>(whole);
    return {Plain::kWhole, negative ? -v : v, pos};
}

double GeneralLeadingNumber(QStringView text) {
    qsizetype pos = 0;
    while (pos < text.size() && IsBlank(text[pos])) ++pos;
    const qsizetype len = NumberLength(text, pos);
    if (len == 0) return 0.0;
    return Parse(text.mid(pos, len));
}

}  // namespace

double LeadingNumber(QStringView text) {
    const Plain plain = ReadPlain(text);
    if (plain.kind == Plain::kOther) return GeneralLeadingNumber(text);
    return plain.value;
}

std::optional<double> WholeNumber(QStringView text) {
    const Plain plain = ReadPlain(text);
    if (plain.kind == Plain::kWhole) {
        qsizetype rest = plain.end;
        while (rest < text.size() && IsBlank(text[rest])) ++rest;
        if (rest == text.size()) return plain.value;
    }
    qsizetype pos = 0;
    qsizetype end = text.size();
    while (pos < end && IsBlank(text[pos])) ++pos;
    while (end > pos && IsBlank(text[end - 1])) --end;
    if (pos == end) return std::nullopt;
    if (NumberLength(text, pos) != end - pos) return std::nullopt;
    return Parse(text.mid(pos, end - pos));
}

double RoundHalfEven(double value) {
    if (!std::isfinite(value)) return value;
    double r = std::nearbyint(value);  // the default rounding mode is to nearest, ties to even
    return r == 0.0 ? 0.0 : r;         // no negative zero in what we print
}

std::optional<std::int16_t> ToInt16(double value) {
    const double r = RoundHalfEven(value);
    if (!std::isfinite(r) || r < -32768.0 || r > 32767.0) return std::nullopt;
    return static_cast<std::int16_t>(r);
}

std::optional<std::int16_t> LeadingInt16(QStringView text) {
    return ToInt16(LeadingNumber(text));
}

QString NumberText(double value) {
    if (value == 0.0) return QStringLiteral("0");
    if (std::isfinite(value) && value == std::trunc(value) && std::fabs(value) < 1e15)
        return QString::number(static_cast<long long>(value));
    return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

}  // namespace common

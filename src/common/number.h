#pragma once
// Reading numbers out of cell and field texts. Every cell of the wizard holds text;
// a number is read from that text at the moment it is needed.

#include <QString>
#include <QStringView>
#include <cstdint>
#include <optional>

namespace common {

// The number at the start of the text: leading blanks skipped, then an optional sign,
// digits, a decimal point and an exponent, as far as they form a number. The first
// character that cannot continue the number ends it. No number at the start gives 0.
double LeadingNumber(QStringView text);

// The whole text, blanks at both ends allowed, read as one number; nothing when any other
// character stands in it or when it is empty.
std::optional<double> WholeNumber(QStringView text);

// Rounds to the nearest integer, a tie going to the even neighbour (2.5 -> 2, 3.5 -> 4).
double RoundHalfEven(double value);

// The value rounded half to even, if it fits into a 16-bit signed integer.
std::optional<std::int16_t> ToInt16(double value);

// LeadingNumber, rounded half to even, as a 16-bit value; nothing when it does not fit.
std::optional<std::int16_t> LeadingInt16(QStringView text);

// Plain decimal text of a number: no leading zeros, "-" for a negative value, no fraction
// for a whole number, the shortest exact form otherwise.
QString NumberText(double value);

}  // namespace common

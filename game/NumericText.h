#pragma once

#include <QStringView>

#include <cstdint>

// The value of the decimal number at the start of a text: leading blanks skipped, an optional
// sign, digits with at most one full stop (whatever the locale), an optional exponent. Reading
// stops at the first character that cannot continue the number; no number at all reads as 0.
// A number beyond the range of a double reads as an infinity of its sign.
double NumericValue(QStringView text);

// The nearest whole number, halves to the even neighbour (7.5 and 8.5 both give 8). Values
// beyond the 32-bit range saturate at its ends; NaN gives 0.
std::int32_t WholeValue(double value);

#pragma once

#include <QString>
#include <cstdint>

namespace Orvane {

// Booleans of the shared state are 16-bit: true is -1, false is 0.
using Boolean16 = int16_t;
constexpr Boolean16 True16 = -1;
constexpr Boolean16 False16 = 0;
inline Boolean16 To_Boolean16(bool value) { return value ? True16 : False16; }

// Leading blanks skipped, then the longest numeric prefix (sign, digits, one
// decimal point, exponent); 0 when there is none. "12abc" is 12, "abc" is 0.
// Reader_Error 6 (Overflow) when the prefix is too large for a double.
double Leading_Number(const QString& text);

// Rounds half to even into a signed 16-bit integer: 12.5 -> 12, 13.5 -> 14.
// Throws Reader_Error 6 (Overflow) outside -32768..32767 after rounding.
int16_t Round_To_Int16(double value);

// Half to even into a signed 32-bit integer; Reader_Error 6 outside the range.
int32_t Round_To_Int32(double value);

// The whole text (blanks around it allowed) as a number; anything else is
// Reader_Error 13 (Type mismatch); 6 (Overflow) when too large for a double.
double Strict_Double(const QString& text);

// "0" or any number equal to zero is false, other numbers true, the words
// True and False (any case) are accepted, anything else is Reader_Error 13.
bool Text_To_Boolean(const QString& text);

// A number the way the line-printing statement writes it: shortest decimal
// form, one blank (or "-") before it and one blank after it: 12 -> " 12 ",
// 0.5 -> " .5 ", 1e20 -> " 1E+20 ".
QString Printed_Number(double value);

} // namespace Orvane

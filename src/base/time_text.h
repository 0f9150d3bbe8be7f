#pragma once

#include <QString>
#include <optional>

namespace Orvane {

constexpr int Seconds_Per_Day = 24 * 60 * 60;

// Whole seconds as a time of day "hh:mm:ss", two digits each, whatever the
// locale. Wraps after 23:59:59; a negative count wraps back from midnight.
QString Time_Text(int seconds);

// A position in seconds as the time text: rounded half to even to a 16-bit
// count (Reader_Error 6 past 32767 s), then as a time of day.
QString Position_Text(double seconds);

// Seconds since midnight of a time of day written "h:m:s" (one or two digits
// each, hours 0-23, minutes and seconds 0-59); nothing when it is not a valid
// time of day.
std::optional<int> Parse_Time_Text(const QString& text);

} // namespace Orvane

#pragma once

#include "config/settings.h"

#include <QColor>
#include <cstdint>

namespace Orvane {

// The subtitle colour as a number, converted at the moment of use: a number
// chosen in the configuration window as it is, a text read from orvan.ini by
// the strict number rule, rounded half to even. Reader_Error 13 (Type
// mismatch) for a text that is no number, 6 (Overflow) past 32 bits.
int32_t Subtitle_Color_Number(const Subtitle_Color_Value& color);

// A Windows RGB value, 0x00BBGGRR: 255 is red, 16711680 is blue. The top
// byte is ignored.
QColor Windows_Rgb_Color(int32_t rgb);

// The same colour back as a Windows RGB value.
int32_t Windows_Rgb_Value(const QColor& color);

} // namespace Orvane

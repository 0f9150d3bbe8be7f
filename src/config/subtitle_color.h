#pragma once

#include "config/settings.h"
#include "ui/windows_rgb.h"

#include <QColor>
#include <QFont>
#include <QString>
#include <cstdint>

namespace Orvane {

// The subtitle colour as a number, converted at the moment of use: a number
// chosen in the configuration window as it is, a text read from orvan.ini by
// the strict number rule, rounded half to even. Reader_Error 13 (Type
// mismatch) for a text that is no number, 6 (Overflow) past 32 bits.
int32_t Subtitle_Color_Number(const Subtitle_Color_Value& color);

// The subtitle font: a face at a size in points, bold and italic as given.
// A size the font cannot take (0 or less) is the smallest there is.
QFont Subtitle_Font(const QString& name, int size, bool bold, bool italic);

// The colour of the subtitles' number (see ui/windows_rgb.h).
inline QColor Subtitle_Qt_Color(int32_t number) { return Windows_Rgb_Color(uint32_t(number)); }

} // namespace Orvane

#pragma once

#include <QColor>
#include <cstdint>

namespace Orvane {

// Colours travel as Windows RGB values, 0x00BBGGRR: 255 is red, 16711680 is
// blue. The top byte is ignored.
inline QColor Windows_Rgb_Color(uint32_t rgb)
{
    return QColor(int(rgb & 0xffu), int((rgb >> 8) & 0xffu), int((rgb >> 16) & 0xffu));
}

inline uint32_t Windows_Rgb_Value(const QColor& color)
{
    return uint32_t(color.red()) | uint32_t(color.green()) << 8 | uint32_t(color.blue()) << 16;
}

} // namespace Orvane

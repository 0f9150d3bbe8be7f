#include "config/subtitle_color.h"

#include "base/numbers.h"

namespace Orvane {

int32_t Subtitle_Color_Number(const Subtitle_Color_Value& color)
{
    if (const auto* number = std::get_if<int32_t>(&color))
        return *number;
    return Round_To_Int32(Strict_Double(std::get<QString>(color)));
}

QColor Windows_Rgb_Color(int32_t rgb)
{
    const auto bits = uint32_t(rgb);
    return QColor(int(bits & 0xffu), int((bits >> 8) & 0xffu), int((bits >> 16) & 0xffu));
}

int32_t Windows_Rgb_Value(const QColor& color)
{
    return int32_t(uint32_t(color.red()) | uint32_t(color.green()) << 8 | uint32_t(color.blue()) << 16);
}

} // namespace Orvane

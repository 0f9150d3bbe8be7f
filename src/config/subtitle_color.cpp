#include "config/subtitle_color.h"

#include "base/numbers.h"

namespace Orvane {

int32_t Subtitle_Color_Number(const Subtitle_Color_Value& color)
{
    if (const auto* number = std::get_if<int32_t>(&color))
        return *number;
    return Round_To_Int32(Strict_Double(std::get<QString>(color)));
}

} // namespace Orvane

#include "config/subtitle_color.h"

#include "base/numbers.h"

#include <algorithm>

namespace Orvane {

int32_t Subtitle_Color_Number(const Subtitle_Color_Value& color)
{
    if (const auto* number = std::get_if<int32_t>(&color))
        return *number;
    return Round_To_Int32(Strict_Double(std::get<QString>(color)));
}

QFont Subtitle_Font(const QString& name, int size, bool bold, bool italic)
{
    QFont font(name);
    font.setPointSize(std::max(size, 1));
    font.setBold(bold);
    font.setItalic(italic);
    return font;
}

} // namespace Orvane

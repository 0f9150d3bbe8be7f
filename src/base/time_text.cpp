#include "base/time_text.h"

#include "base/numbers.h"

#include <QStringList>

namespace Orvane {

QString Time_Text(int seconds)
{
    int of_day = seconds % Seconds_Per_Day;
    if (of_day < 0)
        of_day += Seconds_Per_Day;
    const int hours = of_day / 3600;
    const int minutes = (of_day / 60) % 60;
    const int rest = of_day % 60;
    return QStringLiteral("%1:%2:%3")
        .arg(hours, 2, 10, QLatin1Char('0'))
        .arg(minutes, 2, 10, QLatin1Char('0'))
        .arg(rest, 2, 10, QLatin1Char('0'));
}

QString Position_Text(double seconds)
{
    return Time_Text(Round_To_Int16(seconds));
}

std::optional<int> Parse_Time_Text(const QString& text)
{
    const QStringList parts = text.trimmed().split(u':');
    if (parts.size() != 3)
        return std::nullopt;
    int values[3];
    for (int i = 0; i < 3; ++i) {
        const QString& part = parts[i];
        if (part.isEmpty() || part.size() > 2)
            return std::nullopt;
        for (QChar c : part)
            if (!c.isDigit() || c.unicode() >= 128)
                return std::nullopt;
        values[i] = part.toInt();
    }
    if (values[0] > 23 || values[1] > 59 || values[2] > 59)
        return std::nullopt;
    return values[0] * 3600 + values[1] * 60 + values[2];
}

} // namespace Orvane

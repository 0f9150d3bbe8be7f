#include "subtitles/subtitle_timing.h"

#include "base/time_text.h"

#include <optional>

namespace Orvane {

namespace {

const Subtitle_Line* Entry(const Subtitle_Table& table, int n)
{
    if (n < 1 || size_t(n) >= table.Subtitle_Lines.size())
        return nullptr;
    return &table.Subtitle_Lines[size_t(n)];
}

bool Is_Closing_Record(const Subtitle_Line& entry)
{
    return entry.time == QLatin1String("23:59:59");
}

} // namespace

QString Subtitle_Start_Time(const Subtitle_Table& table, int n, Subtitle_Delay_Choice delay)
{
    const Subtitle_Line* entry = Entry(table, n);
    if (!entry)
        return {};
    if (!delay.in_force)
        return entry->time;
    const std::optional<int> start = Parse_Time_Text(entry->time);
    // The reader only stores times of day; a table filled by other means keeps
    // its text as it stands.
    return start ? Time_Text(*start + delay.seconds) : entry->time;
}

int Find_Subtitle(const Subtitle_Table& table, const QString& time_text, Subtitle_Delay_Choice delay)
{
    const std::optional<int> wanted = Parse_Time_Text(time_text);
    if (!wanted)
        return 0;
    for (int i = 1; const Subtitle_Line* entry = Entry(table, i); ++i) {
        if (Is_Closing_Record(*entry))
            return 0;
        const std::optional<int> start = Parse_Time_Text(Subtitle_Start_Time(table, i, delay));
        if (start && *start >= *wanted)
            return i;
    }
    return 0;
}

QString Subtitle_Line1(const Subtitle_Table& table, int n)
{
    const Subtitle_Line* entry = Entry(table, n);
    return entry ? entry->line1 : QString();
}

QString Subtitle_Line2(const Subtitle_Table& table, int n)
{
    const Subtitle_Line* entry = Entry(table, n);
    return entry ? entry->line2 : QString();
}

} // namespace Orvane

#pragma once

#include "subtitles/subtitle_table.h"

#include <QString>

namespace Orvane {

// The delay of the current track's subtitles: the track's Subtitle_Delay
// (seconds) counts only while its Subtitle_Flag puts it in force.
struct Subtitle_Delay_Choice {
    bool in_force = false;
    int seconds = 0;
};

// Entry n's start time "hh:mm:ss", moved on by the delay when it is in force
// (as a time of day, so it wraps after 23:59:59). Empty when there is no entry n.
QString Subtitle_Start_Time(const Subtitle_Table& table, int n, Subtitle_Delay_Choice delay);

// The first entry, from 1, whose start time is at or after time_text (both
// compared as times of day); 0 when the closing record "23:59:59" comes
// first, when the table ends without one, or when time_text is no time.
int Find_Subtitle(const Subtitle_Table& table, const QString& time_text, Subtitle_Delay_Choice delay);

// Entry n's display lines; empty when there is no entry n.
QString Subtitle_Line1(const Subtitle_Table& table, int n);
QString Subtitle_Line2(const Subtitle_Table& table, int n);

} // namespace Orvane

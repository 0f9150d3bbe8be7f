#pragma once

#include <QString>
#include <cstdint>
#include <vector>

namespace Orvane {

// One entry of a subtitle file, laid out for a screen-wide window.
struct Subtitle_Line {
    QString time;        // start time hh:mm:ss
    QString line1;
    QString line2;       // empty for a one-line entry
    int16_t left1 = 0;   // left edge of line1 in pixels (may be negative)
    int16_t left2 = 0;
    int16_t size = 0;    // font size in points, 0 = the settings' size
};

// The subtitle file read last: its header values and its entries. Entries
// are numbered from 1 (Lines[0] is unused); the last one is the closing
// record "23:59:59" "Fin" "Fin".
struct Subtitle_Table {
    QString Subtitle_Title;
    QString Subtitle_Author;
    QString Subtitle_Source;
    QString Subtitle_Program;
    QString Subtitle_File_Path;
    int Subtitle_Delay = 0;  // seconds, 0..59 as read (a time of day 0 h 0 min s s)
    QString Subtitle_CD_Track;
    std::vector<Subtitle_Line> Subtitle_Lines = std::vector<Subtitle_Line>(1);
};

} // namespace Orvane

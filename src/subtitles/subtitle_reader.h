#pragma once

#include "subtitles/subtitle_table.h"

#include <QString>

namespace Orvane {

class Text_Table;
struct Settings;

// Reads a ".sub" file (bracketed header tags, "[BEGIN]", time lines and text
// lines, "[END]") into table and lays out every line for a window as wide as
// the screen: screen_width is the available width of the primary screen in
// pixels. The table starts empty (header values and entries); on failure it
// keeps what was read so far.
//
// A failure shows one critical message box and returns false. The box reads
// shown_name (the file's name as the playlist window shows it; the file name
// of path when empty), a line feed, text 1310, a line feed, the detail:
//   - a header tag followed by a title that begins with "[": the tag, text 1301;
//   - "[DELAY]" outside 0..59: "[DELAY]", text 1301, a line feed, text 1302;
//   - a time earlier than the one before: the time, text 1303, a line feed, text 1304;
//   - the same time as the one before: the time, text 1303, a line feed, text 1305;
//   - a time line that holds no time of day: the whole line, a line feed,
//     "13, Type mismatch";
//   - a file that cannot be read, or that ends before "[BEGIN]", inside the
//     header or before "[END]": the error's number and description, such as
//     "62, Input past end of file".
bool Load_Subtitles(const QString& path, const Settings& settings, const Text_Table& texts,
                    int screen_width, Subtitle_Table& table, const QString& shown_name = {});

} // namespace Orvane

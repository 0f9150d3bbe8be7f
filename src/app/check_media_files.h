#pragma once

#include <QString>

class QTextStream;

namespace Orvane {

// The subtitle and playlist parts of `orvane --check FILE`. Each reads FILE
// with the program's own reader, the settings and texts coming from the
// orvan.ini and Lang.ini of program_folder (by default those the player
// would read, program_files.h), shows no window, prints what the reader understood and returns 0
// when the file was accepted, 1 when it was refused. A refusal prints
// "ERROR:" followed by the text of the message box the program would have
// shown, line feeds printed " / " ("ERROR:" alone when it would have shown none).
//
// ".sub": "OK", then "title: ", "author: ", "source: ", "program: ",
// "filepath: ", "delay: " (hh:mm:ss), "cd track: " and one line per entry,
// the closing record included: "N hh:mm:ss line1|line2".
int Check_Subtitle_File(const QString& path, QTextStream& out, const QString& program_folder = {});
int Check_Subtitle_File(const QString& path);

// ".orx", ".m3u": "OK", then one line per entry handed to the playlist, in
// order: "N<TAB>title<TAB>media path<TAB>audio paths joined by ;<TAB>subtitle
// path<TAB>disc change 0/1", N the entry number passed; no media is analysed.
// Between them, "BEEP line L" where a key line is wrong and "MESSAGE: text"
// where a box is shown while loading goes on. A file the loader stops in
// prints "ERROR: ..." first, then the entries read before. A file whose
// first line is neither "#EXTORX" nor "#EXTM3U" prints "ERROR:" alone.
int Check_Playlist_File(const QString& path, QTextStream& out, const QString& program_folder = {});
int Check_Playlist_File(const QString& path);

} // namespace Orvane

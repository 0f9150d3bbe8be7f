#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace Orvane {

class Playback_Session;

// What "orvane [FILE] [/SWITCH]" asks for.
struct Command_Line_Request {
    QString File;             // absolute path
    bool Is_Playlist = false;  // ".orx" or ".m3u", any letter case
    bool Play_Now = false;     // a further argument begins with "/" or is "--play"
};

// The request of the arguments (program name excluded); nothing when there
// are none. A FILE without "/" is taken in the program's folder, or in the
// current directory when it is only there; a relative path with "/" is
// taken from the current directory.
std::optional<Command_Line_Request> Parse_Command_Line(const QStringList& arguments,
                                                       const QString& program_folder,
                                                       const QString& current_directory);

// How the playlist module opens the file. Each calls done once the file's
// tracks are in (they may be analysed while the event loop runs).
struct Command_Line_Openers {
    std::function<void(const QString& path, std::function<void()> done)> Load_Playlist;
    // done gets the number of the track added, 0 when it was not added.
    std::function<void(const QString& path, std::function<void(int track)> done)> Add_Media;
};

// A playlist is loaded, a media file added; with the switch, the track
// added (the playlist's first) is played once it is there. The session
// must outlive the openers' work.
void Open_Command_Line_File(const Command_Line_Request& request, const Command_Line_Openers& openers,
                            Playback_Session& session);

} // namespace Orvane

#pragma once

#include "playlist/track.h"
#include "ui/message_box.h"

#include <QString>
#include <QStringList>
#include <cstdint>
#include <vector>

namespace Orvane {

class Text_Table;
struct Settings;

// What loading a playlist file hands each entry to: the playlist model.
class Playlist_Load_Target {
public:
    virtual ~Playlist_Load_Target() = default;
    // audio count = audio_paths.size()
    virtual void Add_Track(const QString& media_path, const QStringList& audio_paths, bool disc_change,
                           const QString& title, int entry, int16_t mode) = 0;
    // With the track just added.
    virtual void Associate_Subtitle(const QString& subtitle_path) = 0;
    // A key line of the own format is not the one expected (line_number from 1).
    virtual void Beep([[maybe_unused]] int line_number) { Orvane::Beep(); }
    // A critical box of the loader (a short subtitle path, a file that could not be read).
    virtual void Show_Error(const QString& text) { Message_Box(text, Box_Style::Critical_Ok); }
};

// Writes tracks 1..list_count of the playlist array (element 0 holds no
// track) in the own format: "#EXTORX", then per track "#TRACK", "Titre=",
// "Media=", "Audio=" (associated audio paths joined by ";"), "SousT=". The
// file is replaced whole or not at all; a failure shows text 1209, the file
// name and the system's reason, one a line, in a critical box and returns
// false.
bool Save_Playlist(const QString& file_name, const std::vector<Track_Record>& tracks, int list_count,
                   const Text_Table& texts);

enum class Playlist_Load_Result {
    Loaded,          // read to its end (entries the model refused are its own affair)
    Not_A_Playlist,  // the first line is neither "#EXTORX" nor "#EXTM3U": nothing added, nothing said
    Failed,          // the file could not be read or ended inside an entry: one box said so;
                     // the entries read before stay added
};

// Reads an own-format or extended M3U file and hands each entry to target,
// in order, with mode 1 and the running entry number. "$$CD1$$"/"$$CD2$$"
// are resolved with the CD drives of settings; "\" in paths becomes "/";
// relative M3U paths are joined to the process's current directory.
Playlist_Load_Result Load_Playlist(const QString& file_name, const Settings& settings,
                                   const Text_Table& texts, Playlist_Load_Target& target);

} // namespace Orvane

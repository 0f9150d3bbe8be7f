#pragma once

namespace Orvane {

class Display_Layout;
class Media_Graph;
class Player_View;
class Playlist_Window_Link;
class Subtitle_Display;
class Subtitle_Source;
class Subtitle_Window_Control;
class Text_Table;
class Track_Source;
struct Playback_State;
struct Settings;
struct Associated_Audio_Entry;
struct Track_Record;

// Everything the player's logic works on, owned elsewhere (by the
// application, or by a test) and living longer than the player.
struct Player_Context {
    Playback_State& state;
    const Settings& settings;
    const Text_Table& texts;
    Media_Graph& graph;
    Player_View& view;
    const Track_Source& tracks;
    Playlist_Window_Link& playlist_window;
    Display_Layout& display;
    Subtitle_Source& subtitles;
    Subtitle_Display& subtitle_display;
    Subtitle_Window_Control& subtitle_window;
};

// The current track's record, or nullptr when Current_Track names none.
const Track_Record* Current_Track_Record(const Player_Context& context);

// Associated audio entry j (from 1) of a track, or nullptr when it has none
// of that number (a choice kept from a track with more files).
const Associated_Audio_Entry* Associated_Entry(const Track_Record& track, int j);

} // namespace Orvane

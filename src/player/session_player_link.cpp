// Playback_Session as the player the playlist operations call on.
#include "player/playback_session.h"

#include "media/display_layout.h"
#include "media/media_graph.h"
#include "playlist/playback_state.h"
#include "playlist/track.h"
#include "subtitles/subtitle_window_control.h"

namespace Orvane {

void Playback_Session::Reset_Player()
{
    timer_.stop();
    context_.state.Is_Playing = false;
    context_.graph.Close_Graph();
    context_.display.Audio_Layout();
    time_display_.Refresh_Display();
    context_.subtitle_window.Unload();
    context_.state.Subtitles_Shown = false;
}

void Playback_Session::Open_First_Track(const QString& path)
{
    // The first track of an empty playlist is opened, not played.
    if (!Open_Track_Media(path))
        return;
    context_.graph.Set_Current_Position(0.0);
    time_display_.Update_Cursor();
}

void Playback_Session::Associated_Audio_Added(int track, int count)
{
    if (track != context_.state.Current_Track)
        return;
    audio_menus_.Build_Audio_Menus();
    // The first associated file of the current track is heard at once: the
    // track is opened again with the new choice and played.
    if (count == 1) {
        if (const Track_Record* record = Current_Track_Record(context_)) {
            if (Open_Track_Media(record->Path))
                Play();
        }
    }
    time_display_.Refresh_Display();
}

void Playback_Session::Clear_Audio_Menus(int track)
{
    audio_menus_.Clear_Audio_Menus(track);
}

void Playback_Session::Refresh_Display()
{
    time_display_.Refresh_Display();
}

void Playback_Session::Associated_Audio_Removed(int track, bool was_heard)
{
    if (track != context_.state.Current_Track)
        return;
    audio_menus_.Build_Audio_Menus();
    // The file heard is still rendered into the graph: only opening the
    // track again drops it, and playback goes on if it was going.
    if (was_heard) {
        if (const Track_Record* record = Current_Track_Record(context_)) {
            const bool was_playing = context_.state.Is_Playing;
            if (Open_Track_Media(record->Path) && was_playing)
                Play();
        }
    }
    time_display_.Refresh_Display();
}

} // namespace Orvane

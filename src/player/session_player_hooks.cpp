#include "player/session_player_hooks.h"

#include "media/display_layout.h"
#include "media/media_graph.h"
#include "player/playback_session.h"
#include "subtitles/subtitle_window_control.h"
#include "playlist/playback_state.h"
#include "playlist/track.h"

namespace Orvane {

void Session_Player_Hooks::Reset_Player()
{
    Player_Context& context = session_.Context();
    session_.Timer().stop();
    context.state.Is_Playing = false;
    context.graph.Close_Graph();
    context.display.Audio_Layout();
    session_.Display().Refresh_Display();
    context.subtitle_window.Unload();
    context.state.Subtitles_Shown = false;
}

void Session_Player_Hooks::Open_First_Track(const QString& path)
{
    // The first track of an empty playlist is opened, not played.
    if (!session_.Open_Track_Media(path))
        return;
    session_.Context().graph.Set_Current_Position(0.0);
    session_.Display().Update_Cursor();
}

void Session_Player_Hooks::Associated_Audio_Added(int track, int count)
{
    Player_Context& context = session_.Context();
    if (track != context.state.Current_Track)
        return;
    session_.Menus().Build_Audio_Menus();
    // The first associated file of the current track is heard at once: the
    // track is opened again with the new choice and played.
    if (count == 1) {
        if (const Track_Record* record = Current_Track_Record(context)) {
            if (session_.Open_Track_Media(record->Path))
                session_.Play();
        }
    }
    session_.Display().Refresh_Display();
}

void Session_Player_Hooks::Clear_Audio_Menus(int track)
{
    session_.Menus().Clear_Audio_Menus(track);
}

void Session_Player_Hooks::Refresh_Display()
{
    session_.Display().Refresh_Display();
}

void Session_Player_Hooks::Associated_Audio_Removed(int track, bool was_heard)
{
    Player_Context& context = session_.Context();
    if (track != context.state.Current_Track)
        return;
    session_.Menus().Build_Audio_Menus();
    // The file heard is still rendered into the graph: only opening the
    // track again drops it, and playback goes on if it was going.
    if (was_heard) {
        if (const Track_Record* record = Current_Track_Record(context)) {
            const bool was_playing = context.state.Is_Playing;
            if (session_.Open_Track_Media(record->Path) && was_playing)
                session_.Play();
        }
    }
    session_.Display().Refresh_Display();
}

} // namespace Orvane

#include "player/player_controls.h"

#include "media/display_layout.h"
#include "media/media_graph.h"
#include "player/playback_session.h"
#include "player/player_layout.h"
#include "player/player_view.h"
#include "subtitles/subtitle_window_control.h"
#include "player/track_source.h"
#include "playlist/playback_state.h"
#include "playlist/playlist_window_link.h"
#include "playlist/track.h"

#include <algorithm>

namespace Orvane {

namespace {
using Player_Layout::Button_Tops;

constexpr int Lowest_Volume_Level = 0;
constexpr int Highest_Volume_Level = 6;

void Call(const std::function<void()>& command)
{
    if (command)
        command();
}
} // namespace

bool Player_Controls::Needs_Media(int index) const
{
    return index != Button_Open && index != Button_Configuration && index != Button_Playlist;
}

void Player_Controls::Button_Mouse_Down(int index)
{
    if (index < 0 || index >= int(Button_Tops.size()))
        return;
    if (Needs_Media(index) && !context_.graph.Is_Open())
        return;
    const Track_Record* track = Current_Track_Record(context_);
    if (index == Button_Audio && (!track || !track->Has_Video || track->Audio_Streams < 2))
        return;
    // The Next button's test, on the Previous button: it does not sink while
    // the last track is current, though its click still goes back. Kept so.
    if (index == Button_Previous && context_.state.Current_Track == context_.tracks.Track_Count())
        return;
    context_.view.Set_Button_Top(index, Button_Tops[size_t(index)] + 1);
}

void Player_Controls::Button_Click(int index)
{
    if (index < 0 || index >= int(Button_Tops.size()))
        return;
    context_.view.Set_Button_Top(index, Button_Tops[size_t(index)]);
    if (Needs_Media(index) && !context_.graph.Is_Open())
        return;
    Playback_State& state = context_.state;
    switch (index) {
    case Button_Open:
        context_.playlist_window.Click_Add_Video();
        state.Full_Screen = false;  // the layout itself is left as it is
        break;
    case Button_Play:
        session_.Play();
        context_.playlist_window.Select_Playlist_Entry(state.Current_Track - 1);
        break;
    case Button_Stop:
        session_.Stop();
        break;
    case Button_Pause:
        session_.Pause();
        break;
    case Button_Full_Screen:
        Toggle_Full_Screen();
        break;
    case Button_Subtitles:
        Toggle_Subtitles();
        break;
    case Button_Configuration:
        Call(commands_.Show_Configuration);
        break;
    case Button_Playlist:
        context_.playlist_window.Toggle_Visible();
        break;
    case Button_Volume_Up:
        Volume_Button(0);
        break;
    case Button_Volume_Down:
        Volume_Button(1);
        break;
    case Button_Next:
        session_.Next();
        break;
    case Button_Audio:
        Popup_Audio();
        break;
    case Button_Previous:
        session_.Previous();
        break;
    default:
        break;
    }
}

void Player_Controls::Toggle_Full_Screen()
{
    const Track_Record* track = Current_Track_Record(context_);
    if (!track || !track->Has_Video)
        return;
    if (context_.state.Full_Screen) {
        context_.display.Leave_Full_Screen();
        context_.graph.Show_Cursor();
        context_.state.Full_Screen = false;
    } else {
        context_.display.Enter_Full_Screen();
        context_.state.Full_Screen = true;
    }
}

void Player_Controls::Toggle_Subtitles()
{
    const Track_Record* track = Current_Track_Record(context_);
    if (!track || track->Subtitle_Path.isEmpty())
        return;
    Playback_State& state = context_.state;
    if (!context_.subtitle_window.Is_Shown()) {
        // A freshly loaded subtitle window starts searching from the time shown.
        state.Next_Subtitle_Time = QStringLiteral("Aucun");
        state.Next_Subtitle_Index = 1;
        context_.subtitle_window.Show();
        state.Subtitles_Shown = true;
    } else {
        context_.subtitle_window.Unload();
        state.Subtitles_Shown = false;
    }
    session_.Display().Refresh_Display();
}

void Player_Controls::Popup_Audio()
{
    const Track_Record* track = Current_Track_Record(context_);
    if (track && track->Has_Video && track->Audio_Streams + track->Associated_Count >= 2)
        context_.view.Popup_Audio_Menu();
}

void Player_Controls::Volume_Button(int direction)
{
    const Track_Record* track = Current_Track_Record(context_);
    if (!track || (track->Associated_Count == 0 && !track->Has_Audio))
        return;
    Change_Volume(direction);
}

void Player_Controls::Step_Volume(int direction)
{
    if (!context_.graph.Is_Open() || (direction != 0 && direction != 1))
        return;
    Change_Volume(direction);
}

void Player_Controls::Change_Volume(int direction)
{
    int& level = context_.state.Volume_Level;
    if (direction == 0 && level < Highest_Volume_Level)
        ++level;
    else if (direction == 1 && level > Lowest_Volume_Level)
        --level;
    context_.view.Show_Volume_Level(level);
    context_.graph.Set_Volume(Volume_Hundredths(level));
}

void Player_Controls::Apply_Start_Volume(int volume_setting)
{
    // The gauge has seven pictures; a hand-edited setting outside them is
    // shown at the nearest end.
    context_.state.Volume_Level = std::clamp(volume_setting, Lowest_Volume_Level, Highest_Volume_Level);
    context_.view.Show_Volume_Level(context_.state.Volume_Level);
}

void Player_Controls::Gestion_KeyPress(int key_ascii)
{
    Media_Graph& graph = context_.graph;
    switch (key_ascii) {
    case ' ':
        // Space and "B" act on the graph directly; without media there is
        // nothing for them to act on.
        if (!graph.Is_Open())
            return;
        if (context_.state.Is_Playing)
            session_.Pause();
        else
            session_.Play();
        return;
    case 'B':
        if (graph.Is_Open())
            graph.Set_Current_Position(graph.Current_Position() + 2.0);
        return;
    case '0': Button_Click(Button_Open); return;
    case '1': Button_Click(Button_Stop); return;
    case '2': Button_Click(Button_Volume_Down); return;
    case '3': Button_Click(Button_Pause); return;
    case '4': Button_Click(Button_Previous); return;
    case '5': Button_Click(Button_Play); return;
    case '6': Button_Click(Button_Next); return;
    case '8': Button_Click(Button_Volume_Up); return;
    case 'f': Button_Click(Button_Full_Screen); return;
    default:
        context_.view.Bring_To_Front();
        if (graph.Is_Open())
            graph.Show_Cursor();
        return;
    }
}

void Player_Controls::Quit()
{
    Call(commands_.Write_Config);
    context_.graph.Close_Graph();
    Call(commands_.Quit_Application);
}

} // namespace Orvane

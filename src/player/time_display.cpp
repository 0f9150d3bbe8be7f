#include "player/time_display.h"

#include "base/reader_error.h"
#include "base/time_text.h"
#include "language/text_table.h"
#include "media/media_graph.h"
#include "player/player_view.h"
#include "playlist/playback_state.h"
#include "playlist/track.h"
#include "subtitles/subtitle_display.h"

#include <algorithm>
#include <cmath>

namespace Orvane {

namespace {
constexpr int16_t Text_Elapsed = 101;
constexpr int16_t Text_Remaining = 102;
constexpr int16_t Text_No_Track = 1101;
constexpr int16_t Text_Audio_Prefix = 1102;
} // namespace

void Time_Display::Update_Cursor()
{
    const double duration = context_.graph.Duration();
    // A graph that has not told its duration yet (or an empty one) keeps the
    // cursor at the start instead of dividing by zero.
    if (!(duration > 0.0)) {
        context_.view.Set_Cursor_Left(0);
        return;
    }
    const double left = context_.graph.Current_Position() / duration * Progress_Track_Pixels;
    context_.view.Set_Cursor_Left(int(std::lround(left)));
}

void Time_Display::Seek_To_X(int x_twips)
{
    const int width = context_.view.Progress_Track_Width();
    if (width <= 0)
        return;
    const double pixels = double(x_twips) / Twips_Per_Pixel;
    context_.graph.Set_Current_Position(pixels / width * context_.graph.Duration());
}

void Time_Display::Progress_Mouse_Down(int x_twips)
{
    if (!context_.graph.Is_Open())
        return;
    seeking_ = true;
    context_.view.Set_Cursor_Left(x_twips / Twips_Per_Pixel);
    Seek_To_X(x_twips);
    // The drag that may follow is covered by this one reset.
    Restart_Subtitle_Search();
}

bool Time_Display::Seek_To_Seconds(double seconds)
{
    if (!context_.graph.Is_Open())
        return false;
    const double duration = context_.graph.Duration();
    context_.graph.Set_Current_Position(std::clamp(seconds, 0.0, std::max(duration, 0.0)));
    Update_Cursor();
    Restart_Subtitle_Search();
    return true;
}

void Time_Display::Restart_Subtitle_Search()
{
    // The line shown belongs to the old position: clear it and let the next
    // tick search the subtitles from the new one.
    if (context_.state.Subtitles_Shown) {
        context_.subtitle_display.Clear();
        context_.state.Next_Subtitle_Time = QStringLiteral("Aucun");
    }
}

void Time_Display::Progress_Mouse_Move(int x_twips)
{
    if (!seeking_ || !context_.graph.Is_Open())
        return;
    // Outside the track the cursor stays where it last was inside.
    if (x_twips < 0 || x_twips > context_.view.Progress_Track_Width() * Twips_Per_Pixel)
        return;
    context_.view.Set_Cursor_Left(x_twips / Twips_Per_Pixel);
    Seek_To_X(x_twips);
}

void Time_Display::Progress_Mouse_Up()
{
    seeking_ = false;
}

void Time_Display::Toggle_Time_Mode()
{
    Playback_State& state = context_.state;
    state.Time_Mode = state.Time_Mode != 1 ? 1 : 2;
    Show_Time_Mode_Caption();
}

void Time_Display::Show_Time_Mode_Caption()
{
    const bool elapsed = context_.state.Time_Mode == 1;
    context_.view.Set_Time_Mode_Caption(context_.texts.Get_Text(elapsed ? Text_Elapsed : Text_Remaining));
}

std::optional<QString> Time_Display::Time_For_Position(double position) const
{
    // Past the graph's duration (or while a graph does not know it yet)
    // nothing remains: the time of a negative count would read "23:59:59".
    const double shown = context_.state.Time_Mode == 1 ? position
                                                       : std::max(0.0, context_.graph.Duration() - position);
    try {
        return Position_Text(shown);
    } catch (const Reader_Error&) {
        return std::nullopt;
    }
}

void Time_Display::Refresh_Display()
{
    const Track_Record* track = Current_Track_Record(context_);
    Player_View& view = context_.view;
    view.Set_Track_Number_Text(track ? QString::number(context_.state.Current_Track) : QString());
    view.Set_Title_Text(track ? track->Title : context_.texts.Get_Text(Text_No_Track));
    Refresh_Subtitle_Status(track);
    Refresh_Audio_Status(track);
}

void Time_Display::Refresh_Subtitle_Status(const Track_Record* track)
{
    Player_View& view = context_.view;
    if (track && context_.state.Subtitles_Loaded) {
        const bool off_lamp = !context_.state.Subtitles_Shown;
        view.Set_Subtitle_Lamp_Visible(0, off_lamp);
        view.Set_Subtitle_Lamp_Visible(1, !off_lamp);
        view.Set_Subtitle_Text(track->Subtitle_Name);
    } else {
        view.Set_Subtitle_Lamp_Visible(0, false);
        view.Set_Subtitle_Lamp_Visible(1, false);
        view.Set_Subtitle_Text(QString());
    }
}

void Time_Display::Refresh_Audio_Status(const Track_Record* track)
{
    Player_View& view = context_.view;
    if (!track || !track->Has_Video || !track->Offers_Audio_Choice()) {
        view.Set_Audio_Lamp_Visible(false);
        view.Set_Audio_Text(QString());
        return;
    }
    view.Set_Audio_Lamp_Visible(true);
    const Audio_Choice choice = context_.state.Audio_Choice;
    const int streams = track->Audio_Streams;
    if (!choice.Is_Associated(streams)) {
        view.Set_Audio_Text(context_.texts.Get_Text(Text_Audio_Prefix) + QString::number(choice.Number()));
    } else {
        const Associated_Audio_Entry* entry = Associated_Entry(*track, choice.Associated_Number(streams));
        view.Set_Audio_Text(entry ? entry->Name : QString());
    }
}

} // namespace Orvane

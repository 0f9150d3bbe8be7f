#include "player/playback_session.h"

#include "config/settings.h"
#include "language/text_table.h"
#include "media/media_graph.h"
#include "media/display_layout.h"
#include "player/player_view.h"
#include "player/subtitle_source.h"
#include "player/track_source.h"
#include "playlist/playback_state.h"
#include "playlist/playlist_window_link.h"
#include "playlist/track.h"
#include "subtitles/subtitle_display.h"
#include "ui/message_box.h"

namespace Orvane {

namespace {
constexpr int16_t Text_Disc_Change_1 = 1011;
constexpr int16_t Text_Disc_Change_2 = 1012;
const QString No_Subtitle_Due = QStringLiteral("Aucun");

// Kinds whose splitter pins are recorded so one stream can be heard alone.
bool Has_Switchable_Streams(const Track_Record& track)
{
    return (track.Kind == QLatin1String("AVI") || track.Kind == QLatin1String("MPEG"))
        && track.Has_Video && track.Audio_Streams >= 1;
}
} // namespace

Playback_Session::Playback_Session(Player_Context& context)
    : context_(context), time_display_(context), audio_menus_(context, *this)
{
    timer_.setInterval(Tick_Interval_Ms);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Tick(); });
    QObject::connect(&context_.graph, &Media_Graph::Error_Occurred, &timer_,
                     [this](int pipeline_id, const QString& message) {
                         On_Engine_Error(pipeline_id, message);
                     });
}

void Playback_Session::Play()
{
    context_.graph.Run();
    context_.state.Is_Playing = true;
    timer_.start();
    context_.playlist_window.Show_Playlist_Tab();
}

void Playback_Session::Pause()
{
    context_.graph.Pause();
    context_.state.Is_Playing = false;
}

void Playback_Session::Stop()
{
    context_.graph.Stop();
    timer_.stop();
    context_.state.Is_Playing = false;
    context_.graph.Set_Current_Position(0.0);
    time_display_.Update_Cursor();
    context_.view.Set_Time_Text(QStringLiteral("00:00:00"));
}

void Playback_Session::Play_Track()
{
    const Track_Record* track = Current_Track_Record(context_);
    context_.graph.Close_Graph();
    if (!track)
        return;
    if (track->Disc_Change) {
        const QString question = context_.texts.Get_Text(Text_Disc_Change_1) + QChar(10)
                               + context_.texts.Get_Text(Text_Disc_Change_2);
        if (Message_Box(question, Box_Style::Ok_Cancel) == Box_Answer::Cancel) {
            // The graph stays closed: nothing plays until another track is opened.
            timer_.stop();
            context_.state.Is_Playing = false;
            return;
        }
    }
    if (!Open_Track_Media(track->Path))
        return;
    Reapply_Full_Screen();
    Play();
}

void Playback_Session::Play_Track_Number(int number)
{
    if (number < 1 || number > context_.tracks.Track_Count())
        return;
    if (number != context_.state.Current_Track) {
        Clear_Menus_Of_Current_Track();
        context_.state.Current_Track = number;
    }
    Play_Track();
}

bool Playback_Session::Open_Graph(const QString& path)
{
    Media_Graph& graph = context_.graph;
    // One graph at a time: a rebuild or a reopen replaces the one open.
    if (graph.Is_Open())
        graph.Close_Graph();
    if (!graph.Open_Graph(path)) {
        Report_Graph_Failure(graph.Last_Error());
        return false;
    }
    const Track_Record* track = Current_Track_Record(context_);
    if (track && track->Has_Video)
        context_.display.Video_Layout(graph.Video_Size());
    else
        context_.display.Audio_Layout();
    if (track && track->Has_Audio)
        graph.Set_Volume(Volume_Hundredths(context_.state.Volume_Level));
    return true;
}

void Playback_Session::Reapply_Full_Screen()
{
    if (!context_.state.Full_Screen)
        return;
    const Track_Record* track = Current_Track_Record(context_);
    context_.display.Reapply_Full_Screen(track && track->Has_Video);
}

bool Playback_Session::Open_Track_Media(const QString& path)
{
    if (!Open_Graph(path))
        return false;
    const Track_Record* track = Current_Track_Record(context_);
    if (!track)
        return true;
    Playback_State& state = context_.state;
    if (!track->Subtitle_Path.isEmpty()) {
        state.Subtitles_Loaded = context_.subtitles.Load(track->Subtitle_Path);
        context_.subtitle_display.Clear();
    } else {
        state.Subtitles_Loaded = false;
    }
    Prepare_Audio(*track);
    if (track->Offers_Audio_Choice() && track->Has_Video)
        audio_menus_.Build_Audio_Menus();
    time_display_.Refresh_Display();
    context_.playlist_window.Select_Playlist_Entry(state.Current_Track - 1);
    return true;
}

void Playback_Session::Prepare_Audio(const Track_Record& track)
{
    Media_Graph& graph = context_.graph;
    Playback_State& state = context_.state;
    const int streams = track.Audio_Streams;
    if (Has_Switchable_Streams(track)) {
        graph.Record_Audio_Pins(track.Has_Video, streams);
        graph.Disconnect_Audio_Streams(track.Has_Video, streams);
        state.Audio_Choice = state.Audio_Choice.Kept_For(streams);
        // A choice above n names an associated file, rendered below; there
        // is no stream of that number to connect.
        if (state.Audio_Choice.Is_Stream(streams))
            graph.Connect_Audio_Stream(state.Audio_Choice.Stream_Number());
    } else if (track.Associated_Count >= 1) {
        state.Audio_Choice = Audio_Choice::First();
    }
    if (state.Audio_Choice.Is_Associated(streams) && track.Associated_Count >= 1) {
        const Associated_Audio_Entry* entry = Associated_Entry(track, state.Audio_Choice.Associated_Number(streams));
        if (entry && !graph.Render_Associated_Audio(entry->Path))
            Message_Box(graph.Last_Error());
    }
}

void Playback_Session::Clear_Menus_Of_Current_Track()
{
    const Track_Record* track = Current_Track_Record(context_);
    if (track && track->Offers_Audio_Choice())
        audio_menus_.Clear_Audio_Menus(context_.state.Current_Track);
}

void Playback_Session::Next()
{
    Playback_State& state = context_.state;
    state.Next_Subtitle_Time = No_Subtitle_Due;
    if (state.Current_Track == context_.tracks.Track_Count())
        return;
    Clear_Menus_Of_Current_Track();
    ++state.Current_Track;
    Play_Track();
}

void Playback_Session::Previous()
{
    Playback_State& state = context_.state;
    state.Next_Subtitle_Time = No_Subtitle_Due;
    if (state.Current_Track < 2)
        return;
    Clear_Menus_Of_Current_Track();
    --state.Current_Track;
    Play_Track();
}

void Playback_Session::End_Of_Media()
{
    Playback_State& state = context_.state;
    if (state.Current_Track != context_.tracks.Track_Count()) {
        Clear_Menus_Of_Current_Track();
        ++state.Current_Track;
        Play_Track();
        return;
    }
    if (state.Subtitles_Shown)
        context_.subtitle_display.Clear();
    if (context_.settings.Playlist_Repeat) {
        Clear_Menus_Of_Current_Track();
        state.Current_Track = 1;
        Play_Track();
    } else {
        Stop();
    }
}

void Playback_Session::Tick()
{
    const Track_Record* track = Current_Track_Record(context_);
    if (!track || !context_.graph.Is_Open())
        return;
    time_display_.Update_Cursor();
    // The pipeline's end counts as reaching the stored duration: a file a
    // little shorter than its analysis said, or cut short, still ends.
    const double position = context_.graph.End_Reached() ? track->Duration : context_.graph.Current_Position();
    if (position < track->Duration) {
        if (const auto text = time_display_.Time_For_Position(position))
            context_.view.Set_Time_Text(*text);
    } else {
        End_Of_Media();
    }
    // The end of the media may have made another track current.
    if (const Track_Record* current = Current_Track_Record(context_))
        Subtitle_Step(*current);
}

void Playback_Session::Subtitle_Step(const Track_Record& track)
{
    Playback_State& state = context_.state;
    if (track.Subtitle_Path.isEmpty() || !state.Subtitles_Shown)
        return;
    // Texts are compared, not times: a line is due on the tick whose shown
    // text equals its start time, in remaining mode the remaining time.
    const QString shown = context_.view.Time_Text();
    if (state.Next_Subtitle_Time == No_Subtitle_Due) {
        const int found = context_.subtitles.Find(shown);
        if (found == 0) {
            context_.subtitle_display.Clear();
        } else {
            state.Next_Subtitle_Time = context_.subtitles.Start_Time(found);
            state.Next_Subtitle_Index = found;
        }
    }
    if (state.Next_Subtitle_Time == shown) {
        const int n = state.Next_Subtitle_Index;
        context_.subtitle_display.Show_Subtitle(context_.subtitles.Line1(n),
                                                context_.subtitles.Line2(n), n);
        state.Next_Subtitle_Index = n + 1;
        state.Next_Subtitle_Time = context_.subtitles.Start_Time(n + 1);
    }
}

void Playback_Session::Report_Graph_Failure(const QString& message)
{
    // Whatever went wrong, the player is left with no media open.
    timer_.stop();
    context_.state.Is_Playing = false;
    context_.graph.Close_Graph();
    Message_Box(message);
}

void Playback_Session::On_Engine_Error(int pipeline_id, const QString& message)
{
    // A late message of a pipeline already replaced is no news to the user.
    if (!context_.graph.Is_Open() || pipeline_id != context_.graph.Pipeline_Id())
        return;
    Report_Graph_Failure(message);
}

} // namespace Orvane

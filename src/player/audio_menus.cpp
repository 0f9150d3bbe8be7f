#include "player/audio_menus.h"

#include "media/media_graph.h"
#include "player/playback_session.h"
#include "player/player_view.h"
#include "playlist/playback_state.h"
#include "playlist/track.h"
#include "player/track_source.h"
#include "ui/message_box.h"

namespace Orvane {

namespace {
QString Stream_Caption(int k)
{
    return QStringLiteral("Stream audio ") + QString::number(k);
}
} // namespace

void Audio_Menus::Build_Audio_Menus()
{
    const Track_Record* track = Current_Track_Record(context_);
    if (!track || !track->Has_Video)
        return;
    Player_View& view = context_.view;
    const int streams = track->Audio_Streams;
    const int associated = track->Associated_Count;
    const Audio_Choice choice = context_.state.Audio_Choice;
    if (streams > 0) {
        view.Set_Stream_Entry_Count(streams);
        for (int k = 1; k <= streams; ++k)
            view.Set_Stream_Entry(k, Stream_Caption(k), true);
        if (choice.Is_Stream(streams))
            view.Set_Stream_Checked(choice.Stream_Number(), true);
    }
    if (associated >= 1) {
        view.Set_Associated_Entry_Count(associated);
        for (int j = 1; j <= associated; ++j) {
            const Associated_Audio_Entry* entry = Associated_Entry(*track, j);
            view.Set_Associated_Entry(j, entry ? entry->Name : QString(), true);
        }
        if (streams > 0)
            view.Set_Separation_Visible(true);
        if (choice.Is_Associated(streams) && choice.Associated_Number(streams) <= associated)
            view.Set_Associated_Checked(choice.Associated_Number(streams), true);
    }
}

void Audio_Menus::Clear_Audio_Menus(int track_number)
{
    if (track_number < 1 || track_number > context_.tracks.Track_Count())
        return;
    const Track_Record& track = context_.tracks.Track(track_number);
    if (!track.Has_Video)
        return;
    Player_View& view = context_.view;
    context_.state.Next_Subtitle_Time = QStringLiteral("Aucun");
    // Entries 2.. go away whatever their check; entry 1 stays, unchecked and
    // hidden. (The menus may never have been built for this track, when its
    // open failed, so only entry 1 is sure to exist.)
    view.Set_Stream_Entry_Count(1);
    view.Set_Stream_Checked(1, false);
    view.Set_Stream_Entry(1, Stream_Caption(1), false);
    view.Set_Associated_Entry_Count(1);
    view.Set_Associated_Checked(1, false);
    const Associated_Audio_Entry* first = Associated_Entry(track, 1);
    view.Set_Associated_Entry(1, first ? first->Name : QString(), false);
    view.Set_Separation_Visible(false);
}

bool Audio_Menus::Leave_Associated_Audio(const Track_Record& track)
{
    // The associated file leaves the running graph in place; when it cannot,
    // rendering the file again drops it. The position is carried across by
    // the caller either way.
    context_.graph.Stop();
    if (!context_.graph.Drop_Associated_Audio() && !session_.Open_Graph(track.Path))
        return false;
    session_.Reapply_Full_Screen();
    return true;
}

bool Audio_Menus::Leave_Current_Choice(const Track_Record& track, Next_Source next)
{
    Media_Graph& graph = context_.graph;
    Player_View& view = context_.view;
    const Audio_Choice current = context_.state.Audio_Choice;
    const int streams = track.Audio_Streams;
    if (!current.Is_Associated(streams)) {
        // None chosen yet means none was connected alone: nothing to take
        // away, and stream 0 of a video file is its picture. From stream to
        // stream the stopped graph is connected again and runs on from where
        // it stopped: no position to carry.
        if (current.Is_Stream(streams))
            view.Set_Stream_Checked(current.Stream_Number(), false);
        if (next == Next_Source::Associated)
            graph.Save_Position();
        if (current.Is_Stream(streams))
            graph.Disconnect_Audio_Stream(current.Stream_Number());
        return true;
    }
    view.Set_Associated_Checked(current.Associated_Number(streams), false);
    graph.Save_Position();
    if (!Leave_Associated_Audio(track))
        return false;
    if (next == Next_Source::Stream || streams != 0) {
        graph.Record_Audio_Pins(track.Has_Video, streams);
        graph.Disconnect_Audio_Streams(track.Has_Video, streams);
    }
    return true;
}

void Audio_Menus::Choose_Stream(int k)
{
    const Track_Record* track = Current_Track_Record(context_);
    Playback_State& state = context_.state;
    const Audio_Choice chosen = Audio_Choice::Stream(k);
    if (!track || !context_.graph.Is_Open() || chosen == state.Audio_Choice)
        return;
    Media_Graph& graph = context_.graph;
    context_.view.Set_Stream_Checked(k, true);
    const bool rebuilt = state.Audio_Choice.Is_Associated(track->Audio_Streams);
    if (!Leave_Current_Choice(*track, Next_Source::Stream))
        return;
    if (rebuilt)
        graph.Restore_Position();
    state.Audio_Choice = chosen;
    graph.Connect_Audio_Stream(k);
    session_.Display().Refresh_Display();
    session_.Play();
}

void Audio_Menus::Return_To(const Track_Record& track, int unheard, Audio_Choice before)
{
    // A file that cannot be heard (gone since it was added, or no sound in
    // it) gives back the sound heard before, rather than silence under a
    // checked entry naming a file no one hears.
    Player_View& view = context_.view;
    const int streams = track.Audio_Streams;
    view.Set_Associated_Checked(unheard, false);
    context_.state.Audio_Choice = before;
    if (before.Is_Stream(streams)) {
        context_.graph.Connect_Audio_Stream(before.Stream_Number());
        view.Set_Stream_Checked(before.Stream_Number(), true);
    } else if (const Associated_Audio_Entry* entry =
                   before.Is_Associated(streams) ? Associated_Entry(track, before.Associated_Number(streams)) : nullptr;
               entry && context_.graph.Render_Associated_Audio(entry->Path)) {
        view.Set_Associated_Checked(before.Associated_Number(streams), true);
    }
}

void Audio_Menus::Choose_Associated(int j)
{
    const Track_Record* track = Current_Track_Record(context_);
    Playback_State& state = context_.state;
    if (!track || !context_.graph.Is_Open())
        return;
    const Audio_Choice chosen = Audio_Choice::Associated(j, track->Audio_Streams);
    const Associated_Audio_Entry* entry = Associated_Entry(*track, j);
    if (chosen == state.Audio_Choice || !entry)
        return;
    Media_Graph& graph = context_.graph;
    const Audio_Choice before = state.Audio_Choice;
    context_.view.Set_Associated_Checked(j, true);
    if (!Leave_Current_Choice(*track, Next_Source::Associated))
        return;
    state.Audio_Choice = chosen;
    if (!graph.Render_Associated_Audio(entry->Path)) {
        Message_Box(graph.Last_Error());
        Return_To(*track, j, before);
    }
    session_.Display().Refresh_Display();
    graph.Restore_Position();
    session_.Play();
}

} // namespace Orvane

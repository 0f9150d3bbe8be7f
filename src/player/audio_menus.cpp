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
    const int choice = context_.state.Audio_Choice;
    if (streams > 0) {
        view.Set_Stream_Entry_Count(streams);
        for (int k = 1; k <= streams; ++k)
            view.Set_Stream_Entry(k, Stream_Caption(k), true);
        if (choice >= 1 && choice <= streams)
            view.Set_Stream_Checked(choice, true);
    }
    if (associated >= 1) {
        view.Set_Associated_Entry_Count(associated);
        for (int j = 1; j <= associated; ++j) {
            const Associated_Audio_Entry* entry = Associated_Entry(*track, j);
            view.Set_Associated_Entry(j, entry ? entry->Name : QString(), true);
        }
        if (streams > 0)
            view.Set_Separation_Visible(true);
        if (choice > streams && choice - streams <= associated)
            view.Set_Associated_Checked(choice - streams, true);
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

void Audio_Menus::Choose_Stream(int k)
{
    const Track_Record* track = Current_Track_Record(context_);
    Playback_State& state = context_.state;
    if (!track || !context_.graph.Is_Open() || k == state.Audio_Choice)
        return;
    Media_Graph& graph = context_.graph;
    Player_View& view = context_.view;
    const int streams = track->Audio_Streams;
    view.Set_Stream_Checked(k, true);
    if (state.Audio_Choice <= streams) {
        // The stopped graph is connected again and runs on from where it
        // stopped: no position to carry.
        if (state.Audio_Choice >= 1) {
            view.Set_Stream_Checked(state.Audio_Choice, false);
            graph.Disconnect_Audio_Stream(state.Audio_Choice);
        }
    } else {
        view.Set_Associated_Checked(state.Audio_Choice - streams, false);
        graph.Save_Position();
        if (!Leave_Associated_Audio(*track))
            return;
        graph.Record_Audio_Pins(track->Has_Video, streams);
        graph.Disconnect_Audio_Streams(track->Has_Video, streams);
        graph.Restore_Position();
    }
    state.Audio_Choice = int16_t(k);
    graph.Connect_Audio_Stream(k);
    session_.Display().Refresh_Display();
    session_.Play();
}

void Audio_Menus::Choose_Associated(int j)
{
    const Track_Record* track = Current_Track_Record(context_);
    Playback_State& state = context_.state;
    const int streams = track ? int(track->Audio_Streams) : 0;
    if (!track || !context_.graph.Is_Open() || streams + j == state.Audio_Choice)
        return;
    const Associated_Audio_Entry* entry = Associated_Entry(*track, j);
    if (!entry)
        return;
    Media_Graph& graph = context_.graph;
    Player_View& view = context_.view;
    view.Set_Associated_Checked(j, true);
    if (state.Audio_Choice <= streams) {
        // No stream chosen yet (0) means none was connected alone: nothing
        // to take away, and stream 0 of a video file is its picture.
        if (state.Audio_Choice >= 1)
            view.Set_Stream_Checked(state.Audio_Choice, false);
        graph.Save_Position();
        if (state.Audio_Choice >= 1)
            graph.Disconnect_Audio_Stream(state.Audio_Choice);
    } else {
        view.Set_Associated_Checked(state.Audio_Choice - streams, false);
        graph.Save_Position();
        if (!Leave_Associated_Audio(*track))
            return;
        if (streams != 0) {
            graph.Record_Audio_Pins(track->Has_Video, streams);
            graph.Disconnect_Audio_Streams(track->Has_Video, streams);
        }
    }
    state.Audio_Choice = int16_t(streams + j);
    if (!graph.Render_Associated_Audio(entry->Path))
        Message_Box(graph.Last_Error());
    session_.Display().Refresh_Display();
    graph.Restore_Position();
    session_.Play();
}

} // namespace Orvane

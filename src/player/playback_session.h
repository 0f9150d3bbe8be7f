#pragma once

#include "player/audio_menus.h"
#include "player/player_context.h"
#include "player/time_display.h"
#include "playlist/player_link.h"

#include <QString>
#include <QTimer>

namespace Orvane {

// The playback session (Module_Player): which track is current, opening it,
// the transport commands, the advance at the end of a track and the 500 ms
// tick that drives the cursor, the time display, the end-of-track test and
// the subtitles.
//
// Invariants:
// - "No media" is !graph.Is_Open(); then the tick does nothing and nothing
//   plays. A failed open or an engine error reports the reason once and
//   leaves the player in that state.
// - The timer is enabled by Play and disabled by Stop; Pause leaves it
//   running so the display and subtitles keep ticking on the frozen position.
// - The end of a track is found by the tick comparing the position with the
//   duration stored in the track record; a pipeline that played to its end
//   stands at that duration, whatever its own length.
//
// It is also the player the playlist operations call on (Player_Link).
class Playback_Session : public Player_Link {
public:
    static constexpr int Tick_Interval_Ms = 500;

    explicit Playback_Session(Player_Context& context);
    Playback_Session(const Playback_Session&) = delete;
    Playback_Session& operator=(const Playback_Session&) = delete;

    void Play();
    void Pause();
    void Stop();
    // Closes the old media and opens and plays Current_Track.
    void Play_Track();
    // Opens one track's media and prepares its audio, subtitles and labels.
    // False when the graph could not be opened (the user has been told).
    bool Open_Track_Media(const QString& path);
    // Makes track number current (leaving the audio menus of the old one)
    // and plays it.
    void Play_Track_Number(int number);
    void Next();
    void Previous();
    void End_Of_Media();
    void Tick();

    // Open_Graph with the display layout and volume of the current track;
    // also used to rebuild the graph when leaving an associated audio file.
    bool Open_Graph(const QString& path);
    // After a new graph while Full_Screen is set, lays the full screen out again.
    void Reapply_Full_Screen();

    QTimer& Timer() { return timer_; }
    Time_Display& Display() { return time_display_; }
    Audio_Menus& Menus() { return audio_menus_; }
    Player_Context& Context() { return context_; }

    // What the playlist operations ask of the player.
    void Reset_Player() override;
    void Open_First_Track(const QString& path) override;
    void Associated_Audio_Added(int track, int count) override;
    void Clear_Audio_Menus(int track) override;
    void Refresh_Display() override;
    void Associated_Audio_Removed(int track, bool was_heard) override;

private:
    void Prepare_Audio(const Track_Record& track);
    void Subtitle_Step(const Track_Record& track);
    void Clear_Menus_Of_Current_Track();
    void Report_Graph_Failure(const QString& message);
    void On_Engine_Error(int pipeline_id, const QString& message);

    Player_Context& context_;
    QTimer timer_;
    Time_Display time_display_;
    Audio_Menus audio_menus_;
};

} // namespace Orvane

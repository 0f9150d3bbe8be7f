#pragma once

#include "player/player_context.h"
#include "playlist/audio_choice.h"

namespace Orvane {

class Playback_Session;

// The popup menu of audio choices (Mnu_Num_Stream, Mnu_Separation,
// Mnu_Audio_Secondaire) and the switch of the audio heard when an entry is
// chosen. Exactly one source is heard: a stream of the file or an
// associated audio file (see Audio_Choice).
class Audio_Menus {
public:
    Audio_Menus(Player_Context& context, Playback_Session& session)
        : context_(context), session_(session) {}

    // The entries of the current track, the choice heard checked. Only for a
    // track with video.
    void Build_Audio_Menus();
    // Before leaving a track (only one with video): unchecks and removes the
    // entries, hides the first of each group and the separator.
    void Clear_Audio_Menus(int track_number);

    // Mnu_Num_Stream(k) click: hear stream k of the file.
    void Choose_Stream(int k);
    // Mnu_Audio_Secondaire(j) click: hear associated audio file j.
    void Choose_Associated(int j);

private:
    enum class Next_Source { Stream, Associated };
    // Takes away the source heard now and unchecks its entry. The position
    // is saved whenever the graph is rebuilt or an associated file comes
    // next; false when the rebuild failed (the player has no media then).
    bool Leave_Current_Choice(const Track_Record& track, Next_Source next);
    void Return_To(const Track_Record& track, int unheard, Audio_Choice before);
    // Takes the associated file away (in place, or by opening the file again).
    bool Leave_Associated_Audio(const Track_Record& track);

    Player_Context& context_;
    Playback_Session& session_;
};

} // namespace Orvane

#pragma once

#include "playlist/audio_choice.h"

#include <QString>
#include <cstdint>

namespace Orvane {

// The state of the playback that the playlist, the session and the windows
// share. One instance lives as long as the program.
struct Playback_State {
    int Current_Track = 0;         // 1-based, 0 = none
    bool Is_Playing = false;
    bool Full_Screen = false;
    bool Subtitles_Shown = false;
    bool Subtitles_Loaded = false;
    int Volume_Level = 3;          // 0..6; graph volume Volume_Level * 500 - 3000
    Orvane::Audio_Choice Audio_Choice;  // survives from one track to the next
    int16_t Time_Mode = 1;         // 1 elapsed, 2 remaining
    QString Next_Subtitle_Time = QStringLiteral("Aucun");  // "Aucun" = search again
    int Next_Subtitle_Index = 1;
};

inline int Volume_Hundredths(int volume_level) { return volume_level * 500 - 3000; }

} // namespace Orvane

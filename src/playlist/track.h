#pragma once

#include <QString>
#include <cstdint>
#include <vector>

namespace Orvane {

// One audio file that may be heard instead of a track's own sound.
struct Associated_Audio_Entry {
    QString Path;
    QString Name;           // file name without extension
    QString Duration_Text;  // hh:mm:ss
    QString Kind;           // media kind of the audio file
};

// One track of the playlist, with what was found out about its media when it
// was added.
struct Track_Record {
    QString Title;
    QString Path;
    QString Duration_Text;       // hh:mm:ss of the whole seconds of Duration
    double Duration = 0.0;       // seconds
    QString Picture_Size;        // "--" or width "x" height
    int16_t Audio_Streams = 0;
    bool Has_Video = false;
    std::vector<Associated_Audio_Entry> Associated_Audio;  // numbered from 1: entry j is [j - 1]
    int Associated_Count = 0;
    bool Has_Audio = false;
    bool Shows_Picture = false;
    bool Disc_Change = false;
    QString Kind;
    QString Subtitle_Path;       // "" = none
    QString Subtitle_Name;
    QString Subtitle_Info_1;
    QString Subtitle_Info_2;
    int Subtitle_Delay = 0;      // seconds of the time value 0 h 0 min s s
    bool Subtitle_Flag = false;  // the subtitle file's delay is in force

    // The track offers a choice of audio.
    bool Offers_Audio_Choice() const { return Audio_Streams >= 2 || Associated_Count >= 1; }
};

} // namespace Orvane

#pragma once

#include <QString>
#include <cstdint>
#include <variant>

namespace Orvane {

// The subtitle colour is the text read from the file until the user picks a
// colour, then a 32-bit number (0x00BBGGRR); both are written back as they are.
using Subtitle_Color_Value = std::variant<QString, int32_t>;

// Every user setting, filled by Read_Config and changed only by the
// configuration window (the volume in use lives in the playback state).
struct Settings {
    QString Language_Name;
    QString Subtitle_Font_Name;
    int16_t Subtitle_Font_Size = 0;
    bool Subtitle_Font_Bold = false;
    bool Subtitle_Font_Italic = false;
    Subtitle_Color_Value Subtitle_Color = QString();
    bool Subtitle_Transparent = false;
    bool Playlist_Repeat = false;
    QString CD1_Drive;
    QString CD2_Drive;
    int16_t Volume_Setting = 0;
    bool Save_Settings = false;
};

} // namespace Orvane

#include "playlist/open_dialog_filters.h"

#include "language/text_table.h"

namespace Orvane {

namespace {
constexpr int16_t Text_Media_Files = 701;
constexpr int16_t Text_Subtitle_Files = 702;
constexpr int16_t Text_Playlist_Files = 703;
constexpr int16_t Text_Audio_Files = 704;
} // namespace

Open_Dialog_Filters Build_Open_Dialog_Filters(const Text_Table& texts)
{
    const QChar nul(u'\0');
    Open_Dialog_Filters filters;
    filters.Filter_Media = texts.Get_Text(Text_Media_Files)
        + QStringLiteral(" *.avi;*.mpeg;*.mpg;*.dat;*.mpeg4;*.wav;*.mp3;*.mp2;*.mpa)") + nul
        + QStringLiteral("*.avi;*.mpeg;*.mpg;*.dat;*.mpeg4;*.wav;*.mp3;*.mp2;*.mpa");
    filters.Filter_Subtitles = texts.Get_Text(Text_Subtitle_Files) + QStringLiteral(" (*.sub)") + nul + QStringLiteral("*.sub");
    filters.Filter_Playlists = texts.Get_Text(Text_Playlist_Files) + QStringLiteral("(*.orx;*.m3u)") + nul + QStringLiteral("*.orx;*.m3u");
    filters.Filter_Own_Playlist = texts.Get_Text(Text_Playlist_Files) + QStringLiteral(" (*.orx)") + nul + QStringLiteral("*.orx");
    filters.Filter_Audio = texts.Get_Text(Text_Audio_Files) + QStringLiteral("(*.wav;*.mp3;*.mpa)") + nul + QStringLiteral("*.wav;*.mp3;*.mpa");
    return filters;
}

} // namespace Orvane

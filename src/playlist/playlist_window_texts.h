#pragma once

#include <cstdint>

namespace Orvane {

// The playlist window's texts: its fixed caption list (Frm_PlayList::Caption_Numbers),
// then the others. Only the window includes it.
enum Playlist_Window_Text : int16_t {
    Text_Tab_Playlist = 301,
    Text_Tab_Audio = 302,
    Text_Tab_Subtitles = 303,
    Text_Add = 304,
    Text_Remove = 305,
    Text_Open = 306,
    Text_Save = 307,
    Text_Duration = 308,
    Text_Picture_Size = 309,
    Text_Kind = 310,
    Text_Streams = 311,
    Text_Total_Duration = 312,
    Text_Associated_Audio = 313,
    Text_Delay = 315,
    Text_Subtitle_File = 316,
    Text_Subtitle_Info_1 = 318,
    Text_Subtitle_Info_2 = 319,
    Text_Subtitle_Title = 314,
    Text_Adding_Files = 320,
    Text_Reading_Playlist = 321,
    Text_Cancel = 322,
    Text_Apply_Delay = 323,
    Text_No_Subtitle = 324,
    Text_Close = 325,
    Text_Delay_Up = 326,
    Text_Delay_Down = 327,
    Text_Add_Tip = 328,
    Text_Remove_Tip = 329,
    Text_Add_Audio_Tip = 330,
    Text_Remove_Audio_Tip = 331,
    Text_Track = 332,
    Text_List_Tip = 333,
    Text_No_Track = 334,
};

} // namespace Orvane

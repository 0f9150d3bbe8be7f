#pragma once

namespace Orvane {

// What the player asks of the playlist window.
class Playlist_Window_Link {
public:
    virtual ~Playlist_Window_Link() = default;
    // Selects entry index (0-based) of Lst_Playlist.
    virtual void Select_Playlist_Entry(int index) = 0;
    // The playlist tab's click: brings the track list forward.
    virtual void Show_Playlist_Tab() = 0;
    virtual void Toggle_Visible() = 0;
    // Performs the click of the add-video button (the player's Open button).
    virtual void Click_Add_Video() = 0;
};

} // namespace Orvane

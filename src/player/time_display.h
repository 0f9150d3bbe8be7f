#pragma once

#include "media/display_layout.h"
#include "player/player_context.h"

#include <QString>
#include <optional>

namespace Orvane {

// Length of the progress track Lbl_Avancement, along which the cursor
// Img_Avancement moves by its left edge.
constexpr int Progress_Track_Pixels = 310;

// The time display, the progress cursor with its seeking by mouse, the
// time mode and the status labels and lamps of the player window.
class Time_Display {
public:
    explicit Time_Display(Player_Context& context) : context_(context) {}

    // Cursor left = current position / Media_Duration x 310 px (0 while the
    // duration is unknown).
    void Update_Cursor();
    // Position = (x / 15) / track width in px x Media_Duration.
    void Seek_To_X(int x_twips);
    // A seek of the progress track to a time in seconds (kept within the
    // media): the cursor moves and the subtitles are searched again. False
    // without media.
    bool Seek_To_Seconds(double seconds);

    // Lbl_Avancement mouse events; x in twips (15 x the pixel x).
    void Progress_Mouse_Down(int x_twips);
    void Progress_Mouse_Move(int x_twips);
    void Progress_Mouse_Up();
    bool Seeking() const { return seeking_; }

    // Lbl_Affichage_Temps click: the caption under it changes now, the time
    // itself on the next tick.
    void Toggle_Time_Mode();
    // The caption of the current mode, in the texts of the moment.
    void Show_Time_Mode_Caption();
    // The text the time display shows for a position in the current mode:
    // elapsed, or the graph's duration minus the position, never below 0.
    // Nothing when the time lies outside the supported range (over 32767 s).
    std::optional<QString> Time_For_Position(double position) const;

    // Rewrites the track number, title, subtitle and audio labels and lamps.
    void Refresh_Display();

private:
    void Restart_Subtitle_Search();
    void Refresh_Subtitle_Status(const Track_Record* track);
    void Refresh_Audio_Status(const Track_Record* track);

    Player_Context& context_;
    bool seeking_ = false;
};

} // namespace Orvane

#pragma once

#include <QSize>

namespace Orvane {

// The layout of the display window (Frm_display) as the player drives it.
// The application wires it to the display layout routines. The player keeps
// Full_Screen in the playback state itself.
class Display_Control {
public:
    virtual ~Display_Control() = default;
    // The window sized to the video (width x height + its 20 px top bar), centred.
    virtual void Video_Layout(QSize video_size) = 0;
    // The audio picture layout: 350 x 280 px, centred, its pictures shown.
    virtual void Audio_Layout() = 0;
    // Lays the full-screen layout again after a new graph was opened while
    // Full_Screen is set: full screen for a track with video, the audio
    // picture layout for one without.
    virtual void Reapply_Full_Screen(bool has_video) = 0;
    virtual void Enter_Full_Screen() = 0;
    virtual void Leave_Full_Screen() = 0;
};

} // namespace Orvane

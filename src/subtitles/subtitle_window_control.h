#pragma once

namespace Orvane {

// Showing and unloading the subtitle window (Frm_Subtitle), the player's
// subtitle button. Its lines are fed through Subtitle_Display.
class Subtitle_Window_Control {
public:
    virtual ~Subtitle_Window_Control() = default;
    virtual void Show() = 0;
    virtual void Unload() = 0;
    virtual bool Is_Shown() const = 0;
};

} // namespace Orvane

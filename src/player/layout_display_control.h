#pragma once

#include "media/display_layout.h"
#include "player/display_control.h"

namespace Orvane {

// The display layout routines bound to the display window, as the player drives them.
class Layout_Display_Control : public Display_Control {
public:
    explicit Layout_Display_Control(Display_Layout& layout) : layout_(layout) {}
    void Video_Layout(QSize video_size) override { layout_.Video_Layout(video_size); }
    void Audio_Layout() override { layout_.Audio_Layout(); }
    void Reapply_Full_Screen(bool has_video) override { layout_.Reapply_Full_Screen(has_video); }
    void Enter_Full_Screen() override { layout_.Enter_Full_Screen(); }
    void Leave_Full_Screen() override { layout_.Leave_Full_Screen(); }

private:
    Display_Layout& layout_;
};

} // namespace Orvane

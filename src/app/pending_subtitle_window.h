#pragma once

#include "player/subtitle_window_control.h"
#include "subtitles/subtitle_display.h"

namespace Orvane {

// Stands where the subtitle window will be: it keeps whether the window is
// shown and the lines it was last given, and draws nothing yet.
class Pending_Subtitle_Window : public Subtitle_Display, public Subtitle_Window_Control {
public:
    void Show_Subtitle(const QString& line1, const QString& line2, int n) override
    {
        line1_ = line1;
        line2_ = line2;
        entry_ = n;
    }
    void Show() override { shown_ = true; }
    void Unload() override { shown_ = false; }
    bool Is_Shown() const override { return shown_; }

    const QString& Line1() const { return line1_; }
    const QString& Line2() const { return line2_; }
    int Entry() const { return entry_; }

private:
    bool shown_ = false;
    QString line1_;
    QString line2_;
    int entry_ = 1;
};

} // namespace Orvane

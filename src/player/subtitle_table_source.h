#pragma once

#include "player/subtitle_source.h"
#include "subtitles/subtitle_timing.h"

#include <functional>

namespace Orvane {

class Text_Table;
class Track_Source;
struct Playback_State;
struct Settings;

// The subtitle reader and timing routines on the program's subtitle table,
// with the delay of the current track (in force while its Subtitle_Flag is set).
class Subtitle_Table_Source : public Subtitle_Source {
public:
    // screen_width gives the available width of the screen in pixels when a
    // file is laid out.
    Subtitle_Table_Source(Subtitle_Table& table, const Settings& settings, const Text_Table& texts,
                          const Playback_State& state, const Track_Source& tracks,
                          std::function<int()> screen_width);

    bool Load(const QString& path) override;
    int Find(const QString& time_text) const override;
    QString Start_Time(int n) const override;
    QString Line1(int n) const override;
    QString Line2(int n) const override;

private:
    Subtitle_Delay_Choice Current_Delay() const;

    Subtitle_Table& table_;
    const Settings& settings_;
    const Text_Table& texts_;
    const Playback_State& state_;
    const Track_Source& tracks_;
    std::function<int()> screen_width_;
};

} // namespace Orvane

#include "player/subtitle_table_source.h"

#include "player/track_source.h"
#include "playlist/playback_state.h"
#include "subtitles/subtitle_reader.h"

namespace Orvane {

Subtitle_Table_Source::Subtitle_Table_Source(Subtitle_Table& table, const Settings& settings,
                                             const Text_Table& texts, const Playback_State& state,
                                             const Track_Source& tracks,
                                             std::function<int()> screen_width)
    : table_(table), settings_(settings), texts_(texts), state_(state), tracks_(tracks),
      screen_width_(std::move(screen_width))
{
}

Subtitle_Delay_Choice Subtitle_Table_Source::Current_Delay() const
{
    Subtitle_Delay_Choice delay;
    const int number = state_.Current_Track;
    if (number >= 1 && number <= tracks_.Track_Count()) {
        const Track_Record& track = tracks_.Track(number);
        delay.in_force = track.Subtitle_Flag;
        delay.seconds = track.Subtitle_Delay;
    }
    return delay;
}

bool Subtitle_Table_Source::Load(const QString& path)
{
    QString shown_name;
    const int number = state_.Current_Track;
    if (number >= 1 && number <= tracks_.Track_Count())
        shown_name = tracks_.Track(number).Subtitle_Name;
    const int width = screen_width_ ? screen_width_() : 0;
    return Load_Subtitles(path, settings_, texts_, width, table_, shown_name);
}

int Subtitle_Table_Source::Find(const QString& time_text) const
{
    return Find_Subtitle(table_, time_text, Current_Delay());
}

QString Subtitle_Table_Source::Start_Time(int n) const
{
    return Subtitle_Start_Time(table_, n, Current_Delay());
}

QString Subtitle_Table_Source::Line1(int n) const
{
    return Subtitle_Line1(table_, n);
}

QString Subtitle_Table_Source::Line2(int n) const
{
    return Subtitle_Line2(table_, n);
}

} // namespace Orvane

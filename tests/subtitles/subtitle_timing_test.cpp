#include "subtitles/subtitle_timing.h"

#include <gtest/gtest.h>

#include <tuple>

namespace Orvane {
namespace {

TEST(Subtitle_Timing, FindsTheFirstEntryAtOrAfterTheTimeAndNeverTheClosingRecord)
{
    Subtitle_Table film;
    film.Subtitle_Lines = {{}, {"00:00:10", "First", "", 0, 0, 0}, {"00:01:00", "Second", "two", 0, 0, 0},
                           {"01:00:00", "Third", "", 0, 0, 0}, {"23:59:59", "Fin", "Fin", 0, 0, 0}};
    const Subtitle_Delay_Choice none{}, five{true, 5}, five_off{false, 5};
    const std::tuple<const char*, Subtitle_Delay_Choice, int> cases[] = {
        {"00:00:00", none, 1}, {"00:00:10", none, 1}, {"00:00:11", none, 2}, {"00:59:59", none, 3},
        {"0:1:0", none, 2}, {"9:00:00", none, 0},  // compared as times: "9:00:00" sorts first as text
        {"01:00:01", none, 0}, {"23:59:59", none, 0}, {"Aucun", none, 0}, {"00:01:03", five, 2},
        {"00:01:03", five_off, 3}, {"00:00:15", five, 1}, {"00:00:16", five, 2}, {"01:00:06", five, 0},
    };
    for (const auto& [time, delay, expected] : cases)
        EXPECT_EQ(Find_Subtitle(film, time, delay), expected) << time;
    EXPECT_EQ(Find_Subtitle(Subtitle_Table(), "00:00:00", none), 0) << "a refused file leaves no closing record";

    const Subtitle_Delay_Choice minute{true, 60};  // the most the delay buttons reach
    const std::tuple<int, Subtitle_Delay_Choice, const char*> starts[] = {
        {2, five, "00:01:05"}, {2, five_off, "00:01:00"}, {1, minute, "00:01:10"}, {0, none, ""}, {5, none, ""}};
    for (const auto& [entry, delay, start] : starts)
        EXPECT_EQ(Subtitle_Start_Time(film, entry, delay), start) << entry;
    EXPECT_EQ(Subtitle_Line1(film, 2), "Second");
    EXPECT_EQ(Subtitle_Line2(film, 2), "two");
    EXPECT_EQ(Subtitle_Line1(film, 5), "");
    EXPECT_EQ(Subtitle_Line2(film, -1), "");
}

} // namespace
} // namespace Orvane

#include "subtitles/subtitle_timing.h"

#include <gtest/gtest.h>

namespace Orvane {
namespace {

Subtitle_Table Table_Of(std::initializer_list<Subtitle_Line> entries)
{
    Subtitle_Table table;
    for (const Subtitle_Line& entry : entries)
        table.Subtitle_Lines.push_back(entry);
    table.Subtitle_Lines.push_back({"23:59:59", "Fin", "Fin", 0, 0, 0});
    return table;
}

const Subtitle_Table Film = Table_Of({{"00:00:10", "First", "", 0, 0, 0},
                                      {"00:01:00", "Second", "two", 0, 0, 0},
                                      {"01:00:00", "Third", "", 0, 0, 0}});

constexpr Subtitle_Delay_Choice No_Delay{};

TEST(Find_Subtitle, FindsTheFirstEntryAtOrAfterTheTime)
{
    EXPECT_EQ(Find_Subtitle(Film, "00:00:00", No_Delay), 1);
    EXPECT_EQ(Find_Subtitle(Film, "00:00:10", No_Delay), 1);   // equal: that entry
    EXPECT_EQ(Find_Subtitle(Film, "00:00:11", No_Delay), 2);   // just after: the next one
    EXPECT_EQ(Find_Subtitle(Film, "00:59:59", No_Delay), 3);
    // Compared as times, not as texts: "9:00:00" sorts after "01:00:00" as text.
    EXPECT_EQ(Find_Subtitle(Film, "0:1:0", No_Delay), 2);
    EXPECT_EQ(Find_Subtitle(Film, "9:00:00", No_Delay), 0);
    // Later than every entry: the closing record is reached.
    EXPECT_EQ(Find_Subtitle(Film, "01:00:01", No_Delay), 0);
    EXPECT_EQ(Find_Subtitle(Film, "23:59:59", No_Delay), 0);
}

TEST(Find_Subtitle, TheDelayCountsOnlyWhileInForce)
{
    const Subtitle_Delay_Choice five_seconds{true, 5};
    EXPECT_EQ(Subtitle_Start_Time(Film, 2, five_seconds), "00:01:05");
    EXPECT_EQ(Subtitle_Start_Time(Film, 2, {false, 5}), "00:01:00");
    EXPECT_EQ(Find_Subtitle(Film, "00:01:03", five_seconds), 2);
    EXPECT_EQ(Find_Subtitle(Film, "00:01:03", {false, 5}), 3);
    EXPECT_EQ(Find_Subtitle(Film, "00:00:15", five_seconds), 1);
    EXPECT_EQ(Find_Subtitle(Film, "00:00:16", five_seconds), 2);
    // The delay of 60 s that the delay buttons can reach is a whole minute.
    EXPECT_EQ(Subtitle_Start_Time(Film, 1, {true, 60}), "00:01:10");
    // The closing record is found by its own time, not the delayed one.
    EXPECT_EQ(Find_Subtitle(Film, "01:00:06", five_seconds), 0);
}

TEST(Find_Subtitle, TablesWithoutEntriesOrTimesGiveNone)
{
    EXPECT_EQ(Find_Subtitle(Table_Of({}), "00:00:00", No_Delay), 0);
    // A table left empty by a refused file has no closing record either.
    EXPECT_EQ(Find_Subtitle(Subtitle_Table(), "00:00:00", No_Delay), 0);
    EXPECT_EQ(Find_Subtitle(Film, "Aucun", No_Delay), 0);
    EXPECT_EQ(Subtitle_Start_Time(Film, 0, No_Delay), "");
    EXPECT_EQ(Subtitle_Start_Time(Film, 5, No_Delay), "");
}

TEST(Subtitle_Lines, GiveBothLinesOfAnEntry)
{
    EXPECT_EQ(Subtitle_Line1(Film, 2), "Second");
    EXPECT_EQ(Subtitle_Line2(Film, 2), "two");
    EXPECT_EQ(Subtitle_Line2(Film, 1), "");
    EXPECT_EQ(Subtitle_Line1(Film, 4), "Fin");
    EXPECT_EQ(Subtitle_Line1(Film, 5), "");
    EXPECT_EQ(Subtitle_Line2(Film, -1), "");
}

} // namespace
} // namespace Orvane

#include "base/reader_error.h"
#include "base/time_text.h"

#include <gtest/gtest.h>

namespace Orvane {
namespace {

TEST(Time_Text, TwoDigitsEachRoundedHalfToEvenWithinTheDay)
{
    EXPECT_EQ(Time_Text(3725), "01:02:05");
    EXPECT_EQ(Time_Text(Seconds_Per_Day + 1), "00:00:01");
    EXPECT_EQ(Time_Text(-1), "23:59:59");
    EXPECT_EQ(Position_Text(2.5), "00:00:02");
    EXPECT_EQ(Position_Text(3.5), "00:00:04");
    EXPECT_THROW(Position_Text(32768.0), Reader_Error);
}

TEST(Parse_Time_Text, AcceptsOnlyTimesOfDay)
{
    EXPECT_EQ(Parse_Time_Text("00:01:02"), 62);
    EXPECT_EQ(Parse_Time_Text("1:2:3"), 3723);
    EXPECT_EQ(Parse_Time_Text("23:59:59"), Seconds_Per_Day - 1);
    for (const char* text : {"24:00:00", "00:60:00", "00:00:60", "00:00", "aa:00:00", "000:00:00", ""})
        EXPECT_FALSE(Parse_Time_Text(text).has_value()) << text;
}

} // namespace
} // namespace Orvane

#include "playlist/audio_choice.h"

#include <gtest/gtest.h>

namespace Orvane {
namespace {

TEST(Audio_Choice_Number, ReadsTheNumberAgainstTheStreamCount)
{
    struct Case {
        int number, streams;
        const char* reads;  // "s<k>", "a<j>" or "none"
    };
    const Case cases[] = {
        {0, 2, "none"}, {1, 2, "s1"}, {2, 2, "s2"}, {3, 2, "a1"}, {4, 2, "a2"},
        {1, 0, "a1"}, {2, 0, "a2"}, {0, 0, "none"},
        {1, -1, "a1"}, {2, -1, "a2"},  // a count not known counts as no streams
    };
    for (const Case& test : cases) {
        const Audio_Choice choice = Audio_Choice::From_Number(test.number);
        std::string reads = "none";
        if (choice.Is_Stream(test.streams))
            reads = "s" + std::to_string(choice.Stream_Number());
        else if (choice.Is_Associated(test.streams))
            reads = "a" + std::to_string(choice.Associated_Number(test.streams));
        EXPECT_EQ(reads, test.reads) << test.number << " with " << test.streams << " streams";
    }
}

TEST(Audio_Choice_Number, NamedChoicesGiveTheirNumbers)
{
    const std::pair<Audio_Choice, int> cases[] = {
        {Audio_Choice::None(), 0},          {Audio_Choice::First(), 1},
        {Audio_Choice::Stream(3), 3},       {Audio_Choice::Associated(1, 3), 4},
        {Audio_Choice::Associated(2, 0), 2}, {Audio_Choice::Associated(1, -1), 1},
    };
    for (const auto& [choice, number] : cases)
        EXPECT_EQ(choice.Number(), number);
}

TEST(Audio_Choice_Number, KeptUpToTwiceTheStreamCountElseTheFirstStream)
{
    const std::tuple<int, int, int> cases[] = {  // number, streams, kept
        {4, 2, 4}, {5, 2, 1}, {0, 2, 1}, {2, 2, 2}, {3, 2, 3}, {2, 1, 2}, {3, 1, 1},
    };
    for (const auto& [number, streams, kept] : cases)
        EXPECT_EQ(Audio_Choice::From_Number(number).Kept_For(streams).Number(), kept)
            << number << " with " << streams << " streams";
}

TEST(Audio_Choice_Number, RemovingAnAssociatedFileKeepsTheSameSound)
{
    const std::tuple<int, int, int, int> cases[] = {  // number, removed file j, streams, after
        {4, 1, 2, 3}, {4, 2, 2, 0}, {3, 2, 2, 3}, {2, 1, 2, 2}, {2, 1, 0, 1}, {1, 1, 0, 0}, {2, 1, -1, 1},
    };
    for (const auto& [number, j, streams, after] : cases)
        EXPECT_EQ(Audio_Choice::From_Number(number).Without_Associated(j, streams).Number(), after)
            << number << " without file " << j << " of a track with " << streams << " streams";
}

} // namespace
} // namespace Orvane

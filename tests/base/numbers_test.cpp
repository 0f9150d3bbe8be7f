#include "base/numbers.h"
#include "base/reader_error.h"

#include <gtest/gtest.h>

#include <functional>

namespace Orvane {
namespace {

// The number of the Reader_Error raised by call, 0 when none is.
int Error_Number(const std::function<void()>& call)
{
    try {
        call();
    } catch (const Reader_Error& error) {
        return error.Number();
    }
    return 0;
}

TEST(Round_To_Int16, RoundsHalvesToEvenAndOverflowsPastSixteenBits)
{
    EXPECT_EQ(Round_To_Int16(12.5), 12);
    EXPECT_EQ(Round_To_Int16(13.5), 14);
    EXPECT_EQ(Round_To_Int16(-2.5), -2);
    EXPECT_EQ(Round_To_Int16(32767.4), 32767);
    EXPECT_EQ(Round_To_Int16(-32768.0), -32768);
    EXPECT_EQ(Error_Number([] { Round_To_Int16(32767.5); }), 6);
    EXPECT_EQ(Error_Number([] { Round_To_Int16(-32768.6); }), 6);
    EXPECT_EQ(Reader_Error::Overflow().Description(), "Overflow");
}

TEST(Leading_Number, SkipsBlanksAndTakesTheLongestNumericPrefix)
{
    EXPECT_EQ(Leading_Number("  12abc"), 12);
    EXPECT_EQ(Leading_Number("\t-3.75 px"), -3.75);
    EXPECT_EQ(Leading_Number(".5"), 0.5);
    EXPECT_EQ(Leading_Number("1e3x"), 1000);
    EXPECT_EQ(Leading_Number("2e"), 2);
    EXPECT_EQ(Leading_Number("1.2.3"), 1.2);
    EXPECT_EQ(Leading_Number("abc"), 0);
    EXPECT_EQ(Leading_Number("-"), 0);
    EXPECT_EQ(Error_Number([] { Leading_Number("1e400"); }), 6);
}

TEST(Strict_Double_And_Boolean, AcceptOnlyWholeNumbersAndTheTwoWords)
{
    EXPECT_EQ(Strict_Double(" 1 "), 1);
    EXPECT_EQ(Strict_Double("-2.5E1"), -25);
    EXPECT_EQ(Error_Number([] { Strict_Double("1e999"); }), 6);
    EXPECT_FALSE(Text_To_Boolean("0.0"));
    EXPECT_TRUE(Text_To_Boolean("2"));
    EXPECT_TRUE(Text_To_Boolean("-1"));
    EXPECT_TRUE(Text_To_Boolean("true"));
    EXPECT_FALSE(Text_To_Boolean("FALSE"));
    for (const char* text : {"", "abc", "1x", "1 2", ".", "--1"})
        EXPECT_EQ(Error_Number([text] { Strict_Double(text); }), 13) << text;
    for (const char* text : {"", "yes", "vrai", "1a"})
        EXPECT_EQ(Error_Number([text] { Text_To_Boolean(text); }), 13) << text;
}

TEST(Printed_Number, WritesAsTheLinePrintingStatement)
{
    EXPECT_EQ(Printed_Number(12), " 12 ");
    EXPECT_EQ(Printed_Number(-5), "-5 ");
    EXPECT_EQ(Printed_Number(16777215), " 16777215 ");
    EXPECT_EQ(Printed_Number(-0.25), "-.25 ");
    EXPECT_EQ(Printed_Number(1e20), " 1E+20 ");
}

} // namespace
} // namespace Orvane

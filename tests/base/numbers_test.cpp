#include "base/numbers.h"
#include "base/reader_error.h"

#include <gtest/gtest.h>

namespace Orvane {
namespace {

TEST(Round_To_Int16, RoundsHalvesToEvenAndOverflowsPastSixteenBits)
{
    EXPECT_EQ(Round_To_Int16(12.5), 12);
    EXPECT_EQ(Round_To_Int16(13.5), 14);
    EXPECT_EQ(Round_To_Int16(-2.5), -2);
    EXPECT_EQ(Round_To_Int16(32767.4), 32767);
    EXPECT_EQ(Round_To_Int16(-32768.0), -32768);
    try {
        Round_To_Int16(32767.5);
        FAIL() << "no overflow";
    } catch (const Reader_Error& error) {
        EXPECT_EQ(error.Number(), 6);
        EXPECT_EQ(error.Description(), "Overflow");
    }
}

} // namespace
} // namespace Orvane

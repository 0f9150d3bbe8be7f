#include "playlist/playlist_window_delegate.h"
#include "ui/skin_palette.h"

#include <QFontMetrics>
#include <gtest/gtest.h>

namespace Orvane {
namespace {

TEST(Playlist_Window_Delegate, TheNumberColumnShowsEveryDigitOfTheLargestNumber)
{
    const QFontMetrics metrics(Skin_Palette::Label_Font(11));
    for (const int count : {1, 99, 1000, 9999, 12345, 65537}) {
        SCOPED_TRACE(count);
        EXPECT_GE(Playlist_Window_Delegate::Number_Text_Width(count), metrics.horizontalAdvance(QString::number(count)));
    }
    // A short list keeps the column a two-digit list had.
    EXPECT_EQ(Playlist_Window_Delegate::Number_Text_Width(5), Playlist_Window_Delegate::Number_Text_Width(99));
}

} // namespace
} // namespace Orvane

// The display window's layouts in twips and pixels, on a fake window.
#include "media/display_layout.h"

#include <gtest/gtest.h>

#include <tuple>

namespace Orvane {
namespace {

class Fake_Display : public Display_Window {
public:
    QRect display{1500, 1200, 4800, 3900};  // twips
    QRect video{0, 20, 320, 240};           // pixels
    bool top_pictures = true;
    bool video_visible = false;
    QSize screen{1024 * 15, 768 * 15};

    QRect Display_Geometry() const override { return display; }
    void Set_Display_Geometry(const QRect& twips) override { display = twips; }
    QRect Video_Geometry() const override { return video; }
    void Set_Video_Geometry(const QRect& pixels) override { video = pixels; }
    void Set_Top_Pictures_Visible(bool visible) override { top_pictures = visible; }
    void Set_Video_Visible(bool visible) override { video_visible = visible; }
    QSize Screen_Size() const override { return screen; }
};

TEST(Display_Layout, TheWindowFitsThePictureWithinTheScreenCentredRoundingHalfTwipsToEven)
{
    // On a 1024 x 768 px screen (15360 x 11520 twips): 748 px below the 20 px top bar.
    const std::tuple<QSize, QSize, QRect> cases[] = {  // picture as the file claims, shown (px), window (twips)
        {{352, 288}, {352, 288}, {5040, 3450, 5280, 4620}},
        {{1024, 748}, {1024, 748}, {0, 0, 15360, 11520}},     // exactly the room there is
        {{335, 4100}, {61, 748}, {7222, 0, 915, 11520}},      // far too tall: 61.1 px; 7222.5 -> 7222
        {{4000, 1000}, {1024, 256}, {0, 3690, 15360, 4140}},  // far too wide
        {{1025, 748}, {1024, 747}, {0, 8, 15360, 11505}},     // one pixel too wide: 747.27; 7.5 -> 8
    };
    for (const auto& [picture, shown, window] : cases) {
        SCOPED_TRACE(testing::Message() << picture.width() << "x" << picture.height());
        Fake_Display host;
        Show_Video_Layout(host, picture);
        EXPECT_EQ(host.video, QRect(QPoint(0, 20), shown));
        EXPECT_EQ(host.display, window);
        EXPECT_TRUE(host.video_visible);
    }
}

TEST(Display_Layout, FullScreenFillsTheWidthKeepsTheFourPixelReductionRoundsToEvenAndLeavesToTheSavedPlace)
{
    const std::tuple<QSize, QSize, QRect> cases[] = {  // screen, picture, video in full screen (pixels)
        {{1024, 768}, {320, 240}, {0, 2, 1024, 764}},      // 4:3: 768 - 4 high, top (768 - 764) / 2
        {{1366, 768}, {720, 404}, {0, 3, 1366, 762}},      // 762.48 -> 762
        {{1366, 768}, {1280, 720}, {0, 2, 1366, 764}},     // 768.375 - 4 -> 764
        {{1365, 770}, {100, 100}, {0, -296, 1365, 1361}},  // top -295.5 -> -296
        {{1024, 768}, {352, 288}, {0, -33, 1024, 834}},    // 833.8 -> 834
        {{1024, 768}, {0, 0}, {0, 2, 1024, 764}},          // no picture size: the screen's shape
    };
    for (const auto& [screen, picture, video] : cases) {
        SCOPED_TRACE(testing::Message() << "picture " << picture.width() << " on screen " << screen.width());
        Fake_Display host;
        host.screen = screen * 15;
        Show_Video_Layout(host, picture);
        const Fake_Display before = host;
        Full_Screen_Memory memory;
        bool full_screen = false;
        Enter_Full_Screen(host, memory, full_screen);
        EXPECT_TRUE(full_screen);
        EXPECT_FALSE(host.top_pictures);
        EXPECT_EQ(host.display, QRect(QPoint(0, 0), screen * 15));
        EXPECT_EQ(host.video, video);

        Leave_Full_Screen(host, memory, full_screen);
        EXPECT_FALSE(full_screen);
        EXPECT_TRUE(host.top_pictures);
        EXPECT_EQ(host.video, before.video);
        EXPECT_EQ(host.display, before.display);
    }
}

TEST(Display_Layout, ReapplyingFullScreenFollowsTheNewTrackOnlyWhenTheFlagIsSet)
{
    Fake_Display host;
    bool full_screen = false;
    Display_Window_Layout layout(host, full_screen);
    layout.Video_Layout(QSize(320, 240));
    layout.Reapply_Full_Screen(true);
    EXPECT_FALSE(full_screen);

    layout.Enter_Full_Screen();
    // The next track is laid out in its own size first, then full screen again,
    // and its size and centred place are what leaving goes back to.
    layout.Video_Layout(QSize(352, 288));
    const QRect centred = host.display;
    layout.Reapply_Full_Screen(true);
    EXPECT_TRUE(full_screen);
    EXPECT_EQ(host.display, QRect(0, 0, 15360, 11520));
    layout.Leave_Full_Screen();
    EXPECT_EQ(host.display, centred);

    // A track without a picture takes the audio layout, centred; the flag stays.
    layout.Enter_Full_Screen();
    layout.Reapply_Full_Screen(false);
    EXPECT_TRUE(full_screen);
    EXPECT_EQ(host.display, QRect((15360 - 5250) / 2, (11520 - 4200) / 2, 5250, 4200));
    EXPECT_TRUE(host.top_pictures);
    EXPECT_FALSE(host.video_visible);
}

} // namespace
} // namespace Orvane

// The display window's layouts in twips and pixels, on a fake window.
#include "media/display_layout.h"

#include <gtest/gtest.h>

namespace Orvane {
namespace {

class Fake_Display : public Display_Window {
public:
    QRect display{1500, 1200, 4800, 3900};  // twips
    QRect video{0, 20, 320, 240};           // pixels
    bool top_pictures = true;
    bool video_visible = true;
    QSize screen{1024 * 15, 768 * 15};

    QRect Display_Geometry() const override { return display; }
    void Set_Display_Geometry(const QRect& twips) override { display = twips; }
    QRect Video_Geometry() const override { return video; }
    void Set_Video_Geometry(const QRect& pixels) override { video = pixels; }
    void Set_Top_Pictures_Visible(bool visible) override { top_pictures = visible; }
    void Set_Video_Visible(bool visible) override { video_visible = visible; }
    QSize Screen_Size() const override { return screen; }
};

TEST(Display_Layout, VideoAndAudioLayoutsSizeTheWindowAndCentreItRoundingHalfTwipsToEven)
{
    Fake_Display host;
    host.video_visible = false;
    Show_Video_Layout(host, QSize(352, 288));
    EXPECT_EQ(host.video, QRect(0, 20, 352, 288));
    EXPECT_TRUE(host.video_visible);
    EXPECT_EQ(host.display, QRect((15360 - 5280) / 2, (11520 - 4620) / 2, 352 * 15, 288 * 15 + 300));

    host.top_pictures = false;
    Show_Audio_Layout(host);
    EXPECT_EQ(host.display, QRect((15360 - 5250) / 2, (11520 - 4200) / 2, 5250, 4200));
    EXPECT_TRUE(host.top_pictures);
    EXPECT_FALSE(host.video_visible);

    host.display = QRect(0, 0, 4815, 4801);  // odd differences: half twips
    Center_Display(host);
    EXPECT_EQ(host.display.topLeft(), QPoint(5272, 3360));  // 5272.5 -> 5272, 3359.5 -> 3360
}

TEST(Display_Layout, APictureLargerThanTheScreenIsScaledDownKeepingItsShape)
{
    struct Case {
        QSize picture;  // pixels, as the file claims
        QSize shown;    // pixels, on a 1024 x 768 screen: 748 px below the 20 px top bar
    };
    const Case cases[] = {
        {{352, 288}, {352, 288}},     // fits: as it is
        {{1024, 748}, {1024, 748}},   // exactly the room there is
        {{335, 4100}, {61, 748}},     // far too tall: 335 x 748 / 4100 = 61.1
        {{4000, 1000}, {1024, 256}},  // far too wide
        {{1025, 748}, {1024, 747}},   // one pixel too wide: 747.27
        {{2048, 1496}, {1024, 748}},  // twice the room in both directions
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(testing::Message() << test.picture.width() << "x" << test.picture.height());
        Fake_Display host;
        Show_Video_Layout(host, test.picture);
        EXPECT_EQ(host.video, QRect(QPoint(0, 20), test.shown));
        EXPECT_EQ(host.display.size(), QSize(test.shown.width() * 15, test.shown.height() * 15 + 300));
        EXPECT_TRUE(QRect(QPoint(0, 0), host.screen).contains(host.display));
    }
}

TEST(Display_Layout, FullScreenFillsTheWidthKeepsTheFourPixelReductionAndRoundsToEven)
{
    struct Case {
        QSize screen;   // pixels
        QSize picture;  // pixels
        QRect video;    // pixels, in full screen
    };
    const Case cases[] = {
        {{1024, 768}, {320, 240}, {0, 2, 1024, 764}},      // 4:3: 768 - 4 high, top (768 - 764) / 2
        {{1366, 768}, {720, 404}, {0, 3, 1366, 762}},      // 762.48 -> 762
        {{1366, 768}, {1280, 720}, {0, 2, 1366, 764}},     // 768.375 - 4 -> 764
        {{1365, 770}, {100, 100}, {0, -296, 1365, 1361}},  // top -295.5 -> -296
        {{1024, 768}, {352, 288}, {0, -33, 1024, 834}},    // 833.8 -> 834
        {{1024, 768}, {0, 0}, {0, 2, 1024, 764}},          // no picture size: the screen's shape
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(testing::Message() << test.picture.width() << "x" << test.picture.height() << " on "
                                        << test.screen.width() << "x" << test.screen.height());
        Fake_Display host;
        host.screen = test.screen * 15;
        Show_Video_Layout(host, test.picture);
        Full_Screen_Memory memory;
        bool full_screen = false;
        Enter_Full_Screen(host, memory, full_screen);
        EXPECT_TRUE(full_screen);
        EXPECT_FALSE(host.top_pictures);
        EXPECT_EQ(host.display, QRect(QPoint(0, 0), test.screen * 15));
        EXPECT_EQ(host.video, test.video);
    }
}

TEST(Display_Layout, LeavingFullScreenRestoresTheSavedPlaceAndSize)
{
    Fake_Display host;
    Show_Video_Layout(host, QSize(320, 240));
    const QRect before = host.display;
    Full_Screen_Memory memory;
    bool full_screen = false;
    Enter_Full_Screen(host, memory, full_screen);
    Leave_Full_Screen(host, memory, full_screen);
    EXPECT_FALSE(full_screen);
    EXPECT_TRUE(host.top_pictures);
    EXPECT_EQ(host.video, QRect(0, 20, 320, 240));
    EXPECT_EQ(host.display, before);
}

TEST(Display_Layout, ReapplyingFullScreenFollowsTheNewTrackOnlyWhenTheFlagIsSet)
{
    Fake_Display host;
    bool full_screen = false;
    Display_Window_Layout layout(host, full_screen);
    layout.Video_Layout(QSize(320, 240));
    layout.Reapply_Full_Screen(true);
    EXPECT_FALSE(full_screen);
    EXPECT_EQ(host.video, QRect(0, 20, 320, 240));

    layout.Enter_Full_Screen();
    // The next track is laid out in its own size first, then full screen again,
    // and its size and centred place are what leaving goes back to.
    layout.Video_Layout(QSize(352, 288));
    const QRect centred = host.display;
    layout.Reapply_Full_Screen(true);
    EXPECT_TRUE(full_screen);
    EXPECT_EQ(host.display, QRect(0, 0, 15360, 11520));
    EXPECT_EQ(layout.Memory().Saved_Video_Width, 352);
    EXPECT_EQ(layout.Memory().Saved_Display_Top, centred.top());

    // A track without a picture takes the audio layout; the flag stays.
    layout.Reapply_Full_Screen(false);
    EXPECT_TRUE(full_screen);
    EXPECT_EQ(host.display.size(), QSize(5250, 4200));
    EXPECT_TRUE(host.top_pictures);
}

} // namespace
} // namespace Orvane

// The display window's layouts in twips and pixels, on a fake window.
#include "media/display_layout.h"

#include <gtest/gtest.h>

namespace Orvane {
namespace {

class Fake_Display : public Display_Host {
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

TEST(Display_Layout, AVideoTrackSizesTheWindowToThePictureAndCentresIt)
{
    Fake_Display host;
    host.video_visible = false;
    Show_Video_Layout(host, QSize(352, 288));
    EXPECT_EQ(host.video, QRect(0, 20, 352, 288));
    EXPECT_TRUE(host.video_visible);
    EXPECT_EQ(host.display.size(), QSize(352 * 15, 288 * 15 + 300));
    EXPECT_EQ(host.display.left(), (15360 - 5280) / 2);
    EXPECT_EQ(host.display.top(), (11520 - 4620) / 2);
}

TEST(Display_Layout, CentringRoundsHalfTwipsToEven)
{
    Fake_Display host;
    host.screen = QSize(15360, 11520);
    host.display = QRect(0, 0, 4815, 4801);  // odd differences: x.5 twips
    Center_Display(host);
    EXPECT_EQ(host.display.left(), 5272);  // 5272.5 -> 5272
    EXPECT_EQ(host.display.top(), 3360);   // 3359.5 -> 3360
    EXPECT_EQ(host.display.size(), QSize(4815, 4801));
}

TEST(Display_Layout, AnAudioTrackShowsTheSplashWindowCentredWithItsPictures)
{
    Fake_Display host;
    host.top_pictures = false;
    Show_Audio_Layout(host);
    EXPECT_EQ(host.display, QRect((15360 - 5250) / 2, (11520 - 4200) / 2, 5250, 4200));
    EXPECT_TRUE(host.top_pictures);
    EXPECT_FALSE(host.video_visible);
}

TEST(Display_Layout, FullScreenOnA4By3PictureKeepsTheFourPixelReductionAndComesBack)
{
    Fake_Display host;
    Show_Video_Layout(host, QSize(320, 240));
    const QRect before = host.display;
    Full_Screen_Memory memory;
    bool full_screen = false;

    Enter_Full_Screen(host, memory, full_screen);
    EXPECT_TRUE(full_screen);
    EXPECT_FALSE(host.top_pictures);
    EXPECT_EQ(host.display, QRect(0, 0, 1024 * 15, 768 * 15));
    EXPECT_EQ(host.video, QRect(0, 2, 1024, 764));
    EXPECT_EQ(memory.Saved_Video_Width, 320);
    EXPECT_EQ(memory.Saved_Video_Height, 240);
    EXPECT_EQ(memory.Saved_Display_Left, float(before.left()));
    EXPECT_EQ(memory.Saved_Display_Top, before.top());

    Leave_Full_Screen(host, memory, full_screen);
    EXPECT_FALSE(full_screen);
    EXPECT_TRUE(host.top_pictures);
    EXPECT_EQ(host.video, QRect(0, 20, 320, 240));
    EXPECT_EQ(host.display, before);
}

TEST(Display_Layout, FullScreenOnAWidePictureAndAWideScreenRoundsToEven)
{
    Fake_Display host;
    host.screen = QSize(1366 * 15, 768 * 15);
    Show_Video_Layout(host, QSize(720, 404));
    Full_Screen_Memory memory;
    bool full_screen = false;
    Enter_Full_Screen(host, memory, full_screen);
    // 20490 / (720 / 404) / 15 - 4 = 762.48..., rounded 762; top (768 - 762) / 2 = 3.
    EXPECT_EQ(host.video, QRect(0, 3, 1366, 762));
    EXPECT_EQ(host.display, QRect(0, 0, 20490, 11520));

    // A 16:9 picture on 1366 x 768: 768.375 - 4 -> 764; top (768 - 764) / 2 = 2.
    Show_Video_Layout(host, QSize(1280, 720));
    Enter_Full_Screen(host, memory, full_screen);
    EXPECT_EQ(host.video, QRect(0, 2, 1366, 764));
    // Half pixels go to the even neighbour: 1365 px wide screen, 1:1 picture
    // gives 1365 - 4 = 1361 high on 770 px, top (770 - 1361) / 2 = -295.5 -> -296.
    host.screen = QSize(1365 * 15, 770 * 15);
    Show_Video_Layout(host, QSize(100, 100));
    Enter_Full_Screen(host, memory, full_screen);
    EXPECT_EQ(host.video, QRect(0, -296, 1365, 1361));
}

TEST(Display_Layout, ReapplyingFullScreenFollowsTheNewTrackOnlyWhenTheFlagIsSet)
{
    Fake_Display host;
    Full_Screen_Memory memory;
    bool full_screen = false;
    Show_Video_Layout(host, QSize(320, 240));
    Reapply_Full_Screen(host, memory, full_screen, true);
    EXPECT_FALSE(full_screen);
    EXPECT_EQ(host.video, QRect(0, 20, 320, 240));

    Enter_Full_Screen(host, memory, full_screen);
    // The next track is opened in its own size first, then full screen again.
    Show_Video_Layout(host, QSize(352, 288));
    const QRect centred = host.display;
    Reapply_Full_Screen(host, memory, full_screen, true);
    EXPECT_TRUE(full_screen);
    EXPECT_EQ(host.display, QRect(0, 0, 15360, 11520));
    EXPECT_EQ(memory.Saved_Video_Width, 352);
    EXPECT_EQ(memory.Saved_Display_Top, centred.top());
    // 352 x 288 is 11:9: 15360 / (352 / 288) / 15 - 4 = 833.8 -> 834, top -33.
    EXPECT_EQ(host.video, QRect(0, -33, 1024, 834));

    // A track without a picture takes the audio layout; the flag stays.
    Reapply_Full_Screen(host, memory, full_screen, false);
    EXPECT_TRUE(full_screen);
    EXPECT_EQ(host.display.size(), QSize(5250, 4200));
    EXPECT_TRUE(host.top_pictures);
}

TEST(Display_Layout, FullScreenWithoutAPictureSizeTakesTheScreensShape)
{
    Fake_Display host;
    host.video = QRect(0, 20, 0, 0);
    Full_Screen_Memory memory;
    bool full_screen = false;
    Enter_Full_Screen(host, memory, full_screen);
    EXPECT_EQ(host.video, QRect(0, 2, 1024, 764));
}

} // namespace
} // namespace Orvane

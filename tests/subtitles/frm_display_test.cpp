// The display window as the layout routines and the keyboard see it.
#include "media/video_widget.h"
#include "subtitles/frm_display.h"
#include "ui/skin_resources.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>

namespace Orvane {
namespace {

QWidget* Child(const Frm_display& window, const char* name)
{
    return window.findChild<QWidget*>(QString::fromLatin1(name));
}

TEST(Frm_display, TheVideoLayoutPutsThePictureUnderTheTopBarAndHidesTheSplash)
{
    Init_Skin_Resources();
    Frm_display window;
    window.show();
    Show_Video_Layout(window, QSize(320, 240));
    EXPECT_EQ(window.size(), QSize(320, 260));
    EXPECT_EQ(window.Video()->geometry(), QRect(0, 20, 320, 240));
    EXPECT_TRUE(window.Video()->isVisible());
    EXPECT_FALSE(window.Splash_Visible());
    // Centred on the available area of its screen.
    const QSize screen = window.Screen_Size() / Twips_Per_Pixel;
    EXPECT_NEAR(window.Display_Geometry().left() / Twips_Per_Pixel, (screen.width() - 320) / 2, 1);

    // The top bar: the two ends at their drawn shape, the middle stretched between.
    QWidget* left = Child(window, "Img_Haut_G");
    QWidget* middle = Child(window, "Img_Haut_Centre");
    QWidget* right = Child(window, "Img_Haut_D");
    ASSERT_TRUE(left && middle && right);
    EXPECT_EQ(left->geometry(), QRect(0, 0, 40, 20));  // drawn 40 x 20
    EXPECT_EQ(middle->height(), 20);
    EXPECT_EQ(middle->x(), left->width());
    EXPECT_EQ(right->geometry().right(), 319);
    EXPECT_EQ(left->width() + middle->width() + right->width(), 320);
}

TEST(Frm_display, TheAudioLayoutShowsTheSplashAndFullScreenHidesTheTopBar)
{
    Frm_display window;
    window.show();
    Show_Audio_Layout(window);
    EXPECT_EQ(window.size(), QSize(350, 280));
    EXPECT_TRUE(window.Splash_Visible());
    EXPECT_FALSE(window.Video()->isVisible());

    bool full_screen = false;
    Display_Layout layout(window, full_screen);
    layout.Video_Layout(QSize(320, 240));
    const QRect before = window.geometry();
    layout.Enter_Full_Screen();
    EXPECT_TRUE(full_screen);
    EXPECT_FALSE(window.Top_Pictures_Visible());
    EXPECT_FALSE(Child(window, "Img_Haut_Centre")->isVisible());
    EXPECT_EQ(window.Display_Geometry(), QRect(QPoint(0, 0), window.Screen_Size()));
    EXPECT_EQ(window.Video()->width(), window.Screen_Size().width() / Twips_Per_Pixel);
    layout.Leave_Full_Screen();
    EXPECT_FALSE(full_screen);
    EXPECT_TRUE(Child(window, "Img_Haut_Centre")->isVisible());
    EXPECT_EQ(window.geometry(), before);
}

TEST(Frm_display, GeometryInTwipsRoundTripsThroughPixels)
{
    Frm_display window;
    window.Set_Display_Geometry(QRect(1500, 3000, 5250, 4200));
    EXPECT_EQ(window.Display_Geometry(), QRect(1500, 3000, 5250, 4200));
    window.Set_Video_Geometry(QRect(0, 2, 1024, 764));
    EXPECT_EQ(window.Video_Geometry(), QRect(0, 2, 1024, 764));
}

TEST(Frm_display, KeysGoToThePlayersDispatcherAsTheFirstCharacterOfTheirText)
{
    Frm_display window;
    std::vector<int> codes;
    window.Set_Key_Handler([&codes](int code) { codes.push_back(code); });
    const auto press = [&window](Qt::Key key, const QString& text, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(&window, &event);
    };
    press(Qt::Key_A, "a");
    press(Qt::Key_Space, " ");
    press(Qt::Key_F1, QString());
    press(Qt::Key_P, "P", Qt::ShiftModifier);
    press(Qt::Key_Eacute, QString::fromUtf8("\u00e9"));
    EXPECT_EQ(codes, (std::vector<int>{'a', ' ', 0, 'P', 0xe9}));
}

} // namespace
} // namespace Orvane

// The display window's own part; the layout arithmetic is tested with the layout routines.
#include "ui/video_widget.h"
#include "subtitles/frm_display.h"
#include "ui/skin_resources.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>

namespace Orvane {
namespace {

TEST(Frm_Display, TopBarAroundTheVideoAndKeysToThePlayersDispatcher)
{
    Init_Skin_Resources();
    Frm_display window;
    window.show();
    Show_Audio_Layout(window);
    EXPECT_TRUE(window.Splash_Visible());
    EXPECT_FALSE(window.Video()->isVisible());
    Show_Video_Layout(window, QSize(320, 240));
    EXPECT_FALSE(window.Splash_Visible());
    EXPECT_TRUE(window.Video()->isVisible());
    EXPECT_EQ(window.Video()->geometry(), QRect(0, 20, 320, 240));
    // The two ends at their drawn 40 x 20 shape, the middle stretched between them.
    QWidget* const middle = window.findChild<QWidget*>(QStringLiteral("Img_Haut_Centre"));
    const QRect left = window.findChild<QWidget*>(QStringLiteral("Img_Haut_G"))->geometry();
    const QRect right = window.findChild<QWidget*>(QStringLiteral("Img_Haut_D"))->geometry();
    EXPECT_EQ(left, QRect(0, 0, 40, 20));
    EXPECT_EQ(middle->geometry(), QRect(40, 0, right.left() - 40, 20));
    EXPECT_EQ(right.right(), 319);
    window.Set_Top_Pictures_Visible(false);
    EXPECT_FALSE(window.Top_Pictures_Visible());
    EXPECT_FALSE(middle->isVisible());

    // A key goes on as the first character of its text.
    std::vector<int> codes;
    window.Set_Key_Handler([&codes](int code) { codes.push_back(code); });
    for (const auto& [key, text] : std::initializer_list<std::pair<Qt::Key, QString>>{
             {Qt::Key_A, "a"}, {Qt::Key_Space, " "}, {Qt::Key_F1, ""}, {Qt::Key_P, "P"}, {Qt::Key_Eacute, "\u00e9"}}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(&window, &event);
    }
    EXPECT_EQ(codes, (std::vector<int>{'a', ' ', 0, 'P', 0xe9}));
}

} // namespace
} // namespace Orvane

#include "ui/frm_about.h"
#include "ui/frm_rien.h"
#include "ui/picture_button.h"
#include "ui/skin_label.h"
#include "ui/skin_resources.h"
#include "ui/window_shell.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <vector>

namespace Orvane {
namespace {

// Distance of a pixel's centre from the inside of the rounded outline:
// negative inside the rounded rectangle, positive outside, in pixels.
double Outline_Distance(QSize size, int corner, QPoint pixel)
{
    const double r = corner / 2.0;
    const double px = pixel.x() + 0.5;
    const double py = pixel.y() + 0.5;
    const double cx = std::clamp(px, r, size.width() - r);
    const double cy = std::clamp(py, r, size.height() - r);
    if (cx == px || cy == py) {
        // Beside a straight side.
        return std::max({-px, px - size.width(), -py, py - size.height()});
    }
    return std::hypot(px - cx, py - cy) - r;
}

TEST(Rounded_Region, follows_the_rounded_rectangle_of_each_corner_size)
{
    for (const auto& [size, corner] : std::vector<std::pair<QSize, int>>{
             {{600, 133}, 62}, {{600, 260}, 62}, {{420, 480}, 30}, {{360, 232}, 40}}) {
        const QRegion region = Rounded_Region(size, corner);
        EXPECT_EQ(region.boundingRect(), QRect(QPoint(0, 0), size)) << corner;
        EXPECT_TRUE(region.contains(QPoint(size.width() / 2, size.height() / 2)));
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                const double distance = Outline_Distance(size, corner, {x, y});
                // Pixels cut in half by the curve may fall either way.
                if (distance < -1.0) {
                    ASSERT_TRUE(region.contains(QPoint(x, y))) << x << "," << y << " corner " << corner;
                } else if (distance > 1.0) {
                    ASSERT_FALSE(region.contains(QPoint(x, y))) << x << "," << y << " corner " << corner;
                }
            }
        }
        for (const QPoint corner_pixel : {QPoint(0, 0), QPoint(size.width() - 1, 0),
                                          QPoint(0, size.height() - 1),
                                          QPoint(size.width() - 1, size.height() - 1)})
            EXPECT_FALSE(region.contains(corner_pixel));
    }
}

TEST(Rounded_Region, is_symmetric_in_its_four_corners)
{
    const QSize size(600, 133);
    const QRegion region = Rounded_Region(size, 62);
    for (int y = 0; y < 40; ++y)
        for (int x = 0; x < 40; ++x) {
            const bool inside = region.contains(QPoint(x, y));
            ASSERT_EQ(region.contains(QPoint(size.width() - 1 - x, y)), inside);
            ASSERT_EQ(region.contains(QPoint(x, size.height() - 1 - y)), inside);
            ASSERT_EQ(region.contains(QPoint(size.width() - 1 - x, size.height() - 1 - y)), inside);
        }
}

TEST(Rounded_Region, shrinks_a_corner_larger_than_the_window_and_keeps_square_corners_at_zero)
{
    // The start-up unroll passes through a bar 20 px high with a 62 px corner.
    const QRegion thin = Rounded_Region({600, 20}, 62);
    EXPECT_EQ(thin.boundingRect(), QRect(0, 0, 600, 20));
    EXPECT_TRUE(thin.contains(QPoint(0, 10)));
    EXPECT_TRUE(thin.contains(QPoint(300, 0)));
    EXPECT_TRUE(thin.contains(QPoint(300, 19)));
    EXPECT_FALSE(thin.contains(QPoint(0, 0)));
    EXPECT_FALSE(thin.contains(QPoint(599, 19)));

    EXPECT_EQ(Rounded_Region({50, 30}, 0), QRegion(0, 0, 50, 30));
    EXPECT_TRUE(Rounded_Region({0, 30}, 10).isEmpty());
}

TEST(Shape_Window, masks_the_window_and_keeps_the_mask_of_its_size_when_it_grows)
{
    QWidget window(nullptr, Qt::Window | Qt::FramelessWindowHint);
    window.resize(420, 480);
    Shape_Window(&window, 30);
    EXPECT_EQ(window.mask(), Rounded_Region({420, 480}, 30));

    window.resize(420, 600);
    EXPECT_EQ(window.mask().boundingRect(), QRect(0, 0, 420, 480));
    Shape_Window(&window, 30);
    EXPECT_EQ(window.mask().boundingRect(), QRect(0, 0, 420, 600));
    EXPECT_FALSE(window.mask().contains(QPoint(419, 599)));
}

QMouseEvent Mouse(QEvent::Type type, QPoint global, Qt::MouseButtons buttons)
{
    const Qt::MouseButton button =
        type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    return QMouseEvent(type, QPointF(5, 5), QPointF(global), button, buttons, Qt::NoModifier);
}

TEST(Drag_Window, moves_the_window_with_the_mouse_until_the_button_is_released)
{
    // The offscreen platform has no system move, so the window follows the
    // mouse by hand.
    QWidget window(nullptr, Qt::Window | Qt::FramelessWindowHint);
    auto* child = new QWidget(&window);
    child->setGeometry(10, 10, 50, 50);
    window.setGeometry(100, 100, 300, 200);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const QPoint start = window.pos();
    QCursor::setPos(200, 200);

    Drag_Window(child);
    auto moved = Mouse(QEvent::MouseMove, {230, 250}, Qt::LeftButton);
    QApplication::sendEvent(child, &moved);
    EXPECT_EQ(window.pos(), start + QPoint(30, 50));
    auto moved_back = Mouse(QEvent::MouseMove, {190, 195}, Qt::LeftButton);
    QApplication::sendEvent(child, &moved_back);
    EXPECT_EQ(window.pos(), start + QPoint(-10, -5));

    auto released = Mouse(QEvent::MouseButtonRelease, {190, 195}, Qt::NoButton);
    QApplication::sendEvent(child, &released);
    auto after = Mouse(QEvent::MouseMove, {400, 400}, Qt::LeftButton);
    QApplication::sendEvent(child, &after);
    EXPECT_EQ(window.pos(), start + QPoint(-10, -5));
}

TEST(Drag_Window, stops_following_a_mouse_whose_buttons_are_all_up)
{
    QWidget window(nullptr, Qt::Window | Qt::FramelessWindowHint);
    window.setGeometry(100, 100, 300, 200);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const QPoint start = window.pos();
    QCursor::setPos(200, 200);

    Drag_Window(&window);
    auto hover = Mouse(QEvent::MouseMove, {260, 260}, Qt::NoButton);
    QApplication::sendEvent(&window, &hover);
    auto later = Mouse(QEvent::MouseMove, {300, 300}, Qt::LeftButton);
    QApplication::sendEvent(&window, &later);
    EXPECT_EQ(window.pos(), start);
}

TEST(Key_Press_Code, is_the_first_character_of_the_text_or_zero)
{
    const auto code = [](Qt::Key key, const QString& text,
                         Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        return Key_Press_Code(QKeyEvent(QEvent::KeyPress, key, modifiers, text));
    };
    EXPECT_EQ(code(Qt::Key_B, QStringLiteral("B"), Qt::ShiftModifier), 66);
    EXPECT_EQ(code(Qt::Key_B, QStringLiteral("b")), 98);
    EXPECT_EQ(code(Qt::Key_Space, QStringLiteral(" ")), 32);
    EXPECT_EQ(code(Qt::Key_5, QStringLiteral("5"), Qt::KeypadModifier), 53);
    EXPECT_EQ(code(Qt::Key_Eacute, QStringLiteral("é")), 233);
    EXPECT_EQ(code(Qt::Key_F5, QString()), 0);
    EXPECT_EQ(code(Qt::Key_Left, QString()), 0);
}

TEST(Frm_Rien, hands_every_key_code_unchanged_to_the_dispatcher)
{
    std::vector<int> received;
    Frm_Rien rien([&received](int code) { received.push_back(code); });
    EXPECT_TRUE(rien.windowFlags().testFlag(Qt::FramelessWindowHint));

    for (const auto& [key, text] : std::vector<std::pair<Qt::Key, QString>>{
             {Qt::Key_B, QStringLiteral("B")}, {Qt::Key_B, QStringLiteral("b")},
             {Qt::Key_Space, QStringLiteral(" ")}, {Qt::Key_F, QStringLiteral("f")},
             {Qt::Key_8, QStringLiteral("8")}, {Qt::Key_Escape, QStringLiteral("\x1b")},
             {Qt::Key_F1, QString()}}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(&rien, &event);
    }
    EXPECT_EQ(received, (std::vector<int>{66, 98, 32, 102, 56, 27, 0}));
}

class About_Window : public testing::Test {
protected:
    static void SetUpTestSuite() { Init_Skin_Resources(); }

    void Show()
    {
        about.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&about));
    }

    Frm_About about;
};

TEST_F(About_Window, shows_the_version_at_every_opening)
{
    Show();
    EXPECT_EQ(about.Lbl_Version()->text(), QStringLiteral("0.5b"));
    about.Lbl_Version()->setText(QStringLiteral("changed"));
    about.close();
    Show();
    EXPECT_EQ(about.Lbl_Version()->text(), QStringLiteral("0.5b"));
    EXPECT_FALSE(about.Label1()->text().isEmpty());
    EXPECT_EQ(about.mask(), Rounded_Region(about.size(), Frm_About::Corner));
}

TEST_F(About_Window, closes_on_a_click_on_the_picture_the_text_or_the_background)
{
    const auto centre_in_window = [this](QWidget* control) {
        return control->geometry().center();
    };
    const std::vector<QPoint> places = {
        centre_in_window(about.Image1()),
        centre_in_window(about.Label1()),
        centre_in_window(about.Lbl_Version()),
        QPoint(8, about.height() - 8),  // background below the texts
    };
    for (const QPoint place : places) {
        Show();
        QTest::mouseClick(about.windowHandle(), Qt::LeftButton, {}, place);
        EXPECT_FALSE(about.isVisible()) << place.x() << "," << place.y();
    }
}

TEST_F(About_Window, stays_open_when_the_press_on_the_picture_ends_elsewhere)
{
    Show();
    QSignalSpy clicks(about.Image1(), &Picture_Button::Clicked);
    QTest::mousePress(about.Image1(), Qt::LeftButton, {}, QPoint(20, 20));
    QTest::mouseRelease(about.Image1(), Qt::LeftButton, {}, QPoint(20, about.Image1()->height() + 30));
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_TRUE(about.isVisible());
    QTest::mouseClick(about.Image1(), Qt::RightButton, {}, QPoint(20, 20));
    EXPECT_TRUE(about.isVisible());
}

} // namespace
} // namespace Orvane

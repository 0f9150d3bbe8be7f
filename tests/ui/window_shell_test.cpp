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
#include <QScreen>
#include <QTest>

#include <cmath>
#include <tuple>
#include <vector>

namespace Orvane {
namespace {

// Distance of a pixel's centre from the rounded outline: negative inside, positive outside, in pixels.
double Outline_Distance(QSize size, int corner, QPoint pixel)
{
    const double r = corner / 2.0, px = pixel.x() + 0.5, py = pixel.y() + 0.5;
    const double cx = std::clamp(px, r, size.width() - r), cy = std::clamp(py, r, size.height() - r);
    if (cx == px || cy == py)  // beside a straight side
        return std::max({-px, px - size.width(), -py, py - size.height()});
    return std::hypot(px - cx, py - cy) - r;
}

TEST(Rounded_Region, FollowsTheRoundedRectangleOfEachCornerSize)
{
    for (const auto& [size, corner] : std::vector<std::pair<QSize, int>>{
             {{600, 133}, 62}, {{600, 260}, 62}, {{420, 480}, 30}, {{360, 232}, 40}}) {
        SCOPED_TRACE(corner);
        const QRegion region = Rounded_Region(size, corner);
        EXPECT_EQ(region.boundingRect(), QRect(QPoint(0, 0), size));
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x) {
                // Pixels cut in half by the curve may fall either way.
                const double distance = Outline_Distance(size, corner, {x, y});
                if (std::abs(distance) > 1.0) {
                    ASSERT_EQ(region.contains(QPoint(x, y)), distance < 0) << x << "," << y;
                }
            }
    }
    // The start-up unroll passes through a bar 20 px high with a 62 px corner.
    const QRegion thin = Rounded_Region({600, 20}, 62);
    EXPECT_EQ(thin.boundingRect(), QRect(0, 0, 600, 20));
    for (const auto& [point, inside] : {std::pair{QPoint(0, 10), true}, {QPoint(300, 0), true},
                                        {QPoint(300, 19), true}, {QPoint(0, 0), false}, {QPoint(599, 19), false}})
        EXPECT_EQ(thin.contains(point), inside) << point.x() << "," << point.y();
    EXPECT_EQ(Rounded_Region({50, 30}, 0), QRegion(0, 0, 50, 30));
}

TEST(Shape_Window, KeepsTheRegionOfItsSizeWhenTheWindowGrows)
{
    QWidget window(nullptr, Qt::Window | Qt::FramelessWindowHint);
    window.resize(420, 480);
    Shape_Window(&window, 30);
    EXPECT_EQ(window.mask(), Rounded_Region({420, 480}, 30));
    window.resize(420, 600);
    EXPECT_EQ(window.mask(), Rounded_Region({420, 480}, 30));
    Shape_Window(&window, 30);
    EXPECT_EQ(window.mask(), Rounded_Region({420, 600}, 30));
}

TEST(Drag_Window, MovesTheWindowWithTheMouseUntilTheButtonIsUp)
{
    // The offscreen platform has no system move, so the window follows the mouse by hand.
    QWidget window(nullptr, Qt::Window | Qt::FramelessWindowHint);
    auto* child = new QWidget(&window);
    child->setGeometry(10, 10, 50, 50);
    window.setGeometry(100, 100, 300, 200);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const QPoint start = window.pos();
    const auto mouse = [child](QEvent::Type type, QPoint global, Qt::MouseButtons buttons) {
        QMouseEvent event(type, QPointF(5, 5), QPointF(global), type == QEvent::MouseMove ? Qt::NoButton
                          : Qt::LeftButton, buttons, Qt::NoModifier);
        QApplication::sendEvent(child, &event);
    };
    QCursor::setPos(200, 200);
    Drag_Window(child);
    mouse(QEvent::MouseMove, {230, 250}, Qt::LeftButton);
    mouse(QEvent::MouseMove, {190, 195}, Qt::LeftButton);
    EXPECT_EQ(window.pos(), start + QPoint(-10, -5));
    mouse(QEvent::MouseButtonRelease, {190, 195}, Qt::NoButton);
    mouse(QEvent::MouseMove, {400, 400}, Qt::LeftButton);
    EXPECT_EQ(window.pos(), start + QPoint(-10, -5));

    // A move with every button up ends the drag too.
    Drag_Window(child);
    mouse(QEvent::MouseMove, {260, 260}, Qt::NoButton);
    mouse(QEvent::MouseMove, {300, 300}, Qt::LeftButton);
    EXPECT_EQ(window.pos(), start + QPoint(-10, -5));
}

// The hidden window that takes the keys: shown, with nothing of it to draw
// or catch a click, it hands each key's first character on unchanged.
TEST(Frm_Rien, HandsTheFirstCharacterOfEveryKeyUnchangedToTheDispatcher)
{
    std::vector<int> received;
    Frm_Rien rien([&received](int code) { received.push_back(code); });
    rien.show();
    rien.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&rien] { return QApplication::focusWidget() == &rien; }, 3000));
    QTest::keyClick(rien.windowHandle(), Qt::Key_5, Qt::KeypadModifier);
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, QString> keys[] = {{Qt::Key_B, Qt::ShiftModifier, "B"},
        {Qt::Key_B, {}, "b"}, {Qt::Key_Space, {}, " "}, {Qt::Key_Eacute, {}, "é"}, {Qt::Key_Escape, {}, "\x1b"},
        {Qt::Key_F1, {}, ""}, {Qt::Key_Left, {}, ""}};
    for (const auto& [key, modifiers, text] : keys) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(&rien, &event);
    }
    EXPECT_EQ(received, (std::vector<int>{53, 66, 98, 32, 233, 27, 0, 0}));
    // A real outline (an empty one would mean none) with nothing of the window inside it.
    EXPECT_FALSE(rien.mask().isEmpty());
    EXPECT_TRUE(rien.mask().intersected(rien.rect()).isEmpty());
}

TEST(Frm_About, OpensCentredWithItsCaptionShowsTheVersionEachTimeAndClosesOnAClick)
{
    Init_Skin_Resources();
    Frm_About about("À propos d'Orvane", "Orvane — lecteur multimédia");
    about.move(0, 0);
    const auto show = [&about] { about.show(); return QTest::qWaitForWindowExposed(&about); };
    ASSERT_TRUE(show());
    const QRect area = about.screen()->availableGeometry();
    EXPECT_EQ(about.geometry().topLeft(), QPoint(area.left() + (area.width() - about.width()) / 2,
                                                  area.top() + (area.height() - about.height()) / 2));
    EXPECT_EQ(about.windowTitle(), "À propos d'Orvane");
    EXPECT_EQ(about.Label1()->text(), "Orvane — lecteur multimédia");
    EXPECT_EQ(about.mask(), Rounded_Region(about.size(), Frm_About::Corner));
    about.hide();
    for (const QPoint place : {about.Image1()->geometry().center(), about.Label1()->geometry().center(),
                               about.Lbl_Version()->geometry().center(), QPoint(8, about.height() - 8)}) {
        about.Lbl_Version()->setText("changed");
        ASSERT_TRUE(show());
        EXPECT_EQ(about.Lbl_Version()->text(), "0.5b");  // set at every opening
        QTest::mouseClick(about.windowHandle(), Qt::LeftButton, {}, place);
        EXPECT_FALSE(about.isVisible()) << place.x() << "," << place.y();
    }
    ASSERT_TRUE(show());
    // A press on the picture that ends elsewhere, or a right click, leaves it open.
    QTest::mousePress(about.Image1(), Qt::LeftButton, {}, QPoint(20, 20));
    QTest::mouseRelease(about.Image1(), Qt::LeftButton, {}, QPoint(20, about.Image1()->height() + 30));
    QTest::mouseClick(about.Image1(), Qt::RightButton, {}, QPoint(20, 20));
    EXPECT_TRUE(about.isVisible());
}

} // namespace
} // namespace Orvane

// The skin's pictures and controls, the windows' chrome (rounded outline,
// dragging), the hidden key window (also on a real X server, where the
// window system decides what is drawn) and the About window. The windows'
// own tests hold their layouts; what the controls report of the mouse is
// tested here only.
#include "ui/frm_about.h"
#include "ui/frm_rien.h"
#include "ui/picture_button.h"
#include "ui/skin_label.h"
#include "ui/skin_picture.h"
#include "ui/skin_progress_track.h"
#include "ui/skin_resources.h"
#include "ui/window_shell.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QKeyEvent>
#include <QScreen>
#include <QSignalSpy>
#include <QSvgRenderer>
#include <QTest>

#include <tuple>
#include <vector>

namespace Orvane {
namespace {

class Skin : public testing::Test {
protected:
    static void SetUpTestSuite() { Init_Skin_Resources(); }
};

// The accent colour of the skin's lit parts: a bright cyan.
bool Is_Lit(QRgb pixel)
{
    const QColor colour = QColor::fromRgba(pixel);
    return colour.alpha() > 200 && colour.blue() > 190 && colour.green() > 150 && colour.red() < 150;
}

TEST_F(Skin, EveryPictureTheWindowsAskForIsCompiledInAndDraws)
{
    QStringList names = QStringLiteral("player_background display_splash about_picture playlist_background "
        "progress_track progress_fill progress_cursor lamp_audio lamp_subtitles_off lamp_subtitles_on option_box "
        "option_mark display_top_left display_top_middle display_top_right tab_playlist tab_audio tab_subtitles "
        "tab_playlist_active tab_audio_active tab_subtitles_active volume_0 volume_1 volume_2 volume_3 volume_4 "
        "volume_5 volume_6 button_open button_play button_stop button_pause button_fullscreen button_subtitles "
        "button_config button_playlist button_volume_up button_volume_down button_next button_audio "
        "button_previous button_add button_remove button_open_list button_save_list button_delay_up "
        "button_delay_down button_close").split(u' ');
    // Every file of the skin folder is compiled in too.
    for (const QString& file : QDir(ORVANE_SOURCE_DIR "/resources/skin").entryList({"*.svg"}, QDir::Files))
        names << file.chopped(4);
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        ASSERT_TRUE(QSvgRenderer(Skin_Path(name)).isValid());
        const QImage image = Render_Skin_Picture(name, Skin_Picture_Size(name), 1.0).toImage();
        QImage blank(image.size(), image.format());
        blank.fill(Qt::transparent);
        EXPECT_FALSE(image == blank) << "draws nothing";
    }
}

TEST_F(Skin, PictureButtonsAndClickableLabelsReportTheMouseAndLeaveTheSinkingToTheirOwner)
{
    Picture_Button button("button_play");
    button.Place(QRect(40, 55, 28, 24));
    QSignalSpy downs(&button, &Picture_Button::Mouse_Down);
    QSignalSpy ups(&button, &Picture_Button::Mouse_Up);
    QSignalSpy clicks(&button, &Picture_Button::Clicked);
    // Every button with the keys held: the owner decides what each does.
    QTest::mouseClick(&button, Qt::LeftButton, Qt::ShiftModifier, QPoint(10, 10));
    QTest::mouseClick(&button, Qt::RightButton, {}, QPoint(10, 10));
    // Released away from the button: a press and a release, but no click; a press alone does not sink it.
    QTest::mousePress(&button, Qt::LeftButton, {}, QPoint(10, 10));
    EXPECT_EQ(button.Top(), 55);
    QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(60, 10));
    EXPECT_EQ(QList<int>({int(downs.count()), int(ups.count()), int(clicks.count())}), QList<int>({3, 3, 2}));
    EXPECT_EQ(clicks.at(0).at(1).value<Qt::KeyboardModifiers>(), Qt::ShiftModifier);
    EXPECT_EQ(clicks.at(1).at(0).value<Qt::MouseButton>(), Qt::RightButton);

    // A label takes clicks only when clickable; a plain one lets the window drag.
    QWidget window;
    auto* label = new Skin_Label("00:00:00", &window);
    label->setGeometry(0, 0, 100, 20);
    QSignalSpy label_clicks(label, &Skin_Label::Clicked);
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(label, &press);
    EXPECT_FALSE(press.isAccepted());
    QTest::mouseClick(label, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(label_clicks.count(), 0);
    label->Set_Clickable(true);
    QTest::mouseClick(label, Qt::LeftButton, {}, QPoint(5, 5));
    QTest::mouseClick(label, Qt::RightButton, {}, QPoint(5, 5));
    EXPECT_EQ(label_clicks.count(), 1);
}

TEST_F(Skin, ProgressTrackReportsALeftDragInTwipsEvenOutsideAndLightsUpToTheFill)
{
    Skin_Progress_Track track("progress_track", "progress_fill");
    QSignalSpy downs(&track, &Skin_Progress_Track::Mouse_Down);
    QSignalSpy moves(&track, &Skin_Progress_Track::Mouse_Move);
    QSignalSpy ups(&track, &Skin_Progress_Track::Mouse_Up);
    QTest::mouseClick(&track, Qt::RightButton, {}, QPoint(50, 10));
    QTest::mousePress(&track, Qt::LeftButton, {}, QPoint(0, 10));
    // Dragged past either end, the positions go on; the last move hovers, no drag.
    for (const auto& [x, held] : {std::pair{155, Qt::LeftButton}, {-4, Qt::LeftButton}, {330, Qt::LeftButton},
                                  {100, Qt::NoButton}}) {
        QMouseEvent move(QEvent::MouseMove, QPointF(x, 10), track.mapToGlobal(QPointF(x, 10)), Qt::NoButton, held, {});
        QApplication::sendEvent(&track, &move);
    }
    QTest::mouseRelease(&track, Qt::LeftButton, {}, QPoint(310, 10));
    EXPECT_EQ(downs, QList<QList<QVariant>>({{0}}));
    EXPECT_EQ(moves, QList<QList<QVariant>>({{155 * 15}, {-4 * 15}, {330 * 15}}));
    EXPECT_EQ(ups, QList<QList<QVariant>>({{310 * 15}}));

    track.Set_Fill(100);
    const QImage image = track.grab().toImage();
    for (const auto& [x, lit] : {std::pair{50, true}, {95, true}, {105, false}, {250, false}})
        EXPECT_EQ(Is_Lit(image.pixel(x, track.height() / 2)), lit) << x;
}

TEST(Window_Shape, FollowsTheRoundedRectangleOfEachCornerSizeUntilTheWindowIsShapedAgain)
{
    // The corners of the player's outline (62) are cut, its sides whole; pixels the curve cuts in half may fall
    // either way, so each point lies clear of it.
    const QRegion player = Rounded_Region({600, 260}, 62);
    EXPECT_EQ(player.boundingRect(), QRect(0, 0, 600, 260));
    for (const auto& [point, inside] : {std::pair{QPoint(6, 6), false}, {QPoint(12, 12), true},
                                        {QPoint(593, 253), false}, {QPoint(587, 247), true}, {QPoint(0, 130), true},
                                        {QPoint(300, 0), true}, {QPoint(599, 130), true}, {QPoint(300, 259), true}})
        EXPECT_EQ(player.contains(point), inside) << point.x() << "," << point.y();
    // The start-up unroll passes through a bar 20 px high with a 62 px corner.
    const QRegion thin = Rounded_Region({600, 20}, 62);
    EXPECT_EQ(thin.boundingRect(), QRect(0, 0, 600, 20));
    for (const auto& [point, inside] : {std::pair{QPoint(0, 10), true}, {QPoint(300, 0), true},
                                        {QPoint(300, 19), true}, {QPoint(0, 0), false}, {QPoint(599, 19), false}})
        EXPECT_EQ(thin.contains(point), inside) << point.x() << "," << point.y();
    EXPECT_EQ(Rounded_Region({50, 30}, 0), QRegion(0, 0, 50, 30));

    // A window keeps the outline of the size it was shaped at until it is shaped again.
    QWidget window(nullptr, Qt::Window | Qt::FramelessWindowHint);
    window.resize(420, 480);
    Shape_Window(&window, 30);
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
    window.setGeometry(100, 100, 300, 200);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    const QPoint moved = window.pos() + QPoint(-10, -5);
    const auto mouse = [child](QEvent::Type type, QPoint global, Qt::MouseButtons buttons) {
        QMouseEvent event(type, QPointF(5, 5), QPointF(global), type == QEvent::MouseMove ? Qt::NoButton
                          : Qt::LeftButton, buttons, Qt::NoModifier);
        QApplication::sendEvent(child, &event);
    };
    QCursor::setPos(200, 200);
    Drag_Window(child);
    mouse(QEvent::MouseMove, {230, 250}, Qt::LeftButton);
    mouse(QEvent::MouseMove, {190, 195}, Qt::LeftButton);
    EXPECT_EQ(window.pos(), moved);
    mouse(QEvent::MouseButtonRelease, {190, 195}, Qt::NoButton);
    mouse(QEvent::MouseMove, {400, 400}, Qt::LeftButton);
    EXPECT_EQ(window.pos(), moved);
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

// On a real X server: the screen under the window shows what lies beneath it.
TEST(Frm_Rien, LeavesTheScreenUnderItUntouchedOnX11)
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        GTEST_SKIP() << "needs an X server (run under xvfb-run with QT_QPA_PLATFORM=xcb)";
    const QRect under(100, 100, 60, 60);
    const QColor red(200, 30, 40);
    QWidget beneath(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    beneath.setAutoFillBackground(true);
    beneath.setPalette(QPalette(red));
    beneath.setGeometry(under);
    beneath.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&beneath));

    std::vector<int> received;
    Frm_Rien rien([&received](int code) { received.push_back(code); });
    rien.move(under.topLeft() + QPoint(20, 20));
    rien.show();
    rien.raise();
    rien.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&rien] { return QApplication::focusWidget() == &rien; }, 5000));
    QTest::keyClick(rien.windowHandle(), Qt::Key_B);
    EXPECT_EQ(received, std::vector<int>{'b'});

    const QImage shot = QGuiApplication::primaryScreen()->grabWindow(0, under.x(), under.y(), under.width(),
                                                                       under.height()).toImage();
    QImage beneath_only(under.size(), QImage::Format_RGB32);
    beneath_only.fill(red);
    EXPECT_TRUE(shot.convertToFormat(QImage::Format_RGB32) == beneath_only);
}

TEST(Frm_About, ShowsTheVersionEachTimeItOpensAndClosesOnALeftClick)
{
    Init_Skin_Resources();
    Frm_About about("À propos d'Orvane", "Orvane — lecteur multimédia");
    const auto show = [&about] { about.show(); return QTest::qWaitForWindowExposed(&about); };
    for (const QPoint place : {about.Image1()->geometry().center(), about.Label1()->geometry().center(),
                               about.Lbl_Version()->geometry().center(), QPoint(8, about.height() - 8)}) {
        about.Lbl_Version()->setText("changed");
        ASSERT_TRUE(show());
        EXPECT_EQ(about.Lbl_Version()->text(), "0.5b");  // set at every opening
        QTest::mouseClick(about.windowHandle(), Qt::LeftButton, {}, place);
        EXPECT_FALSE(about.isVisible()) << place.x() << "," << place.y();
    }
    ASSERT_TRUE(show());
    EXPECT_EQ(about.mask(), Rounded_Region(about.size(), Frm_About::Corner));
    // A press on the picture that ends elsewhere, or a right click, leaves it open.
    QTest::mousePress(about.Image1(), Qt::LeftButton, {}, QPoint(20, 20));
    QTest::mouseRelease(about.Image1(), Qt::LeftButton, {}, QPoint(20, about.Image1()->height() + 30));
    QTest::mouseClick(about.Image1(), Qt::RightButton, {}, QPoint(20, 20));
    EXPECT_TRUE(about.isVisible());
}

} // namespace
} // namespace Orvane

#include "ui/picture_button.h"
#include "ui/skin_label.h"
#include "ui/skin_picture.h"
#include "ui/skin_progress_track.h"
#include "ui/skin_resources.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QSignalSpy>
#include <QSvgRenderer>
#include <QTest>

namespace Orvane {
namespace {

class Skin : public testing::Test {
protected:
    static void SetUpTestSuite() { Init_Skin_Resources(); }
};

QImage Render(const QString& name) { return Render_Skin_Picture(name, Skin_Picture_Size(name), 1.0).toImage(); }

// The accent colour of the skin's lit parts: a bright cyan.
bool Is_Lit(QRgb pixel)
{
    const QColor colour = QColor::fromRgba(pixel);
    return colour.alpha() > 200 && colour.blue() > 190 && colour.green() > 150 && colour.red() < 150;
}

// The number of separate lit runs along one pixel row.
int Lit_Runs(const QImage& image, int row)
{
    int runs = 0;
    for (int x = 0; x < image.width(); ++x)
        runs += Is_Lit(image.pixel(x, row)) && (x == 0 || !Is_Lit(image.pixel(x - 1, row))) ? 1 : 0;
    return runs;
}

int Pixels(const QImage& image, bool (*wanted)(QRgb))
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += wanted(image.pixel(x, y)) ? 1 : 0;
    return count;
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
        EXPECT_GT(Pixels(Render(name), [](QRgb pixel) { return qAlpha(pixel) > 0; }), 0) << "draws nothing";
    }
}

// A picture and the one that replaces it in another state take the same
// place; the windows' own tests hold the layout's sizes.
TEST_F(Skin, PicturesOfOneControlShareTheirSizeAndLightAsTheStateSays)
{
    const std::pair<QString, QString> alike[] = {{"progress_fill", "progress_track"}, {"volume_1", "volume_0"},
        {"volume_6", "volume_0"}, {"lamp_subtitles_on", "lamp_subtitles_off"}, {"tab_playlist_active", "tab_playlist"},
        {"tab_audio_active", "tab_audio"}, {"tab_subtitles_active", "tab_subtitles"}, {"option_mark", "option_box"}};
    for (const auto& [one, other] : alike)
        EXPECT_EQ(Skin_Picture_Size(one), Skin_Picture_Size(other)) << one.toStdString();

    // The gauge of level L lights L of its six bars; only lit lamps show the accent.
    const int row = Skin_Picture_Size("volume_6").height() - 5;  // crosses all six bars near their feet
    for (int level = 0; level <= 6; ++level)
        EXPECT_EQ(Lit_Runs(Render(QStringLiteral("volume_%1").arg(level)), row), level) << level;
    EXPECT_GT(Pixels(Render("lamp_subtitles_on"), Is_Lit), 20);
    EXPECT_GT(Pixels(Render("lamp_audio"), Is_Lit), 20);
    EXPECT_EQ(Pixels(Render("lamp_subtitles_off"), Is_Lit), 0);
    EXPECT_GT(Pixels(Render("tab_audio_active"), Is_Lit), Pixels(Render("tab_audio"), Is_Lit));
}

TEST_F(Skin, PictureButtonsAndClickableLabelsReportTheMouseAndLeaveTheSinkingToTheirOwner)
{
    Picture_Button button("button_play");
    button.Place(QRect(40, 55, 28, 24));
    QSignalSpy downs(&button, &Picture_Button::Mouse_Down);
    QSignalSpy ups(&button, &Picture_Button::Mouse_Up);
    QSignalSpy clicks(&button, &Picture_Button::Clicked);
    QTest::mouseClick(&button, Qt::LeftButton, Qt::ShiftModifier, QPoint(10, 10));
    QTest::mouseClick(&button, Qt::RightButton, Qt::NoModifier, QPoint(10, 10));
    ASSERT_EQ(clicks.count(), 2);
    EXPECT_EQ(clicks[0][0].value<Qt::MouseButton>(), Qt::LeftButton);
    EXPECT_EQ(clicks[0][1].value<Qt::KeyboardModifiers>(), Qt::ShiftModifier);
    EXPECT_EQ(clicks[1][0].value<Qt::MouseButton>(), Qt::RightButton);
    EXPECT_EQ(clicks[1][1].value<Qt::KeyboardModifiers>(), Qt::NoModifier);

    // Released away from the button: a press and a release, but no click; a press alone does not sink it.
    QTest::mousePress(&button, Qt::LeftButton, {}, QPoint(10, 10));
    EXPECT_EQ(button.Top(), 55);
    QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(60, 10));
    EXPECT_EQ(downs.count(), 3);
    EXPECT_EQ(ups.count(), 3);
    EXPECT_EQ(clicks.count(), 2);
    button.Set_Top(button.Resting_Top() + 1);
    EXPECT_EQ(button.geometry(), QRect(40, 56, 28, 24));

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

TEST_F(Skin, ProgressTrackReportsTwipsEvenOutsideWhileDraggingAndLightsUpToTheFill)
{
    Skin_Progress_Track track("progress_track", "progress_fill");
    EXPECT_EQ(track.size(), Skin_Picture_Size("progress_track"));
    QSignalSpy downs(&track, &Skin_Progress_Track::Mouse_Down);
    QSignalSpy moves(&track, &Skin_Progress_Track::Mouse_Move);
    QSignalSpy ups(&track, &Skin_Progress_Track::Mouse_Up);
    QTest::mousePress(&track, Qt::LeftButton, {}, QPoint(0, 10));
    for (const auto& [x, held] : {std::pair{155, Qt::LeftButton}, {-4, Qt::LeftButton}, {330, Qt::LeftButton},
                                  {100, Qt::NoButton}}) {  // the last one hovers: not a drag
        QMouseEvent move(QEvent::MouseMove, QPointF(x, 10), track.mapToGlobal(QPointF(x, 10)), Qt::NoButton, held, {});
        QApplication::sendEvent(&track, &move);
    }
    QTest::mouseRelease(&track, Qt::LeftButton, {}, QPoint(310, 10));
    QTest::mouseClick(&track, Qt::RightButton, {}, QPoint(50, 10));
    EXPECT_EQ(downs, QList<QList<QVariant>>({{0}}));
    EXPECT_EQ(moves, QList<QList<QVariant>>({{155 * 15}, {-4 * 15}, {330 * 15}}));
    EXPECT_EQ(ups, QList<QList<QVariant>>({{4650}}));

    track.Set_Fill(100);
    const QImage image = track.grab().toImage();
    const int row = track.height() / 2;
    for (const auto& [x, lit] : {std::pair{50, true}, {95, true}, {105, false}, {250, false}})
        EXPECT_EQ(Is_Lit(image.pixel(x, row)), lit) << x;
    track.Set_Fill(0);
    EXPECT_EQ(Pixels(track.grab().toImage(), Is_Lit), 0);
}

} // namespace
} // namespace Orvane

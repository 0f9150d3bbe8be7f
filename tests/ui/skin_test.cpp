#include "ui/picture_button.h"
#include "ui/skin_label.h"
#include "ui/skin_picture.h"
#include "ui/skin_progress_track.h"
#include "ui/skin_resources.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QSignalSpy>
#include <QSvgRenderer>
#include <QTest>
#include <QXmlStreamReader>

namespace Orvane {
namespace {

class Skin : public testing::Test {
protected:
    static void SetUpTestSuite() { Init_Skin_Resources(); }
};

const QStringList Required_Pictures = {
    "player_background", "button_open", "button_play", "button_stop", "button_pause",
    "button_fullscreen", "button_subtitles", "button_config", "button_playlist",
    "button_volume_up", "button_volume_down", "button_next", "button_audio", "button_previous",
    "volume_0", "volume_1", "volume_2", "volume_3", "volume_4", "volume_5", "volume_6",
    "progress_track", "progress_fill", "progress_cursor", "lamp_audio", "lamp_subtitles_off",
    "lamp_subtitles_on", "display_top_left", "display_top_middle", "display_top_right",
    "display_splash", "about_picture", "playlist_background", "tab_playlist", "tab_audio",
    "tab_subtitles", "tab_playlist_active", "tab_audio_active", "tab_subtitles_active",
    "button_add", "button_remove", "button_open_list", "button_save_list", "button_delay_up",
    "button_delay_down", "option_box", "option_mark", "button_close"};

QImage Render(const QString& name)
{
    return Render_Skin_Picture(name, Skin_Picture_Size(name), 1.0).toImage();
}

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
    bool inside = false;
    for (int x = 0; x < image.width(); ++x) {
        const bool lit = Is_Lit(image.pixel(x, row));
        if (lit && !inside)
            ++runs;
        inside = lit;
    }
    return runs;
}

int Lit_Pixels(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += Is_Lit(image.pixel(x, y)) ? 1 : 0;
    return count;
}

TEST_F(Skin, every_picture_is_a_well_formed_svg_that_draws)
{
    const QStringList compiled = QDir(QStringLiteral(":/skin")).entryList(QDir::Files);
    ASSERT_FALSE(compiled.isEmpty());
    for (const QString& file : compiled) {
        QFile svg(QStringLiteral(":/skin/") + file);
        ASSERT_TRUE(svg.open(QIODevice::ReadOnly)) << file.toStdString();
        QXmlStreamReader xml(&svg);
        while (!xml.atEnd())
            xml.readNext();
        EXPECT_FALSE(xml.hasError()) << file.toStdString() << ": " << xml.errorString().toStdString();

        const QString name = file.chopped(4);
        QSvgRenderer renderer(Skin_Path(name));
        ASSERT_TRUE(renderer.isValid()) << file.toStdString();
        EXPECT_FALSE(renderer.defaultSize().isEmpty()) << file.toStdString();
        const QImage image = Render(name);
        bool drawn = false;
        for (int y = 0; y < image.height() && !drawn; ++y)
            for (int x = 0; x < image.width() && !drawn; ++x)
                drawn = qAlpha(image.pixel(x, y)) > 0;
        EXPECT_TRUE(drawn) << file.toStdString() << " draws nothing";
    }
}

TEST_F(Skin, holds_every_picture_the_windows_ask_for_and_every_file_of_the_skin_folder)
{
    for (const QString& name : Required_Pictures)
        EXPECT_TRUE(QFile::exists(Skin_Path(name))) << name.toStdString();

    const QDir sources(QStringLiteral(ORVANE_SOURCE_DIR "/resources/skin"));
    const QStringList files = sources.entryList({QStringLiteral("*.svg")}, QDir::Files);
    ASSERT_FALSE(files.isEmpty());
    for (const QString& file : files)
        EXPECT_TRUE(QFile::exists(QStringLiteral(":/skin/") + file))
            << file.toStdString() << " is missing from the resource file";
}

TEST_F(Skin, pictures_have_the_sizes_the_windows_are_laid_out_for)
{
    EXPECT_EQ(Skin_Picture_Size("player_background"), QSize(600, 260));
    EXPECT_EQ(Skin_Picture_Size("progress_track").width(), 310);
    EXPECT_EQ(Skin_Picture_Size("progress_fill"), Skin_Picture_Size("progress_track"));
    for (const char* piece : {"display_top_left", "display_top_middle", "display_top_right"})
        EXPECT_EQ(Skin_Picture_Size(piece).height(), 20) << piece;
    for (int level = 1; level <= 6; ++level)
        EXPECT_EQ(Skin_Picture_Size(QStringLiteral("volume_%1").arg(level)),
                  Skin_Picture_Size("volume_0"));
    EXPECT_EQ(Skin_Picture_Size("lamp_subtitles_on"), Skin_Picture_Size("lamp_subtitles_off"));
    for (const char* tab : {"tab_playlist", "tab_audio", "tab_subtitles"})
        EXPECT_EQ(Skin_Picture_Size(QString::fromLatin1(tab) + "_active"), Skin_Picture_Size(tab));
    EXPECT_EQ(Skin_Picture_Size("option_mark"), Skin_Picture_Size("option_box"));
}

TEST_F(Skin, the_gauge_picture_of_level_l_lights_l_of_its_six_bars)
{
    const QImage all_lit = Render("volume_6");
    // The row near the bars' feet crosses all six of them.
    const int row = all_lit.height() - 5;
    ASSERT_EQ(Lit_Runs(all_lit, row), 6);
    for (int level = 0; level <= 6; ++level)
        EXPECT_EQ(Lit_Runs(Render(QStringLiteral("volume_%1").arg(level)), row), level) << level;
}

TEST_F(Skin, only_the_lit_lamps_show_the_accent)
{
    EXPECT_GT(Lit_Pixels(Render("lamp_subtitles_on")), 20);
    EXPECT_GT(Lit_Pixels(Render("lamp_audio")), 20);
    EXPECT_EQ(Lit_Pixels(Render("lamp_subtitles_off")), 0);
    EXPECT_GT(Lit_Pixels(Render("tab_audio_active")), Lit_Pixels(Render("tab_audio")));
}

TEST_F(Skin, picture_button_reports_presses_and_clicks_with_the_mouse_button_and_modifiers)
{
    Picture_Button button(QStringLiteral("button_add"));
    button.Place(QRect(40, 55, 28, 24));
    QSignalSpy downs(&button, &Picture_Button::Mouse_Down);
    QSignalSpy ups(&button, &Picture_Button::Mouse_Up);
    QSignalSpy clicks(&button, &Picture_Button::Clicked);

    QTest::mouseClick(&button, Qt::LeftButton, Qt::ShiftModifier, QPoint(10, 10));
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks[0][0].value<Qt::MouseButton>(), Qt::LeftButton);
    EXPECT_EQ(clicks[0][1].value<Qt::KeyboardModifiers>(), Qt::ShiftModifier);
    ASSERT_EQ(downs.count(), 1);
    EXPECT_EQ(downs[0][1].value<Qt::KeyboardModifiers>(), Qt::ShiftModifier);

    QTest::mouseClick(&button, Qt::RightButton, Qt::NoModifier, QPoint(10, 10));
    ASSERT_EQ(clicks.count(), 2);
    EXPECT_EQ(clicks[1][0].value<Qt::MouseButton>(), Qt::RightButton);
    EXPECT_EQ(clicks[1][1].value<Qt::KeyboardModifiers>(), Qt::NoModifier);

    // Released away from the button: a press and a release, but no click.
    QTest::mousePress(&button, Qt::LeftButton, {}, QPoint(10, 10));
    QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(60, 10));
    EXPECT_EQ(downs.count(), 3);
    EXPECT_EQ(ups.count(), 3);
    EXPECT_EQ(clicks.count(), 2);
}

TEST_F(Skin, picture_button_leaves_the_sinking_to_its_owner)
{
    Picture_Button button(QStringLiteral("button_play"));
    button.Place(QRect(74, 91, 42, 30));
    QTest::mousePress(&button, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(button.Top(), 91) << "a press alone does not move the picture";
    button.Set_Top(button.Resting_Top() + 1);
    EXPECT_EQ(button.geometry(), QRect(74, 92, 42, 30));
    EXPECT_EQ(button.Resting_Top(), 91);
    QTest::mouseRelease(&button, Qt::LeftButton, {}, QPoint(5, 5));
}

TEST_F(Skin, labels_take_clicks_only_when_clickable)
{
    QWidget window;
    auto* label = new Skin_Label(QStringLiteral("00:00:00"), &window);
    label->setGeometry(0, 0, 100, 20);
    QSignalSpy clicks(label, &Skin_Label::Clicked);

    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(label, &press);
    EXPECT_FALSE(press.isAccepted()) << "a plain label lets the window drag";
    QTest::mouseClick(label, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(clicks.count(), 0);

    label->Set_Clickable(true);
    QTest::mouseClick(label, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(clicks.count(), 1);
    QTest::mouseClick(label, Qt::RightButton, {}, QPoint(5, 5));
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(Skin, progress_track_reports_mouse_positions_in_twips_even_outside_while_dragging)
{
    Skin_Progress_Track track(QStringLiteral("progress_track"), QStringLiteral("progress_fill"));
    EXPECT_EQ(track.size(), Skin_Picture_Size("progress_track"));
    QSignalSpy downs(&track, &Skin_Progress_Track::Mouse_Down);
    QSignalSpy moves(&track, &Skin_Progress_Track::Mouse_Move);
    QSignalSpy ups(&track, &Skin_Progress_Track::Mouse_Up);

    QTest::mousePress(&track, Qt::LeftButton, {}, QPoint(0, 10));
    const auto move_to = [&track](int x, Qt::MouseButtons held) {
        QMouseEvent move(QEvent::MouseMove, QPointF(x, 10), track.mapToGlobal(QPointF(x, 10)),
                         Qt::NoButton, held, Qt::NoModifier);
        QApplication::sendEvent(&track, &move);
    };
    move_to(155, Qt::LeftButton);
    move_to(-4, Qt::LeftButton);
    move_to(330, Qt::LeftButton);
    move_to(100, Qt::NoButton);  // hovering: not a drag
    QTest::mouseRelease(&track, Qt::LeftButton, {}, QPoint(310, 10));

    ASSERT_EQ(downs.count(), 1);
    EXPECT_EQ(downs[0][0].toInt(), 0);
    ASSERT_EQ(moves.count(), 3);
    EXPECT_EQ(moves[0][0].toInt(), 155 * 15);
    EXPECT_EQ(moves[1][0].toInt(), -4 * 15);
    EXPECT_EQ(moves[2][0].toInt(), 330 * 15);
    ASSERT_EQ(ups.count(), 1);
    EXPECT_EQ(ups[0][0].toInt(), 4650);

    QTest::mouseClick(&track, Qt::RightButton, {}, QPoint(50, 10));
    EXPECT_EQ(downs.count(), 1);
    EXPECT_EQ(ups.count(), 1);
}

TEST_F(Skin, progress_track_lights_the_groove_up_to_the_fill_only)
{
    Skin_Progress_Track track(QStringLiteral("progress_track"), QStringLiteral("progress_fill"));
    track.Set_Fill(100);
    const QImage image = track.grab().toImage();
    const int row = track.height() / 2;
    EXPECT_TRUE(Is_Lit(image.pixel(50, row)));
    EXPECT_TRUE(Is_Lit(image.pixel(95, row)));
    EXPECT_FALSE(Is_Lit(image.pixel(105, row)));
    EXPECT_FALSE(Is_Lit(image.pixel(250, row)));

    track.Set_Fill(0);
    EXPECT_EQ(Lit_Pixels(track.grab().toImage()), 0);
}

} // namespace
} // namespace Orvane

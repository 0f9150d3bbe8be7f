#include "player/frm_player.h"
#include "player/player_layout.h"

#include "language/text_table.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"
#include "ui/picture_button.h"
#include "ui/skin_label.h"
#include "ui/skin_picture.h"
#include "ui/skin_progress_track.h"
#include "ui/skin_resources.h"
#include "ui/window_shell.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

namespace Orvane {
namespace {

namespace Layout = Player_Layout;

// ------------------------------------------------------------------ layout

TEST(Player_Layout, buttons_rest_at_their_tops_inside_the_bar_without_overlapping)
{
    const std::array<int16_t, 13> expected_tops = {91, 91, 91, 91, 55, 55, 55, 55, 55, 85, 89, 89, 89};
    EXPECT_EQ(Layout::Button_Tops, expected_tops);
    const QRect bar(0, 0, Layout::Window_Width, Layout::Design_Height);
    for (int i = 0; i < Layout::Button_Count; ++i) {
        const QRect place = Layout::Button_Place(i);
        EXPECT_EQ(place.top(), Layout::Button_Tops[std::size_t(i)]) << i;
        // Seen before the bar unrolls, and one pixel of room to sink.
        EXPECT_TRUE(bar.contains(place.translated(0, 1))) << i;
        for (int j = i + 1; j < Layout::Button_Count; ++j)
            EXPECT_FALSE(place.intersects(Layout::Button_Place(j).translated(0, 1)))
                << "Img_Btn " << i << " and " << j;
    }
}

TEST(Player_Layout, every_control_lies_inside_the_unrolled_window_and_apart_from_the_others)
{
    const QRect window(0, 0, Layout::Window_Width, Layout::Unrolled_Height);
    const QRegion outline = Rounded_Region(window.size(), Layout::Window_Corner);
    const auto items = Layout::Layout_Items();
    for (std::size_t a = 0; a < items.size(); ++a) {
        EXPECT_EQ(outline.intersected(items[a].place), QRegion(items[a].place))
            << items[a].name.toStdString() << " is cut by the window's outline";
        for (std::size_t b = a + 1; b < items.size(); ++b)
            EXPECT_FALSE(items[a].place.intersects(items[b].place))
                << items[a].name.toStdString() << " overlaps " << items[b].name.toStdString();
    }
}

TEST(Player_Layout, the_cursor_travels_the_310_pixel_track_and_stays_in_the_window)
{
    EXPECT_EQ(Layout::Progress_Track.width(), 310);
    const QRect window(0, 0, Layout::Window_Width, Layout::Design_Height);
    for (const int left : {0, 155, 310}) {
        const QRect knob = Layout::Progress_Cursor_Place(left);
        EXPECT_TRUE(window.contains(knob)) << left;
        EXPECT_EQ(knob.left() + knob.width() / 2, Layout::Progress_Track.left() + left);
        EXPECT_EQ(knob.top(), Layout::Progress_Track.top());
    }
}

// ------------------------------------------------------------------ window

class Player_Window : public testing::Test {
protected:
    static void SetUpTestSuite() { Init_Skin_Resources(); }

    void Show()
    {
        player.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&player));
    }

    // The window's own coordinates of a point of one of its controls.
    QPoint At(QWidget* control, QPoint local) const { return control->mapTo(&player, local); }

    Frm_Player player;
};

TEST_F(Player_Window, starts_as_the_design_bar_with_its_pictures_at_rest)
{
    EXPECT_TRUE(player.windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(player.size(), QSize(600, 133));
    EXPECT_EQ(player.mask(), Rounded_Region({600, 133}, 62));
    for (int i = 0; i < Layout::Button_Count; ++i) {
        EXPECT_EQ(player.Img_Btn(i)->geometry(), Layout::Button_Place(i)) << i;
        EXPECT_EQ(player.Button_Top(i), Layout::Button_Tops[std::size_t(i)]);
        // The pictures are drawn for their places, never stretched.
        EXPECT_EQ(Skin_Picture_Size(player.Img_Btn(i)->Picture()), Layout::Button_Place(i).size())
            << player.Img_Btn(i)->Picture().toStdString();
    }
    EXPECT_EQ(player.Progress_Track_Width(), 310);
    EXPECT_EQ(player.Time_Text(), QStringLiteral("00:00:00"));
    EXPECT_EQ(player.Lbl_Indic_Type_Temps()->text(), QStringLiteral("Temps écoulé"));
    EXPECT_EQ(player.Title_Text(), QStringLiteral("Aucun fichier chargé"));
    EXPECT_EQ(player.Lbl_Quitter()->text(), QStringLiteral("Fermer"));
    EXPECT_FALSE(player.Img_Temoin_ML()->isVisibleTo(&player));
    EXPECT_FALSE(player.Img_Temoin_ST(0)->isVisibleTo(&player));
    EXPECT_FALSE(player.Img_Temoin_ST(1)->isVisibleTo(&player));
}

TEST_F(Player_Window, recuts_its_rounded_outline_at_every_height_of_the_unroll)
{
    for (int height = 20; height <= 260; height += 20) {
        player.Set_Window_Height(height);
        EXPECT_EQ(player.size(), QSize(600, height));
        EXPECT_EQ(player.mask(), Rounded_Region({600, height}, 62)) << height;
    }
    EXPECT_FALSE(player.mask().contains(QPoint(599, 259)));
    EXPECT_TRUE(player.mask().contains(QPoint(300, 259)));

    // Any other resize keeps the outline of the last height set.
    player.resize(600, 300);
    EXPECT_EQ(player.mask().boundingRect(), QRect(0, 0, 600, 260));
}

TEST_F(Player_Window, sinks_and_raises_a_button_by_its_top_without_losing_the_resting_top)
{
    player.Set_Button_Top(3, Layout::Button_Tops[3] + 1);
    EXPECT_EQ(player.Button_Top(3), 92);
    EXPECT_EQ(player.Img_Btn(3)->x(), Layout::Button_Place(3).x());
    EXPECT_EQ(player.Img_Btn(3)->Resting_Top(), 91);
    EXPECT_EQ(player.Button_Top(2), 91) << "only the pressed button moves";
    player.Set_Button_Top(3, Layout::Button_Tops[3]);
    EXPECT_EQ(player.Img_Btn(3)->geometry(), Layout::Button_Place(3));
}

TEST_F(Player_Window, brings_the_gauge_picture_of_the_level_to_the_front)
{
    const QPoint gauge_centre = Layout::Volume_Gauge.center();
    for (const int level : {0, 6, 3, 4, 1, 5, 2, 6, 0}) {
        player.Show_Volume_Level(level);
        EXPECT_EQ(player.Front_Volume_Level(), level);
        EXPECT_EQ(player.childAt(gauge_centre), player.Img_Vol(level)) << level;
    }
    player.Show_Volume_Level(4);
    player.Show_Volume_Level(7);
    player.Show_Volume_Level(-1);
    EXPECT_EQ(player.Front_Volume_Level(), 4);
    for (int level = 0; level < Layout::Volume_Levels; ++level)
        EXPECT_EQ(player.Img_Vol(level)->geometry(), Layout::Volume_Gauge);
}

TEST_F(Player_Window, moves_the_cursor_and_the_lit_track_with_the_cursor_left_edge)
{
    player.Set_Cursor_Left(155);
    EXPECT_EQ(player.Cursor_Left(), 155);
    EXPECT_EQ(player.Img_Avancement()->geometry(), Layout::Progress_Cursor_Place(155));
    EXPECT_EQ(player.Lbl_Avancement()->Fill(), 155);

    // A position past the end keeps its value but the knob stays on the track.
    player.Set_Cursor_Left(400);
    EXPECT_EQ(player.Cursor_Left(), 400);
    EXPECT_EQ(player.Img_Avancement()->geometry(), Layout::Progress_Cursor_Place(310));
    EXPECT_EQ(player.Lbl_Avancement()->Fill(), 310);
    player.Set_Cursor_Left(-20);
    EXPECT_EQ(player.Img_Avancement()->geometry(), Layout::Progress_Cursor_Place(0));
}

TEST_F(Player_Window, shows_one_subtitle_lamp_picture_on_the_spot_of_the_other)
{
    player.Set_Audio_Lamp_Visible(true);
    player.Set_Subtitle_Lamp_Visible(1, true);
    player.Set_Subtitle_Lamp_Visible(2, true);
    EXPECT_TRUE(player.Img_Temoin_ML()->isVisibleTo(&player));
    EXPECT_TRUE(player.Img_Temoin_ST(1)->isVisibleTo(&player));
    EXPECT_FALSE(player.Img_Temoin_ST(0)->isVisibleTo(&player));
    EXPECT_EQ(player.Img_Temoin_ST(0)->geometry(), player.Img_Temoin_ST(1)->geometry());
    EXPECT_NE(player.Img_Temoin_ST(0)->Picture(), player.Img_Temoin_ST(1)->Picture());
}

// ------------------------------------------------------------------ popup menu

// The entries of Mnu_Popup in menu order.
std::vector<QAction*> Menu_Order(const Frm_Player& player)
{
    const auto actions = player.Mnu_Popup()->actions();
    return std::vector<QAction*>(actions.begin(), actions.end());
}

std::vector<QAction*> Expected_Order(const Frm_Player& player)
{
    std::vector<QAction*> order{player.Mnu_Info()};
    for (int k = 1; k <= player.Stream_Entry_Count(); ++k)
        order.push_back(player.Mnu_Num_Stream(k));
    order.push_back(player.Mnu_Separation());
    for (int j = 1; j <= player.Associated_Entry_Count(); ++j)
        order.push_back(player.Mnu_Audio_Secondaire(j));
    order.push_back(player.Mnu_Info2());
    return order;
}

TEST_F(Player_Window, popup_menu_holds_entry_one_of_each_array_hidden_until_a_track_builds_it)
{
    EXPECT_EQ(player.Mnu_Popup()->title(), QStringLiteral("Popup"));
    ASSERT_EQ(player.Stream_Entry_Count(), 1);
    ASSERT_EQ(player.Associated_Entry_Count(), 1);
    EXPECT_EQ(Menu_Order(player), Expected_Order(player));
    EXPECT_EQ(player.Mnu_Popup()->actions().size(), 5);
    EXPECT_TRUE(player.Mnu_Info()->isSeparator());
    EXPECT_TRUE(player.Mnu_Separation()->isSeparator());
    EXPECT_TRUE(player.Mnu_Info2()->isSeparator());
    EXPECT_EQ(player.Mnu_Num_Stream(1)->text(), QStringLiteral("Stream audio 1"));
    EXPECT_EQ(player.Mnu_Audio_Secondaire(1)->text(), QStringLiteral("Audio associé 1"));
    EXPECT_FALSE(player.Mnu_Num_Stream(1)->isVisible());
    EXPECT_FALSE(player.Mnu_Audio_Secondaire(1)->isVisible());
    EXPECT_FALSE(player.Mnu_Separation()->isVisible());
    EXPECT_TRUE(player.Mnu_Num_Stream(1)->isCheckable());
    EXPECT_EQ(player.Mnu_Num_Stream(0), nullptr);
    EXPECT_EQ(player.Mnu_Num_Stream(2), nullptr);
}

TEST_F(Player_Window, menu_arrays_grow_and_shrink_at_their_end_and_always_keep_entry_one)
{
    QAction* const first_stream = player.Mnu_Num_Stream(1);
    QAction* const first_associated = player.Mnu_Audio_Secondaire(1);

    player.Set_Stream_Entry_Count(3);
    player.Set_Associated_Entry_Count(2);
    ASSERT_EQ(player.Stream_Entry_Count(), 3);
    ASSERT_EQ(player.Associated_Entry_Count(), 2);
    EXPECT_EQ(player.Mnu_Num_Stream(1), first_stream);
    EXPECT_EQ(Menu_Order(player), Expected_Order(player));
    for (int k = 1; k <= 3; ++k)
        player.Set_Stream_Entry(k, QStringLiteral("Stream audio %1").arg(k), true);
    player.Set_Associated_Entry(2, QStringLiteral("english.mp3"), true);
    EXPECT_EQ(player.Mnu_Num_Stream(3)->text(), QStringLiteral("Stream audio 3"));
    EXPECT_TRUE(player.Mnu_Num_Stream(3)->isVisible());
    EXPECT_TRUE(player.Mnu_Num_Stream(3)->isCheckable());
    EXPECT_EQ(player.Mnu_Audio_Secondaire(2)->text(), QStringLiteral("english.mp3"));

    // Asking for an entry that already exists creates nothing.
    player.Set_Stream_Entry_Count(3);
    EXPECT_EQ(player.Mnu_Popup()->actions().size(), 3 + 3 + 2);

    QAction* const third_stream = player.Mnu_Num_Stream(3);
    QSignalSpy destroyed(third_stream, &QObject::destroyed);
    player.Set_Stream_Entry_Count(0);
    player.Set_Associated_Entry_Count(1);
    EXPECT_EQ(destroyed.count(), 1);
    ASSERT_EQ(player.Stream_Entry_Count(), 1);
    ASSERT_EQ(player.Associated_Entry_Count(), 1);
    EXPECT_EQ(player.Mnu_Num_Stream(1), first_stream);
    EXPECT_EQ(player.Mnu_Audio_Secondaire(1), first_associated);
    EXPECT_EQ(Menu_Order(player), Expected_Order(player));
    EXPECT_EQ(player.Mnu_Popup()->actions().size(), 5);

    // Entries that do not exist are left alone.
    player.Set_Stream_Entry(2, QStringLiteral("ghost"), true);
    player.Set_Stream_Checked(2, true);
    player.Set_Associated_Checked(5, true);
    EXPECT_EQ(player.Stream_Entry_Count(), 1);
}

TEST_F(Player_Window, keeps_the_checks_it_is_given_when_the_user_chooses_an_entry)
{
    player.Set_Stream_Entry_Count(2);
    player.Set_Associated_Entry_Count(2);
    player.Set_Separation_Visible(true);
    EXPECT_TRUE(player.Mnu_Separation()->isVisible());
    player.Set_Stream_Checked(2, true);
    QSignalSpy streams(&player, &Frm_Player::Stream_Entry_Chosen);
    QSignalSpy associated(&player, &Frm_Player::Associated_Entry_Chosen);

    player.Mnu_Num_Stream(2)->trigger();  // the entry already checked
    player.Mnu_Num_Stream(1)->trigger();
    player.Mnu_Audio_Secondaire(2)->trigger();
    ASSERT_EQ(streams.count(), 2);
    EXPECT_EQ(streams[0][0].toInt(), 2);
    EXPECT_EQ(streams[1][0].toInt(), 1);
    ASSERT_EQ(associated.count(), 1);
    EXPECT_EQ(associated[0][0].toInt(), 2);
    // Choosing decides nothing by itself; the choice logic sets the checks.
    EXPECT_TRUE(player.Mnu_Num_Stream(2)->isChecked());
    EXPECT_FALSE(player.Mnu_Num_Stream(1)->isChecked());
    EXPECT_FALSE(player.Mnu_Audio_Secondaire(2)->isChecked());

    player.Set_Stream_Checked(2, false);
    player.Set_Associated_Checked(2, true);
    EXPECT_FALSE(player.Mnu_Num_Stream(2)->isChecked());
    EXPECT_TRUE(player.Mnu_Audio_Secondaire(2)->isChecked());
    player.Set_Separation_Visible(false);
    EXPECT_FALSE(player.Mnu_Separation()->isVisible());
}

// ------------------------------------------------------------------ texts

// A language file of two languages whose text for number n is "<language> n".
QByteArray Language_File()
{
    QByteArray file = "0.5b\r\n\r\nEnglish;Deutsch\r\n\r\n";
    QList<int> numbers;
    for (int n = 1; n <= 13; ++n)
        numbers << n;
    numbers << 101 << 102 << 103 << 104;
    for (const int n : numbers)
        file += QStringLiteral("%1;English %2;Deutsch %2\r\n").arg(n, 4, 10, QLatin1Char('0')).arg(n).toUtf8();
    // The lookup never finds the file's last line.
    file += "9999;end;Ende\r\n";
    return file;
}

class Player_Texts : public Player_Window {
protected:
    void SetUp() override
    {
        folder.Write(QStringLiteral("Lang.ini"), Language_File());
        ASSERT_TRUE(english.Load_Language(folder.Path(), QStringLiteral("English")));
        ASSERT_TRUE(german.Load_Language(folder.Path(), QStringLiteral("Deutsch")));
    }

    Orvane::Test::Temp_Folder folder;
    Message_Box_Recorder boxes;
    Text_Table english;
    Text_Table german;
};

TEST_F(Player_Texts, puts_the_tool_tips_and_captions_of_their_numbers)
{
    player.Apply_Texts(english, false);
    for (int i = 0; i < Layout::Button_Count; ++i)
        EXPECT_EQ(player.Img_Btn(i)->toolTip(), QStringLiteral("English %1").arg(i + 1)) << i;
    EXPECT_EQ(player.Lbl_Indic_Type_Temps()->text(), QStringLiteral("English 101"));
    EXPECT_EQ(player.Title_Text(), QStringLiteral("English 103"));
    EXPECT_EQ(player.Label1()->text(), QStringLiteral("English 104"));
    EXPECT_EQ(player.Lbl_Quitter()->text(), QStringLiteral("Fermer"));

    player.Apply_Texts(german, false);
    EXPECT_EQ(player.Img_Btn(12)->toolTip(), QStringLiteral("Deutsch 13"));
    EXPECT_EQ(player.Title_Text(), QStringLiteral("Deutsch 103"));
}

TEST_F(Player_Texts, leaves_the_title_of_open_media_alone)
{
    player.Apply_Texts(english, false);
    player.Set_Title_Text(QStringLiteral("Metropolis"));
    player.Apply_Texts(german, true);
    EXPECT_EQ(player.Title_Text(), QStringLiteral("Metropolis"));
    EXPECT_EQ(player.Lbl_Indic_Type_Temps()->text(), QStringLiteral("Deutsch 101"));
    EXPECT_EQ(player.Label1()->text(), QStringLiteral("Deutsch 104"));
    EXPECT_EQ(player.Img_Btn(0)->toolTip(), QStringLiteral("Deutsch 1"));
}

// ------------------------------------------------------------------ what the user does

TEST_F(Player_Window, reports_left_presses_and_clicks_of_the_buttons_by_index)
{
    Show();
    QSignalSpy downs(&player, &Frm_Player::Button_Mouse_Down);
    QSignalSpy clicks(&player, &Frm_Player::Button_Clicked);
    for (const int index : {0, 5, 9, 12}) {
        const QPoint centre = Layout::Button_Place(index).center();
        QTest::mouseClick(player.windowHandle(), Qt::LeftButton, {}, centre);
    }
    ASSERT_EQ(downs.count(), 4);
    ASSERT_EQ(clicks.count(), 4);
    EXPECT_EQ(downs[1][0].toInt(), 5);
    EXPECT_EQ(clicks[1][0].toInt(), 5);
    EXPECT_EQ(clicks[3][0].toInt(), 12);

    QTest::mouseClick(player.windowHandle(), Qt::RightButton, {}, Layout::Button_Place(1).center());
    EXPECT_EQ(downs.count(), 4);
    EXPECT_EQ(clicks.count(), 4);
}

TEST_F(Player_Window, reports_the_character_code_of_each_key)
{
    QSignalSpy keys(&player, &Frm_Player::Key_Pressed);
    for (const auto& [key, text] : std::vector<std::pair<Qt::Key, QString>>{
             {Qt::Key_F, QStringLiteral("f")}, {Qt::Key_B, QStringLiteral("B")},
             {Qt::Key_Space, QStringLiteral(" ")}, {Qt::Key_Home, QString()}}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(&player, &event);
    }
    ASSERT_EQ(keys.count(), 4);
    EXPECT_EQ(keys[0][0].toInt(), 102);
    EXPECT_EQ(keys[1][0].toInt(), 66);
    EXPECT_EQ(keys[2][0].toInt(), 32);
    EXPECT_EQ(keys[3][0].toInt(), 0);
}

TEST_F(Player_Window, reports_seeking_on_the_track_in_twips_also_through_the_knob)
{
    Show();
    player.Set_Cursor_Left(100);
    QSignalSpy downs(&player, &Frm_Player::Progress_Mouse_Down);
    QSignalSpy moves(&player, &Frm_Player::Progress_Mouse_Move);
    QSignalSpy ups(&player, &Frm_Player::Progress_Mouse_Up);
    const int track_left = Layout::Progress_Track.left();
    const int track_middle = Layout::Progress_Track.center().y();

    // The knob's centre line is the cursor's left edge: pressing it seeks there.
    QTest::mousePress(player.windowHandle(), Qt::LeftButton, {}, QPoint(track_left + 100, track_middle));
    QMouseEvent outside(QEvent::MouseMove, QPointF(-30, 10),
                        player.Lbl_Avancement()->mapToGlobal(QPointF(-30, 10)), Qt::NoButton,
                        Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(player.Lbl_Avancement(), &outside);
    QTest::mouseRelease(player.windowHandle(), Qt::LeftButton, {}, QPoint(track_left + 310, track_middle));

    ASSERT_EQ(downs.count(), 1);
    EXPECT_EQ(downs[0][0].toInt(), 1500);
    // The release comes after the mouse has come back to the track's end.
    ASSERT_EQ(moves.count(), 2);
    EXPECT_EQ(moves[0][0].toInt(), -450);
    EXPECT_EQ(moves[1][0].toInt(), 4650);
    ASSERT_EQ(ups.count(), 1);
    EXPECT_EQ(ups[0][0].toInt(), 4650);
}

TEST_F(Player_Window, reports_clicks_on_the_time_the_quit_label_and_double_clicks_on_the_window)
{
    Show();
    QSignalSpy time(&player, &Frm_Player::Time_Label_Clicked);
    QSignalSpy quit(&player, &Frm_Player::Quit_Clicked);
    QSignalSpy about(&player, &Frm_Player::Window_Double_Clicked);

    QTest::mouseClick(player.windowHandle(), Qt::LeftButton, {}, Layout::Time_Label.center());
    EXPECT_EQ(time.count(), 1);
    EXPECT_EQ(quit.count(), 0);
    QTest::mouseClick(player.windowHandle(), Qt::LeftButton, {}, Layout::Quit_Label.center());
    EXPECT_EQ(quit.count(), 1);

    // On the bare bar and on a plain status label alike.
    QTest::mouseDClick(&player, Qt::LeftButton, {}, QPoint(380, 20));
    EXPECT_EQ(about.count(), 1);
    QTest::mouseDClick(player.Lbl_Affichage_Fichier(), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(about.count(), 2);
    EXPECT_EQ(time.count(), 1);
}

TEST_F(Player_Window, drags_itself_from_a_press_on_its_background)
{
    Show();
    player.move(200, 300);
    const QPoint start = player.pos();
    const QPoint press_at(380, 100);  // the bar between the transport and the commands
    QCursor::setPos(player.mapToGlobal(press_at));
    QTest::mousePress(player.windowHandle(), Qt::LeftButton, {}, press_at);

    QMouseEvent moved(QEvent::MouseMove, QPointF(press_at), QPointF(player.mapToGlobal(press_at) + QPoint(-40, 25)),
                      Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&player, &moved);
    EXPECT_EQ(player.pos(), start + QPoint(-40, 25));
    QTest::mouseRelease(player.windowHandle(), Qt::LeftButton, {}, press_at);
}

} // namespace
} // namespace Orvane

// The player window: its texts, its keys, the command line it reads, and the time, progress and
// status it shows. What its skinned controls report of the mouse is the skin's tests' concern; its
// unrolling at start hands over to the command line once.
#include "player_fixture.h"

#include "player/command_line.h"
#include "player/unroll.h"
#include "ui/picture_button.h"

#include <QApplication>
#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>

namespace Orvane::Test {

using Player_Window = Player_Fixture;

// Text 103 (no file loaded) is applied only while no media is open.
TEST_F(Player_Window, TakesTheTextsOfTheirNumbers)
{
    view.Apply_Texts(Test_Texts(), false);
    EXPECT_EQ(QStringList({view.Img_Btn(12)->toolTip(), view.Lbl_Indic_Type_Temps()->text(), view.Label1()->text(),
                           view.Title_Text(), view.Lbl_Quitter()->text()}),
              QStringList({"13 English", "101 English", "104 English", "103 English", "Fermer"}));
    view.Set_Title_Text("Metropolis");
    view.Apply_Texts(Test_Texts(), true);
    EXPECT_EQ(view.Title_Text(), "Metropolis") << "the title of open media stays";
}

TEST_F(Player_Window, ReportsTheCharacterCodeOfAKey)
{
    QSignalSpy keys(&view, &Frm_Player::Key_Pressed);
    for (const auto& [key, text] : {std::pair{Qt::Key_B, "b"}, {Qt::Key_B, "B"}, {Qt::Key_Home, ""}}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(&view, &event);
    }
    EXPECT_EQ(keys, QList<QList<QVariant>>({{98}, {66}, {0}}));
}

TEST_F(Player_Window, UnrollsInThirteenStepsOf20PixelsThenHandsOverOnce)
{
    Player_Unroll unroll(view);
    QList<int> heights;
    int handed_over = 0;
    QObject::connect(&unroll.Timer_Display(), &QTimer::timeout, [&] { heights.append(view.height()); });
    unroll.Start([&] { ++handed_over; });
    QTRY_VERIFY_WITH_TIMEOUT(!unroll.Timer_Display().isActive(), 5000);
    EXPECT_EQ(handed_over, 1);
    EXPECT_EQ(heights, QList<int>({20, 40, 60, 80, 100, 120, 140, 160, 180, 200, 220, 240, 260, 260}));
}

// Opening what the command line names is the program's tests' concern.
TEST_F(Player_Window, CommandLineFileKindAndSwitch)
{
    Temp_Folder program, current;
    program.Write("both.avi", "x");
    current.Write("both.avi", "x");
    current.Write("here.avi", "x");
    const std::pair<QStringList, QString> cases[] = {  // the file, "list" for a playlist, "play" with a switch
        {{"both.avi"}, program.File("both.avi") + "//"},  // a bare name: the program's folder first
        {{"here.avi"}, current.File("here.avi") + "//"},
        {{"films/a.avi", "--play"}, current.File("films/a.avi") + "//play"},
        {{"/p/LIST.M3U", "/"}, "/p/LIST.M3U/list/play"},
        {{"/p/list.orx", "play"}, "/p/list.orx/list/"},
        {{"/p/m3u", "extra", "/x"}, "/p/m3u//play"}};
    for (const auto& [arguments, request] : cases) {
        const auto parsed = Parse_Command_Line(arguments, program.Path(), current.Path()).value();
        EXPECT_EQ(parsed.File + (parsed.Is_Playlist ? "/list/" : "//") + (parsed.Play_Now ? "play" : ""), request);
    }
    EXPECT_FALSE(Parse_Command_Line({}, program.Path(), current.Path()).has_value());
}

// A film of a minute, open; the progress track is 310 pixels (4650 twips) wide.
class Time_Display_Test : public Player_Fixture {
protected:
    void SetUp() override
    {
        tracks = {Video_Track("Film", 1)};
        Start(1, false);
    }
    Time_Display& time() { return session.Display(); }
};

TEST_F(Time_Display_Test, SeekingStaysWithinTheTrackAndTheMedia)
{
    state.Next_Subtitle_Time = "00:00:20";
    time().Progress_Mouse_Down(1500);
    EXPECT_EQ(view.Cursor_Left(), 100);
    EXPECT_DOUBLE_EQ(graph.position, 100.0 / 310.0 * 60.0);
    EXPECT_EQ(state.Next_Subtitle_Time, "00:00:20") << "the subtitle window is hidden";
    for (int x : {3000, 4665, -15})
        time().Progress_Mouse_Move(x);
    EXPECT_EQ(view.Cursor_Left(), 200);
    EXPECT_EQ(journal.Only({"Set_Current"}).size(), 2) << "no seeking outside the track";
    time().Progress_Mouse_Move(4650);
    EXPECT_EQ(graph.position, 60.0) << "back on the track";
    time().Progress_Mouse_Up();
    time().Progress_Mouse_Move(1500);
    EXPECT_EQ(graph.position, 60.0) << "no seeking after the release";

    // With the subtitle window shown, seeking clears it and searches again.
    state.Subtitles_Shown = true;
    time().Progress_Mouse_Down(0);
    EXPECT_EQ(state.Next_Subtitle_Time, "Aucun");
    EXPECT_TRUE(journal.calls.contains("Show_Subtitle(|,1)"));
    state.Next_Subtitle_Time = "00:00:20";
    for (const auto& [seconds, position, cursor] : {std::tuple{-5.0, 0.0, 0}, {90.0, 60.0, 310}}) {
        EXPECT_TRUE(time().Seek_To_Seconds(seconds));
        EXPECT_EQ(std::pair(graph.position, view.Cursor_Left()), std::pair(position, cursor)) << seconds;
    }
    EXPECT_EQ(state.Next_Subtitle_Time, "Aucun");
    graph.Close_Graph();
    EXPECT_FALSE(time().Seek_To_Seconds(10.0)) << "nothing to seek without media";
    time().Progress_Mouse_Down(0);
    EXPECT_EQ(graph.position, 60.0);
}

TEST_F(Time_Display_Test, TimeModeCaptionAndTheStatusLabelsAndLampsOfTheCurrentTrack)
{
    time().Toggle_Time_Mode();
    EXPECT_EQ(view.Lbl_Indic_Type_Temps()->text(), "102 English");
    tracks = {Video_Track("One", 1), Video_Track("Dubbed", 1, {"Deutsch"}), Audio_Track("Song", {"Karaoke"}),
              Video_Track("Two", 2)};
    tracks[0].Subtitle_Path = "/media/One.sub";
    tracks[0].Subtitle_Name = "French";
    const std::tuple<int, int, bool, bool, QString> cases[] = {  // track, choice, subtitles loaded, shown
        {0, 1, false, false, "/1101 English/////"},    {1, 1, false, false, "1/One/////"},
        {1, 1, true, false, "1/One///st0//French"},    {1, 1, true, true, "1/One////st1/French"},
        {2, 2, false, false, "2/Dubbed/lamp/Deutsch///"}, {2, 1, false, false, "2/Dubbed/lamp/1102 English1///"},
        {3, 2, false, false, "3/Song/////"},           {4, 2, false, false, "4/Two/lamp/1102 English2///"}};
    const auto lamp = [this](QWidget* picture, const char* name) { return picture->isVisibleTo(&view) ? name : ""; };
    for (const auto& [track, choice, loaded, shown, labels] : cases) {
        state.Current_Track = track;
        state.Audio_Choice = Audio_Choice::From_Number(choice);
        state.Subtitles_Loaded = loaded;
        state.Subtitles_Shown = shown;
        time().Refresh_Display();
        EXPECT_EQ(QStringList({view.Lbl_Affichage_Rang()->text(), view.Title_Text(), lamp(view.Img_Temoin_ML(), "lamp"),
                               view.Lbl_Affichage_ML()->text(), lamp(view.Img_Temoin_ST(0), "st0"),
                               lamp(view.Img_Temoin_ST(1), "st1"), view.Lbl_Affichage_Sub()->text()})
                      .join(u'/'),
                  labels);
    }
}

} // namespace Orvane::Test

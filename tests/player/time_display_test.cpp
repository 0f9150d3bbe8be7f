#include "player_fixture.h"

namespace Orvane::Test {
namespace {

class Time_Display_Test : public Player_Fixture {
protected:
    void SetUp() override
    {
        tracks.records = {Video_Track(QStringLiteral("Film"), 1, QStringLiteral("AVI"), 60.0)};
        Open_Current(1);
    }
    Time_Display& time() { return session.Display(); }
};

TEST_F(Time_Display_Test, Cursor_Follows_Position_Over_310_Pixels)
{
    graph.Move_To(30.0);
    time().Update_Cursor();
    EXPECT_EQ(view.Cursor_Left, 155);
    graph.Move_To(60.0);
    time().Update_Cursor();
    EXPECT_EQ(view.Cursor_Left, 310);
    graph.Set_Media(0.0);
    time().Update_Cursor();
    EXPECT_EQ(view.Cursor_Left, 0) << "an unknown duration keeps the cursor at the start";
}

TEST_F(Time_Display_Test, Seek_Arithmetic_Over_The_Track)
{
    time().Seek_To_X(0);
    EXPECT_DOUBLE_EQ(graph.Current_Position(), 0.0);
    time().Seek_To_X(4650);
    EXPECT_DOUBLE_EQ(graph.Current_Position(), 60.0);
    time().Seek_To_X(15 * 31);  // a tenth of the track
    EXPECT_DOUBLE_EQ(graph.Current_Position(), 6.0);
}

TEST_F(Time_Display_Test, Drag_Seeks_Inside_The_Track_And_Freezes_Outside)
{
    time().Progress_Mouse_Down(1500);
    EXPECT_TRUE(time().Seeking());
    EXPECT_EQ(view.Cursor_Left, 100);
    EXPECT_DOUBLE_EQ(graph.Current_Position(), 100.0 / 310.0 * 60.0);

    time().Progress_Mouse_Move(3000);
    EXPECT_EQ(view.Cursor_Left, 200);
    journal.Clear();
    time().Progress_Mouse_Move(4665);  // past the right end
    time().Progress_Mouse_Move(-15);   // past the left end
    EXPECT_TRUE(journal.calls.isEmpty());
    EXPECT_EQ(view.Cursor_Left, 200);
    time().Progress_Mouse_Move(4650);  // back on the right end
    EXPECT_EQ(view.Cursor_Left, 310);
    EXPECT_DOUBLE_EQ(graph.Current_Position(), 60.0);

    time().Progress_Mouse_Up();
    EXPECT_FALSE(time().Seeking());
    journal.Clear();
    time().Progress_Mouse_Move(1500);
    EXPECT_TRUE(journal.calls.isEmpty()) << "moving without the button held does not seek";
}

TEST_F(Time_Display_Test, Seeking_Clears_A_Shown_Subtitle_And_Searches_Again)
{
    state.Next_Subtitle_Time = QStringLiteral("00:00:20");
    time().Progress_Mouse_Down(0);
    EXPECT_EQ(state.Next_Subtitle_Time, QStringLiteral("00:00:20")) << "window hidden: nothing to reset";

    state.Subtitles_Shown = true;
    time().Progress_Mouse_Down(0);
    EXPECT_TRUE(journal.Has(QStringLiteral("Show_Subtitle(|,1)")));
    EXPECT_EQ(state.Next_Subtitle_Time, QStringLiteral("Aucun"));
}

TEST_F(Time_Display_Test, No_Seeking_Without_Media)
{
    graph.Close_Graph();
    journal.Clear();
    time().Progress_Mouse_Down(1500);
    time().Progress_Mouse_Move(1500);
    EXPECT_FALSE(time().Seeking());
    EXPECT_TRUE(journal.calls.isEmpty());
}

TEST_F(Time_Display_Test, Time_Mode_Toggle_Changes_The_Caption_Now_And_The_Time_On_The_Tick)
{
    session.Play();
    graph.Move_To(10.0);
    session.Tick();
    session.Pause();
    time().Toggle_Time_Mode();
    EXPECT_EQ(state.Time_Mode, 2);
    EXPECT_EQ(view.Time_Mode_Caption, QStringLiteral("102 English"));
    EXPECT_EQ(view.Time_Text(), QStringLiteral("00:00:10"));
    session.Tick();  // paused, but the tick still writes the time
    EXPECT_EQ(view.Time_Text(), QStringLiteral("00:00:50"));
    time().Toggle_Time_Mode();
    EXPECT_EQ(state.Time_Mode, 1);
    EXPECT_EQ(view.Time_Mode_Caption, QStringLiteral("101 English"));
}

TEST_F(Time_Display_Test, Times_Past_The_Supported_Range_Are_Not_Shown)
{
    EXPECT_EQ(time().Time_For_Position(32767.0), QStringLiteral("09:06:07"));
    EXPECT_EQ(time().Time_For_Position(32768.0), std::nullopt);
}

class Refresh_Display_Test : public Player_Fixture {};

TEST_F(Refresh_Display_Test, No_Current_Track)
{
    session.Display().Refresh_Display();
    EXPECT_EQ(view.Track_Number_Text, QString());
    EXPECT_EQ(view.Title_Text(), QStringLiteral("1101 English"));
    EXPECT_EQ(view.Subtitle_Lamps, (std::array<bool, 2>{false, false}));
    EXPECT_FALSE(view.Audio_Lamp);
    EXPECT_EQ(view.Audio_Text, QString());
}

TEST_F(Refresh_Display_Test, Labels_In_Their_Order)
{
    tracks.records = {Video_Track(QStringLiteral("Film"), 2)};
    state.Current_Track = 1;
    state.Audio_Choice = 2;
    session.Display().Refresh_Display();
    EXPECT_EQ(journal.calls,
              QStringList({"Set_Track_Number_Text(1)", "Set_Title_Text(Film)", "Set_Subtitle_Lamp_Visible(0,false)",
                           "Set_Subtitle_Lamp_Visible(1,false)", "Set_Subtitle_Text()",
                           "Set_Audio_Lamp_Visible(true)", "Set_Audio_Text(1102 English2)"}));
}

TEST_F(Refresh_Display_Test, Audio_Choice_Label)
{
    Track_Record one_stream = Video_Track(QStringLiteral("One"), 1);
    Track_Record dubbed = Video_Track(QStringLiteral("Dubbed"), 1);
    Add_Associated(dubbed, QStringLiteral("Deutsch"));
    Track_Record song = Audio_Track(QStringLiteral("Song"));
    song.Audio_Streams = 2;
    tracks.records = {one_stream, dubbed, song};

    state.Current_Track = 1;
    state.Audio_Choice = 1;
    session.Display().Refresh_Display();
    EXPECT_FALSE(view.Audio_Lamp);
    EXPECT_EQ(view.Audio_Text, QString());

    state.Current_Track = 2;
    state.Audio_Choice = 2;
    session.Display().Refresh_Display();
    EXPECT_TRUE(view.Audio_Lamp);
    EXPECT_EQ(view.Audio_Text, QStringLiteral("Deutsch"));
    state.Audio_Choice = 1;
    session.Display().Refresh_Display();
    EXPECT_EQ(view.Audio_Text, QStringLiteral("1102 English1"));

    state.Current_Track = 3;  // a choice, but no picture
    session.Display().Refresh_Display();
    EXPECT_FALSE(view.Audio_Lamp);
    EXPECT_EQ(view.Audio_Text, QString());
}

TEST_F(Refresh_Display_Test, Subtitle_Lamps_Show_The_Window_State_Once_Loaded)
{
    Track_Record film = Video_Track(QStringLiteral("Film"), 1);
    film.Subtitle_Path = QStringLiteral("/media/Film.sub");
    film.Subtitle_Name = QStringLiteral("French");
    tracks.records = {film};
    state.Current_Track = 1;

    session.Display().Refresh_Display();
    EXPECT_EQ(view.Subtitle_Lamps, (std::array<bool, 2>{false, false})) << "not loaded";
    EXPECT_EQ(view.Subtitle_Text, QString());

    state.Subtitles_Loaded = true;
    session.Display().Refresh_Display();
    EXPECT_EQ(view.Subtitle_Lamps, (std::array<bool, 2>{true, false}));
    EXPECT_EQ(view.Subtitle_Text, QStringLiteral("French"));

    state.Subtitles_Shown = true;
    session.Display().Refresh_Display();
    EXPECT_EQ(view.Subtitle_Lamps, (std::array<bool, 2>{false, true}));
}

} // namespace
} // namespace Orvane::Test

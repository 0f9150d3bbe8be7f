#include "player_fixture.h"

namespace Orvane::Test {
namespace {

const QStringList Graph_And_Layout = {
    QStringLiteral("Close_Graph"), QStringLiteral("Open_Graph"), QStringLiteral("Video_Layout"),
    QStringLiteral("Audio_Layout"), QStringLiteral("Set_Volume"), QStringLiteral("Load_Subtitles"),
    QStringLiteral("Show_Subtitle"), QStringLiteral("Record_Audio_Pins"),
    QStringLiteral("Disconnect_Audio_Streams"), QStringLiteral("Connect_Audio_Stream"),
    QStringLiteral("Render_Associated_Audio"), QStringLiteral("Set_Stream_Entry_Count"),
    QStringLiteral("Set_Track_Number_Text"), QStringLiteral("Select_Playlist_Entry"),
    QStringLiteral("Reapply_Full_Screen"), QStringLiteral("Run"), QStringLiteral("Show_Playlist_Tab")};

class Playback_Session_Test : public Player_Fixture {};

TEST_F(Playback_Session_Test, Play_Track_Opens_Prepares_And_Plays_In_Order)
{
    Track_Record film = Video_Track(QStringLiteral("Film"), 2);
    film.Subtitle_Path = QStringLiteral("/media/Film.sub");
    tracks.records = {Audio_Track(QStringLiteral("Song")), film};
    state.Current_Track = 2;
    state.Full_Screen = true;
    state.Volume_Level = 3;
    graph.Open_Graph(QStringLiteral("/media/old.avi"));
    journal.Clear();

    session.Play_Track();

    EXPECT_EQ(journal.Only(Graph_And_Layout),
              QStringList({"Close_Graph", "Open_Graph(/media/Film.avi)", "Video_Layout(320x240)",
                           "Set_Volume(-1500)", "Load_Subtitles(/media/Film.sub)", "Show_Subtitle(|,1)",
                           "Record_Audio_Pins(true,2)", "Disconnect_Audio_Streams(true,2)",
                           "Connect_Audio_Stream(1)", "Set_Stream_Entry_Count(2)",
                           "Set_Track_Number_Text(2)", "Select_Playlist_Entry(1)",
                           "Reapply_Full_Screen(video)", "Run", "Show_Playlist_Tab"}));
    EXPECT_TRUE(state.Is_Playing);
    EXPECT_TRUE(state.Subtitles_Loaded);
    EXPECT_EQ(state.Audio_Choice, 1);
    EXPECT_TRUE(session.Timer().isActive());
    EXPECT_EQ(session.Timer().interval(), 500);
}

TEST_F(Playback_Session_Test, Audio_Only_Track_Takes_The_Audio_Layout_And_No_Stream_Switching)
{
    tracks.records = {Audio_Track(QStringLiteral("Song"))};
    state.Current_Track = 1;
    session.Play_Track();
    EXPECT_EQ(journal.Only(Graph_And_Layout),
              QStringList({"Close_Graph", "Open_Graph(/media/Song.wav)", "Audio_Layout", "Set_Volume(-1500)",
                           "Set_Track_Number_Text(1)", "Select_Playlist_Entry(0)", "Run",
                           "Show_Playlist_Tab"}));
    EXPECT_FALSE(state.Subtitles_Loaded);
}


TEST_F(Playback_Session_Test, Disc_Change_Question)
{
    Track_Record second_disc = Video_Track(QStringLiteral("Part2"), 1);
    second_disc.Disc_Change = true;
    tracks.records = {second_disc};
    state.Current_Track = 1;

    boxes.Set_Answer(Box_Answer::Cancel);
    session.Play_Track();
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_EQ(boxes.Boxes()[0].text, QStringLiteral("1011 English\n1012 English"));
    EXPECT_EQ(boxes.Boxes()[0].style, Box_Style::Ok_Cancel);
    EXPECT_FALSE(graph.Is_Open());
    EXPECT_EQ(graph.Opens(), 0);
    EXPECT_FALSE(state.Is_Playing);
    EXPECT_FALSE(session.Timer().isActive());
    session.Tick();
    EXPECT_EQ(journal.calls, QStringList({"Close_Graph"})) << "without media the tick does nothing";

    boxes.Set_Answer(Box_Answer::Ok);
    session.Play_Track();
    EXPECT_TRUE(graph.Is_Open());
    EXPECT_TRUE(graph.Is_Running());
}

TEST_F(Playback_Session_Test, Failed_Open_Reports_And_Leaves_No_Media)
{
    tracks.records = {Video_Track(QStringLiteral("Broken"), 1)};
    state.Current_Track = 1;
    graph.Fail_Opens_With(QStringLiteral("No decoder for Broken.avi"));
    session.Play_Track();
    EXPECT_EQ(boxes.Last_Text(), QStringLiteral("No decoder for Broken.avi"));
    EXPECT_EQ(boxes.Boxes().front().style, Box_Style::Critical_Ok);
    EXPECT_FALSE(graph.Is_Open());
    EXPECT_FALSE(journal.Has(QStringLiteral("Run")));
    EXPECT_FALSE(session.Timer().isActive());
    EXPECT_FALSE(state.Is_Playing);
}

TEST_F(Playback_Session_Test, Engine_Error_Of_The_Open_Pipeline_Only)
{
    tracks.records = {Video_Track(QStringLiteral("A"), 1), Video_Track(QStringLiteral("B"), 1)};
    Play_Current(1);
    const int first_pipeline = graph.Pipeline_Id();
    state.Current_Track = 2;
    session.Play_Track();

    graph.Emit_Error_Of(first_pipeline, QStringLiteral("late error of A"));
    EXPECT_TRUE(boxes.Boxes().empty());
    EXPECT_TRUE(graph.Is_Open());

    graph.Emit_Error(QStringLiteral("Internal data stream error"));
    EXPECT_EQ(boxes.Last_Text(), QStringLiteral("Internal data stream error"));
    EXPECT_FALSE(graph.Is_Open());
    EXPECT_FALSE(session.Timer().isActive());
    EXPECT_FALSE(state.Is_Playing);
}

TEST_F(Playback_Session_Test, Next_And_Previous_At_The_Ends_Only_Reset_The_Subtitle_Search)
{
    tracks.records = {Video_Track(QStringLiteral("A"), 1), Video_Track(QStringLiteral("B"), 1)};
    Play_Current(2);
    state.Next_Subtitle_Time = QStringLiteral("00:00:10");
    session.Next();
    EXPECT_EQ(state.Next_Subtitle_Time, QStringLiteral("Aucun"));
    EXPECT_EQ(state.Current_Track, 2);
    EXPECT_TRUE(journal.calls.isEmpty());

    Play_Current(1);
    state.Next_Subtitle_Time = QStringLiteral("00:00:10");
    session.Previous();
    EXPECT_EQ(state.Next_Subtitle_Time, QStringLiteral("Aucun"));
    EXPECT_EQ(state.Current_Track, 1);
    EXPECT_TRUE(journal.calls.isEmpty());
}

TEST_F(Playback_Session_Test, Next_And_Previous_Leave_The_Menus_Then_Play_The_Neighbour)
{
    tracks.records = {Video_Track(QStringLiteral("A"), 2), Video_Track(QStringLiteral("B"), 1),
                      Video_Track(QStringLiteral("C"), 1)};
    Play_Current(1);
    session.Next();
    EXPECT_EQ(state.Current_Track, 2);
    // The menus of A (two streams) are cleared before its graph goes.
    EXPECT_TRUE(journal.Comes_Before(QStringLiteral("Set_Separation_Visible(false)"),
                                     QStringLiteral("Close_Graph")));
    EXPECT_EQ(graph.Opened_Path(), QStringLiteral("/media/B.avi"));
    EXPECT_TRUE(graph.Is_Running());

    journal.Clear();
    session.Previous();
    EXPECT_EQ(state.Current_Track, 1);
    // B offers no choice: its menus are not touched.
    EXPECT_FALSE(journal.Has(QStringLiteral("Set_Separation_Visible(false)")));
    EXPECT_EQ(graph.Opened_Path(), QStringLiteral("/media/A.avi"));
}

TEST_F(Playback_Session_Test, Audio_Choice_Bound_Is_Twice_The_Stream_Count)
{
    Track_Record film = Video_Track(QStringLiteral("Film"), 2);
    Add_Associated(film, QStringLiteral("English"));
    Add_Associated(film, QStringLiteral("German"));
    tracks.records = {film};

    // 4 is not above 2 x 2: kept, and it names associated file 2.
    state.Audio_Choice = 4;
    Play_Current(1);
    session.Play_Track();
    EXPECT_EQ(state.Audio_Choice, 4);
    EXPECT_FALSE(journal.Has(QStringLiteral("Connect_Audio_Stream(4)")));
    EXPECT_TRUE(journal.Has(QStringLiteral("Render_Associated_Audio(/media/German.wav)")));

    journal.Clear();
    state.Audio_Choice = 5;
    session.Play_Track();
    EXPECT_EQ(state.Audio_Choice, 1);
    EXPECT_TRUE(journal.Has(QStringLiteral("Connect_Audio_Stream(1)")));
    EXPECT_TRUE(journal.Only({QStringLiteral("Render_Associated_Audio")}).isEmpty());

    journal.Clear();
    state.Audio_Choice = 0;
    session.Play_Track();
    EXPECT_EQ(state.Audio_Choice, 1);
}


TEST_F(Playback_Session_Test, Other_Kinds_With_Associated_Audio_Start_On_The_First_Choice)
{
    Track_Record clip = Video_Track(QStringLiteral("Clip"), 1, QStringLiteral("Autre"));
    Add_Associated(clip, QStringLiteral("Commentary"));
    tracks.records = {clip};
    state.Audio_Choice = 2;  // kept from an earlier track
    state.Current_Track = 1;
    session.Play_Track();
    // Only AVI and MPEG files have their streams switched; with an associated
    // file the choice starts again at the file's own first stream.
    EXPECT_EQ(state.Audio_Choice, 1);
    EXPECT_TRUE(journal.Only({QStringLiteral("Record_Audio_Pins"), QStringLiteral("Connect_Audio_Stream"),
                              QStringLiteral("Render_Associated_Audio")}).isEmpty());
}

TEST_F(Playback_Session_Test, Associated_File_Render_Failure_Is_Reported_And_Video_Goes_On)
{
    Track_Record film = Video_Track(QStringLiteral("Film"), 1);
    Add_Associated(film, QStringLiteral("English"));
    tracks.records = {film};
    state.Audio_Choice = 2;
    graph.Fail_Associated_Renders(true);
    state.Current_Track = 1;
    session.Play_Track();
    EXPECT_EQ(boxes.Last_Text(), QStringLiteral("cannot render /media/English.wav"));
    EXPECT_TRUE(graph.Is_Running());
}

TEST_F(Playback_Session_Test, Subtitle_Load_Result_Sets_Subtitles_Loaded)
{
    Track_Record film = Video_Track(QStringLiteral("Film"), 1);
    film.Subtitle_Path = QStringLiteral("/media/Film.sub");
    film.Subtitle_Name = QStringLiteral("Film FR");
    tracks.records = {film};
    subtitles.load_result = false;
    Open_Current(1);
    EXPECT_FALSE(state.Subtitles_Loaded);
    EXPECT_EQ(view.Subtitle_Text, QString());
    subtitles.load_result = true;
    Open_Current(1);
    EXPECT_TRUE(state.Subtitles_Loaded);
    EXPECT_EQ(view.Subtitle_Text, QStringLiteral("Film FR"));
}

TEST_F(Playback_Session_Test, Transport_And_The_Timer)
{
    tracks.records = {Video_Track(QStringLiteral("A"), 1)};
    Play_Current(1);
    graph.Move_To(12.5);
    session.Tick();
    EXPECT_EQ(view.Time_Text(), QStringLiteral("00:00:12"));

    session.Pause();
    EXPECT_FALSE(state.Is_Playing);
    EXPECT_FALSE(graph.Is_Running());
    EXPECT_TRUE(session.Timer().isActive()) << "the display keeps ticking while paused";
    journal.Clear();
    session.Tick();
    EXPECT_EQ(view.Time_Text(), QStringLiteral("00:00:12"));

    session.Stop();
    EXPECT_FALSE(session.Timer().isActive());
    EXPECT_FALSE(state.Is_Playing);
    EXPECT_EQ(graph.Current_Position(), 0.0);
    EXPECT_EQ(view.Cursor_Left, 0);
    EXPECT_EQ(view.Time_Text(), QStringLiteral("00:00:00"));
    EXPECT_TRUE(graph.Is_Open());
}

TEST_F(Playback_Session_Test, Tick_Moves_The_Cursor_Then_Writes_The_Time)
{
    tracks.records = {Video_Track(QStringLiteral("A"), 1, QStringLiteral("AVI"), 60.0)};
    Play_Current(1);
    graph.Move_To(30.0);
    session.Tick();
    EXPECT_EQ(journal.calls, QStringList({"Set_Cursor_Left(155)", "Set_Time_Text(00:00:30)"}));

    state.Time_Mode = 2;
    graph.Move_To(15.5);  // 44.5 s remain: rounded half to even
    session.Tick();
    EXPECT_EQ(view.Time_Text(), QStringLiteral("00:00:44"));
}


TEST_F(Playback_Session_Test, End_Is_Found_Against_The_Stored_Duration)
{
    // The record says 90 s though the media lasts 60 s: the track never ends by itself.
    tracks.records = {Video_Track(QStringLiteral("A"), 1, QStringLiteral("AVI"), 90.0)};
    Play_Current(1);
    graph.Move_To(60.0);
    session.Tick();
    EXPECT_TRUE(session.Timer().isActive());
    EXPECT_EQ(view.Time_Text(), QStringLiteral("00:01:00"));
}

TEST_F(Playback_Session_Test, End_Of_The_Only_Track_Without_Repeat_Stops)
{
    tracks.records = {Video_Track(QStringLiteral("A"), 1, QStringLiteral("AVI"), 60.0)};
    Play_Current(1);
    state.Subtitles_Shown = true;
    graph.Move_To(59.0);
    session.Tick();
    ASSERT_EQ(view.Time_Text(), QStringLiteral("00:00:59"));
    graph.Move_To(60.0);
    session.Tick();
    EXPECT_EQ(view.Time_Text(), QStringLiteral("00:00:00"));
    EXPECT_EQ(view.Cursor_Left, 0);
    EXPECT_FALSE(session.Timer().isActive());
    EXPECT_FALSE(state.Is_Playing);
    EXPECT_EQ(state.Current_Track, 1);
    EXPECT_TRUE(journal.Has(QStringLiteral("Show_Subtitle(|,1)")));
    EXPECT_FALSE(journal.Has(QStringLiteral("Set_Time_Text(00:01:00)")));
}

TEST_F(Playback_Session_Test, End_Of_A_Track_Advances_And_Repeat_Returns_To_The_First)
{
    tracks.records = {Video_Track(QStringLiteral("A"), 1), Video_Track(QStringLiteral("B"), 2)};
    settings.Playlist_Repeat = true;
    Play_Current(1);
    graph.Move_To(61.0);
    session.Tick();
    EXPECT_EQ(state.Current_Track, 2);
    EXPECT_EQ(graph.Opened_Path(), QStringLiteral("/media/B.avi"));

    journal.Clear();
    graph.Move_To(60.0);
    session.Tick();
    EXPECT_EQ(state.Current_Track, 1);
    EXPECT_EQ(graph.Opened_Path(), QStringLiteral("/media/A.avi"));
    EXPECT_TRUE(graph.Is_Running());
    // B had a choice of audio: its menus go before its graph.
    EXPECT_TRUE(journal.Comes_Before(QStringLiteral("Set_Separation_Visible(false)"),
                                     QStringLiteral("Close_Graph")));
}

class Subtitle_Step_Test : public Player_Fixture {
protected:
    void SetUp() override
    {
        Track_Record film = Video_Track(QStringLiteral("Film"), 1, QStringLiteral("AVI"), 60.0);
        film.Subtitle_Path = QStringLiteral("/media/Film.sub");
        tracks.records = {film};
        subtitles.Set_Entries({{QStringLiteral("00:00:05"), QStringLiteral("Hello"), QStringLiteral("World")},
                               {QStringLiteral("00:00:07"), QStringLiteral("Again"), QString()}});
        Play_Current(1);
        state.Subtitles_Shown = true;
    }
    void Tick_At(double seconds)
    {
        graph.Move_To(seconds);
        session.Tick();
    }
};

TEST_F(Subtitle_Step_Test, Lines_Appear_When_The_Shown_Text_Equals_Their_Start)
{
    Tick_At(4.0);
    EXPECT_EQ(state.Next_Subtitle_Time, QStringLiteral("00:00:05"));
    EXPECT_EQ(state.Next_Subtitle_Index, 1);
    EXPECT_EQ(subtitle_display.Shown, QString());
    Tick_At(5.2);
    EXPECT_EQ(subtitle_display.Shown, QStringLiteral("Hello|World"));
    EXPECT_EQ(state.Next_Subtitle_Index, 2);
    EXPECT_EQ(state.Next_Subtitle_Time, QStringLiteral("00:00:07"));
    Tick_At(6.0);
    EXPECT_EQ(subtitle_display.Shown, QStringLiteral("Hello|World")) << "a line stays until the next is due";
    Tick_At(7.0);
    EXPECT_EQ(subtitle_display.Shown, QStringLiteral("Again|"));
    EXPECT_EQ(state.Next_Subtitle_Time, QStringLiteral("23:59:59"));
}


TEST_F(Subtitle_Step_Test, Remaining_Mode_Compares_The_Remaining_Time)
{
    state.Time_Mode = 2;
    Tick_At(55.0);  // shows 00:00:05
    EXPECT_EQ(subtitle_display.Shown, QStringLiteral("Hello|World"));
    Tick_At(5.0);  // shows 00:00:55: nothing is due at that text
    EXPECT_EQ(subtitle_display.Shown, QStringLiteral("Hello|World"));
    EXPECT_EQ(state.Next_Subtitle_Time, QStringLiteral("00:00:07"));
}

TEST_F(Subtitle_Step_Test, Past_The_Last_Entry_The_Window_Is_Cleared_And_Searched_Again)
{
    Tick_At(5.0);
    ASSERT_EQ(subtitle_display.Shown, QStringLiteral("Hello|World"));
    state.Next_Subtitle_Time = QStringLiteral("Aucun");
    Tick_At(30.0);
    EXPECT_EQ(subtitle_display.Shown, QString());
    EXPECT_EQ(state.Next_Subtitle_Time, QStringLiteral("Aucun"));
    journal.Clear();
    Tick_At(31.0);
    EXPECT_TRUE(journal.Has(QStringLiteral("Find_Subtitle(00:00:31)")));
}

TEST_F(Subtitle_Step_Test, Nothing_Is_Searched_While_The_Window_Is_Hidden)
{
    state.Subtitles_Shown = false;
    Tick_At(5.0);
    EXPECT_TRUE(journal.Only({QStringLiteral("Find_Subtitle"), QStringLiteral("Show_Subtitle")}).isEmpty());
}

} // namespace
} // namespace Orvane::Test

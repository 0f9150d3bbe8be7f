#include "player_fixture.h"

namespace Orvane::Test {

using Playback_Session_Test = Player_Fixture;

TEST_F(Playback_Session_Test, PlayTrackOpensPreparesAndPlaysInOrder)
{
    tracks = {Audio_Track("Song"), Video_Track("Film", 2)};
    tracks[1].Subtitle_Path = Subtitle_File();
    state.Full_Screen = true;
    state.Volume_Level = 3;
    Start(1);
    state.Current_Track = 2;
    session.Play_Track();
    EXPECT_EQ(journal.calls,
              QStringList({"Close_Graph", "Open_Graph(/media/Film.avi)", "Video_Layout(320,240)", "Set_Volume(-1500)",
                           "Show_Subtitle(|,1)", "Record_Audio_Pins(true,2)", "Disconnect_Audio_Streams(true,2)",
                           "Connect_Audio_Stream(1)", "Select_Playlist_Entry(1)", "Reapply_Full_Screen(true)", "Run",
                           "Show_Playlist_Tab"}));
    EXPECT_TRUE(state.Subtitles_Loaded);
    journal.Clear();
    state.Current_Track = 1;
    state.Full_Screen = false;
    session.Play_Track();  // no picture, no subtitles, not in full screen
    EXPECT_FALSE(state.Subtitles_Loaded);
    EXPECT_EQ(journal.Only({"Video_Layout", "Audio_Layout", "Record", "Reapply"}), QStringList({"Audio_Layout"}));
}

TEST_F(Playback_Session_Test, DiscChangeQuestionCancelledLeavesNoMedia)
{
    tracks = {Video_Track("Part2", 1)};
    tracks[0].Disc_Change = true;
    state.Current_Track = 1;
    boxes.Set_Answer(Box_Answer::Cancel);
    session.Play_Track();
    EXPECT_EQ(boxes.Last_Text(), "1011 English\n1012 English");
    EXPECT_EQ(boxes.Boxes().back().style, Box_Style::Ok_Cancel);
    EXPECT_EQ(journal.calls, QStringList({"Close_Graph"}));
    boxes.Set_Answer(Box_Answer::Ok);
    session.Play_Track();
    EXPECT_TRUE(graph.running);
}

TEST_F(Playback_Session_Test, GraphFailuresAreReportedAndLeaveNoMedia)
{
    tracks = {Video_Track("A", 1)};
    Start(1);
    session.Play_Track();
    emit graph.Error_Occurred(graph.pipeline_id - 1, "late error of a closed pipeline");
    EXPECT_TRUE(boxes.Boxes().empty());
    emit graph.Error_Occurred(graph.pipeline_id, "Internal data stream error");
    EXPECT_EQ(boxes.Last_Text(), "Internal data stream error");
    EXPECT_FALSE(graph.open);
    EXPECT_FALSE(session.Timer().isActive());
    graph.open_failure = "No decoder for A.avi";
    journal.Clear();
    session.Play_Track();
    EXPECT_EQ(boxes.Last_Text(), "No decoder for A.avi");
    EXPECT_EQ(boxes.Boxes().back().style, Box_Style::Critical_Ok);
    EXPECT_FALSE(journal.calls.contains("Run"));
    EXPECT_FALSE(state.Is_Playing);
}

TEST_F(Playback_Session_Test, NextAndPrevious)
{
    tracks = {Video_Track("A", 2), Video_Track("B", 1)};
    Start(2);
    state.Next_Subtitle_Time = "00:00:10";
    session.Next();  // on the last track
    EXPECT_EQ(state.Next_Subtitle_Time, "Aucun");
    EXPECT_TRUE(journal.calls.isEmpty());
    session.Previous();
    state.Next_Subtitle_Time = "00:00:10";
    session.Previous();  // on track 1
    EXPECT_EQ(state.Next_Subtitle_Time, "Aucun");
    EXPECT_EQ(graph.opened_path, "/media/A.avi");
    session.Next();  // A's menus are cleared before B, which offers no choice
    EXPECT_EQ(graph.opened_path, "/media/B.avi");
    EXPECT_EQ(Menu_Text(view), "-,-");
}

TEST_F(Playback_Session_Test, AudioChoiceKeptUpToTwiceTheStreamCount)
{
    tracks = {Video_Track("Film", 2, {"English"})};
    state.Current_Track = 1;
    const std::tuple<int, int, QString> cases[] = {  // choice, choice kept (4 names no file here), what is heard
        {4, 4, ""}, {5, 1, "Connect_Audio_Stream(1)"}, {0, 1, "Connect_Audio_Stream(1)"},
        {2, 2, "Connect_Audio_Stream(2)"}, {3, 3, "Render_Associated_Audio(/media/English.wav)"}};
    for (const auto& [choice, kept, heard] : cases) {
        journal.Clear();
        state.Audio_Choice = Audio_Choice::From_Number(choice);
        session.Play_Track();
        EXPECT_EQ(state.Audio_Choice.Number(), kept);
        EXPECT_EQ(journal.Only({"Connect", "Render"}).join(u' '), heard);
    }
    graph.associated_fails = true;
    state.Audio_Choice = Audio_Choice::From_Number(3);
    session.Play_Track();
    EXPECT_EQ(boxes.Last_Text(), "cannot render /media/English.wav");
    EXPECT_TRUE(graph.running) << "the picture goes on";
}

TEST_F(Playback_Session_Test, TickPauseAndTheEndOfTheOnlyTrack)
{
    tracks = {Video_Track("A", 1)};
    Start(1);
    graph.position = 30.6;
    session.Tick();
    EXPECT_EQ(view.Cursor_Left(), 158);
    EXPECT_EQ(view.Time_Text(), "00:00:31");
    session.Pause();
    session.Tick();
    EXPECT_EQ(view.Time_Text(), "00:00:31");
    state.Time_Mode = 2;
    graph.position = 15.5;  // 44.5 s remain: halves to the even neighbour
    session.Tick();
    EXPECT_EQ(view.Time_Text(), "00:00:44");
    EXPECT_TRUE(session.Timer().isActive()) << "pausing keeps the timer";
    state.Subtitles_Shown = true;
    journal.Clear();
    graph.position = 60.0;
    session.Tick();  // repeat off: stopped at the start
    EXPECT_FALSE(session.Timer().isActive());
    EXPECT_EQ(graph.position, 0.0);
    EXPECT_EQ(view.Cursor_Left(), 0);
    EXPECT_EQ(view.Time_Text(), "00:00:00");
    EXPECT_EQ(journal.Only({"Show", "Stop"}), QStringList({"Show_Subtitle(|,1)", "Stop"}));
}

TEST_F(Playback_Session_Test, Repeat_Plays_Track_1_After_Clearing_The_Last_Tracks_Menus)
{
    tracks = {Video_Track("A", 1), Video_Track("B", 2)};
    Start(2);
    settings.Playlist_Repeat = true;
    state.Next_Subtitle_Time = "00:00:10";
    graph.position = 60.0;
    session.Tick();
    EXPECT_EQ(graph.opened_path, "/media/A.avi");
    EXPECT_EQ(Menu_Text(view), "-,-");
    EXPECT_EQ(state.Next_Subtitle_Time, "Aucun");
}

TEST_F(Playback_Session_Test, TheEndOfTheStreamStandsForTheStoredDuration)
{
    struct Case {
        const char* name;
        double position;
        bool end_reached;
        QString opened_after;
    };
    const Case cases[] = {  // the stored duration (90 s) is longer than the media
        {"the stored duration reached", 90.0, false, "/media/B.avi"},
        {"the pipeline ended before the stored duration", 41.0, true, "/media/B.avi"},
        {"the pipeline ended at its own shorter length", 89.9, true, "/media/B.avi"},
        {"short of the stored duration without an end", 89.9, false, "/media/A.avi"},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.name);
        tracks = {Video_Track("A", 1), Video_Track("B", 1)};
        tracks[0].Duration = 90.0;
        Start(1);
        view.Set_Time_Text("--");
        graph.position = test.position;
        graph.end_reached = test.end_reached;
        session.Tick();
        EXPECT_EQ(graph.opened_path, test.opened_after);
        EXPECT_EQ(view.Time_Text() == "--", test.opened_after.endsWith("B.avi")) << "the end writes no time";
    }
}

TEST_F(Playback_Session_Test, SubtitleLinesAppearWhenTheShownTextEqualsTheirStart)
{
    tracks = {Video_Track("Film", 1)};
    tracks[0].Subtitle_Path = Subtitle_File();
    Start(1);
    const auto shown_at = [this](double seconds) {
        graph.position = seconds;
        session.Tick();
        return fakes.shown_subtitle;
    };
    EXPECT_EQ(shown_at(5.0), "|") << "the window is hidden";
    state.Subtitles_Shown = true;
    EXPECT_EQ(QStringList({shown_at(4.0), shown_at(5.2), shown_at(6.0), shown_at(7.0)}),  // in this order
              QStringList({"|", "Hello|World", "Hello|World", "Again|"}));
    EXPECT_EQ(state.Next_Subtitle_Time, "23:59:59");
    state.Next_Subtitle_Time = "Aucun";  // past the last entry: cleared, searched again
    EXPECT_EQ(shown_at(30.0), "|");
    EXPECT_EQ(state.Next_Subtitle_Time, "Aucun");
    state.Time_Mode = 2;
    EXPECT_EQ(shown_at(55.0), "Hello|World") << "remaining mode compares the remaining time";
}

} // namespace Orvane::Test

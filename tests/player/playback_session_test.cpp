// The session's decisions on a graph that plays nothing: what is opened, in which order, what is heard
// and what happens at a track's end. The session on real media is the program's tests' concern.
#include "player_fixture.h"

namespace Orvane::Test {

using Playback_Session_Test = Player_Fixture;

TEST_F(Playback_Session_Test, PlayTrackOpensPreparesAndPlaysInOrder)
{
    tracks = {Audio_Track("Song"), Video_Track("Film", 2)};
    tracks[1].Subtitle_Path = Subtitle_File();
    state.Full_Screen = true;
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

// The second disc of a two-disc film is read from the first drive once the user has changed the disc.
TEST_F(Playback_Session_Test, TheDiscChangeQuestionCancelledLeavesNoMedia)
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

TEST_F(Playback_Session_Test, NextAndPreviousStopAtTheEndsAndAlwaysRestartTheSubtitleSearch)
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

// The bound is twice the stream count, not streams plus associated files: 4 is kept on a track of two
// streams and one file, though it names no file there.
TEST_F(Playback_Session_Test, TheAudioChoiceIsKeptUpToTwiceTheStreamCount)
{
    tracks = {Video_Track("Film", 2, {"English"})};
    state.Current_Track = 1;
    const std::tuple<int, int, QString> cases[] = {  // choice, choice kept, what is heard
        {4, 4, ""}, {5, 1, "Connect_Audio_Stream(1)"}, {0, 1, "Connect_Audio_Stream(1)"},
        {2, 2, "Connect_Audio_Stream(2)"}, {3, 3, "Render_Associated_Audio(/media/English.wav)"}};
    for (const auto& [choice, kept, heard] : cases) {
        journal.Clear();
        state.Audio_Choice = Audio_Choice::From_Number(choice);
        session.Play_Track();
        EXPECT_EQ(state.Audio_Choice.Number(), kept);
        EXPECT_EQ(journal.Only({"Connect", "Render"}).join(u' '), heard);
    }
    graph.unheard_file = "/media/English.wav";
    state.Audio_Choice = Audio_Choice::From_Number(3);
    session.Play_Track();
    EXPECT_EQ(boxes.Last_Text(), "cannot render /media/English.wav");
    EXPECT_TRUE(graph.running) << "the picture goes on";
}

TEST_F(Playback_Session_Test, TickPauseAndTheEndOfTheLastTrackWithAndWithoutRepeat)
{
    tracks = {Video_Track("A", 1), Video_Track("B", 2)};
    Start(2);
    graph.position = 30.6;
    session.Tick();
    EXPECT_EQ(view.Cursor_Left(), 158);
    EXPECT_EQ(view.Time_Text(), "00:00:31");
    session.Pause();
    state.Time_Mode = 2;
    graph.position = 15.5;  // 44.5 s remain: halves to the even neighbour
    session.Tick();
    EXPECT_EQ(view.Time_Text(), "00:00:44");
    EXPECT_TRUE(session.Timer().isActive()) << "pausing keeps the timer";
    graph.duration = 0.0;
    session.Tick();
    EXPECT_EQ(view.Time_Text(), "00:00:00") << "nothing remains while the graph does not know its length";
    graph.duration = 60.0;
    state.Subtitles_Shown = true;
    journal.Clear();
    graph.position = 60.0;
    session.Tick();  // repeat off: stopped at the start
    EXPECT_FALSE(session.Timer().isActive());
    EXPECT_EQ(QStringList({QString::number(graph.position), QString::number(view.Cursor_Left()), view.Time_Text()}),
              QStringList({"0", "0", "00:00:00"}));
    EXPECT_EQ(journal.Only({"Show", "Stop"}), QStringList({"Show_Subtitle(|,1)", "Stop"}));

    // Repeat on: track 1, after clearing the last track's menus.
    settings.Playlist_Repeat = true;
    session.Play_Track();
    state.Next_Subtitle_Time = "00:00:10";
    graph.position = 60.0;
    session.Tick();
    EXPECT_EQ(graph.opened_path, "/media/A.avi");
    EXPECT_EQ(Menu_Text(view), "-,-");
    EXPECT_EQ(state.Next_Subtitle_Time, "Aucun");
}

// Texts are compared, not times: a line is due on the tick whose shown time text equals its start.
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

// The audio popup of the current track and the switches it makes.
class Audio_Menus_Test : public Player_Fixture {
protected:
    // A film with n streams and the named associated files, playing at 42 s with the given choice.
    void Play_Film(int streams, const QStringList& associated, int choice)
    {
        tracks = {Video_Track("Film", streams, associated)};
        state.Audio_Choice = Audio_Choice::From_Number(choice);
        Start(1);
        graph.position = 42.0;
    }
    // The calls that change the sound, in order.
    QStringList Sound_Calls() const
    {
        return journal.Only({"Save", "Stop", "Drop", "Open", "Reapply", "Record", "Disconnect", "Restore", "Connect",
                             "Render", "Run"});
    }
    Audio_Menus& menus() { return session.Menus(); }
};

TEST_F(Audio_Menus_Test, BuiltWithTheChoiceHeardCheckedAndCleared)
{
    const std::tuple<int, QStringList, int, QString> cases[] = {
        {2, {"English"}, 2, "-,Stream audio 1,Stream audio 2*,-,English,-"},
        {2, {"English"}, 3, "-,Stream audio 1,Stream audio 2,-,English*,-"},
        {0, {"French", "English"}, 1, "-,French*,English,-"}};
    for (const auto& [streams, associated, choice, menu] : cases) {
        Play_Film(streams, associated, choice);
        EXPECT_EQ(Menu_Text(view), menu);
        menus().Clear_Audio_Menus(1);
        EXPECT_EQ(Menu_Text(view), "-,-");
        EXPECT_EQ(view.Stream_Entry_Count() + view.Associated_Entry_Count(), 2);
    }
    tracks = {Audio_Track("Song", {"Karaoke"})};
    Start(1);
    EXPECT_EQ(Menu_Text(view), "-,-") << "no menus without a picture";
}

TEST_F(Audio_Menus_Test, StreamToStreamReconnectsWhereTheGraphStopped)
{
    Play_Film(2, {"English"}, 2);
    menus().Choose_Stream(2);  // the entry checked: nothing
    menus().Choose_Stream(1);
    EXPECT_EQ(Sound_Calls(), QStringList({"Disconnect_Audio_Stream(2)", "Connect_Audio_Stream(1)", "Run"}));
    EXPECT_EQ(graph.position, 42.0);
    EXPECT_EQ(Menu_Text(view), "-,Stream audio 1*,Stream audio 2,-,English,-");
    EXPECT_EQ(view.Lbl_Affichage_ML()->text(), "1102 English1");
}

// The associated file leaves the running graph; only a graph that cannot drop it is opened again.
// The steps the user sees are the same.
TEST_F(Audio_Menus_Test, LeavingAnAssociatedFileForAStreamKeepsThePlaceInPlaceOrReopened)
{
    for (const bool in_place : {true, false}) {
        Play_Film(2, {"English"}, 3);
        graph.drop_in_place = in_place;
        state.Full_Screen = true;
        menus().Choose_Associated(1);  // the entry checked: nothing
        menus().Choose_Stream(2);
        QStringList expected{"Save_Position", "Stop", "Drop_Associated_Audio", "Reapply_Full_Screen(true)",
                             "Record_Audio_Pins(true,2)", "Disconnect_Audio_Streams(true,2)", "Restore_Position",
                             "Connect_Audio_Stream(2)", "Run"};
        if (!in_place)
            expected.insert(3, "Open_Graph(/media/Film.avi)");
        EXPECT_EQ(Sound_Calls(), expected) << "in place: " << in_place;
        EXPECT_EQ(graph.position, 42.0);
        EXPECT_EQ(Menu_Text(view), "-,Stream audio 1,Stream audio 2*,-,English,-");
    }
    // A graph that can be opened no more (the disc removed) leaves no media, with one word.
    menus().Choose_Associated(1);
    graph.open_failure = "disc removed";
    journal.Clear();
    menus().Choose_Stream(1);
    EXPECT_EQ(boxes.Last_Text(), "disc removed");
    EXPECT_FALSE(graph.open);
    EXPECT_FALSE(journal.calls.contains("Run"));
}

TEST_F(Audio_Menus_Test, OneAssociatedFileForAnotherLeavesInPlaceBeforeTheNextIsRendered)
{
    Play_Film(0, {"French", "English"}, 1);
    menus().Choose_Associated(2);
    EXPECT_EQ(Sound_Calls(), QStringList({"Save_Position", "Stop", "Drop_Associated_Audio",
                                          "Render_Associated_Audio(/media/English.wav)", "Restore_Position", "Run"}));
    EXPECT_EQ(Menu_Text(view), "-,French,English*,-");
}

// A file that cannot be heard (gone since it was added) gives back the sound heard before, with one word.
TEST_F(Audio_Menus_Test, AnAssociatedFileThatCannotBeHeardGivesBackTheSoundBefore)
{
    Play_Film(2, {"English"}, 2);
    graph.unheard_file = "/media/English.wav";
    menus().Choose_Associated(1);
    EXPECT_EQ(boxes.Last_Text(), "cannot render /media/English.wav");
    EXPECT_EQ(Sound_Calls(), QStringList({"Save_Position", "Disconnect_Audio_Stream(2)",
                                          "Render_Associated_Audio(/media/English.wav)", "Connect_Audio_Stream(2)",
                                          "Restore_Position", "Run"}));
    EXPECT_EQ(Menu_Text(view), "-,Stream audio 1,Stream audio 2*,-,English,-");

    menus().Clear_Audio_Menus(1);
    Play_Film(0, {"French", "English"}, 1);
    journal.Clear();
    menus().Choose_Associated(2);
    EXPECT_EQ(journal.Only({"Render"}), QStringList({"Render_Associated_Audio(/media/English.wav)",
                                                     "Render_Associated_Audio(/media/French.wav)"}));
    EXPECT_EQ(Menu_Text(view), "-,French*,English,-");
}

} // namespace Orvane::Test

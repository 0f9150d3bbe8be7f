#include "player_fixture.h"

namespace Orvane::Test {

class Audio_Menus_Test : public Player_Fixture {
protected:
    // A film with n streams and the named associated files, playing at 42 s
    // with the given choice.
    void Play_Film(int streams, const QStringList& associated, int choice)
    {
        tracks = {Video_Track("Film", streams, associated)};
        state.Audio_Choice = Audio_Choice::From_Number(choice);
        Start(1);
        graph.position = 42.0;
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
    EXPECT_EQ(journal.calls, QStringList({"Disconnect_Audio_Stream(2)", "Connect_Audio_Stream(1)", "Run",
                                          "Show_Playlist_Tab"}));
    EXPECT_EQ(graph.position, 42.0);
    EXPECT_EQ(Menu_Text(view), "-,Stream audio 1*,Stream audio 2,-,English,-");
    EXPECT_EQ(view.Lbl_Affichage_ML()->text(), "1102 English1");
}

TEST_F(Audio_Menus_Test, LeavingAnAssociatedFileForAStreamKeepsThePlaceInPlaceOrReopened)
{
    // The associated file leaves the running graph; only a graph that cannot
    // drop it is opened again. The steps the user sees are the same.
    const std::tuple<bool, QStringList> cases[] = {
        {true, {"Save_Position", "Stop", "Drop_Associated_Audio", "Reapply_Full_Screen(true)",
                "Record_Audio_Pins(true,2)", "Disconnect_Audio_Streams(true,2)", "Restore_Position",
                "Connect_Audio_Stream(2)"}},
        {false, {"Save_Position", "Stop", "Drop_Associated_Audio", "Open_Graph(/media/Film.avi)",
                 "Reapply_Full_Screen(true)", "Record_Audio_Pins(true,2)", "Disconnect_Audio_Streams(true,2)",
                 "Restore_Position", "Connect_Audio_Stream(2)"}}};
    for (const auto& [in_place, calls] : cases) {
        Play_Film(2, {"English"}, 3);
        graph.drop_in_place = in_place;
        state.Full_Screen = true;
        journal.Clear();
        menus().Choose_Associated(1);  // the entry checked: nothing
        menus().Choose_Stream(2);
        EXPECT_EQ(journal.Only({"Save", "Stop", "Drop", "Open", "Reapply", "Record", "Disconnect", "Restore",
                                "Connect", "Render"}),
                  calls)
            << "in place: " << in_place;
        EXPECT_EQ(graph.position, 42.0);
        EXPECT_EQ(Menu_Text(view), "-,Stream audio 1,Stream audio 2*,-,English,-");
        EXPECT_TRUE(graph.running);
    }
}

TEST_F(Audio_Menus_Test, OneAssociatedFileForAnotherLeavesInPlaceBeforeTheNextIsRendered)
{
    Play_Film(0, {"French", "English"}, 1);
    journal.Clear();
    menus().Choose_Associated(2);
    EXPECT_EQ(journal.Only({"Save", "Stop", "Drop", "Open", "Render", "Restore", "Run"}),
              QStringList({"Save_Position", "Stop", "Drop_Associated_Audio", "Render_Associated_Audio(/media/English.wav)",
                           "Restore_Position", "Run"}));
    EXPECT_EQ(Menu_Text(view), "-,French,English*,-");
}

TEST_F(Audio_Menus_Test, AFailedRebuildLeavesNoMedia)
{
    Play_Film(2, {"English"}, 3);
    graph.drop_in_place = false;
    graph.open_failure = "disc removed";
    menus().Choose_Stream(1);
    EXPECT_EQ(boxes.Last_Text(), "disc removed");
    EXPECT_FALSE(graph.open);
    EXPECT_FALSE(journal.calls.contains("Run"));
}

} // namespace Orvane::Test

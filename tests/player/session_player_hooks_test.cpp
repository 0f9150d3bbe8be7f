#include "player_fixture.h"

#include "player/session_player_hooks.h"

namespace Orvane::Test {
namespace {

class Session_Player_Hooks_Test : public Player_Fixture {
protected:
    Session_Player_Hooks hooks{session};
};

TEST_F(Session_Player_Hooks_Test, First_Track_Is_Opened_At_The_Start_Not_Played)
{
    tracks.records = {Video_Track(QStringLiteral("A"), 1)};
    state.Current_Track = 1;
    view.Set_Cursor_Left(120);
    journal.Clear();
    hooks.Open_First_Track(QStringLiteral("/media/A.avi"));
    EXPECT_TRUE(graph.Is_Open());
    EXPECT_FALSE(graph.Is_Running());
    EXPECT_FALSE(session.Timer().isActive());
    EXPECT_EQ(view.Cursor_Left, 0);
    EXPECT_TRUE(journal.Comes_Before(QStringLiteral("Select_Playlist_Entry(0)"),
                                     QStringLiteral("Set_Current_Position(0)")));
    EXPECT_EQ(view.Title_Text(), QStringLiteral("A"));
}

TEST_F(Session_Player_Hooks_Test, Reset_Player_Before_A_Playlist_Is_Loaded)
{
    Track_Record film = Video_Track(QStringLiteral("A"), 1);
    film.Subtitle_Path = QStringLiteral("/media/A.sub");
    tracks.records = {film};
    Play_Current(1);
    subtitle_window.Show();
    state.Subtitles_Shown = true;
    // The playlist has been emptied when the player is reset.
    tracks.records.clear();
    state.Current_Track = 0;
    journal.Clear();

    hooks.Reset_Player();
    EXPECT_FALSE(session.Timer().isActive());
    EXPECT_FALSE(graph.Is_Open());
    EXPECT_FALSE(state.Is_Playing);
    EXPECT_FALSE(subtitle_window.Is_Shown());
    EXPECT_FALSE(state.Subtitles_Shown);
    EXPECT_EQ(journal.Only({"Close_Graph", "Audio_Layout", "Set_Title_Text", "Subtitle_Window"}),
              QStringList({"Close_Graph", "Audio_Layout", "Set_Title_Text(1101 English)",
                           "Subtitle_Window_Unload"}));
    EXPECT_EQ(view.Subtitle_Lamps, (std::array<bool, 2>{false, false}));
}

TEST_F(Session_Player_Hooks_Test, First_Associated_File_Of_The_Current_Track_Is_Heard_At_Once)
{
    Track_Record film = Video_Track(QStringLiteral("Film"), 1);
    tracks.records = {film, Video_Track(QStringLiteral("Other"), 1)};
    Open_Current(1);
    state.Audio_Choice = 1;

    Add_Associated(tracks.records[1], QStringLiteral("Elsewhere"));
    hooks.Associated_Audio_Added(2, 1);
    EXPECT_TRUE(journal.calls.isEmpty()) << "not the current track";

    Add_Associated(tracks.records[0], QStringLiteral("English"));
    hooks.Associated_Audio_Added(1, 1);
    EXPECT_EQ(view.Visible(view.Associated_Entries), QStringList({"English"}));
    EXPECT_EQ(graph.Opens(), 2);
    EXPECT_TRUE(graph.Is_Running());
    EXPECT_EQ(journal.calls.last(), QStringLiteral("Set_Audio_Text(1102 English1)"));

    journal.Clear();
    Add_Associated(tracks.records[0], QStringLiteral("German"));
    hooks.Associated_Audio_Added(1, 2);
    EXPECT_EQ(view.Visible(view.Associated_Entries), QStringList({"English", "German"}));
    EXPECT_EQ(graph.Opens(), 2) << "a further file only extends the menu";
}

TEST_F(Session_Player_Hooks_Test, Menus_And_Labels_On_Request)
{
    tracks.records = {Video_Track(QStringLiteral("Film"), 2)};
    Open_Current(1);
    ASSERT_EQ(view.Visible(view.Stream_Entries).size(), 2);
    hooks.Clear_Audio_Menus(1);
    EXPECT_TRUE(view.Visible(view.Stream_Entries).isEmpty());
    view.Set_Title_Text(QString());
    hooks.Refresh_Display();
    EXPECT_EQ(view.Title_Text(), QStringLiteral("Film"));
}

} // namespace
} // namespace Orvane::Test

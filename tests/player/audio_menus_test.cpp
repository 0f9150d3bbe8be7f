#include "player_fixture.h"

namespace Orvane::Test {
namespace {

class Audio_Menus_Test : public Player_Fixture {
protected:
    // A film with n streams and the named associated files, playing with choice.
    void Play_Film(int streams, const QStringList& associated, int choice)
    {
        Track_Record film = Video_Track(QStringLiteral("Film"), streams);
        for (const QString& name : associated)
            Add_Associated(film, name);
        tracks.records = {film};
        state.Audio_Choice = int16_t(choice);
        Play_Current(1);
    }
    Audio_Menus& menus() { return session.Menus(); }
};

TEST_F(Audio_Menus_Test, Built_With_The_Choice_Heard_Checked)
{
    Play_Film(2, {QStringLiteral("English")}, 2);
    EXPECT_EQ(view.Visible(view.Stream_Entries), QStringList({"Stream audio 1", "Stream audio 2*"}));
    EXPECT_EQ(view.Visible(view.Associated_Entries), QStringList({"English"}));
    EXPECT_TRUE(view.Separation_Visible);

    menus().Clear_Audio_Menus(1);
    state.Audio_Choice = 3;
    Play_Current(1);
    EXPECT_EQ(view.Visible(view.Stream_Entries), QStringList({"Stream audio 1", "Stream audio 2"}));
    EXPECT_EQ(view.Visible(view.Associated_Entries), QStringList({"English*"}));
}

TEST_F(Audio_Menus_Test, Only_Associated_Files_Give_No_Separator)
{
    Track_Record film = Video_Track(QStringLiteral("Mute"), 0);
    Add_Associated(film, QStringLiteral("French"));
    Add_Associated(film, QStringLiteral("English"));
    tracks.records = {film};
    Play_Current(1);
    EXPECT_EQ(state.Audio_Choice, 1);
    EXPECT_TRUE(view.Visible(view.Stream_Entries).isEmpty());
    EXPECT_EQ(view.Visible(view.Associated_Entries), QStringList({"French*", "English"}));
    EXPECT_FALSE(view.Separation_Visible);
}

TEST_F(Audio_Menus_Test, No_Menus_Without_A_Picture)
{
    Track_Record song = Audio_Track(QStringLiteral("Song"));
    Add_Associated(song, QStringLiteral("Karaoke"));
    tracks.records = {song};
    Play_Current(1);
    menus().Build_Audio_Menus();
    menus().Clear_Audio_Menus(1);
    EXPECT_TRUE(journal.Only({"Set_Stream", "Set_Associated", "Set_Separation"}).isEmpty());
}

TEST_F(Audio_Menus_Test, Clearing_Removes_Entries_And_Restarts_The_Subtitle_Search)
{
    Play_Film(3, {QStringLiteral("English"), QStringLiteral("German")}, 2);
    state.Next_Subtitle_Time = QStringLiteral("00:00:10");
    menus().Clear_Audio_Menus(1);
    EXPECT_EQ(state.Next_Subtitle_Time, QStringLiteral("Aucun"));
    EXPECT_TRUE(view.Visible(view.Stream_Entries).isEmpty());
    EXPECT_TRUE(view.Visible(view.Associated_Entries).isEmpty());
    EXPECT_EQ(view.Stream_Entries.size(), 1u);
    EXPECT_EQ(view.Associated_Entries.size(), 1u);
    EXPECT_FALSE(view.Stream_Entries.at(1).checked);
    EXPECT_FALSE(view.Separation_Visible);
}

TEST_F(Audio_Menus_Test, Choosing_The_Checked_Entry_Does_Nothing)
{
    Play_Film(2, {QStringLiteral("English")}, 2);
    menus().Choose_Stream(2);
    state.Audio_Choice = 3;
    menus().Choose_Associated(1);
    EXPECT_TRUE(journal.calls.isEmpty());
}

TEST_F(Audio_Menus_Test, Stream_To_Stream_Reconnects_Without_Moving)
{
    Play_Film(2, {}, 2);
    graph.Move_To(42.0);
    menus().Choose_Stream(1);
    EXPECT_EQ(journal.Only({"Set_Stream_Checked", "Disconnect", "Connect", "Save_Position", "Restore_Position",
                            "Open_Graph", "Set_Audio_Text", "Run"}),
              QStringList({"Set_Stream_Checked(1,true)", "Set_Stream_Checked(2,false)",
                           "Disconnect_Audio_Stream(2)", "Connect_Audio_Stream(1)",
                           "Set_Audio_Text(1102 English1)", "Run"}));
    EXPECT_EQ(state.Audio_Choice, 1);
    EXPECT_DOUBLE_EQ(graph.Current_Position(), 42.0);
    EXPECT_EQ(view.Visible(view.Stream_Entries), QStringList({"Stream audio 1*", "Stream audio 2"}));
}

TEST_F(Audio_Menus_Test, Leaving_An_Associated_File_Rebuilds_The_Graph_At_The_Same_Place)
{
    Play_Film(2, {QStringLiteral("English")}, 3);
    state.Full_Screen = true;
    graph.Move_To(42.0);
    menus().Choose_Stream(2);
    EXPECT_EQ(journal.Only({"Set_Stream_Checked", "Set_Associated_Checked", "Save_Position", "Stop",
                            "Open_Graph", "Reapply_Full_Screen", "Record_Audio_Pins", "Disconnect",
                            "Restore_Position", "Connect", "Set_Audio_Text", "Run"}),
              QStringList({"Set_Stream_Checked(2,true)", "Set_Associated_Checked(1,false)", "Save_Position",
                           "Stop", "Open_Graph(/media/Film.avi)", "Reapply_Full_Screen(video)",
                           "Record_Audio_Pins(true,2)", "Disconnect_Audio_Streams(true,2)",
                           "Restore_Position", "Connect_Audio_Stream(2)", "Set_Audio_Text(1102 English2)",
                           "Run"}));
    EXPECT_FALSE(journal.Has(QStringLiteral("Render_Associated_Audio(/media/English.wav)")));
    EXPECT_DOUBLE_EQ(graph.Current_Position(), 42.0);
    EXPECT_EQ(state.Audio_Choice, 2);
    EXPECT_TRUE(graph.Is_Running());
}

TEST_F(Audio_Menus_Test, Full_Screen_Is_Only_Laid_Again_When_In_Force)
{
    Play_Film(1, {QStringLiteral("English")}, 2);
    menus().Choose_Stream(1);
    EXPECT_TRUE(journal.Only({"Reapply_Full_Screen"}).isEmpty());
    EXPECT_TRUE(journal.Has(QStringLiteral("Video_Layout(320x240)")));
}

TEST_F(Audio_Menus_Test, Stream_To_Associated_File_Keeps_The_Graph)
{
    Play_Film(2, {QStringLiteral("English"), QStringLiteral("German")}, 1);
    graph.Move_To(42.0);
    menus().Choose_Associated(2);
    EXPECT_EQ(journal.Only({"Set_Stream_Checked", "Set_Associated_Checked", "Save_Position", "Open_Graph",
                            "Disconnect", "Render", "Set_Audio_Text", "Restore_Position", "Run"}),
              QStringList({"Set_Associated_Checked(2,true)", "Set_Stream_Checked(1,false)", "Save_Position",
                           "Disconnect_Audio_Stream(1)", "Render_Associated_Audio(/media/German.wav)",
                           "Set_Audio_Text(German)", "Restore_Position", "Run"}));
    EXPECT_EQ(state.Audio_Choice, 4);
    EXPECT_DOUBLE_EQ(graph.Current_Position(), 42.0);
}

TEST_F(Audio_Menus_Test, Associated_To_Associated_Rebuilds_And_Disconnects_The_Streams)
{
    Play_Film(2, {QStringLiteral("English"), QStringLiteral("German")}, 3);
    graph.Move_To(42.0);
    menus().Choose_Associated(2);
    EXPECT_EQ(journal.Only({"Set_Associated_Checked", "Save_Position", "Stop", "Open_Graph",
                            "Reapply", "Record", "Disconnect", "Render", "Restore_Position", "Run"}),
              QStringList({"Set_Associated_Checked(2,true)", "Set_Associated_Checked(1,false)",
                           "Save_Position", "Stop", "Open_Graph(/media/Film.avi)",
                           "Record_Audio_Pins(true,2)", "Disconnect_Audio_Streams(true,2)",
                           "Render_Associated_Audio(/media/German.wav)", "Restore_Position", "Run"}));
    EXPECT_DOUBLE_EQ(graph.Current_Position(), 42.0);
}

TEST_F(Audio_Menus_Test, Associated_To_Associated_Without_Streams_Records_No_Pins)
{
    Track_Record film = Video_Track(QStringLiteral("Mute"), 0);
    Add_Associated(film, QStringLiteral("French"));
    Add_Associated(film, QStringLiteral("English"));
    tracks.records = {film};
    Play_Current(1);
    menus().Choose_Associated(2);
    EXPECT_TRUE(journal.Only({"Record_Audio_Pins", "Disconnect"}).isEmpty());
    EXPECT_TRUE(journal.Has(QStringLiteral("Render_Associated_Audio(/media/English.wav)")));
    EXPECT_EQ(state.Audio_Choice, 2);
}

TEST_F(Audio_Menus_Test, A_Failed_Rebuild_Leaves_No_Media)
{
    Play_Film(2, {QStringLiteral("English")}, 3);
    graph.Fail_Opens_With(QStringLiteral("disc removed"));
    menus().Choose_Stream(1);
    EXPECT_EQ(boxes.Last_Text(), QStringLiteral("disc removed"));
    EXPECT_FALSE(graph.Is_Open());
    EXPECT_FALSE(journal.Has(QStringLiteral("Run")));
    EXPECT_FALSE(session.Timer().isActive());
}

} // namespace
} // namespace Orvane::Test

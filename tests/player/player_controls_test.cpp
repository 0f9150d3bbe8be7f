#include "player_fixture.h"

#include "player/player_controls.h"
#include "player/player_layout.h"

#include <set>

namespace Orvane::Test {
namespace {

class Player_Controls_Test : public Player_Fixture {
protected:
    Player_Controls_Test()
        : controls(context, session,
                   {[this] { journal.Add("Show_Configuration"); },
                    [this] { journal.Add("Write_Config"); },
                    [this] { journal.Add("Quit_Application"); }})
    {
    }
    // Mouse-down then release on the button, the journal holding only the action.
    void Press(int index)
    {
        controls.Button_Mouse_Down(index);
        controls.Button_Click(index);
    }
    bool Sinks(int index)
    {
        const int rest = Player_Layout::Button_Tops[size_t(index)];
        controls.Button_Mouse_Down(index);
        const bool sunk = view.Button_Top(index) == rest + 1;
        controls.Button_Click(index);  // back to rest for the next look
        EXPECT_EQ(view.Button_Top(index), rest);
        return sunk;
    }

    Player_Controls controls;
};

TEST_F(Player_Controls_Test, Without_Media_Only_Open_Configuration_And_Playlist_Act)
{
    tracks.records = {Video_Track(QStringLiteral("A"), 2), Video_Track(QStringLiteral("B"), 2)};
    state.Current_Track = 1;
    for (int i = 0; i <= 12; ++i) {
        const bool free_button = i == 0 || i == 6 || i == 7;
        EXPECT_EQ(Sinks(i), free_button) << "button " << i;
    }
    controls.Gestion_KeyPress(' ');
    controls.Gestion_KeyPress('B');
    QStringList actions;
    for (const QString& call : journal.calls)
        if (!call.startsWith(QLatin1String("Set_Button_Top")))
            actions.append(call);
    EXPECT_EQ(actions, QStringList({"Click_Add_Video", "Show_Configuration", "Toggle_Visible"}));
    EXPECT_EQ(state.Current_Track, 1);
    EXPECT_FALSE(state.Is_Playing);
}

TEST_F(Player_Controls_Test, Press_Look_Skip_Rules_With_Media)
{
    tracks.records = {Video_Track(QStringLiteral("A"), 1), Video_Track(QStringLiteral("B"), 2),
                      Audio_Track(QStringLiteral("C"))};
    Open_Current(1);
    EXPECT_TRUE(Sinks(1));
    EXPECT_FALSE(Sinks(11)) << "one audio stream";
    EXPECT_TRUE(Sinks(12));
    state.Current_Track = 2;
    EXPECT_TRUE(Sinks(11));
    state.Current_Track = 3;
    EXPECT_FALSE(Sinks(11)) << "no picture";
    // The last track current: Previous does not sink (the Next button's test)...
    EXPECT_FALSE(Sinks(12));
    EXPECT_TRUE(Sinks(10));
}

TEST_F(Player_Controls_Test, Previous_On_The_Last_Track_Still_Goes_Back)
{
    tracks.records = {Video_Track(QStringLiteral("A"), 1), Video_Track(QStringLiteral("B"), 1)};
    Play_Current(2);
    Press(Button_Previous);
    EXPECT_EQ(view.Button_Top(Button_Previous), 89);
    EXPECT_EQ(state.Current_Track, 1);
    EXPECT_EQ(graph.Opened_Path(), QStringLiteral("/media/A.avi"));
}

TEST_F(Player_Controls_Test, Transport_Buttons)
{
    tracks.records = {Video_Track(QStringLiteral("A"), 1), Video_Track(QStringLiteral("B"), 1)};
    Open_Current(2);
    Press(Button_Play);
    EXPECT_EQ(journal.Only({"Run", "Select_Playlist_Entry"}), QStringList({"Run", "Select_Playlist_Entry(1)"}));
    EXPECT_TRUE(state.Is_Playing);
    Press(Button_Pause);
    EXPECT_FALSE(state.Is_Playing);
    EXPECT_TRUE(session.Timer().isActive());
    Press(Button_Stop);
    EXPECT_FALSE(session.Timer().isActive());
    EXPECT_EQ(view.Time_Text(), QStringLiteral("00:00:00"));
    Press(Button_Previous);
    EXPECT_EQ(state.Current_Track, 1);
    Press(Button_Next);
    EXPECT_EQ(state.Current_Track, 2);
}

TEST_F(Player_Controls_Test, Open_Button_Leaves_The_Layout_But_Forgets_Full_Screen)
{
    state.Full_Screen = true;
    Press(Button_Open);
    EXPECT_TRUE(journal.Has(QStringLiteral("Click_Add_Video")));
    EXPECT_FALSE(journal.Has(QStringLiteral("Leave_Full_Screen")));
    EXPECT_FALSE(state.Full_Screen);
}

TEST_F(Player_Controls_Test, Full_Screen_Only_For_Video)
{
    tracks.records = {Video_Track(QStringLiteral("A"), 1), Audio_Track(QStringLiteral("Song"))};
    Open_Current(2);
    controls.Gestion_KeyPress('f');
    EXPECT_TRUE(journal.Only({"Enter_Full_Screen", "Leave_Full_Screen"}).isEmpty());
    EXPECT_FALSE(state.Full_Screen);

    state.Current_Track = 1;
    Press(Button_Full_Screen);
    EXPECT_TRUE(state.Full_Screen);
    EXPECT_TRUE(journal.Has(QStringLiteral("Enter_Full_Screen")));
    journal.Clear();
    controls.Gestion_KeyPress('f');
    EXPECT_FALSE(state.Full_Screen);
    EXPECT_EQ(journal.Only({"Leave_Full_Screen", "Show_Cursor"}), QStringList({"Leave_Full_Screen", "Show_Cursor"}));
}

TEST_F(Player_Controls_Test, Subtitle_Button_Shows_And_Unloads_The_Window)
{
    Track_Record film = Video_Track(QStringLiteral("Film"), 1);
    tracks.records = {film};
    Open_Current(1);
    Press(Button_Subtitles);
    EXPECT_FALSE(subtitle_window.Is_Shown()) << "no subtitle file";

    tracks.records[0].Subtitle_Path = QStringLiteral("/media/Film.sub");
    Open_Current(1);
    ASSERT_TRUE(state.Subtitles_Loaded);
    state.Next_Subtitle_Time = QStringLiteral("00:00:30");
    Press(Button_Subtitles);
    EXPECT_TRUE(subtitle_window.Is_Shown());
    EXPECT_TRUE(state.Subtitles_Shown);
    EXPECT_EQ(state.Next_Subtitle_Time, QStringLiteral("Aucun"));
    EXPECT_EQ(view.Subtitle_Lamps, (std::array<bool, 2>{false, true}));
    Press(Button_Subtitles);
    EXPECT_FALSE(subtitle_window.Is_Shown());
    EXPECT_FALSE(state.Subtitles_Shown);
    EXPECT_EQ(view.Subtitle_Lamps, (std::array<bool, 2>{true, false}));
}

TEST_F(Player_Controls_Test, Audio_Button_Pops_Up_With_Two_Choices_And_A_Picture)
{
    Track_Record one = Video_Track(QStringLiteral("One"), 1);
    Track_Record dubbed = Video_Track(QStringLiteral("Dubbed"), 1);
    Add_Associated(dubbed, QStringLiteral("Deutsch"));
    Track_Record song = Audio_Track(QStringLiteral("Song"));
    Add_Associated(song, QStringLiteral("Karaoke"));
    tracks.records = {one, dubbed, song};
    Open_Current(1);
    controls.Button_Click(Button_Audio);
    state.Current_Track = 3;
    controls.Button_Click(Button_Audio);
    EXPECT_EQ(view.Popups, 0);
    state.Current_Track = 2;
    controls.Button_Click(Button_Audio);
    EXPECT_EQ(view.Popups, 1);
}

TEST_F(Player_Controls_Test, Volume_Steps_Stay_Within_The_Seven_Levels)
{
    tracks.records = {Video_Track(QStringLiteral("A"), 1)};
    Open_Current(1);
    std::set<int> volumes;
    state.Volume_Level = 3;
    for (int i = 0; i < 5; ++i) {
        Press(Button_Volume_Up);
        volumes.insert(graph.Volume());
    }
    EXPECT_EQ(state.Volume_Level, 6);
    EXPECT_EQ(graph.Volume(), 0);
    EXPECT_EQ(view.Volume_Level_Shown, 6);
    for (int i = 0; i < 8; ++i) {
        controls.Step_Volume(1);
        volumes.insert(graph.Volume());
    }
    EXPECT_EQ(state.Volume_Level, 0);
    EXPECT_EQ(graph.Volume(), -3000);
    EXPECT_EQ(volumes, (std::set<int>{-3000, -2500, -2000, -1500, -1000, -500, 0}));

    journal.Clear();
    controls.Step_Volume(2);
    controls.Step_Volume(-1);
    EXPECT_TRUE(journal.calls.isEmpty());
    controls.Gestion_KeyPress('8');
    EXPECT_EQ(state.Volume_Level, 1);
    controls.Gestion_KeyPress('2');
    EXPECT_EQ(state.Volume_Level, 0);
}

TEST_F(Player_Controls_Test, Volume_Needs_Media_And_Some_Sound)
{
    Track_Record silent = Video_Track(QStringLiteral("Silent"), 0);
    tracks.records = {silent};
    state.Current_Track = 1;
    state.Volume_Level = 3;
    controls.Step_Volume(0);
    EXPECT_EQ(state.Volume_Level, 3) << "no media";

    Open_Current(1);
    Press(Button_Volume_Up);
    EXPECT_EQ(state.Volume_Level, 3) << "the buttons do nothing for a track without sound";
    controls.Step_Volume(0);
    EXPECT_EQ(state.Volume_Level, 4) << "Step_Volume only asks for media";

    Add_Associated(tracks.records[0], QStringLiteral("Voice"));
    Press(Button_Volume_Down);
    EXPECT_EQ(state.Volume_Level, 3);
}


TEST_F(Player_Controls_Test, Key_Table)
{
    tracks.records = {Video_Track(QStringLiteral("A"), 1), Video_Track(QStringLiteral("B"), 1),
                      Video_Track(QStringLiteral("C"), 1)};
    Play_Current(2);

    controls.Gestion_KeyPress('6');
    EXPECT_EQ(state.Current_Track, 3);
    controls.Gestion_KeyPress('4');
    EXPECT_EQ(state.Current_Track, 2);
    controls.Gestion_KeyPress('3');
    EXPECT_FALSE(state.Is_Playing);
    controls.Gestion_KeyPress('5');
    EXPECT_TRUE(state.Is_Playing);
    EXPECT_EQ(playlist_window.Selected_Entry, 1);
    controls.Gestion_KeyPress(' ');
    EXPECT_FALSE(state.Is_Playing);
    controls.Gestion_KeyPress(' ');
    EXPECT_TRUE(state.Is_Playing);
    controls.Gestion_KeyPress('1');
    EXPECT_FALSE(session.Timer().isActive());

    graph.Move_To(10.0);
    controls.Gestion_KeyPress('B');
    EXPECT_DOUBLE_EQ(graph.Current_Position(), 12.0);

    journal.Clear();
    controls.Gestion_KeyPress('0');
    EXPECT_EQ(journal.Only({"Click_Add_Video"}).size(), 1);
}

TEST_F(Player_Controls_Test, Lower_Case_B_And_Other_Keys_Bring_The_Player_Forward)
{
    tracks.records = {Video_Track(QStringLiteral("A"), 1)};
    Play_Current(1);
    graph.Move_To(10.0);
    for (int key : {int('b'), int('7'), int('9'), int('F'), 0}) {
        journal.Clear();
        controls.Gestion_KeyPress(key);
        EXPECT_EQ(journal.calls, QStringList({"Bring_To_Front", "Show_Cursor"})) << "key " << key;
    }
    EXPECT_DOUBLE_EQ(graph.Current_Position(), 10.0);
    EXPECT_EQ(view.Front_Calls, 5);
}


TEST_F(Player_Controls_Test, Quit_Writes_The_Configuration_Before_Closing_The_Graph)
{
    tracks.records = {Video_Track(QStringLiteral("A"), 1)};
    Play_Current(1);
    controls.Quit();
    EXPECT_EQ(journal.calls, QStringList({"Write_Config", "Close_Graph", "Quit_Application"}));
}

} // namespace
} // namespace Orvane::Test

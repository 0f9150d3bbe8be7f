#include "player_fixture.h"

#include "player/player_controls.h"
#include "player/player_layout.h"

namespace Orvane::Test {

class Player_Controls_Test : public Player_Fixture {
protected:
    bool Sinks(int index)  // pressed, then raised again by its click
    {
        const int rest = Player_Layout::Button_Tops[size_t(index)];
        controls.Button_Mouse_Down(index);
        const bool sunk = view.Button_Top(index) == rest + 1;
        controls.Button_Click(index);
        return sunk && view.Button_Top(index) == rest;
    }
    QString Keys(const char* keys)
    {
        journal.Clear();
        for (const char* key = keys; *key; ++key)
            controls.Gestion_KeyPress(*key);
        return journal.calls.join(u' ');
    }

    Player_Controls controls{context, session,
                             {[this] { journal.Add("Show_Configuration"); }, [this] { journal.Add("Write_Config"); },
                              [this] { journal.Add("Quit_Application"); }}};
};

TEST_F(Player_Controls_Test, WithoutMediaOnlyOpenConfigurationAndPlaylistAct)
{
    tracks = {Video_Track("A", 2), Video_Track("B", 2)};
    state.Current_Track = 1;
    for (int i = 0; i <= 12; ++i)
        EXPECT_EQ(Sinks(i), i == 0 || i == 6 || i == 7) << "button " << i;
    EXPECT_EQ(journal.calls, QStringList({"Click_Add_Video", "Show_Configuration", "Toggle_Visible"}));
    EXPECT_EQ(Keys(" B"), "");
}

TEST_F(Player_Controls_Test, PressLookOfTheAudioAndPreviousButtons)
{
    tracks = {Video_Track("A", 1, {"Dub"}), Video_Track("B", 2), Audio_Track("C")};
    Start(1, false);
    EXPECT_FALSE(Sinks(Button_Audio)) << "one audio stream, whatever the associated files";
    EXPECT_TRUE(Sinks(Button_Previous));
    state.Current_Track = 2;
    EXPECT_TRUE(Sinks(Button_Audio));
    state.Current_Track = 3;
    EXPECT_FALSE(Sinks(Button_Audio)) << "no picture";
    // The last track current: Previous takes the Next button's test and does
    // not sink, though its click still goes back.
    EXPECT_FALSE(Sinks(Button_Previous));
    EXPECT_EQ(graph.opened_path, "/media/B.avi");
}

TEST_F(Player_Controls_Test, KeyTableByCharacterCodeThenQuit)
{
    tracks = {Video_Track("A", 1), Video_Track("B", 1), Video_Track("C", 1)};
    state.Volume_Level = 3;
    Start(2);
    const std::pair<const char*, QString> cases[] = {  // keys, the start of what they do
        {"6", "Close_Graph Open_Graph(/media/C.avi)"}, {"4", "Close_Graph Open_Graph(/media/B.avi)"}, {"3", "Pause"},
        {" ", "Run Show_Playlist_Tab"}, {" ", "Pause"}, {"5", "Run Show_Playlist_Tab Select_Playlist_Entry(1)"},
        {"1", "Stop Set_Current_Position(0)"}, {"B", "Set_Current_Position(2)"}, {"8", "Set_Volume(-1000)"},
        {"2", "Set_Volume(-1500)"}, {"f", "Enter_Full_Screen"}, {"f", "Leave_Full_Screen Show_Cursor"},
        {"0", "Click_Add_Video"}, {"F7", "Show_Cursor Show_Cursor"}, {"b", "Show_Cursor"}};
    for (const auto& [keys, calls] : cases)
        EXPECT_EQ(Keys(keys).left(calls.size()), calls) << keys;
    EXPECT_EQ(Keys("b"), "Show_Cursor") << "only \"B\" jumps";
    EXPECT_TRUE(view.isVisible()) << "other keys bring the player forward";
    state.Full_Screen = true;
    EXPECT_EQ(Keys("0"), "Click_Add_Video") << "leaves the layout as it is";
    EXPECT_FALSE(state.Full_Screen);
    tracks = {Audio_Track("Song")};
    Start(1);
    EXPECT_EQ(Keys("f"), "") << "no full screen for sound alone";
    controls.Quit();
    EXPECT_EQ(journal.calls, QStringList({"Write_Config", "Close_Graph", "Quit_Application"}));
}

TEST_F(Player_Controls_Test, SubtitleAndAudioButtons)
{
    tracks = {Video_Track("Film", 1), Audio_Track("Song", {"Karaoke"}), Video_Track("Dubbed", 1, {"Deutsch"})};
    tracks[2].Subtitle_Path = Subtitle_File();
    Start(1, false);
    for (int track = 1; track <= 3; ++track) {  // the popup needs a picture and two choices
        state.Current_Track = track;
        controls.Button_Click(Button_Audio);
        EXPECT_EQ(view.Mnu_Popup()->isVisible(), track == 3) << track;
    }
    Start(3, false);
    state.Next_Subtitle_Time = "00:00:30";
    controls.Button_Click(Button_Subtitles);
    const auto shown = [this] {  // the state, the window and its lamp agree
        return QString::number(state.Subtitles_Shown) + QString::number(fakes.subtitle_window_shown)
               + QString::number(view.Img_Temoin_ST(1)->isVisibleTo(&view));
    };
    EXPECT_EQ(shown(), "111");
    EXPECT_EQ(state.Next_Subtitle_Time, "Aucun");
    controls.Button_Click(Button_Subtitles);
    EXPECT_EQ(shown(), "000");
}

TEST_F(Player_Controls_Test, VolumeStepsStayWithinTheSevenLevelsForTracksWithSound)
{
    tracks = {Video_Track("Silent", 0)};
    state.Current_Track = 1;
    state.Volume_Level = 3;
    controls.Step_Volume(0);
    Start(1, false);
    controls.Button_Click(Button_Volume_Up);
    EXPECT_EQ(state.Volume_Level, 3) << "no media, then no sound";
    tracks = {Video_Track("Silent", 0, {"Voice"})};
    for (int i = 0; i < 5; ++i)
        controls.Button_Click(Button_Volume_Up);
    EXPECT_EQ(view.Front_Volume_Level(), 6);
    controls.Step_Volume(2);  // neither up nor down
    for (int i = 0; i < 8; ++i)
        controls.Step_Volume(1);
    EXPECT_EQ(journal.Only({"Set_Volume"}).join(u' ').remove("Set_Volume"),
              "(-1000) (-500) (0) (0) (0) (-500) (-1000) (-1500) (-2000) (-2500) (-3000) (-3000) (-3000)");
}

} // namespace Orvane::Test

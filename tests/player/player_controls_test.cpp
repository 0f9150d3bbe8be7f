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

    Player_Controls controls{context, session, {[this] { journal.Add("Show_Configuration"); }, {}, {}}};
};

TEST_F(Player_Controls_Test, PressLookOfTheButtonsWithoutMediaAndOfTheAudioAndPreviousButtons)
{
    tracks = {Video_Track("A", 1, {"Dub"}), Video_Track("B", 2), Audio_Track("C")};
    state.Current_Track = 1;
    for (int i = 0; i <= 12; ++i)  // without media only Open, Configuration and Playlist act
        EXPECT_EQ(Sinks(i), i == 0 || i == 6 || i == 7) << "button " << i;
    EXPECT_EQ(journal.calls, QStringList({"Click_Add_Video", "Show_Configuration", "Toggle_Visible"}));
    EXPECT_EQ(Keys(" B"), "");
    Start(1, false);
    EXPECT_FALSE(Sinks(Button_Audio)) << "one audio stream, whatever the associated files";
    EXPECT_TRUE(view.Mnu_Popup()->isVisible()) << "its popup needs a picture and two choices, files counted";
    EXPECT_TRUE(Sinks(Button_Previous));
    state.Current_Track = 2;
    EXPECT_TRUE(Sinks(Button_Audio));
    state.Current_Track = 3;
    view.Mnu_Popup()->hide();
    EXPECT_FALSE(Sinks(Button_Audio)) << "no picture";
    EXPECT_FALSE(view.Mnu_Popup()->isVisible());
    // Kept so: with the last track current, Previous takes the Next button's test and does not sink,
    // though its click still goes back.
    EXPECT_FALSE(Sinks(Button_Previous));
    EXPECT_EQ(graph.opened_path, "/media/B.avi");
}

TEST_F(Player_Controls_Test, KeyTableByCharacterCode)
{
    tracks = {Video_Track("A", 1), Video_Track("B", 1), Video_Track("C", 1)};
    Start(2);
    const std::pair<const char*, QString> cases[] = {  // keys, the start of what they do
        {"6", "Close_Graph Open_Graph(/media/C.avi)"}, {"4", "Close_Graph Open_Graph(/media/B.avi)"}, {"3", "Pause"},
        {" ", "Run Show_Playlist_Tab"}, {" ", "Pause"}, {"5", "Run Show_Playlist_Tab Select_Playlist_Entry(1)"},
        {"1", "Stop Set_Current_Position(0)"}, {"B", "Set_Current_Position(2)"}, {"2", "Set_Volume(-2000)"},
        {"8888", "Set_Volume(-1500) Set_Volume(-1000) Set_Volume(-500) Set_Volume(0)"},  // seven levels: 0 to 6
        {"8", "Set_Volume(0)"},
        {"2222222", "Set_Volume(-500) Set_Volume(-1000) Set_Volume(-1500) Set_Volume(-2000) Set_Volume(-2500) "
                    "Set_Volume(-3000) Set_Volume(-3000)"},
        {"f", "Enter_Full_Screen"}, {"f", "Leave_Full_Screen Show_Cursor"},
        {"0", "Click_Add_Video"}, {"F7", "Show_Cursor Show_Cursor"}};
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
}

} // namespace Orvane::Test

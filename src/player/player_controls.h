#pragma once

#include "player/player_context.h"

#include <functional>

namespace Orvane {

class Playback_Session;

// Img_Btn indexes, as the button table numbers them.
enum Player_Button : int {
    Button_Open = 0,
    Button_Play = 1,
    Button_Stop = 2,
    Button_Pause = 3,
    Button_Full_Screen = 4,
    Button_Subtitles = 5,
    Button_Configuration = 6,
    Button_Playlist = 7,
    Button_Volume_Up = 8,
    Button_Volume_Down = 9,
    Button_Next = 10,
    Button_Audio = 11,
    Button_Previous = 12,
};

// What the player's commands ask of the rest of the program.
struct Player_Commands {
    std::function<void()> Show_Configuration;  // Frm_Config
    std::function<void()> Write_Config;        // orvan.ini, at quit
    std::function<void()> Quit_Application;
};

// The player window's buttons, keys and volume: Img_Btn click and
// mouse-down, Gestion_KeyPress, Step_Volume and Lbl_Quitter.
class Player_Controls {
public:
    Player_Controls(Player_Context& context, Playback_Session& session, Player_Commands commands)
        : context_(context), session_(session), commands_(std::move(commands)) {}

    // Img_Btn(i) mouse-down: the button sinks by one pixel, unless it could
    // not act now.
    void Button_Mouse_Down(int index);
    // Img_Btn(i) click: back to rest, then the button's action.
    void Button_Click(int index);
    // Every window's key presses, by the character code of the key's text.
    void Gestion_KeyPress(int key_ascii);
    // 0 = one step up, 1 = one step down, other values nothing; nothing
    // without media.
    void Step_Volume(int direction);
    // Volume_Level from the settings at start-up.
    void Apply_Start_Volume(int volume_setting);
    // Lbl_Quitter: the configuration is written before the graph goes.
    void Quit();

private:
    bool Needs_Media(int index) const;
    void Volume_Button(int direction);
    void Change_Volume(int direction);
    void Toggle_Full_Screen();
    void Toggle_Subtitles();
    void Popup_Audio();

    Player_Context& context_;
    Playback_Session& session_;
    Player_Commands commands_;
};

} // namespace Orvane

#pragma once

#include "app/program_files.h"
#include "config/settings.h"
#include "language/qt_translations.h"
#include "language/text_table.h"
#include "media/display_layout.h"
#include "media/gst_media_analyser.h"
#include "media/gst_media_graph.h"
#include "playlist/playback_state.h"
#include "playlist/playlist_prompts.h"
#include "subtitles/subtitle_table.h"
#include "ui/cdlg_ex.h"
#include "ui/dialog_qt_provider.h"

#include <QString>
#include <QStringList>
#include <memory>

namespace Orvane {

class Frm_About;
class Frm_Config;
class Frm_PlayList;
class Frm_Player;
class Frm_Rien;
class Frm_Subtitle;
class Frm_display;
class Playback_Session;
class Player_Controls;
class Player_Unroll;
class Playlist_Model;
class Playlist_Track_Source;
class Subtitle_Table_Source;
struct Command_Line_Request;
struct Player_Context;

// The application object: it owns the program-wide state and every window,
// and wires them together. One instance lives for the whole run.
class Program {
public:
    // files says where orvan.ini, Lang.ini and the demo are.
    explicit Program(const Program_Files& files, Dialog_Provider* dialogs = nullptr);
    // A portable program: program_folder holds orvan.ini and Lang.ini.
    explicit Program(const QString& program_folder, Dialog_Provider* dialogs = nullptr);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // The player window's load: reads the configuration (false ends the
    // program before any window is shown), puts the texts on, shows the
    // windows and starts the unroll, after which arguments are opened.
    bool Start(const QStringList& arguments);

    Playback_State& State() { return state_; }
    Settings& Current_Settings() { return settings_; }
    const Text_Table& Texts() const { return texts_; }
    Gst_Media_Graph& Graph() { return graph_; }
    Playlist_Model& Model() { return *model_; }
    Playback_Session& Session() { return *session_; }
    Player_Controls& Controls() { return *controls_; }
    Player_Unroll& Unroll() { return *unroll_; }
    Frm_Player& Player_Window() { return *player_window_; }
    Frm_PlayList& Playlist_Window() { return *playlist_window_; }
    Frm_display& Display_Window() { return *display_window_; }
    Frm_Subtitle& Subtitle_Window() { return *subtitle_window_; }
    // The configuration window while it is open, else null.
    Frm_Config* Config_Window() { return config_window_.get(); }
    // Button 6: opens the configuration window, or brings the open one forward.
    void Show_Configuration();
    // Opens a file (absolute) as the command line opens it: a playlist is
    // loaded, a media file added; play is the command line's switch.
    void Open_File(const QString& path, bool play);
    // The player bar comes forward, as a key press on another window brings it.
    void Bring_Forward();

private:
    void Connect_Player_Window();
    void Place_Player_Window();
    void Open_Start_File(const QStringList& arguments);
    void Open_Request(const Command_Line_Request& request);
    void Show_About();
    bool Reload_Language(const QString& language);
    void Rebuild_Subtitle_Window();
    void Apply_All_Texts();
    int Screen_Width() const;

    Program_Files files_;
    bool first_start_ = false;
    Settings settings_;
    Text_Table texts_;
    Qt_Translations qt_translations_;
    Playback_State state_;
    Subtitle_Table subtitle_table_;
    Gst_Media_Graph graph_;
    // Shared with the analysis threads, which may outlive the program's windows.
    std::shared_ptr<Gst_Media_Analyser> analyser_ = std::make_shared<Gst_Media_Analyser>();
    Qt_Dialog_Provider qt_dialogs_;
    CdlgEx dialog_;
    Message_Box_Prompts playlist_prompts_{texts_};

    std::unique_ptr<Frm_Player> player_window_;
    std::unique_ptr<Frm_display> display_window_;
    std::unique_ptr<Frm_Rien> rien_window_;
    std::unique_ptr<Frm_Subtitle> subtitle_window_;
    std::unique_ptr<Frm_About> about_window_;
    std::unique_ptr<Frm_Config> config_window_;
    std::unique_ptr<Display_Window_Layout> display_layout_;
    std::unique_ptr<Playlist_Model> model_;
    std::unique_ptr<Frm_PlayList> playlist_window_;
    std::unique_ptr<Playlist_Track_Source> track_source_;
    std::unique_ptr<Subtitle_Table_Source> subtitle_source_;
    std::unique_ptr<Player_Context> context_;
    std::unique_ptr<Playback_Session> session_;
    std::unique_ptr<Player_Controls> controls_;
    std::unique_ptr<Player_Unroll> unroll_;
};

} // namespace Orvane

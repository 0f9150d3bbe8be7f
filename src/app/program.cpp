#include "app/program.h"

#include "config/config_file.h"
#include "config/frm_config.h"
#include "player/command_line.h"
#include "player/frm_player.h"
#include "player/playback_session.h"
#include "player/player_context.h"
#include "player/player_controls.h"
#include "player/playlist_track_source.h"
#include "player/subtitle_table_source.h"
#include "player/unroll.h"
#include "playlist/frm_playlist.h"
#include "playlist/name_from_path.h"
#include "playlist/open_dialog_filters.h"
#include "playlist/playlist_model.h"
#include "playlist/playlist_window_batch.h"
#include "subtitles/frm_display.h"
#include "subtitles/frm_subtitle.h"
#include "subtitles/subtitle_reader.h"
#include "ui/frm_about.h"
#include "ui/frm_rien.h"
#include "ui/window_shell.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QScreen>
#include <QWindow>

namespace Orvane {

namespace {

// The language file's text that names its locale.
constexpr int16_t Text_Locale_Code = 100;

// The player bar's top stands this far above the bottom of the screen.
constexpr int Player_Bottom_Margin = 150;

} // namespace

Program::Program(const QString& program_folder, Dialog_Provider* dialogs)
    : Program(Portable_Program_Files(program_folder), dialogs)
{
}

Program::Program(const Program_Files& files, Dialog_Provider* dialogs)
    : files_(files),
      dialog_(dialogs ? *dialogs : static_cast<Dialog_Provider&>(qt_dialogs_))
{
    player_window_ = std::make_unique<Frm_Player>();
    display_window_ = std::make_unique<Frm_display>();
    rien_window_ = std::make_unique<Frm_Rien>([this](int key) { controls_->Gestion_KeyPress(key); });
    subtitle_window_ = std::make_unique<Frm_Subtitle>(settings_, texts_, subtitle_table_);
    subtitle_window_->Set_Screen_Source([this] { return display_window_->screen(); });
    graph_.Set_Video_Widget(display_window_->Video());
    display_layout_ = std::make_unique<Display_Window_Layout>(*display_window_, state_.Full_Screen);

    model_ = std::make_unique<Playlist_Model>(
        *analyser_, state_, subtitle_table_, playlist_prompts_,
        [this](const QString& path) {
            return Load_Subtitles(path, settings_, texts_, Screen_Width(), subtitle_table_);
        });
    playlist_window_ = std::make_unique<Frm_PlayList>(*model_, state_, dialog_, settings_, texts_);
    playlist_window_->Batch().Use_Analyser(analyser_);
    track_source_ = std::make_unique<Playlist_Track_Source>(*model_);
    subtitle_source_ = std::make_unique<Subtitle_Table_Source>(
        subtitle_table_, settings_, texts_, state_, *track_source_, [this] { return Screen_Width(); });

    context_ = std::make_unique<Player_Context>(Player_Context{
        state_, settings_, texts_, graph_, *player_window_, *track_source_, *playlist_window_,
        *display_layout_, *subtitle_source_, *subtitle_window_, *subtitle_window_});
    session_ = std::make_unique<Playback_Session>(*context_);
    model_->Attach_Player(*session_);

    Player_Commands commands;
    commands.Show_Configuration = [this] { Show_Configuration(); };
    commands.Write_Config = [this] { Write_Config(files_.Config_Folder, settings_, state_.Volume_Level); };
    // exit, not quit: quit first asks every window to close, and one that
    // refuses (the playlist window only hides) would cancel it. exit ends
    // every event loop, a modal box's too.
    commands.Quit_Application = [] { QCoreApplication::exit(0); };
    controls_ = std::make_unique<Player_Controls>(*context_, *session_, std::move(commands));
    unroll_ = std::make_unique<Player_Unroll>(*player_window_);

    const auto forward_key = [this](int key) { controls_->Gestion_KeyPress(key); };
    display_window_->Set_Key_Handler(forward_key);
    subtitle_window_->Set_Key_Handler(forward_key);
    playlist_window_->Set_Key_Forwarder(forward_key);
    playlist_window_->Set_Play_Track([this](int track) { session_->Play_Track_Number(track); });
    Connect_Player_Window();
}

Program::~Program()
{
    // The graph paints into the display window: it goes first.
    graph_.Close_Graph();
    graph_.Set_Video_Widget(nullptr);
}

bool Program::Start(const QStringList& arguments)
{
    Place_Player_Window();
    state_ = Playback_State();
    // A failed copy leaves no file: the reader reports it and the start ends.
    Provide_User_Config(files_);
    if (!Read_Config_File(files_.Config_File(), files_.Language_Folder, settings_, texts_))
        return false;
    first_start_ = Take_First_Start(files_);
    state_.Time_Mode = 1;
    Apply_All_Texts();

    display_layout_->Audio_Layout();
    display_window_->show();
    // The subtitles follow the display window to its screen.
    QObject::connect(display_window_->windowHandle(), &QWindow::screenChanged, subtitle_window_.get(),
                     [this] { subtitle_window_->Place_On_Screen(); });
    rien_window_->show();
    player_window_->show();
    player_window_->raise();

    controls_->Apply_Start_Volume(settings_.Volume_Setting);

    unroll_->Start([this, arguments] { Open_Start_File(arguments); });
    return true;
}

void Program::Connect_Player_Window()
{
    Frm_Player* window = player_window_.get();
    QObject::connect(window, &Frm_Player::Button_Mouse_Down, window,
                     [this](int index) { controls_->Button_Mouse_Down(index); });
    QObject::connect(window, &Frm_Player::Button_Clicked, window,
                     [this](int index) { controls_->Button_Click(index); });
    QObject::connect(window, &Frm_Player::Key_Pressed, window,
                     [this](int key) { controls_->Gestion_KeyPress(key); });
    QObject::connect(window, &Frm_Player::Progress_Mouse_Down, window,
                     [this](int x) { session_->Display().Progress_Mouse_Down(x); });
    QObject::connect(window, &Frm_Player::Progress_Mouse_Move, window,
                     [this](int x) { session_->Display().Progress_Mouse_Move(x); });
    QObject::connect(window, &Frm_Player::Progress_Mouse_Up, window,
                     [this](int) { session_->Display().Progress_Mouse_Up(); });
    QObject::connect(window, &Frm_Player::Time_Label_Clicked, window,
                     [this] { session_->Display().Toggle_Time_Mode(); });
    QObject::connect(window, &Frm_Player::Window_Double_Clicked, window, [this] { Show_About(); });
    QObject::connect(window, &Frm_Player::Quit_Clicked, window, [this] { controls_->Quit(); });
    QObject::connect(window, &Frm_Player::Stream_Entry_Chosen, window,
                     [this](int k) { session_->Menus().Choose_Stream(k); });
    QObject::connect(window, &Frm_Player::Associated_Entry_Chosen, window,
                     [this](int j) { session_->Menus().Choose_Associated(j); });
}

void Program::Place_Player_Window()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen)
        return;
    const QRect area = screen->availableGeometry();
    player_window_->move(area.left() + (area.width() - player_window_->width()) / 2,
                         area.top() + area.height() - Player_Bottom_Margin);
    // The playlist window waits at the right edge, clear of the centred display.
    playlist_window_->move(area.right() - playlist_window_->width() - 16, area.top() + 16);
}

void Program::Open_Start_File(const QStringList& arguments)
{
    std::optional<Command_Line_Request> request =
        Parse_Command_Line(arguments, files_.Program_Folder, QDir::currentPath());
    if (!request) {
        // A user's first start with nothing named shows the demo playlist;
        // later ones open an empty player.
        if (!arguments.isEmpty() || !first_start_ || files_.Demo_Playlist.isEmpty())
            return;
        request = Command_Line_Request{files_.Demo_Playlist, true, false};
    }
    Open_Request(*request);
}

void Program::Open_File(const QString& path, bool play)
{
    QStringList arguments{path};
    if (play)
        arguments << QStringLiteral("--play");
    if (const auto request = Parse_Command_Line(arguments, files_.Program_Folder, QDir::currentPath()))
        Open_Request(*request);
}

void Program::Open_Request(const Command_Line_Request& request)
{
    Command_Line_Openers openers;
    // Both go through the playlist window's batch, so the window answers
    // while the file is analysed; done follows the batch's end.
    openers.Load_Playlist = [this](const QString& path, std::function<void()> done) {
        // Relative entries are read from the current directory: the
        // playlist's folder, as after choosing it in the open dialog.
        QDir::setCurrent(QFileInfo(path).absolutePath());
        Playlist_Window_Batch& batch = playlist_window_->Batch();
        QObject::connect(&batch, &Playlist_Window_Batch::Finished, &batch, std::move(done),
                         Qt::SingleShotConnection);
        batch.Load(path, settings_, texts_);
    };
    openers.Add_Media = [this](const QString& path, std::function<void(int)> done) {
        Playlist_Window_Batch& batch = playlist_window_->Batch();
        QObject::connect(
            &batch, &Playlist_Window_Batch::Finished, &batch,
            [this, done = std::move(done)] { done(model_->Last_Added_Track()); }, Qt::SingleShotConnection);
        batch.Add_Files({path}, 0, &Name_From_Path);
    };
    Open_Command_Line_File(request, openers, *session_);
}

void Program::Bring_Forward()
{
    player_window_->Bring_To_Front();
}

void Program::Show_About()
{
    // A new window each time: its version label is set at every load.
    about_window_ = std::make_unique<Frm_About>(texts_.Get_Text(201), texts_.Get_Text(202));
    about_window_->show();
}

void Program::Show_Configuration()
{
    if (config_window_) {
        config_window_->raise();
        config_window_->activateWindow();
        return;
    }
    Config_Confirm_Actions actions;
    actions.Reload_Language = [this](const QString& language) { return Reload_Language(language); };
    actions.Rebuild_Subtitles = [this] { Rebuild_Subtitle_Window(); };
    actions.Write_Config = [this] { Write_Config(files_.Config_Folder, settings_, state_.Volume_Level); };
    config_window_ = std::make_unique<Frm_Config>(settings_, texts_, dialog_, std::move(actions),
                                                  [this] { return bool(state_.Subtitles_Shown); });
    config_window_->Set_Key_Forwarder([this](int key) { controls_->Gestion_KeyPress(key); });
    QObject::connect(config_window_.get(), &Frm_Config::Unloaded, config_window_.get(), [this] {
        // Made anew at each opening; it goes once its own handler has returned.
        config_window_.release()->deleteLater();
    });
    const QScreen* screen = player_window_->screen();
    const QRect area = screen ? screen->availableGeometry() : QRect(QPoint(0, 0), config_window_->size());
    Show_At(config_window_.get(), area.center() - config_window_->rect().center());
    config_window_->raise();
    config_window_->activateWindow();
}

void Program::Rebuild_Subtitle_Window()
{
    // The lines were laid out for the old font: the current track's file is
    // read again so that they are centred and sized for the new one.
    const Track_Record* track = Current_Track_Record(*context_);
    if (track && !track->Subtitle_Path.isEmpty())
        state_.Subtitles_Loaded = subtitle_source_->Load(track->Subtitle_Path);
    subtitle_window_->Apply_Settings();
}

bool Program::Reload_Language(const QString& language)
{
    Text_Table reloaded;
    if (!reloaded.Load_Language(files_.Language_Folder, language))
        return false;
    texts_ = std::move(reloaded);
    Apply_All_Texts();
    return true;
}

void Program::Apply_All_Texts()
{
    // Qt's own dialogs and boxes speak the same language: the language file
    // names its locale, or the language's name is recognised.
    const QString locale_code = texts_.Get_Text(Text_Locale_Code);
    qt_translations_.Install(locale_code.isEmpty() ? settings_.Language_Name : locale_code);
    player_window_->Apply_Texts(texts_, graph_.Is_Open());
    playlist_window_->Apply_Texts(texts_);
    if (config_window_)
        config_window_->Apply_Texts(texts_);
    // The texts the windows fetch for themselves while running.
    playlist_window_->Set_Filters(Build_Open_Dialog_Filters(texts_));
    session_->Display().Show_Time_Mode_Caption();
    if (state_.Current_Track != 0)
        session_->Display().Refresh_Display();
}

int Program::Screen_Width() const
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry().width() : 1024;
}

} // namespace Orvane

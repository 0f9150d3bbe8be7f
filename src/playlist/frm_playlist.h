#pragma once

#include "playlist/open_dialog_filters.h"
#include "playlist/playlist_window_link.h"
#include "playlist/playlist_window_state.h"

#include <QPixmap>
#include <QWidget>
#include <array>
#include <cstdint>
#include <functional>

namespace Orvane {

class CdlgEx;
class Picture_Button;
class Playlist_Model;
class Playlist_Panel_Audio;
class Playlist_Panel_Subtitles;
class Playlist_Panel_Tracks;
class Playlist_Window_Batch;
class Playlist_Window_Progress;
class Skin_Label;
class Text_Table;
struct Playback_State;
struct Settings;

// Frm_PlayList: the skinned playlist window. Three tabs (Img_Onglet_Playlist,
// Img_Onglet_Audio, Img_Onglet_ST) show the track list, the associated audio
// of the selected track and its subtitle. The window shows the playlist
// model and calls its operations; the files chosen go through the one
// shared common-dialog object.
class Frm_PlayList : public QWidget, public Playlist_Window_Link {
    Q_OBJECT
public:
    static constexpr int Corner = 30;
    enum Tab { Tab_Playlist = 0, Tab_Audio = 1, Tab_Subtitles = 2 };

    Frm_PlayList(Playlist_Model& model, Playback_State& state, CdlgEx& dialog, const Settings& settings,
                 const Text_Table& texts, QWidget* parent = nullptr);
    ~Frm_PlayList() override;

    // The filters the player built at start-up.
    void Set_Filters(const Open_Dialog_Filters& filters) { filters_ = filters; }
    // Where key presses go: the player's keyboard dispatcher.
    void Set_Key_Forwarder(std::function<void(int key_code)> forward) { forward_key_ = std::move(forward); }
    // Plays track k (1-based): a double click on an entry.
    void Set_Play_Track(std::function<void(int track)> play) { play_track_ = std::move(play); }

    // The captions in their fixed order, then the window's other texts.
    void Apply_Texts(const Text_Table& texts);
    // The text numbers of the fixed caption list, in the order applied.
    static const std::array<int16_t, 17>& Caption_Numbers();

    // Playlist_Window_Link.
    void Select_Playlist_Entry(int index) override;
    void Show_Playlist_Tab() override;
    void Toggle_Visible() override;
    void Click_Add_Video() override;

    // The buttons' actions. mode 1 (Shift held) replaces the playlist.
    void Add_Video(int16_t mode);
    void Remove_Selected_Track();
    void Open_Playlist();
    void Save_Playlist_File();
    void Add_Associated_Audio();
    void Remove_Associated_Audio();
    void Choose_Subtitle_File();
    void Show_Tab(int tab);
    int Current_Tab() const { return current_tab_; }

    Playlist_Panel_Tracks* Pic_Playlist() const { return tracks_; }
    Playlist_Panel_Audio* Pic_Audio() const { return audio_; }
    Playlist_Panel_Subtitles* Pic_ST() const { return subtitles_; }
    Playlist_Window_Progress* Pic_Progression() const { return progress_; }
    Playlist_Window_Batch& Batch() const { return *batch_; }
    Playlist_Window_State& Window_State() { return window_state_; }
    const std::array<Picture_Button*, 3>& Onglets() const { return tabs_; }
    const std::array<Skin_Label*, 3>& Lbl_Onglets() const { return tab_captions_; }
    Picture_Button* Img_Fermer() const { return close_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void Build_Tabs();
    void Connect_Buttons();
    void Connect_Model();
    void Refresh_Usable();
    void Show_Busy(bool busy);
    // The shared dialog owned by this window, with its filter, default
    // extension and flags; cancelling leaves its file name empty.
    void Prepare_Dialog(const QString& filter, const QString& default_ext, int32_t flags);
    // The files chosen in the open dialog, none when cancelled.
    QStringList Ask_Open(const QString& filter, int32_t flags);

    Playlist_Model& model_;
    Playlist_Window_State window_state_;
    Playback_State& state_;
    CdlgEx& dialog_;
    const Settings& settings_;
    const Text_Table& texts_;
    Open_Dialog_Filters filters_;
    std::function<void(int)> forward_key_;
    std::function<void(int)> play_track_;

    std::array<Picture_Button*, 3> tabs_{};
    std::array<Skin_Label*, 3> tab_captions_{};
    Picture_Button* close_ = nullptr;
    Playlist_Panel_Tracks* tracks_ = nullptr;
    Playlist_Panel_Audio* audio_ = nullptr;
    Playlist_Panel_Subtitles* subtitles_ = nullptr;
    Playlist_Window_Progress* progress_ = nullptr;
    Playlist_Window_Batch* batch_ = nullptr;
    int current_tab_ = Tab_Playlist;
    QPixmap background_;
    QString adding_caption_;
    QString reading_caption_;
};

} // namespace Orvane

#pragma once

#include <QItemSelectionModel>
#include <QObject>
#include <QStringListModel>

namespace Orvane {

class Playlist_Model;

// What the playlist window shows about the playlist: the selected entry of
// Lst_Playlist, the track whose details are shown (the selected one), the
// associated audio list of that track (Lst_Audio_Asso) with its selection,
// the track of the subtitle panel, the total duration and whether the
// controls that act on a track are usable. It follows the model's
// announcements; the window and its panels read it.
class Playlist_Window_State : public QObject {
    Q_OBJECT
public:
    explicit Playlist_Window_State(Playlist_Model& model, QObject* parent = nullptr);

    QItemSelectionModel* Playlist_Selection() { return playlist_selection_; }
    QStringListModel* Audio_List() { return &audio_names_; }
    QItemSelectionModel* Audio_Selection() { return &audio_selection_; }
    // Number of the selected track, 0 when none is selected.
    int Selected_Track() const;
    void Select_Track(int track);
    // The selected associated audio entry of the shown track, from 1; 0 when none.
    int Selected_Audio_Entry() const;

    // Selects a track and shows its details, its associated audio and its subtitle.
    void Refresh_Track_Info(int track);

    int Info_Track() const { return info_track_; }
    int Subtitle_Panel_Track() const { return subtitle_panel_track_; }
    QString Playlist_Duration_Text() const { return playlist_duration_text_; }
    bool Track_Controls_Usable() const { return track_controls_usable_; }

signals:
    // The details of Info_Track() (or of no track when 0) are to be shown again.
    void Track_Info_Changed(int track);
    void Subtitle_Panel_Changed(int track);
    void Playlist_Duration_Changed(const QString& text);
    void Track_Controls_Usable_Changed(bool usable);

private:
    void Connect_Model();
    void On_Track_Added(int track);
    void On_Associated_Audio_Added(int track);
    void On_Associated_Audio_Removed(int track, int entry);
    void Show_Track_Info(int track);
    void Show_Subtitle_Panel(int track);
    void Refresh_Playlist_Duration();
    void Set_Track_Controls_Usable(bool usable);

    Playlist_Model& model_;
    QItemSelectionModel* playlist_selection_ = nullptr;
    QStringListModel audio_names_;
    QItemSelectionModel audio_selection_;
    int info_track_ = 0;
    int subtitle_panel_track_ = 0;
    QString playlist_duration_text_ = QStringLiteral("00:00:00");
    bool track_controls_usable_ = false;
    bool changing_rows_ = false;
};

} // namespace Orvane

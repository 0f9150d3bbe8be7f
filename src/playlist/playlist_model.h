#pragma once

#include "playlist/player_link.h"
#include "playlist/playlist_files.h"
#include "playlist/track.h"

#include <QAbstractListModel>
#include <QItemSelectionModel>
#include <QStringList>
#include <QStringListModel>
#include <cstdint>
#include <functional>
#include <vector>

namespace Orvane {

class Media_Analyser;
struct Media_Analysis;
struct Playback_State;
struct Subtitle_Table;
class Text_Table;

// The playlist: the track records, numbered from 1, and the list of their
// titles that the playlist window shows. The records ARE the rows of this
// list model, so the list and the array cannot get out of step; the track
// count is the row count.
//
// Besides the tracks it keeps what the playlist window shows about them: the
// track whose information is shown (the selected one), the associated audio
// list of that track (Lst_Audio_Asso), the track of the subtitle panel and
// the total duration.
class Playlist_Model : public QAbstractListModel, public Playlist_Load_Target {
    Q_OBJECT
public:
    // Reads a subtitle file into the subtitle table handed to the model and
    // reports its own failure; false when the file was not read.
    using Subtitle_Loader = std::function<bool(const QString& path)>;

    Playlist_Model(Media_Analyser& analyser, Playback_State& state, Subtitle_Table& subtitles,
                   const Text_Table& texts, Subtitle_Loader load_subtitles,
                   QObject* parent = nullptr);
    // The player the operations call on, attached once it is built (after
    // the model); until then their requests to the player do nothing.
    void Attach_Player(Player_Link& player) { player_ = &player; }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    int Track_Count() const { return rowCount(); }
    bool Is_Track(int track) const { return track >= 1 && track <= Track_Count(); }
    // Track k, 1-based (k must be a track).
    const Track_Record& Track(int track) const { return records_[std::size_t(track)]; }
    // The whole array: element 0 never holds a track.
    const std::vector<Track_Record>& Playlist() const { return records_; }

    // Lst_Playlist's selection (single entry) and Lst_Audio_Asso with its selection.
    QItemSelectionModel* Playlist_Selection() { return &playlist_selection_; }
    QStringListModel* Audio_List() { return &audio_names_; }
    QItemSelectionModel* Audio_Selection() { return &audio_selection_; }
    // Number of the selected track, 0 when none is selected.
    int Selected_Track() const;
    void Select_Track(int track);

    // Appends one track (see the class notes in the .cpp for each step).
    // Entry 1 with Mode 1 replaces the playlist. A file that cannot be
    // rendered is silently not added.
    void Add_Track(const QString& path, const QStringList& audio_paths, bool disc_change,
                   const QString& title, int entry, int16_t mode) override;
    // The same two operations with the analyses made beforehand (on worker
    // threads): analyses answers in place of the model's own analyser.
    void Add_Track_With(Media_Analyser& analyses, const QString& path, const QStringList& audio_paths,
                        bool disc_change, const QString& title, int entry, int16_t mode);
    bool Associate_Audio_With(Media_Analyser& analyses, int track, const QString& path, const QString& name);
    Media_Analyser& Analyser() const { return *analyser_; }
    // The track Add_Track appended last, 0 when the last call added nothing.
    int Last_Added_Track() const { return last_added_track_; }
    void Store_Track_Record(const QString& title, const QString& path, bool disc_change,
                            const Media_Analysis& analysis);
    void Clear_Playlist();
    // Removes a track: the later tracks move up one place. Current_Track keeps
    // pointing at the same media; when the current track itself goes, the
    // player is reset and the track that takes its place (or the new last
    // one) is opened, not played, so the transport stays usable.
    void Remove_Track(int track);

    // Adds one associated audio file to a track; false when it was not added
    // (not renderable: nothing said; has a picture: text 1210).
    bool Associate_Audio(int track, const QString& path, const QString& name);
    // Removes the selected entry of Lst_Audio_Asso from the shown track.
    void Remove_Associated_Audio();

    // Gives the selected track a subtitle file; false when none is selected or
    // the file could not be read (the reader has said why).
    bool Associate_Subtitle(const QString& path, const QString& file_title);
    // The playlist loader's subtitle: it goes with the track just added, and
    // is dropped when that media was dropped.
    void Associate_Subtitle(const QString& subtitle_path) override;

    // The delay buttons: 0 = up, 1 = down. The program-wide delay moves and the
    // current track (not the selected one) gets the value.
    void Step_Subtitle_Delay(int direction);
    // Img_Option: the yes/no choice of the track in the subtitle panel.
    void Toggle_Subtitle_Flag();

    // The information shown for a track: selects it and shows its details,
    // its associated audio and its subtitle.
    void Refresh_Track_Info(int track);
    void Refresh_Playlist_Duration();

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
    void Show_Track_Info(int track);
    void Show_Subtitle_Panel(int track);
    void Set_Track_Controls_Usable(bool usable);
    void Replace_Removed_Current_Track(int removed);
    bool Associate_Subtitle_With(int track, const QString& path, const QString& file_title);

    Media_Analyser* analyser_;
    Playback_State& state_;
    Player_Link no_player_;
    Player_Link* player_ = &no_player_;
    Subtitle_Table& subtitles_;
    const Text_Table& texts_;
    Subtitle_Loader load_subtitles_;

    std::vector<Track_Record> records_ = std::vector<Track_Record>(1);
    QItemSelectionModel playlist_selection_;
    QStringListModel audio_names_;
    QItemSelectionModel audio_selection_;
    int last_added_track_ = 0;
    int info_track_ = 0;
    int subtitle_panel_track_ = 0;
    QString playlist_duration_text_ = QStringLiteral("00:00:00");
    bool track_controls_usable_ = false;
    bool changing_rows_ = false;
};

} // namespace Orvane

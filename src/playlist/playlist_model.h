#pragma once

#include "playlist/player_link.h"
#include "playlist/playlist_files.h"
#include "playlist/track.h"

#include <QAbstractListModel>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <vector>

namespace Orvane {

class Media_Analyser;
struct Media_Analysis;
class Playlist_Prompts;
struct Playback_State;
struct Subtitle_Table;

// The playlist: the track records, numbered from 1, and the list of their
// titles that the playlist window shows. The records ARE the rows of this
// list model, so the list and the array cannot get out of step; the track
// count is the row count.
//
// It opens no windows: refusals and questions go through the prompts, and
// what the playlist window shows follows the signals below.
class Playlist_Model : public QAbstractListModel, public Playlist_Load_Target {
    Q_OBJECT
public:
    // Reads a subtitle file into the subtitle table handed to the model and
    // reports its own failure; false when the file was not read.
    using Subtitle_Loader = std::function<bool(const QString& path)>;

    Playlist_Model(Media_Analyser& analyser, Playback_State& state, Subtitle_Table& subtitles,
                   Playlist_Prompts& prompts, Subtitle_Loader load_subtitles,
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
    // Removes associated audio entry j (from 1) of a track.
    void Remove_Associated_Audio(int track, int j);

    // Gives a track a subtitle file; false when it is no track or the file
    // could not be read (the reader has said why).
    bool Associate_Subtitle(int track, const QString& path, const QString& file_title);
    // The playlist loader's subtitle: it goes with the track just added, and
    // is dropped when that media was dropped.
    void Associate_Subtitle(const QString& subtitle_path) override;

    // The delay buttons: 0 = up, 1 = down. The program-wide delay moves and the
    // current track (not the selected one) gets the value.
    void Step_Subtitle_Delay(int direction);
    // Img_Option: the yes/no choice of a track's subtitle.
    void Toggle_Subtitle_Flag(int track);

    // The sum of the durations the rows show, as hh:mm:ss counting on past a day.
    QString Total_Duration_Text() const;

signals:
    // A track was appended (its associated audio already in).
    void Track_Added(int track);
    void Playlist_Cleared();
    // A track was removed and the player has its new current track.
    void Track_Removed(int track);
    void Associated_Audio_Added(int track);
    // Entry j (from 1) of the track is gone.
    void Associated_Audio_Removed(int track, int j);
    // The track's subtitle, its delay or its flag changed.
    void Subtitle_Changed(int track);

private:
    void Replace_Removed_Current_Track(int removed);

    Media_Analyser* analyser_;
    Playback_State& state_;
    Player_Link no_player_;
    Player_Link* player_ = &no_player_;
    Subtitle_Table& subtitles_;
    Playlist_Prompts& prompts_;
    Subtitle_Loader load_subtitles_;

    std::vector<Track_Record> records_ = std::vector<Track_Record>(1);
    int last_added_track_ = 0;
};

} // namespace Orvane

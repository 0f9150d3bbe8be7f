#include "playlist/playlist_model.h"

#include "base/time_text.h"
#include "language/text_table.h"
#include "media/media_analysis.h"
#include "playlist/name_from_path.h"
#include "playlist/playback_state.h"
#include "subtitles/subtitle_table.h"
#include "ui/message_box.h"

#include <QFileInfo>
#include <algorithm>
#include <cmath>

namespace Orvane {

namespace {

constexpr int16_t Text_Picture_Refused = 1210;
constexpr int16_t Text_Subtitle_Delay_Question = 1002;

// The whole seconds a duration is shown as, half to even like every time
// text. The rows show these and the total adds them up, so the total is the
// sum of what the rows show.
long long Shown_Seconds(double seconds)
{
    return std::isfinite(seconds) && seconds > 0.0 ? std::llrint(seconds) : 0;
}

// A duration as a time of day. A file longer than the 16-bit count of
// seconds still gets a time (wrapped at a day) rather than an error: its
// analysis succeeded and it plays.
QString Duration_Text_Of(double seconds)
{
    return Time_Text(int(Shown_Seconds(seconds) % Seconds_Per_Day));
}

// A total that may pass a day keeps counting hours instead of wrapping.
QString Total_Duration_Text(long long whole)
{
    return QStringLiteral("%1:%2:%3")
        .arg(whole / 3600, 2, 10, QLatin1Char('0'))
        .arg((whole / 60) % 60, 2, 10, QLatin1Char('0'))
        .arg(whole % 60, 2, 10, QLatin1Char('0'));
}

// Lends the model another analyser for one operation.
class Analyser_Lent {
public:
    Analyser_Lent(Media_Analyser*& slot, Media_Analyser& lent) : slot_(slot), own_(slot) { slot_ = &lent; }
    ~Analyser_Lent() { slot_ = own_; }
    Analyser_Lent(const Analyser_Lent&) = delete;
    Analyser_Lent& operator=(const Analyser_Lent&) = delete;

private:
    Media_Analyser*& slot_;
    Media_Analyser* own_;
};

} // namespace

Playlist_Model::Playlist_Model(Media_Analyser& analyser, Playback_State& state, Subtitle_Table& subtitles,
                               const Text_Table& texts, Subtitle_Loader load_subtitles, QObject* parent)
    : QAbstractListModel(parent),
      analyser_(&analyser),
      state_(state),
      subtitles_(subtitles),
      texts_(texts),
      load_subtitles_(std::move(load_subtitles)),
      playlist_selection_(this),
      audio_selection_(&audio_names_)
{
    connect(&playlist_selection_, &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) {
                // While rows move, the selection model reports an index of the
                // old numbering; the removal shows the right track afterwards.
                if (!changing_rows_)
                    Show_Track_Info(current.isValid() ? current.row() + 1 : 0);
            });
}

int Playlist_Model::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(records_.size()) - 1;
}

QVariant Playlist_Model::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || !Is_Track(index.row() + 1))
        return {};
    const Track_Record& record = Track(index.row() + 1);
    switch (role) {
    case Qt::DisplayRole:
        return record.Title;
    case Qt::ToolTipRole:
        return record.Path;
    default:
        return {};
    }
}

int Playlist_Model::Selected_Track() const
{
    const QModelIndex current = playlist_selection_.currentIndex();
    return current.isValid() ? current.row() + 1 : 0;
}

void Playlist_Model::Select_Track(int track)
{
    if (!Is_Track(track)) {
        playlist_selection_.clearCurrentIndex();
        playlist_selection_.clearSelection();
        return;
    }
    playlist_selection_.setCurrentIndex(index(track - 1), QItemSelectionModel::ClearAndSelect);
}

void Playlist_Model::Add_Track(const QString& path, const QStringList& audio_paths, bool disc_change,
                               const QString& title, int entry, int16_t mode)
{
    last_added_track_ = 0;
    const std::optional<Media_Analysis> analysis = analyser_->Analyse_Media(path);
    if (!analysis)
        return;
    if (entry == 1 && mode == 1) {
        // The first entry of a loaded playlist (or of a Shift-add) replaces the list.
        Clear_Playlist();
        player_->Reset_Player();
    }
    Store_Track_Record(title, path, disc_change, *analysis);
    const int track = Track_Count();
    last_added_track_ = track;
    for (const QString& audio_path : audio_paths)
        Associate_Audio(track, audio_path, Name_From_Path(audio_path));
    Refresh_Track_Info(track);
    if (track == 1)
        state_.Current_Track = 1;
    Refresh_Playlist_Duration();
    if (track == 1)
        player_->Open_First_Track(path);
    Set_Track_Controls_Usable(true);
}

void Playlist_Model::Add_Track_With(Media_Analyser& analyses, const QString& path, const QStringList& audio_paths,
                                    bool disc_change, const QString& title, int entry, int16_t mode)
{
    const Analyser_Lent lent(analyser_, analyses);
    Add_Track(path, audio_paths, disc_change, title, entry, mode);
}

bool Playlist_Model::Associate_Audio_With(Media_Analyser& analyses, int track, const QString& path,
                                          const QString& name)
{
    const Analyser_Lent lent(analyser_, analyses);
    return Associate_Audio(track, path, name);
}

void Playlist_Model::Store_Track_Record(const QString& title, const QString& path, bool disc_change,
                                        const Media_Analysis& analysis)
{
    Track_Record record;
    record.Title = title;
    record.Path = path;
    record.Duration = analysis.Duration;
    record.Duration_Text = Duration_Text_Of(analysis.Duration);
    record.Picture_Size = analysis.Video_Renderer_Found
        ? QStringLiteral("%1x%2").arg(analysis.Width).arg(analysis.Height)
        : QStringLiteral("--");
    record.Audio_Streams = analysis.Audio_Streams == -2 ? int16_t(-1) : analysis.Audio_Streams;
    record.Has_Video = analysis.Has_Video;
    record.Has_Audio = analysis.Has_Audio;
    record.Shows_Picture = analysis.Video_Renderer_Found;
    record.Disc_Change = disc_change;
    record.Kind = analysis.Media_Kind;

    const int row = Track_Count();
    beginInsertRows(QModelIndex(), row, row);
    records_.push_back(std::move(record));
    endInsertRows();
}

void Playlist_Model::Clear_Playlist()
{
    // The menus are built from the current record: clear them while it exists.
    if (Is_Track(state_.Current_Track))
        player_->Clear_Audio_Menus(state_.Current_Track);
    beginResetModel();
    records_.resize(1);
    endResetModel();
    state_.Current_Track = 0;
    last_added_track_ = 0;
    Show_Track_Info(0);
    Refresh_Playlist_Duration();
    Set_Track_Controls_Usable(false);
}

void Playlist_Model::Remove_Track(int track)
{
    if (!Is_Track(track))
        return;
    const int current = state_.Current_Track;
    if (track == current)
        player_->Clear_Audio_Menus(track);

    changing_rows_ = true;
    beginRemoveRows(QModelIndex(), track - 1, track - 1);
    records_.erase(records_.begin() + track);
    endRemoveRows();
    changing_rows_ = false;

    if (current > track)
        state_.Current_Track = current - 1;
    else if (current == track)
        Replace_Removed_Current_Track(track);
    if (last_added_track_ == track)
        last_added_track_ = 0;
    else if (last_added_track_ > track)
        --last_added_track_;

    Show_Track_Info(Selected_Track());
    Refresh_Playlist_Duration();
    if (Track_Count() == 0)
        Set_Track_Controls_Usable(false);
}

void Playlist_Model::Replace_Removed_Current_Track(int removed)
{
    // Nothing may point at the removed record while the player is reset.
    state_.Current_Track = 0;
    player_->Reset_Player();
    if (Track_Count() == 0)
        return;
    state_.Current_Track = std::min(removed, Track_Count());
    player_->Open_First_Track(Track(state_.Current_Track).Path);
}

bool Playlist_Model::Associate_Audio(int track, const QString& path, const QString& name)
{
    if (!Is_Track(track))
        return false;
    const std::optional<Media_Analysis> analysis = analyser_->Analyse_Media(path);
    if (!analysis)
        return false;
    if (analysis->Video_Renderer_Found) {
        Message_Box(texts_.Get_Text(Text_Picture_Refused), Box_Style::Critical_Ok);
        return false;
    }
    Track_Record& record = records_[std::size_t(track)];
    record.Associated_Audio.push_back(
        {path, name, Duration_Text_Of(analysis->Duration), analysis->Media_Kind});
    record.Associated_Count = int(record.Associated_Audio.size());

    if (info_track_ == track) {
        const int row = audio_names_.rowCount();
        audio_names_.insertRows(row, 1);
        audio_names_.setData(audio_names_.index(row), name);
        emit Track_Info_Changed(track);
    } else {
        Refresh_Track_Info(track);
    }
    audio_selection_.setCurrentIndex(audio_names_.index(audio_names_.rowCount() - 1),
                                     QItemSelectionModel::ClearAndSelect);

    if (track == state_.Current_Track) {
        if (state_.Audio_Choice == 0)
            state_.Audio_Choice = 1;
        player_->Associated_Audio_Added(track, record.Associated_Count);
    }
    return true;
}

void Playlist_Model::Remove_Associated_Audio()
{
    const int track = info_track_;
    const int row = audio_selection_.currentIndex().row();
    if (!Is_Track(track) || row < 0 || row >= int(Track(track).Associated_Audio.size()))
        return;
    const bool is_current = track == state_.Current_Track;
    if (is_current)
        player_->Clear_Audio_Menus(track);

    Track_Record& record = records_[std::size_t(track)];
    record.Associated_Audio.erase(record.Associated_Audio.begin() + row);
    record.Associated_Count = int(record.Associated_Audio.size());
    audio_names_.removeRows(row, 1);
    if (audio_names_.rowCount() > 0)
        audio_selection_.setCurrentIndex(audio_names_.index(std::min(row, audio_names_.rowCount() - 1)),
                                         QItemSelectionModel::ClearAndSelect);

    if (is_current) {
        // Associated file j is audio choice streams + j.
        const int removed_choice = std::max<int>(0, record.Audio_Streams) + row + 1;
        const bool was_heard = state_.Audio_Choice == removed_choice;
        if (was_heard)
            state_.Audio_Choice = record.Audio_Streams >= 1 || record.Associated_Count >= 1 ? 1 : 0;
        else if (state_.Audio_Choice > removed_choice)
            --state_.Audio_Choice;
        player_->Associated_Audio_Removed(track, was_heard);
    }
    emit Track_Info_Changed(track);
}

bool Playlist_Model::Associate_Subtitle(const QString& path, const QString& file_title)
{
    return Associate_Subtitle_With(Selected_Track(), path, file_title);
}

void Playlist_Model::Associate_Subtitle(const QString& subtitle_path)
{
    if (Is_Track(last_added_track_))
        Associate_Subtitle_With(last_added_track_, subtitle_path, QFileInfo(subtitle_path).fileName());
}

bool Playlist_Model::Associate_Subtitle_With(int track, const QString& path, const QString& file_title)
{
    if (!Is_Track(track) || !load_subtitles_ || !load_subtitles_(path))
        return false;
    Track_Record& record = records_[std::size_t(track)];
    record.Subtitle_Path = path;
    record.Subtitle_Name = subtitles_.Subtitle_Title.isEmpty() ? file_title.section(u'.', 0, 0)
                                                               : subtitles_.Subtitle_Title;
    record.Subtitle_Info_1 = subtitles_.Subtitle_Author;
    record.Subtitle_Info_2 = subtitles_.Subtitle_Source;
    record.Subtitle_Delay = subtitles_.Subtitle_Delay;
    // Whether the file's delay is in force is only worth asking when it has one.
    record.Subtitle_Flag = record.Subtitle_Delay != 0
        && Message_Box(texts_.Get_Text(Text_Subtitle_Delay_Question), Box_Style::Ok_Cancel) == Box_Answer::Ok;
    state_.Subtitles_Loaded = true;
    Show_Subtitle_Panel(track);
    if (track == state_.Current_Track)
        player_->Refresh_Display();
    return true;
}

void Playlist_Model::Step_Subtitle_Delay(int direction)
{
    // The seconds part of the time value: a delay of 60 s is 00:01:00 and reads 0.
    int seconds = subtitles_.Subtitle_Delay % 60;
    if (direction == 0) {
        if (seconds > 59)
            return;
        ++seconds;
    } else if (direction == 1) {
        if (seconds < 1)
            return;
        --seconds;
    } else {
        return;
    }
    subtitles_.Subtitle_Delay = seconds;
    const int current = state_.Current_Track;
    if (Is_Track(current))
        records_[std::size_t(current)].Subtitle_Delay = seconds;
    Show_Subtitle_Panel(current);
}

void Playlist_Model::Toggle_Subtitle_Flag()
{
    if (!Is_Track(subtitle_panel_track_))
        return;
    Track_Record& record = records_[std::size_t(subtitle_panel_track_)];
    record.Subtitle_Flag = !record.Subtitle_Flag;
    emit Subtitle_Panel_Changed(subtitle_panel_track_);
}

void Playlist_Model::Refresh_Track_Info(int track)
{
    if (Selected_Track() != track)
        Select_Track(track);  // shows the track through the selection
    else
        Show_Track_Info(track);
}

void Playlist_Model::Refresh_Playlist_Duration()
{
    long long total = 0;
    for (std::size_t k = 1; k < records_.size(); ++k)
        total += Shown_Seconds(records_[k].Duration);
    const QString text = Total_Duration_Text(total);
    if (text == playlist_duration_text_)
        return;
    playlist_duration_text_ = text;
    emit Playlist_Duration_Changed(text);
}

void Playlist_Model::Show_Track_Info(int track)
{
    info_track_ = Is_Track(track) ? track : 0;
    QStringList names;
    if (info_track_ != 0)
        for (const Associated_Audio_Entry& entry : Track(info_track_).Associated_Audio)
            names.append(entry.Name);
    audio_names_.setStringList(names);
    if (!names.isEmpty())
        audio_selection_.setCurrentIndex(audio_names_.index(0), QItemSelectionModel::ClearAndSelect);
    Show_Subtitle_Panel(info_track_);
    emit Track_Info_Changed(info_track_);
}

void Playlist_Model::Show_Subtitle_Panel(int track)
{
    subtitle_panel_track_ = Is_Track(track) ? track : 0;
    emit Subtitle_Panel_Changed(subtitle_panel_track_);
}

void Playlist_Model::Set_Track_Controls_Usable(bool usable)
{
    if (usable == track_controls_usable_)
        return;
    track_controls_usable_ = usable;
    emit Track_Controls_Usable_Changed(usable);
}

} // namespace Orvane

#include "playlist/playlist_model.h"

#include "base/time_text.h"
#include "media/media_analysis.h"
#include "playlist/name_from_path.h"
#include "playlist/playback_state.h"
#include "playlist/playlist_prompts.h"
#include "subtitles/subtitle_table.h"

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
QString Hours_Text(long long whole)
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
                               Playlist_Prompts& prompts, Subtitle_Loader load_subtitles, QObject* parent)
    : QAbstractListModel(parent),
      analyser_(&analyser),
      state_(state),
      subtitles_(subtitles),
      prompts_(prompts),
      load_subtitles_(std::move(load_subtitles))
{
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
    emit Track_Added(track);
    if (track == 1) {
        state_.Current_Track = 1;
        player_->Open_First_Track(path);
    }
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
    emit Playlist_Cleared();
}

void Playlist_Model::Remove_Track(int track)
{
    if (!Is_Track(track))
        return;
    const int current = state_.Current_Track;
    if (track == current)
        player_->Clear_Audio_Menus(track);

    beginRemoveRows(QModelIndex(), track - 1, track - 1);
    records_.erase(records_.begin() + track);
    endRemoveRows();

    if (current > track)
        state_.Current_Track = current - 1;
    else if (current == track)
        Replace_Removed_Current_Track(track);
    if (last_added_track_ == track)
        last_added_track_ = 0;
    else if (last_added_track_ > track)
        --last_added_track_;
    emit Track_Removed(track);
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
        prompts_.Refuse(Text_Picture_Refused);
        return false;
    }
    Track_Record& record = records_[std::size_t(track)];
    record.Associated_Audio.push_back(
        {path, name, Duration_Text_Of(analysis->Duration), analysis->Media_Kind});
    record.Associated_Count = int(record.Associated_Audio.size());
    emit Associated_Audio_Added(track);

    if (track == state_.Current_Track) {
        if (state_.Audio_Choice.Is_None())
            state_.Audio_Choice = Audio_Choice::First();
        player_->Associated_Audio_Added(track, record.Associated_Count);
    }
    return true;
}

void Playlist_Model::Remove_Associated_Audio(int track, int j)
{
    if (!Is_Track(track) || j < 1 || j > int(Track(track).Associated_Audio.size()))
        return;
    const bool is_current = track == state_.Current_Track;
    if (is_current)
        player_->Clear_Audio_Menus(track);

    Track_Record& record = records_[std::size_t(track)];
    record.Associated_Audio.erase(record.Associated_Audio.begin() + (j - 1));
    record.Associated_Count = int(record.Associated_Audio.size());
    emit Associated_Audio_Removed(track, j);

    if (is_current) {
        const bool was_heard = state_.Audio_Choice == Audio_Choice::Associated(j, record.Audio_Streams);
        state_.Audio_Choice = state_.Audio_Choice.Without_Associated(j, record.Audio_Streams);
        if (was_heard && (record.Audio_Streams >= 1 || record.Associated_Count >= 1))
            state_.Audio_Choice = Audio_Choice::First();
        player_->Associated_Audio_Removed(track, was_heard);
    }
}


void Playlist_Model::Associate_Subtitle(const QString& subtitle_path)
{
    if (Is_Track(last_added_track_))
        Associate_Subtitle(last_added_track_, subtitle_path, QFileInfo(subtitle_path).fileName());
}

bool Playlist_Model::Associate_Subtitle(int track, const QString& path, const QString& file_title)
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
        && prompts_.Confirm(Text_Subtitle_Delay_Question);
    state_.Subtitles_Loaded = true;
    emit Subtitle_Changed(track);
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
    emit Subtitle_Changed(current);
}

void Playlist_Model::Toggle_Subtitle_Flag(int track)
{
    if (!Is_Track(track))
        return;
    Track_Record& record = records_[std::size_t(track)];
    record.Subtitle_Flag = !record.Subtitle_Flag;
    emit Subtitle_Changed(track);
}

QString Playlist_Model::Total_Duration_Text() const
{
    long long total = 0;
    for (std::size_t k = 1; k < records_.size(); ++k)
        total += Shown_Seconds(records_[k].Duration);
    return Hours_Text(total);
}

} // namespace Orvane

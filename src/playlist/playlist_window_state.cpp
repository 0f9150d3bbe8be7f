#include "playlist/playlist_window_state.h"

#include "playlist/playlist_model.h"

#include <algorithm>

namespace Orvane {

Playlist_Window_State::Playlist_Window_State(Playlist_Model& model, QObject* parent)
    : QObject(parent), model_(model), audio_selection_(&audio_names_)
{
    // While rows move, the selection model and the list report an index of
    // the old numbering; the removal shows the right track once it is done.
    // Connected before the selection model exists so the guard is up before
    // its own handlers run.
    connect(&model_, &QAbstractItemModel::rowsAboutToBeRemoved, this, [this] { changing_rows_ = true; });
    playlist_selection_ = new QItemSelectionModel(&model_, this);
    connect(playlist_selection_, &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& current) {
        if (!changing_rows_)
            Show_Track_Info(current.isValid() ? current.row() + 1 : 0);
    });
    Connect_Model();
}

void Playlist_Window_State::Connect_Model()
{
    connect(&model_, &Playlist_Model::Track_Added, this, &Playlist_Window_State::On_Track_Added);
    connect(&model_, &Playlist_Model::Playlist_Cleared, this, [this] {
        Show_Track_Info(0);
        Refresh_Playlist_Duration();
        Set_Track_Controls_Usable(false);
    });
    connect(&model_, &Playlist_Model::Track_Removed, this, [this] {
        changing_rows_ = false;
        Show_Track_Info(Selected_Track());
        Refresh_Playlist_Duration();
        if (model_.Track_Count() == 0)
            Set_Track_Controls_Usable(false);
    });
    connect(&model_, &Playlist_Model::Associated_Audio_Added, this,
            &Playlist_Window_State::On_Associated_Audio_Added);
    connect(&model_, &Playlist_Model::Associated_Audio_Removed, this,
            &Playlist_Window_State::On_Associated_Audio_Removed);
    connect(&model_, &Playlist_Model::Subtitle_Changed, this, &Playlist_Window_State::Show_Subtitle_Panel);
}

int Playlist_Window_State::Selected_Track() const
{
    const QModelIndex current = playlist_selection_->currentIndex();
    return current.isValid() ? current.row() + 1 : 0;
}

void Playlist_Window_State::Select_Track(int track)
{
    if (!model_.Is_Track(track)) {
        playlist_selection_->clearCurrentIndex();
        playlist_selection_->clearSelection();
        return;
    }
    playlist_selection_->setCurrentIndex(model_.index(track - 1), QItemSelectionModel::ClearAndSelect);
}

int Playlist_Window_State::Selected_Audio_Entry() const
{
    const QModelIndex current = audio_selection_.currentIndex();
    return current.isValid() ? current.row() + 1 : 0;
}

void Playlist_Window_State::Refresh_Track_Info(int track)
{
    if (Selected_Track() != track)
        Select_Track(track);  // shows the track through the selection
    else
        Show_Track_Info(track);
}

void Playlist_Window_State::On_Track_Added(int track)
{
    Refresh_Track_Info(track);
    Refresh_Playlist_Duration();
    Set_Track_Controls_Usable(true);
}

void Playlist_Window_State::On_Associated_Audio_Added(int track)
{
    if (info_track_ == track) {
        const int row = audio_names_.rowCount();
        audio_names_.insertRows(row, 1);
        audio_names_.setData(audio_names_.index(row), model_.Track(track).Associated_Audio.back().Name);
        emit Track_Info_Changed(track);
    } else {
        Refresh_Track_Info(track);
    }
    audio_selection_.setCurrentIndex(audio_names_.index(audio_names_.rowCount() - 1),
                                     QItemSelectionModel::ClearAndSelect);
}

void Playlist_Window_State::On_Associated_Audio_Removed(int track, int entry)
{
    if (info_track_ != track)
        return;
    const int row = entry - 1;
    audio_names_.removeRows(row, 1);
    if (audio_names_.rowCount() > 0)
        audio_selection_.setCurrentIndex(audio_names_.index(std::min(row, audio_names_.rowCount() - 1)),
                                         QItemSelectionModel::ClearAndSelect);
    emit Track_Info_Changed(track);
}

void Playlist_Window_State::Show_Track_Info(int track)
{
    info_track_ = model_.Is_Track(track) ? track : 0;
    QStringList names;
    if (info_track_ != 0)
        for (const Associated_Audio_Entry& entry : model_.Track(info_track_).Associated_Audio)
            names.append(entry.Name);
    audio_names_.setStringList(names);
    if (!names.isEmpty())
        audio_selection_.setCurrentIndex(audio_names_.index(0), QItemSelectionModel::ClearAndSelect);
    Show_Subtitle_Panel(info_track_);
    emit Track_Info_Changed(info_track_);
}

void Playlist_Window_State::Show_Subtitle_Panel(int track)
{
    subtitle_panel_track_ = model_.Is_Track(track) ? track : 0;
    emit Subtitle_Panel_Changed(subtitle_panel_track_);
}

void Playlist_Window_State::Refresh_Playlist_Duration()
{
    const QString text = model_.Total_Duration_Text();
    if (text == playlist_duration_text_)
        return;
    playlist_duration_text_ = text;
    emit Playlist_Duration_Changed(text);
}

void Playlist_Window_State::Set_Track_Controls_Usable(bool usable)
{
    if (usable == track_controls_usable_)
        return;
    track_controls_usable_ = usable;
    emit Track_Controls_Usable_Changed(usable);
}

} // namespace Orvane

#pragma once

#include <QStyledItemDelegate>

namespace Orvane {

class Playlist_Model;
struct Playback_State;

// Draws one entry of Lst_Playlist as a skinned player shows it: the track
// number, the title, the duration at the right, and the current track lit
// in the accent colour with a play mark.
class Playlist_Window_Delegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    Playlist_Window_Delegate(const Playlist_Model& model, const Playback_State& state, QObject* parent = nullptr);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    static constexpr int Row_Height = 20;
    // The width of the number column's text for a list of track_count
    // entries: wide enough for every digit of the largest number.
    static int Number_Text_Width(int track_count);

private:
    const Playlist_Model& model_;
    const Playback_State& state_;
};

} // namespace Orvane

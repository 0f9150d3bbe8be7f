#pragma once

#include <QObject>
#include <QStringList>

class QMimeData;

namespace Orvane {

class Program;

// What a dropped file is to the player.
enum class Dropped_Kind { Playlist, Subtitle, Media };
Dropped_Kind Kind_Of_Dropped(const QString& path);

// The local files (not folders) a drag carries, in their order.
QStringList Dropped_Files(const QMimeData* data);

// Files dragged from a file manager onto the player's windows go through
// the operations of the buttons and the command line:
// - on the playlist window, a playlist is loaded and media files are added
//   as the add button adds them; on its associated-audio tab, they are
//   associated with the selected track instead;
// - on the player bar, the display or the subtitles, they are opened as
//   the command line opens a file with the play switch: the first plays;
// - anywhere, a ".sub" file becomes the subtitle of the selected track.
// While the playlist window is busy adding, drags are refused.
class File_Drop : public QObject {
    Q_OBJECT
public:
    explicit File_Drop(Program& program);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Takes_Drops() const;
    void Drop(QObject* window, const QStringList& files);
    void Drop_On_Playlist(const QStringList& playlists, const QStringList& media);
    void Drop_On_Player(const QStringList& playlists, const QStringList& media);

    Program& program_;
};

} // namespace Orvane

#include "app/file_drop.h"

#include "app/program.h"
#include "player/frm_player.h"
#include "playlist/frm_playlist.h"
#include "playlist/name_from_path.h"
#include "playlist/playlist_model.h"
#include "playlist/playlist_window_batch.h"
#include "subtitles/frm_display.h"
#include "subtitles/frm_subtitle.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace Orvane {

Dropped_Kind Kind_Of_Dropped(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("orx") || suffix == QLatin1String("m3u"))
        return Dropped_Kind::Playlist;
    if (suffix == QLatin1String("sub"))
        return Dropped_Kind::Subtitle;
    return Dropped_Kind::Media;
}

QStringList Dropped_Files(const QMimeData* data)
{
    QStringList files;
    if (!data)
        return files;
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile() && QFileInfo(url.toLocalFile()).isFile())
            files << QFileInfo(url.toLocalFile()).absoluteFilePath();
    }
    return files;
}

File_Drop::File_Drop(Program& program) : program_(program)
{
    for (QWidget* window : std::initializer_list<QWidget*>{&program.Player_Window(), &program.Playlist_Window(),
                                                           &program.Display_Window(), &program.Subtitle_Window()}) {
        window->setAcceptDrops(true);
        window->installEventFilter(this);
    }
}

bool File_Drop::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
        auto* drag = static_cast<QDropEvent*>(event);
        if (Takes_Drops() && !Dropped_Files(drag->mimeData()).isEmpty())
            drag->acceptProposedAction();
        else
            drag->ignore();
        return true;
    }
    case QEvent::Drop: {
        auto* drop = static_cast<QDropEvent*>(event);
        const QStringList files = Dropped_Files(drop->mimeData());
        // Refused rather than dropped silently: the file manager then
        // shows that the files were not taken.
        if (files.isEmpty() || !Takes_Drops()) {
            drop->ignore();
            return true;
        }
        drop->acceptProposedAction();
        Drop(watched, files);
        return true;
    }
    default:
        return QObject::eventFilter(watched, event);
    }
}

bool File_Drop::Takes_Drops() const { return !program_.Playlist_Window().Batch().Is_Busy(); }

void File_Drop::Drop(QObject* window, const QStringList& files)
{
    Frm_PlayList& playlist_window = program_.Playlist_Window();
    QStringList playlists;
    QStringList media;
    for (const QString& file : files) {
        switch (Kind_Of_Dropped(file)) {
        case Dropped_Kind::Playlist:
            playlists << file;
            break;
        case Dropped_Kind::Subtitle:
            // As the subtitle button would take it: only with a track selected.
            if (const int track = playlist_window.Window_State().Selected_Track(); track != 0)
                program_.Model().Associate_Subtitle(track, file, QFileInfo(file).fileName());
            break;
        case Dropped_Kind::Media:
            media << file;
            break;
        }
    }
    if (window == &playlist_window)
        Drop_On_Playlist(playlists, media);
    else
        Drop_On_Player(playlists, media);
}

void File_Drop::Drop_On_Playlist(const QStringList& playlists, const QStringList& media)
{
    Frm_PlayList& window = program_.Playlist_Window();
    if (window.Current_Tab() == Frm_PlayList::Tab_Audio) {
        // The add-audio button's operation, which refuses files with a picture.
        const int track = window.Window_State().Selected_Track();
        if (track == 0)
            return;
        for (const QString& path : media)
            program_.Model().Associate_Audio(track, path, Name_From_Path(path));
        return;
    }
    if (!playlists.isEmpty())
        program_.Open_File(playlists.first(), false);
    if (!media.isEmpty())
        window.Batch().Add_Files(media, 0);
}

void File_Drop::Drop_On_Player(const QStringList& playlists, const QStringList& media)
{
    bool play = true;
    if (!playlists.isEmpty()) {
        program_.Open_File(playlists.first(), play);
        play = false;
    }
    for (const QString& path : media) {
        program_.Open_File(path, play);
        play = false;
    }
}

} // namespace Orvane

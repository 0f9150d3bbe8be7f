#include "playlist/playlist_window_batch.h"

#include "base/reader_error.h"
#include "base/text_file.h"
#include "playlist/playlist_model.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace Orvane {

Playlist_Window_Batch::Playlist_Window_Batch(Playlist_Model& model, QObject* parent)
    : QObject(parent), model_(model)
{
    next_file_.setSingleShot(true);
    next_file_.setInterval(0);
    connect(&next_file_, &QTimer::timeout, this, &Playlist_Window_Batch::Add_Next_File);
}

void Playlist_Window_Batch::Add_Files(const QStringList& paths, int16_t mode)
{
    if (busy_ || paths.isEmpty())
        return;
    busy_ = true;
    cancelled_ = false;
    pending_ = paths;
    mode_ = mode;
    done_ = 0;
    total_ = int(paths.size());
    emit Started(false, total_);
    next_file_.start();
}

void Playlist_Window_Batch::Add_Next_File()
{
    if (cancelled_ || pending_.isEmpty()) {
        Finish();
        return;
    }
    const QString path = pending_.takeFirst();
    ++done_;
    model_.Add_Track(path, {}, false, QFileInfo(path).fileName(), done_, mode_);
    emit Progress(done_, total_);
    next_file_.start();
}

Playlist_Load_Result Playlist_Window_Batch::Load(const QString& file_name, const Settings& settings,
                                                 const Text_Table& texts)
{
    if (busy_)
        return Playlist_Load_Result::Not_A_Playlist;
    busy_ = true;
    cancelled_ = false;
    done_ = 0;
    total_ = Count_Entries(file_name);
    emit Started(true, total_);
    const Playlist_Load_Result result = Load_Playlist(file_name, settings, texts, *this);
    Finish();
    return result;
}

void Playlist_Window_Batch::Add_Track(const QString& media_path, const QStringList& audio_paths, bool disc_change,
                                      const QString& title, int entry, int16_t mode)
{
    if (cancelled_)
        return;
    model_.Add_Track(media_path, audio_paths, disc_change, title, entry, mode);
    ++done_;
    emit Progress(done_, std::max(done_, total_));
    // Paints the progress and lets Cancel through between two analyses.
    QCoreApplication::processEvents();
}

void Playlist_Window_Batch::Associate_Subtitle(const QString& subtitle_path)
{
    if (!cancelled_)
        model_.Associate_Subtitle(subtitle_path);
}

void Playlist_Window_Batch::Cancel()
{
    if (!busy_)
        return;
    cancelled_ = true;
    pending_.clear();
}

void Playlist_Window_Batch::Finish()
{
    next_file_.stop();
    pending_.clear();
    if (!busy_)
        return;
    busy_ = false;
    emit Finished();
}

int Playlist_Window_Batch::Count_Entries(const QString& file_name)
{
    try {
        Text_File_Reader file(file_name);
        if (file.At_End())
            return 0;
        const QString header = file.Read_Line().toUpper();
        const bool own_format = header == QLatin1String("#EXTORX");
        if (!own_format && header != QLatin1String("#EXTM3U"))
            return 0;
        int entries = 0;
        while (!file.At_End()) {
            const QString line = file.Read_Line();
            if (own_format ? line.toUpper() == QLatin1String("#TRACK") : line.startsWith(QLatin1String("#EXTINF")))
                ++entries;
        }
        return entries;
    } catch (const Reader_Error&) {
        return 0;
    }
}

} // namespace Orvane

#pragma once

#include "playlist/playlist_files.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

namespace Orvane {

class Playlist_Model;

// Adds many tracks without freezing the window. Files chosen in the open
// dialog are added one per turn of the event loop (each analysis takes a
// moment); a playlist file is read through this object, which hands each
// entry to the model and lets the event loop run in between. Cancel drops
// the entries not added yet.
class Playlist_Window_Batch : public QObject, public Playlist_Load_Target {
    Q_OBJECT
public:
    explicit Playlist_Window_Batch(Playlist_Model& model, QObject* parent = nullptr);

    // Entry numbers count from 1 in the order given; mode 1 replaces the
    // playlist with the first file that can be played.
    void Add_Files(const QStringList& paths, int16_t mode);
    // Reads a playlist file; returns when it has been read (or cancelled).
    Playlist_Load_Result Load(const QString& file_name, const Settings& settings, const Text_Table& texts);

    bool Is_Busy() const { return busy_; }
    void Cancel();

    // The entries a playlist file holds, as its reader will count them.
    static int Count_Entries(const QString& file_name);

    // Playlist_Load_Target: what the reader hands over goes to the model.
    void Add_Track(const QString& media_path, const QStringList& audio_paths, bool disc_change,
                   const QString& title, int entry, int16_t mode) override;
    void Associate_Subtitle(const QString& subtitle_path) override;

signals:
    void Started(bool reading_playlist, int total);
    void Progress(int done, int total);
    void Finished();

private:
    void Add_Next_File();
    void Finish();

    Playlist_Model& model_;
    QTimer next_file_;
    QStringList pending_;
    int16_t mode_ = 0;
    int done_ = 0;
    int total_ = 0;
    bool busy_ = false;
    bool cancelled_ = false;
};

} // namespace Orvane

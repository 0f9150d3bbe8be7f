#pragma once

#include "playlist/playlist_files.h"

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

namespace Orvane {

class Analysis_Pool;
class Media_Analyser;
class Playlist_Model;

// Adds many tracks without the window ever waiting on a file. The files are
// analysed on worker threads, a few at a time and each within a time limit
// (see Analysis_Pool); their tracks are added on this thread strictly in
// entry order, one per turn of the event loop, so the playlist, its
// numbering and "entry 1 with mode 1 replaces the playlist" come out as if
// each file had been analysed in turn. A playlist file is read at once into
// the list of what its reader asks for (tracks, subtitles, beeps, boxes),
// which is then played back in that order. Cancel drops what is not done.
class Playlist_Window_Batch : public QObject, public Playlist_Load_Target {
    Q_OBJECT
public:
    using Title_Of = std::function<QString(const QString& path)>;

    explicit Playlist_Window_Batch(Playlist_Model& model, QObject* parent = nullptr);
    ~Playlist_Window_Batch() override;

    // The analyser of the worker threads. Until one is given they use the
    // model's, which must then outlive every analysis the batch starts.
    void Use_Analyser(std::shared_ptr<Media_Analyser> analyser);
    Analysis_Pool& Pool() { return *pool_; }

    // Entry numbers count from 1 in the order given; mode 1 replaces the
    // playlist with the first file that can be played. Titles are the file
    // names unless title_of says otherwise. False when busy.
    bool Add_Files(const QStringList& paths, int16_t mode, const Title_Of& title_of = {});
    // Reads a playlist file; its tracks follow as they are analysed.
    Playlist_Load_Result Load(const QString& file_name, const Settings& settings, const Text_Table& texts);
    // Associates audio files with a track, in the order given. False when busy.
    bool Associate_Audio(int track, const QStringList& paths);

    bool Is_Busy() const { return busy_; }
    void Cancel();

    // The entries a playlist file holds, as its reader will count them.
    static int Count_Entries(const QString& file_name);

    // Playlist_Load_Target: what the reader asks for is noted, in order.
    void Add_Track(const QString& media_path, const QStringList& audio_paths, bool disc_change,
                   const QString& title, int entry, int16_t mode) override;
    void Associate_Subtitle(const QString& subtitle_path) override;
    void Beep(int line_number) override;
    void Show_Error(const QString& text) override;

signals:
    void Started(bool reading_playlist, int total);
    void Progress(int done, int total);
    void Finished();

private:
    struct Step;

    bool Begin();
    void Add_Step(Step step);
    void Start(bool reading_playlist);
    void Apply_Ready();
    void Apply(const Step& step);
    void Finish();

    Playlist_Model& model_;
    std::unique_ptr<Analysis_Pool> pool_;
    QTimer next_step_;
    std::vector<Step> steps_;
    std::size_t next_ = 0;
    unsigned generation_ = 0;
    int done_ = 0;
    int total_ = 0;
    bool busy_ = false;
    bool applying_ = false;
};

} // namespace Orvane

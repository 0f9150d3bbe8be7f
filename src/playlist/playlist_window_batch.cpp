#include "playlist/playlist_window_batch.h"

#include "base/reader_error.h"
#include "base/text_file.h"
#include "media/analysis_pool.h"
#include "playlist/name_from_path.h"
#include "playlist/playlist_model.h"
#include "ui/message_box.h"

#include <QFileInfo>

namespace Orvane {

namespace {

// The answers found on the worker threads for one step, handed to the model
// in place of its analyser: it asks for the files in the order they were
// queued (the media, then each associated audio file).
class Prepared_Analyses : public Media_Analyser {
public:
    std::size_t Expect(const QString& path)
    {
        answers_.push_back({path, std::nullopt});
        return answers_.size() - 1;
    }
    void Answer(std::size_t slot, const std::optional<Media_Analysis>& analysis) { answers_[slot].second = analysis; }

    std::optional<Media_Analysis> Analyse_Media(const QString& path) override
    {
        for (; next_ < answers_.size(); ++next_)
            if (answers_[next_].first == path)
                return answers_[next_++].second;
        return std::nullopt;
    }

private:
    std::vector<std::pair<QString, std::optional<Media_Analysis>>> answers_;
    std::size_t next_ = 0;
};

} // namespace

struct Playlist_Window_Batch::Step {
    enum class Kind { Track, Subtitle, Beep, Error, Audio };
    Kind kind = Kind::Track;
    QString path;  // media, subtitle or audio file; the text of an error
    QStringList audio_paths;
    bool disc_change = false;
    QString title;
    int entry = 0;
    int16_t mode = 0;
    int track = 0;  // the track an audio file goes with
    std::shared_ptr<Prepared_Analyses> analyses = std::make_shared<Prepared_Analyses>();
    int unanswered = 0;
};

Playlist_Window_Batch::Playlist_Window_Batch(Playlist_Model& model, QObject* parent)
    : QObject(parent),
      model_(model),
      pool_(std::make_unique<Analysis_Pool>(std::shared_ptr<Media_Analyser>(&model.Analyser(), [](Media_Analyser*) {})))
{
    next_step_.setSingleShot(true);
    next_step_.setInterval(0);
    connect(&next_step_, &QTimer::timeout, this, &Playlist_Window_Batch::Apply_Ready);
}

Playlist_Window_Batch::~Playlist_Window_Batch() = default;

void Playlist_Window_Batch::Use_Analyser(std::shared_ptr<Media_Analyser> analyser)
{
    if (busy_)
        return;
    pool_ = std::make_unique<Analysis_Pool>(std::move(analyser));
}

bool Playlist_Window_Batch::Begin()
{
    if (busy_)
        return false;
    busy_ = true;
    ++generation_;
    steps_.clear();
    next_ = 0;
    done_ = 0;
    total_ = 0;
    return true;
}

bool Playlist_Window_Batch::Add_Files(const QStringList& paths, int16_t mode, const Title_Of& title_of)
{
    if (paths.isEmpty() || !Begin())
        return false;
    int entry = 0;
    for (const QString& path : paths) {
        Step step;
        step.path = path;
        step.title = title_of ? title_of(path) : QFileInfo(path).fileName();
        step.entry = ++entry;
        step.mode = mode;
        Add_Step(std::move(step));
    }
    Start(false);
    return true;
}

Playlist_Load_Result Playlist_Window_Batch::Load(const QString& file_name, const Settings& settings,
                                                 const Text_Table& texts)
{
    if (!Begin())
        return Playlist_Load_Result::Not_A_Playlist;
    const Playlist_Load_Result result = Load_Playlist(file_name, settings, texts, *this);
    Start(true);
    return result;
}

bool Playlist_Window_Batch::Associate_Audio(int track, const QStringList& paths)
{
    if (paths.isEmpty() || !Begin())
        return false;
    for (const QString& path : paths) {
        Step step;
        step.kind = Step::Kind::Audio;
        step.path = path;
        step.track = track;
        Add_Step(std::move(step));
    }
    Start(false);
    return true;
}

void Playlist_Window_Batch::Add_Track(const QString& media_path, const QStringList& audio_paths, bool disc_change,
                                      const QString& title, int entry, int16_t mode)
{
    Step step;
    step.path = media_path;
    step.audio_paths = audio_paths;
    step.disc_change = disc_change;
    step.title = title;
    step.entry = entry;
    step.mode = mode;
    Add_Step(std::move(step));
}

void Playlist_Window_Batch::Associate_Subtitle(const QString& subtitle_path)
{
    Step step;
    step.kind = Step::Kind::Subtitle;
    step.path = subtitle_path;
    Add_Step(std::move(step));
}

void Playlist_Window_Batch::Beep(int)
{
    Step step;
    step.kind = Step::Kind::Beep;
    Add_Step(std::move(step));
}

void Playlist_Window_Batch::Show_Error(const QString& text)
{
    Step step;
    step.kind = Step::Kind::Error;
    step.path = text;
    Add_Step(std::move(step));
}

// Queues the step's files on the pool at once: the pool takes them in this
// order, so the entries near the front are analysed first.
void Playlist_Window_Batch::Add_Step(Step step)
{
    QStringList files;
    if (step.kind == Step::Kind::Track)
        files = QStringList{step.path} + step.audio_paths;
    else if (step.kind == Step::Kind::Audio)
        files = QStringList{step.path};
    if (!files.isEmpty())
        ++total_;
    const std::size_t index = steps_.size();
    const unsigned generation = generation_;
    step.unanswered = int(files.size());
    steps_.push_back(std::move(step));
    for (const QString& file : files) {
        const std::size_t slot = steps_[index].analyses->Expect(file);
        pool_->Analyse(file, [this, generation, index, slot](const std::optional<Media_Analysis>& analysis) {
            if (generation != generation_ || index >= steps_.size())
                return;
            Step& answered = steps_[index];
            answered.analyses->Answer(slot, analysis);
            if (--answered.unanswered == 0 && index == next_)
                next_step_.start();
        });
    }
}

void Playlist_Window_Batch::Start(bool reading_playlist)
{
    emit Started(reading_playlist, total_);
    next_step_.start();
}

void Playlist_Window_Batch::Apply_Ready()
{
    // A box shown by a step runs the event loop: no step may start inside another.
    if (applying_ || !busy_)
        return;
    applying_ = true;
    const unsigned generation = generation_;
    bool added_one = false;
    while (generation == generation_ && busy_ && next_ < steps_.size() && steps_[next_].unanswered == 0) {
        const bool analysed = steps_[next_].kind == Step::Kind::Track || steps_[next_].kind == Step::Kind::Audio;
        // One analysed file per turn, so the window paints and Cancel gets through.
        if (analysed && added_one)
            break;
        // A copy: Cancel inside a box of the step empties the list.
        const Step step = steps_[next_++];
        Apply(step);
        if (analysed && generation == generation_) {
            added_one = true;
            emit Progress(++done_, total_);
        }
    }
    applying_ = false;
    if (generation != generation_ || !busy_)
        return;
    if (next_ >= steps_.size())
        Finish();
    else if (steps_[next_].unanswered == 0)
        next_step_.start();
}

void Playlist_Window_Batch::Apply(const Step& step)
{
    switch (step.kind) {
    case Step::Kind::Track:
        model_.Add_Track_With(*step.analyses, step.path, step.audio_paths, step.disc_change, step.title, step.entry,
                              step.mode);
        break;
    case Step::Kind::Audio:
        model_.Associate_Audio_With(*step.analyses, step.track, step.path, Name_From_Path(step.path));
        break;
    case Step::Kind::Subtitle:
        model_.Associate_Subtitle(step.path);
        break;
    case Step::Kind::Beep:
        Orvane::Beep();
        break;
    case Step::Kind::Error:
        Message_Box(step.path, Box_Style::Critical_Ok);
        break;
    }
}

void Playlist_Window_Batch::Cancel()
{
    if (!busy_)
        return;
    Finish();
}

void Playlist_Window_Batch::Finish()
{
    next_step_.stop();
    pool_->Clear();
    ++generation_;
    steps_.clear();
    next_ = 0;
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

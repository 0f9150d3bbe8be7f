// The playlist reader (own format and extended M3U: the first line decides)
// with the shipped settings and texts. Built twice, once per file name
// extension, each with the seeds of its own format.
#include "fuzz_support.h"

#include "playlist/playlist_files.h"
#include "ui/message_box.h"

namespace {

const Orvane::Fuzz::Shipped* shipped = nullptr;

// Touches every value handed over, so a bad one is caught where it is made.
class Counting_Target : public Orvane::Playlist_Load_Target {
public:
    void Add_Track(const QString& media_path, const QStringList& audio_paths, bool disc_change,
                   const QString& title, int entry, int16_t mode) override
    {
        total_ += media_path.size() + audio_paths.join(u';').size() + title.size() + entry + mode
                  + disc_change;
    }
    void Associate_Subtitle(const QString& subtitle_path) override { total_ += subtitle_path.size(); }
    void Beep(int line_number) override { total_ += line_number; }

private:
    qint64 total_ = 0;
};

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    shipped = &Orvane::Fuzz::Start_With_Shipped_Settings(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace Orvane;
    const QString path = Fuzz::Write_Input(QStringLiteral("list." ORVANE_PLAYLIST_EXTENSION), data, size);
    Message_Box_Recorder recorder;
    Counting_Target target;
    Load_Playlist(path, shipped->settings, shipped->texts, target);
    return 0;
}

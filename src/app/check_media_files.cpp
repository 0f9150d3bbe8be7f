#include "app/check_media_files.h"
#include "app/program_files.h"

#include "base/time_text.h"
#include "config/config_file.h"
#include "config/settings.h"
#include "language/text_table.h"
#include "playlist/playlist_files.h"
#include "subtitles/subtitle_reader.h"
#include "ui/message_box.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QTextStream>

#include <algorithm>
#include <vector>

namespace Orvane {

namespace {

enum Check_Status { Accepted = 0, Refused = 1 };

// Used when no screen is there to measure (the check runs without a display).
constexpr int Fallback_Screen_Width = 1280;

// The settings and texts the player would start with.
bool Read_Program_Settings(const QString& program_folder, Settings& settings, Text_Table& texts)
{
    if (!program_folder.isEmpty())
        return Read_Config(program_folder, settings, texts);
    const Program_Files files = Locate_Program_Files();
    return Read_Config_File(files.Config_To_Read(), files.Language_Folder, settings, texts);
}

QString One_Line(QString text)
{
    return text.replace(u'\n', QStringLiteral(" / "));
}

int Report_Refusal(const Message_Box_Recorder& recorder, QTextStream& out)
{
    out << "ERROR:";
    if (!recorder.Boxes().empty())
        out << ' ' << One_Line(recorder.Last_Text());
    out << Qt::endl;
    return Refused;
}

int Screen_Width()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry().width() : Fallback_Screen_Width;
}

// Writes down what the loader hands to the playlist, in order, instead of
// adding tracks.
class Recording_Target : public Playlist_Load_Target {
public:
    explicit Recording_Target(const Message_Box_Recorder& recorder) : recorder_(recorder) {}

    void Add_Track(const QString& media_path, const QStringList& audio_paths, bool disc_change,
                   const QString& title, int entry, int16_t) override
    {
        Take_Boxes();
        events_.push_back({entry, title, media_path, audio_paths.join(u';'), {}, disc_change, {}});
        last_entry_ = events_.size() - 1;
    }

    void Associate_Subtitle(const QString& subtitle_path) override
    {
        Take_Boxes();
        if (last_entry_ < events_.size())
            events_[last_entry_].subtitle = subtitle_path;
    }

    void Beep(int line_number) override
    {
        Take_Boxes();
        events_.push_back({0, {}, {}, {}, {}, false, QStringLiteral("BEEP line %1").arg(line_number)});
    }

    // The boxes shown since the last event become events of their own. At the
    // end, the box of a stopped load is left out: it is the refusal itself.
    void Take_Boxes(size_t leave_out = 0)
    {
        const size_t shown = recorder_.Boxes().size() - std::min(leave_out, recorder_.Boxes().size());
        for (; boxes_taken_ < shown; ++boxes_taken_)
            events_.push_back({0, {}, {}, {}, {}, false,
                               QStringLiteral("MESSAGE: ") + One_Line(recorder_.Boxes()[boxes_taken_].text)});
    }

    void Print(QTextStream& out) const
    {
        for (const Event& event : events_) {
            if (!event.note.isEmpty()) {
                out << event.note << '\n';
                continue;
            }
            out << event.entry << '\t' << event.title << '\t' << event.media << '\t' << event.audio << '\t'
                << event.subtitle << '\t' << (event.disc_change ? '1' : '0') << '\n';
        }
        out.flush();
    }

private:
    struct Event {
        int entry;
        QString title;
        QString media;
        QString audio;
        QString subtitle;
        bool disc_change;
        QString note;  // a beep or a message instead of an entry
    };

    const Message_Box_Recorder& recorder_;
    std::vector<Event> events_;
    size_t last_entry_ = size_t(-1);
    size_t boxes_taken_ = 0;
};

} // namespace

int Check_Subtitle_File(const QString& path, QTextStream& out, const QString& program_folder)
{
    Message_Box_Recorder recorder;
    Settings settings;
    Text_Table texts;
    if (!Read_Program_Settings(program_folder, settings, texts))
        return Report_Refusal(recorder, out);
    Subtitle_Table table;
    if (!Load_Subtitles(path, settings, texts, Screen_Width(), table))
        return Report_Refusal(recorder, out);
    out << "OK\n"
        << "title: " << table.Subtitle_Title << '\n'
        << "author: " << table.Subtitle_Author << '\n'
        << "source: " << table.Subtitle_Source << '\n'
        << "program: " << table.Subtitle_Program << '\n'
        << "filepath: " << table.Subtitle_File_Path << '\n'
        << "delay: " << Time_Text(table.Subtitle_Delay) << '\n'
        << "cd track: " << table.Subtitle_CD_Track << '\n';
    for (size_t n = 1; n < table.Subtitle_Lines.size(); ++n) {
        const Subtitle_Line& entry = table.Subtitle_Lines[n];
        out << n << ' ' << entry.time << ' ' << entry.line1 << '|' << entry.line2 << '\n';
    }
    out.flush();
    return Accepted;
}

int Check_Playlist_File(const QString& path, QTextStream& out, const QString& program_folder)
{
    Message_Box_Recorder recorder;
    Settings settings;
    Text_Table texts;
    if (!Read_Program_Settings(program_folder, settings, texts))
        return Report_Refusal(recorder, out);
    Recording_Target target(recorder);
    const Playlist_Load_Result result = Load_Playlist(path, settings, texts, target);
    if (result == Playlist_Load_Result::Not_A_Playlist)
        return Report_Refusal(recorder, out);
    const bool failed = result == Playlist_Load_Result::Failed;
    target.Take_Boxes(failed ? 1 : 0);
    if (failed)
        Report_Refusal(recorder, out);
    else
        out << "OK\n";
    target.Print(out);
    return failed ? Refused : Accepted;
}

int Check_Subtitle_File(const QString& path)
{
    QTextStream out(stdout);
    return Check_Subtitle_File(path, out);
}

int Check_Playlist_File(const QString& path)
{
    QTextStream out(stdout);
    return Check_Playlist_File(path, out);
}

} // namespace Orvane

#pragma once

#include "config/settings.h"
#include "language/text_table.h"
#include "player/display_control.h"
#include "player/playback_session.h"
#include "player/subtitle_source.h"
#include "player/subtitle_window_control.h"
#include "player/track_source.h"
#include "playlist/playback_state.h"
#include "playlist/playlist_window_link.h"
#include "playlist/track.h"
#include "subtitles/subtitle_display.h"
#include "support/fake_media_graph.h"
#include "support/fake_player_view.h"
#include "ui/message_box.h"

#include <gtest/gtest.h>

#include <vector>

namespace Orvane::Test {

class Fake_Tracks : public Track_Source {
public:
    int Track_Count() const override { return int(records.size()); }
    const Track_Record& Track(int number) const override { return records.at(size_t(number - 1)); }
    std::vector<Track_Record> records;
};

class Fake_Playlist_Window : public Playlist_Window_Link {
public:
    explicit Fake_Playlist_Window(Call_Journal& journal) : journal_(journal) {}
    void Select_Playlist_Entry(int index) override { journal_.Add("Select_Playlist_Entry", index); Selected_Entry = index; }
    void Show_Playlist_Tab() override { journal_.Add("Show_Playlist_Tab"); }
    void Toggle_Visible() override { journal_.Add("Toggle_Visible"); }
    void Click_Add_Video() override { journal_.Add("Click_Add_Video"); }
    int Selected_Entry = -1;

private:
    Call_Journal& journal_;
};

class Fake_Display : public Display_Control {
public:
    explicit Fake_Display(Call_Journal& journal) : journal_(journal) {}
    void Video_Layout(QSize size) override
    {
        journal_.Add("Video_Layout", QStringLiteral("%1x%2").arg(size.width()).arg(size.height()));
    }
    void Audio_Layout() override { journal_.Add("Audio_Layout"); }
    void Reapply_Full_Screen(bool has_video) override { journal_.Add("Reapply_Full_Screen", has_video ? "video" : "audio"); }
    void Enter_Full_Screen() override { journal_.Add("Enter_Full_Screen"); }
    void Leave_Full_Screen() override { journal_.Add("Leave_Full_Screen"); }

private:
    Call_Journal& journal_;
};

// A subtitle table of entries given by the test, searched as the timing
// routines search theirs: the first entry at or after the time, 0 at the
// closing record.
class Fake_Subtitles : public Subtitle_Source {
public:
    struct Entry {
        QString time, line1, line2;
    };
    explicit Fake_Subtitles(Call_Journal& journal) : journal_(journal) {}
    bool Load(const QString& path) override { journal_.Add("Load_Subtitles", path); return load_result; }
    int Find(const QString& time_text) const override;
    QString Start_Time(int n) const override { return Valid(n) ? entries[size_t(n - 1)].time : QString(); }
    QString Line1(int n) const override { return Valid(n) ? entries[size_t(n - 1)].line1 : QString(); }
    QString Line2(int n) const override { return Valid(n) ? entries[size_t(n - 1)].line2 : QString(); }

    // Entries from 1; the closing record is added by the test's Set_Entries.
    void Set_Entries(std::vector<Entry> lines);
    std::vector<Entry> entries;
    bool load_result = true;

private:
    bool Valid(int n) const { return n >= 1 && n <= int(entries.size()); }
    Call_Journal& journal_;
};

class Fake_Subtitle_Display : public Subtitle_Display {
public:
    explicit Fake_Subtitle_Display(Call_Journal& journal) : journal_(journal) {}
    void Show_Subtitle(const QString& line1, const QString& line2, int n) override
    {
        journal_.Add("Show_Subtitle", line1 + QLatin1Char('|') + line2, n);
        Shown = line1.isEmpty() && line2.isEmpty() ? QString() : line1 + QLatin1Char('|') + line2;
    }
    QString Shown;  // "line1|line2", empty when cleared

private:
    Call_Journal& journal_;
};

class Fake_Subtitle_Window : public Subtitle_Window_Control {
public:
    explicit Fake_Subtitle_Window(Call_Journal& journal) : journal_(journal) {}
    void Show() override { journal_.Add("Subtitle_Window_Show"); shown_ = true; }
    void Unload() override { journal_.Add("Subtitle_Window_Unload"); shown_ = false; }
    bool Is_Shown() const override { return shown_; }

private:
    Call_Journal& journal_;
    bool shown_ = false;
};

// Texts by number for the tests, loaded through the real language loader.
// The English column is chosen; each text is "<number> English".
const Text_Table& Test_Texts();

// Track records as the playlist model would fill them.
Track_Record Video_Track(const QString& title, int streams, const QString& kind = QStringLiteral("AVI"),
                         double duration = 60.0);
Track_Record Audio_Track(const QString& title, double duration = 60.0);
void Add_Associated(Track_Record& track, const QString& name);

// The player's logic on fakes that share one journal.
class Player_Fixture : public testing::Test {
protected:
    Player_Fixture();

    // Makes track number current and opens it as the playlist does for a
    // first track (not played), then clears the journal.
    void Open_Current(int number);
    // Makes track number current and plays it, then clears the journal.
    void Play_Current(int number);
    const Track_Record& Track(int number) const { return tracks.Track(number); }

    Call_Journal journal;
    Message_Box_Recorder boxes;
    Playback_State state;
    Settings settings;
    Fake_Media_Graph graph{&journal};
    Fake_Player_View view{&journal};
    Fake_Tracks tracks;
    Fake_Playlist_Window playlist_window{journal};
    Fake_Display display{journal};
    Fake_Subtitles subtitles{journal};
    Fake_Subtitle_Display subtitle_display{journal};
    Fake_Subtitle_Window subtitle_window{journal};
    Player_Context context{state,   settings, Test_Texts(), graph,       view,
                           tracks,  playlist_window, display, subtitles, subtitle_display,
                           subtitle_window};
    Playback_Session session{context};
};

} // namespace Orvane::Test

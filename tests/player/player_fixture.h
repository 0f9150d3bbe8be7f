#pragma once

#include "config/settings.h"
#include "language/text_table.h"
#include "media/display_layout.h"
#include "player/frm_player.h"
#include "player/playback_session.h"
#include "player/subtitle_table_source.h"
#include "subtitles/subtitle_window_control.h"
#include "player/track_source.h"
#include "playlist/playback_state.h"
#include "playlist/playlist_window_link.h"
#include "playlist/track.h"
#include "subtitles/subtitle_display.h"
#include "subtitles/subtitle_table.h"
#include "support/fake_media_graph.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"
#include "ui/skin_label.h"
#include "ui/skin_picture.h"
#include "ui/skin_resources.h"

#include <QAction>
#include <QMenu>
#include <gtest/gtest.h>

// Failed comparisons of texts show the texts.
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

namespace Orvane::Test {

// Everything around the player but the graph, its window and the subtitle
// table: the playlist, its window, the display and subtitle windows,
// journaling every call.
class Fake_Surroundings : public Track_Source, public Playlist_Window_Link, public Display_Layout,
                          public Subtitle_Display, public Subtitle_Window_Control {
public:
    explicit Fake_Surroundings(Call_Journal& journal) : journal(journal) {}
    int Track_Count() const override { return int(tracks.size()); }
    const Track_Record& Track(int number) const override { return tracks.at(number - 1); }
    void Select_Playlist_Entry(int index) override { journal.Add("Select_Playlist_Entry", index); }
    void Show_Playlist_Tab() override { journal.Add("Show_Playlist_Tab"); }
    void Toggle_Visible() override { journal.Add("Toggle_Visible"); }
    void Click_Add_Video() override { journal.Add("Click_Add_Video"); }
    void Video_Layout(QSize size) override { journal.Add("Video_Layout", size.width(), size.height()); }
    void Audio_Layout() override { journal.Add("Audio_Layout"); }
    void Reapply_Full_Screen(bool video) override { journal.Add("Reapply_Full_Screen", video); }
    void Enter_Full_Screen() override { journal.Add("Enter_Full_Screen"); }
    void Leave_Full_Screen() override { journal.Add("Leave_Full_Screen"); }
    void Show_Subtitle(const QString& line1, const QString& line2, int n) override
    {
        journal.Add("Show_Subtitle", shown_subtitle = line1 + u'|' + line2, n);
    }
    void Show() override { journal.Add("Subtitle_Window_Show"); subtitle_window_shown = true; }
    void Unload() override { journal.Add("Subtitle_Window_Unload"); subtitle_window_shown = false; }
    bool Is_Shown() const override { return subtitle_window_shown; }

    Call_Journal& journal;
    QList<Track_Record> tracks;
    QString shown_subtitle = QStringLiteral("|");  // "line 1|line 2"
    bool subtitle_window_shown = false;
};

// Texts loaded from a language file whose English text n is "<n> English".
const Text_Table& Test_Texts();

// Tracks as the playlist fills them: /media/<title>.avi (AVI) or .wav (WAV,
// no picture), associated files /media/<name>.wav.
Track_Record Video_Track(const QString& title, int streams, const QStringList& associated = {});
Track_Record Audio_Track(const QString& title, const QStringList& associated = {});

// The visible entries of the audio popup in menu order, "-" for a
// separator and "*" after a checked entry: "-,Stream audio 1*,-".
QString Menu_Text(const Frm_Player& player);

// The player's logic on the real player window and fakes for the rest.
class Player_Base : public testing::Test {
protected:
    static void SetUpTestSuite() { Init_Skin_Resources(); }
    Player_Context Context_With(Media_Graph& graph)
    {
        return {state, settings, Test_Texts(), graph, view, fakes, fakes, fakes, subtitles, fakes, fakes};
    }

    Call_Journal journal;
    Message_Box_Recorder boxes;
    Playback_State state;
    Settings settings;
    Frm_Player view;
    Fake_Surroundings fakes{journal};
    QList<Track_Record>& tracks = fakes.tracks;
    Temp_Folder folder;
    Subtitle_Table subtitle_table;
    Subtitle_Table_Source subtitles{subtitle_table, settings, Test_Texts(), state, fakes, [] { return 1024; }};
    // A subtitle file of two lines, due at 00:00:05 and 00:00:07.
    QString Subtitle_File() const
    {
        return folder.Write("a.sub", "[BEGIN]\r\nx\r\n{00:00:05}\r\nHello|World\r\n{00:00:07}\r\nAgain\r\n[END]\r\n");
    }
};

class Player_Fixture : public Player_Base {
protected:
    // Makes track number current and plays it (or only opens it), then
    // clears the journal.
    void Start(int number, bool play = true);

    Fake_Media_Graph graph{journal};
    Player_Context context = Context_With(graph);
    Playback_Session session{context};
};

} // namespace Orvane::Test

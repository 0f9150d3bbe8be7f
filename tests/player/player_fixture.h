#pragma once

#include "config/settings.h"
#include "language/text_table.h"
#include "media/display_layout.h"
#include "player/frm_player.h"
#include "player/playback_session.h"
#include "player/subtitle_table_source.h"
#include "player/track_source.h"
#include "playlist/playback_state.h"
#include "playlist/playlist_window_link.h"
#include "subtitles/subtitle_display.h"
#include "subtitles/subtitle_window_control.h"
#include "support/fake_media_graph.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"
#include "ui/skin_label.h"
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
    void Show_Subtitle(const QString& one, const QString& two, int n) override
    {
        journal.Add("Show_Subtitle", shown_subtitle = one + u'|' + two, n);
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
inline const Text_Table& Test_Texts()
{
    static const Text_Table english = [] {
        Temp_Folder folder;
        QByteArray file = "0.5b\r\n\r\nFrancais;English\r\n\r\n";
        for (int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 101, 102, 103, 104, 1011, 1012, 1101, 1102})
            file += QStringLiteral("%1;%2 Francais;%2 English\r\n").arg(n, 4, 10, QLatin1Char('0')).arg(n).toUtf8();
        folder.Write("Lang.ini", file + "9999;;\r\n");  // the last line is never looked up
        Text_Table table;
        EXPECT_TRUE(table.Load_Language(folder.Path(), "English"));
        return table;
    }();
    return english;
}

// A track as the playlist fills it: /media/<title>.avi (AVI), a minute long, with associated files
// /media/<name>.wav; without a picture it is /media/<title>.wav (WAV).
inline Track_Record Video_Track(const QString& title, int streams, const QStringList& associated = {},
                                bool picture = true)
{
    std::vector<Associated_Audio_Entry> files;
    for (const QString& name : associated)
        files.push_back({QStringLiteral("/media/%1.wav").arg(name), name, "00:01:00", "WAV"});
    return {.Title = title, .Path = QStringLiteral("/media/%1.%2").arg(title, picture ? "avi" : "wav"),
            .Duration_Text = "00:01:00", .Duration = 60.0, .Picture_Size = picture ? "320x240" : "--",
            .Audio_Streams = int16_t(streams), .Has_Video = picture, .Associated_Audio = files,
            .Associated_Count = int(files.size()), .Has_Audio = streams > 0, .Shows_Picture = picture,
            .Kind = picture ? "AVI" : "WAV", .Subtitle_Path = {}, .Subtitle_Name = {}, .Subtitle_Info_1 = {},
            .Subtitle_Info_2 = {}};
}
inline Track_Record Audio_Track(const QString& title, const QStringList& associated = {})
{
    return Video_Track(title, 1, associated, false);
}

// The visible entries of the audio popup in menu order, "-" for a
// separator and "*" after a checked entry: "-,Stream audio 1*,-".
inline QString Menu_Text(const Frm_Player& player)
{
    QStringList shown;
    for (const QAction* entry : player.Mnu_Popup()->actions())
        if (entry->isVisible())
            shown.append(entry->isSeparator() ? "-" : entry->text() + (entry->isChecked() ? "*" : ""));
    return shown.join(u',');
}

// The player's logic on the real player window, a graph that plays nothing and fakes for the rest.
class Player_Fixture : public testing::Test {
protected:
    static void SetUpTestSuite() { Init_Skin_Resources(); }
    // Makes track number current and plays it (or only opens it), then clears the journal.
    void Start(int number, bool play = true)
    {
        state.Current_Track = number;
        if (play)
            session.Play_Track();
        else
            session.Open_Track_Media(tracks.at(number - 1).Path);
        ASSERT_TRUE(graph.open);
        journal.Clear();
    }
    // A subtitle file of two lines, due at 00:00:05 and 00:00:07.
    QString Subtitle_File() const
    {
        return folder.Write("a.sub", "[BEGIN]\r\nx\r\n{00:00:05}\r\nHello|World\r\n{00:00:07}\r\nAgain\r\n[END]\r\n");
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
    Fake_Media_Graph graph{journal};
    Player_Context context{state, settings, Test_Texts(), graph, view, fakes, fakes, fakes, subtitles, fakes, fakes};
    Playback_Session session{context};
};

} // namespace Orvane::Test

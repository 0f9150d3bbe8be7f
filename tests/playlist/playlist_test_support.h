#pragma once

#include "language/text_table.h"
#include "media/media_analysis.h"
#include "playlist/playback_state.h"
#include "playlist/player_hooks.h"
#include "playlist/playlist_model.h"
#include "subtitles/subtitle_table.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <memory>

namespace Orvane::Test {

// Answers from a table of made-up analyses; any other path cannot be rendered.
class Fake_Analyser : public Media_Analyser {
public:
    std::optional<Media_Analysis> Analyse_Media(const QString& path) override;
    void Add_Video(const QString& path, double seconds, int width = 320, int height = 240,
                   int16_t streams = 1, const QString& kind = QStringLiteral("AVI"));
    void Add_Audio(const QString& path, double seconds, const QString& kind = QStringLiteral("WAV"));
    void Add(const QString& path, const Media_Analysis& analysis) { analyses_[path] = analysis; }

private:
    QMap<QString, Media_Analysis> analyses_;
};

// Writes down every call as "Name(args) current=c count=n": the current track
// and the track count at the moment of the call.
class Recording_Hooks : public Player_Hooks {
public:
    explicit Recording_Hooks(const Playback_State& state) : state_(state) {}
    void Reset_Player() override { Note(QStringLiteral("Reset_Player()")); }
    void Open_First_Track(const QString& path) override { Note(QStringLiteral("Open_First_Track(%1)").arg(path)); }
    void Associated_Audio_Added(int track, int count) override
    {
        Note(QStringLiteral("Associated_Audio_Added(%1,%2)").arg(track).arg(count));
    }
    void Clear_Audio_Menus(int track) override { Note(QStringLiteral("Clear_Audio_Menus(%1)").arg(track)); }
    void Refresh_Display() override { Note(QStringLiteral("Refresh_Display()")); }
    void Associated_Audio_Removed(int track, bool was_heard) override
    {
        Note(QStringLiteral("Associated_Audio_Removed(%1,%2)").arg(track).arg(was_heard ? "heard" : "silent"));
    }

    const Playlist_Model* model = nullptr;
    QStringList calls;

private:
    void Note(const QString& call);
    const Playback_State& state_;
};

// A text table read from a small language file: text n reads "T<n>", so a
// test can tell which one was shown.
std::unique_ptr<Text_Table> Test_Texts(const QList<int>& numbers);

// Fails the calling test unless the list rows and the records agree.
void Expect_In_Step(const Playlist_Model& model);

// Everything a playlist model needs, with fakes that record what was asked.
// Every change the model announces is checked for list/array agreement.
struct Playlist_Bench {
    Playlist_Bench();
    // A subtitle file the fake reader knows; others fail to load.
    void Add_Subtitle_File(const QString& path, const Subtitle_Table& contents) { subtitle_files[path] = contents; }

    Fake_Analyser analyser;
    Playback_State state;
    Recording_Hooks hooks{state};
    Subtitle_Table subtitles;
    std::unique_ptr<Text_Table> texts;
    QMap<QString, Subtitle_Table> subtitle_files;
    QStringList subtitle_loads;
    Playlist_Model model;
    int step_checks = 0;
};

// Adds a file the way the add button does: entry number and Shift mode.
void Add_File(Playlist_Model& model, const QString& path, int entry = 1, int mode = 0);

QStringList Titles(const Playlist_Model& model);
QStringList Paths(const Playlist_Model& model);

} // namespace Orvane::Test

#pragma once

#include "language/text_table.h"
#include "media/media_analysis.h"
#include "playlist/playback_state.h"
#include "playlist/playlist_model.h"
#include "playlist/playlist_prompts.h"
#include "playlist/playlist_window_state.h"
#include "subtitles/subtitle_table.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QMap>
#include <QSize>

// Failure messages show texts as texts.
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }

namespace Orvane::Test {

// Answers from a table of made-up analyses; any other path cannot be rendered.
struct Fake_Analyser : Media_Analyser {
    // Called from the analysis threads: only const reads of the table.
    std::optional<Media_Analysis> Analyse_Media(const QString& path) override
    {
        return files.contains(path) ? std::optional(files.value(path)) : std::nullopt;
    }
    // A file with a picture of that size, or sound only when the size is empty; gives the path back.
    QString Add(const QString& path, double seconds, QSize picture = {320, 240}, int16_t streams = 1,
                const QString& kind = QStringLiteral("AVI"))
    {
        const bool video = !picture.isEmpty();
        files[path] = {.Media_Kind = kind, .Has_Splitter = video, .Has_Video = video, .Has_Audio = streams > 0,
                       .Video_Renderer_Found = video, .Audio_Streams = streams, .Duration = seconds,
                       .Width = picture.width(), .Height = picture.height()};
        return path;
    }
    QMap<QString, Media_Analysis> files;
};

// Writes down every call as "Name(args) current=c count=n": the current track
// and the track count at the moment of the call.
struct Recording_Player : Player_Link {
    void Reset_Player() override { Note("Reset_Player()"); }
    void Open_First_Track(const QString& path) override { Note("Open_First_Track(" + path + ")"); }
    void Associated_Audio_Added(int k, int n) override { Note(QString("Associated_Audio_Added(%1,%2)").arg(k).arg(n)); }
    void Clear_Audio_Menus(int track) override { Note(QString("Clear_Audio_Menus(%1)").arg(track)); }
    void Associated_Audio_Removed(int track, bool heard) override
    {
        Note(QString("Associated_Audio_Removed(%1,%2)").arg(track).arg(heard ? "heard" : "silent"));
    }
    void Note(const QString& call)
    {
        calls << call + QStringLiteral(" current=%1 count=%2").arg(state->Current_Track).arg(model->Track_Count());
    }
    const Playback_State* state = nullptr;
    const Playlist_Model* model = nullptr;
    QStringList calls;
};

// Writes down "Refuse(n)" and "Confirm(n)" and answers the questions with answer.
struct Recording_Prompts : Playlist_Prompts {
    void Refuse(int16_t text) override { calls << QStringLiteral("Refuse(%1)").arg(text); }
    bool Confirm(int16_t text) override
    {
        calls << QStringLiteral("Confirm(%1)").arg(text);
        return answer;
    }
    QStringList calls;
    bool answer = true;
};

// A text table in which each text n from 300 to 1400 reads "T<n>" ("F<n>" in French), so a test can tell
// which one was shown.
inline std::unique_ptr<Text_Table> Test_Texts(const QString& language = QStringLiteral("English"))
{
    Temp_Folder folder;
    QByteArray file = "0.5b\r\n\r\nFrancais;English\r\n\r\n";
    for (int number = 300; number <= 1400; ++number)
        file += QStringLiteral("%1;F%2;T%2\r\n").arg(number, 4, 10, QLatin1Char('0')).arg(number).toUtf8();
    folder.Write(QStringLiteral("Lang.ini"), file + "9999;never found;never found\r\n");  // never searched
    auto texts = std::make_unique<Text_Table>();
    EXPECT_TRUE(texts->Load_Language(folder.Path(), language));
    return texts;
}

// A playlist model on fakes that record what was asked; after every change the
// model announces, its list rows and its records must agree.
struct Playlist_Bench {
    Playlist_Bench()
    {
        player.state = &state;
        player.model = &model;
        model.Attach_Player(player);
        const auto check = [this] {
            ASSERT_EQ(model.rowCount(), int(model.Playlist().size()) - 1) << "list rows and records differ";
            for (int row = 0; row < model.rowCount(); ++row)
                EXPECT_EQ(model.data(model.index(row)).toString(), model.Track(row + 1).Title) << "row " << row;
        };
        QObject::connect(&model, &QAbstractItemModel::rowsInserted, check);
        QObject::connect(&model, &QAbstractItemModel::rowsRemoved, check);
        QObject::connect(&model, &QAbstractItemModel::modelReset, check);
    }
    Fake_Analyser analyser;
    Playback_State state;
    Recording_Player player;
    Subtitle_Table subtitles;
    Recording_Prompts prompts;
    std::unique_ptr<Text_Table> texts = Test_Texts();
    QMap<QString, Subtitle_Table> subtitle_files;  // what the fake reader knows; others fail
    QStringList subtitle_loads;
    Playlist_Model model{analyser, state, subtitles, prompts, [this](const QString& path) {
                             subtitle_loads << path;
                             subtitles = subtitle_files.value(path);
                             return subtitle_files.contains(path);
                         }};
    Playlist_Window_State window{model};  // what the playlist window shows of it
};

// Adds a file the way the add button does: entry number and Shift mode.
inline void Add_File(Playlist_Model& model, const QString& path, int entry = 1, int mode = 0)
{
    model.Add_Track(path, {}, false, QFileInfo(path).fileName(), int16_t(entry), int16_t(mode));
}

// One field of every track, in order.
inline QStringList Paths(const Playlist_Model& model, QString Track_Record::*field = &Track_Record::Path)
{
    QStringList values;
    for (int track = 1; track <= model.Track_Count(); ++track)
        values << model.Track(track).*field;
    return values;
}

// What the analysis put in a record: "title picture duration kind streams" and the flags
// V (Has_Video), A (Has_Audio), P (Shows_Picture), D (Disc_Change).
inline QString Summary(const Track_Record& t)
{
    const QString flags = QString(t.Has_Video ? "V" : "") + (t.Has_Audio ? "A" : "") + (t.Shows_Picture ? "P" : "");
    return QStringLiteral("%1 %2 %3 %4 %5 ").arg(t.Title, t.Picture_Size, t.Duration_Text, t.Kind).arg(t.Audio_Streams)
           + flags + (t.Disc_Change ? "D" : "");
}

} // namespace Orvane::Test

#include "playlist_test_support.h"

#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <QFileInfo>

namespace Orvane::Test {

std::optional<Media_Analysis> Fake_Analyser::Analyse_Media(const QString& path)
{
    const auto found = analyses_.constFind(path);
    if (found == analyses_.constEnd())
        return std::nullopt;
    return *found;
}

void Fake_Analyser::Add_Video(const QString& path, double seconds, int width, int height, int16_t streams,
                              const QString& kind)
{
    Media_Analysis analysis;
    analysis.Media_Kind = kind;
    analysis.Has_Splitter = true;
    analysis.Has_Video = true;
    analysis.Has_Audio = streams > 0;
    analysis.Video_Renderer_Found = true;
    analysis.Audio_Streams = streams;
    analysis.Duration = seconds;
    analysis.Width = width;
    analysis.Height = height;
    analyses_[path] = analysis;
}

void Fake_Analyser::Add_Audio(const QString& path, double seconds, const QString& kind)
{
    Media_Analysis analysis;
    analysis.Media_Kind = kind;
    analysis.Has_Audio = true;
    analysis.Audio_Streams = 1;
    analysis.Duration = seconds;
    analyses_[path] = analysis;
}

void Recording_Hooks::Note(const QString& call)
{
    calls.append(QStringLiteral("%1 current=%2 count=%3")
                     .arg(call)
                     .arg(state_.Current_Track)
                     .arg(model ? model->Track_Count() : -1));
}

std::unique_ptr<Text_Table> Test_Texts(const QList<int>& numbers)
{
    Temp_Folder folder;
    QByteArray file = "0.5b\r\n\r\nFrancais;English\r\n\r\n";
    for (int number : numbers)
        file += QStringLiteral("%1;F%2;T%2\r\n").arg(number, 4, 10, QLatin1Char('0')).arg(number).toUtf8();
    file += "9999;never found;never found\r\n";  // the last line is never searched
    folder.Write(QStringLiteral("Lang.ini"), file);
    auto texts = std::make_unique<Text_Table>();
    EXPECT_TRUE(texts->Load_Language(folder.Path(), QStringLiteral("English")));
    return texts;
}

void Expect_In_Step(const Playlist_Model& model)
{
    ASSERT_EQ(model.rowCount(), int(model.Playlist().size()) - 1) << "list rows and records differ";
    for (int row = 0; row < model.rowCount(); ++row)
        EXPECT_EQ(model.data(model.index(row)).toString(), model.Track(row + 1).Title) << "row " << row;
}

Playlist_Bench::Playlist_Bench()
    : texts(Test_Texts({1002, 1210, 1208})),
      model(analyser, state, hooks, subtitles, *texts,
            [this](const QString& path) {
                subtitle_loads.append(path);
                const auto found = subtitle_files.constFind(path);
                if (found == subtitle_files.constEnd())
                    return false;
                subtitles = *found;
                return true;
            })
{
    hooks.model = &model;
    const auto check = [this] {
        ++step_checks;
        Expect_In_Step(model);
    };
    QObject::connect(&model, &QAbstractItemModel::rowsInserted, check);
    QObject::connect(&model, &QAbstractItemModel::rowsRemoved, check);
    QObject::connect(&model, &QAbstractItemModel::modelReset, check);
    QObject::connect(&model, &QAbstractItemModel::dataChanged, check);
}

void Add_File(Playlist_Model& model, const QString& path, int entry, int mode)
{
    model.Add_Track(path, {}, false, QFileInfo(path).fileName(), int16_t(entry), int16_t(mode));
}

QStringList Titles(const Playlist_Model& model)
{
    QStringList titles;
    for (int row = 0; row < model.rowCount(); ++row)
        titles.append(model.data(model.index(row)).toString());
    return titles;
}

QStringList Paths(const Playlist_Model& model)
{
    QStringList paths;
    for (int track = 1; track <= model.Track_Count(); ++track)
        paths.append(model.Track(track).Path);
    return paths;
}

} // namespace Orvane::Test

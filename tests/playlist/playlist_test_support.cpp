#include "playlist_test_support.h"

#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <QFileInfo>

namespace Orvane::Test {

QString Fake_Analyser::Add(const QString& path, double seconds, QSize picture, int16_t streams, const QString& kind)
{
    const bool video = !picture.isEmpty();
    files[path] = {.Media_Kind = kind, .Has_Splitter = video, .Has_Video = video, .Has_Audio = streams > 0,
                   .Video_Renderer_Found = video, .Audio_Streams = streams, .Duration = seconds,
                   .Width = picture.width(), .Height = picture.height()};
    return path;
}

std::unique_ptr<Text_Table> Test_Texts(const QString& language)
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

Playlist_Bench::Playlist_Bench()
    : model(analyser, state, subtitles, prompts, [this](const QString& path) {
          subtitle_loads << path;
          subtitles = subtitle_files.value(path);
          return subtitle_files.contains(path);
      })
{
    player.state = &state;
    player.model = &model;
    model.Attach_Player(player);
    const auto check = [this] {
        ++step_checks;
        ASSERT_EQ(model.rowCount(), int(model.Playlist().size()) - 1) << "list rows and records differ";
        for (int row = 0; row < model.rowCount(); ++row)
            EXPECT_EQ(model.data(model.index(row)).toString(), model.Track(row + 1).Title) << "row " << row;
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

QStringList Paths(const Playlist_Model& model, QString Track_Record::*field)
{
    QStringList values;
    for (int track = 1; track <= model.Track_Count(); ++track)
        values << model.Track(track).*field;
    return values;
}

QString Summary(const Track_Record& t)
{
    const QString flags = QString(t.Has_Video ? "V" : "") + (t.Has_Audio ? "A" : "") + (t.Shows_Picture ? "P" : "");
    return QStringLiteral("%1 %2 %3 %4 %5 ").arg(t.Title, t.Picture_Size, t.Duration_Text, t.Kind).arg(t.Audio_Streams)
           + flags + (t.Disc_Change ? "D" : "");
}

} // namespace Orvane::Test

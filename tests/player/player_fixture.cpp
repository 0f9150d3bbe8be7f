#include "player_fixture.h"

#include "support/temp_folder.h"

namespace Orvane::Test {

int Fake_Subtitles::Find(const QString& time_text) const
{
    journal_.Add("Find_Subtitle", time_text);
    for (size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].time == QLatin1String("23:59:59"))
            return 0;
        if (entries[i].time >= time_text)  // hh:mm:ss texts sort as the times do
            return int(i + 1);
    }
    return 0;
}

void Fake_Subtitles::Set_Entries(std::vector<Entry> lines)
{
    entries = std::move(lines);
    entries.push_back({QStringLiteral("23:59:59"), QStringLiteral("Fin"), QStringLiteral("Fin")});
}

const Text_Table& Test_Texts()
{
    static const Text_Table texts = [] {
        Temp_Folder folder;
        QByteArray file = "0.5b\r\n\r\nFrancais;English\r\n\r\n";
        for (int number : {101, 102, 1011, 1012, 1101, 1102})
            file += QStringLiteral("%1;%2 Francais;%2 English\r\n").arg(number, 4, 10, QLatin1Char('0')).arg(number).toUtf8();
        // The loader never returns the file's last text line.
        file += "9999;;\r\n";
        folder.Write(QStringLiteral("Lang.ini"), file);
        Text_Table table;
        if (!table.Load_Language(folder.Path(), QStringLiteral("English")))
            ADD_FAILURE() << "the test language file was refused";
        return table;
    }();
    return texts;
}

Track_Record Video_Track(const QString& title, int streams, const QString& kind, double duration)
{
    Track_Record track;
    track.Title = title;
    track.Path = QStringLiteral("/media/%1.avi").arg(title);
    track.Duration = duration;
    track.Audio_Streams = int16_t(streams);
    track.Has_Video = true;
    track.Shows_Picture = true;
    track.Has_Audio = streams > 0;
    track.Kind = kind;
    track.Picture_Size = QStringLiteral("320x240");
    return track;
}

Track_Record Audio_Track(const QString& title, double duration)
{
    Track_Record track;
    track.Title = title;
    track.Path = QStringLiteral("/media/%1.wav").arg(title);
    track.Duration = duration;
    track.Audio_Streams = 1;
    track.Has_Audio = true;
    track.Kind = QStringLiteral("WAV");
    track.Picture_Size = QStringLiteral("--");
    return track;
}

void Add_Associated(Track_Record& track, const QString& name)
{
    track.Associated_Audio.push_back({QStringLiteral("/media/%1.wav").arg(name), name,
                                      QStringLiteral("00:01:00"), QStringLiteral("WAV")});
    track.Associated_Count = int16_t(track.Associated_Audio.size());
}

Player_Fixture::Player_Fixture()
{
    graph.Set_Media(60.0, QSize(320, 240));
}

void Player_Fixture::Open_Current(int number)
{
    state.Current_Track = int16_t(number);
    ASSERT_TRUE(session.Open_Track_Media(Track(number).Path));
    journal.Clear();
}

void Player_Fixture::Play_Current(int number)
{
    state.Current_Track = int16_t(number);
    session.Play_Track();
    ASSERT_TRUE(graph.Is_Open());
    journal.Clear();
}

} // namespace Orvane::Test

#include "player_fixture.h"

namespace Orvane::Test {

const Text_Table& Test_Texts()
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

Track_Record Video_Track(const QString& title, int streams, const QStringList& associated)
{
    Track_Record track;
    track.Title = title;
    track.Path = QStringLiteral("/media/%1.avi").arg(title);
    track.Duration = 60.0;
    track.Audio_Streams = int16_t(streams);
    track.Has_Video = track.Shows_Picture = true;
    track.Has_Audio = streams > 0;
    track.Kind = QStringLiteral("AVI");
    for (const QString& name : associated)
        track.Associated_Audio.push_back({QStringLiteral("/media/%1.wav").arg(name), name, "00:01:00", "WAV"});
    track.Associated_Count = int(associated.size());
    return track;
}

Track_Record Audio_Track(const QString& title, const QStringList& associated)
{
    Track_Record track = Video_Track(title, 1, associated);
    track.Path = QStringLiteral("/media/%1.wav").arg(title);
    track.Has_Video = track.Shows_Picture = false;
    track.Kind = QStringLiteral("WAV");
    return track;
}

QString Menu_Text(const Frm_Player& player)
{
    QStringList shown;
    for (const QAction* entry : player.Mnu_Popup()->actions())
        if (entry->isVisible())
            shown.append(entry->isSeparator() ? "-" : entry->text() + (entry->isChecked() ? "*" : ""));
    return shown.join(u',');
}

void Player_Fixture::Start(int number, bool play)
{
    state.Current_Track = number;
    if (play)
        session.Play_Track();
    else
        session.Open_Track_Media(tracks.at(number - 1).Path);
    ASSERT_TRUE(graph.open);
    journal.Clear();
}

} // namespace Orvane::Test

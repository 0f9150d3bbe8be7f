#include "player_fixture.h"

#include "player/subtitle_table_source.h"
#include "subtitles/subtitle_table.h"
#include "support/temp_folder.h"

namespace Orvane::Test {
namespace {

class Subtitle_Table_Source_Test : public testing::Test {
protected:
    Subtitle_Table_Source_Test()
    {
        settings.Subtitle_Font_Name = QStringLiteral("DejaVu Sans");
        settings.Subtitle_Font_Size = 20;
        Track_Record film = Video_Track(QStringLiteral("Film"), 1);
        film.Subtitle_Delay = 5;
        tracks.records = {film};
        state.Current_Track = 1;
    }
    QString Write_Sub(const QByteArray& body) { return folder.Write(QStringLiteral("film.sub"), body); }

    Temp_Folder folder;
    Message_Box_Recorder boxes;
    Settings settings;
    Playback_State state;
    Fake_Tracks tracks;
    Subtitle_Table table;
    Subtitle_Table_Source source{table, settings, Test_Texts(), state, tracks, [] { return 1024; }};
};

TEST_F(Subtitle_Table_Source_Test, Reads_The_File_And_Answers_With_The_Current_Tracks_Delay)
{
    const QString path = Write_Sub("[TITLE]\r\nFilm\r\n[BEGIN]\r\nignored\r\n{00:00:05}\r\nHello|World\r\n"
                                   "{00:01:00}\r\nSecond\r\n[END]\r\n");
    ASSERT_TRUE(source.Load(path));
    EXPECT_TRUE(boxes.Boxes().empty());
    EXPECT_EQ(source.Line1(1), QStringLiteral("Hello"));
    EXPECT_EQ(source.Line2(1), QStringLiteral("World"));
    EXPECT_EQ(source.Start_Time(2), QStringLiteral("00:01:00"));
    EXPECT_EQ(source.Find(QStringLiteral("00:00:06")), 2);
    EXPECT_EQ(source.Find(QStringLiteral("00:01:01")), 0);

    tracks.records[0].Subtitle_Flag = true;  // the delay is put in force
    EXPECT_EQ(source.Start_Time(2), QStringLiteral("00:01:05"));
    EXPECT_EQ(source.Find(QStringLiteral("00:00:06")), 1);
    EXPECT_EQ(source.Start_Time(4), QString()) << "past the closing record";
}

TEST_F(Subtitle_Table_Source_Test, A_Refused_File_Is_Reported_By_The_Reader)
{
    const QString path = Write_Sub("[BEGIN]\r\nignored\r\n{00:00:05}\r\nA\r\n{00:00:05}\r\nB\r\n[END]\r\n");
    EXPECT_FALSE(source.Load(path));
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_EQ(boxes.Boxes()[0].style, Box_Style::Critical_Ok);
}

} // namespace
} // namespace Orvane::Test

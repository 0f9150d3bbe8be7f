#include "player_fixture.h"

#include "player/command_line.h"
#include "player/unroll.h"
#include "support/temp_folder.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>

namespace Orvane::Test {
namespace {

TEST(Player_Unroll_Test, Thirteen_Steps_Of_20_Pixels_Then_Hands_Over)
{
    Fake_Player_View view;
    Player_Unroll unroll(view);
    unroll.Start([] {});
    EXPECT_TRUE(unroll.Timer_Display().isActive());
    EXPECT_EQ(unroll.Timer_Display().interval(), 50);
    QList<int> heights;
    for (int tick = 0; tick < 13; ++tick) {
        EXPECT_FALSE(unroll.Tick());
        heights.append(view.Window_Height);
    }
    EXPECT_EQ(heights, QList<int>({20, 40, 60, 80, 100, 120, 140, 160, 180, 200, 220, 240, 260}));
    EXPECT_EQ(unroll.Unroll_Height(), 3900);
    EXPECT_TRUE(unroll.Timer_Display().isActive());
    EXPECT_TRUE(unroll.Tick());
    EXPECT_FALSE(unroll.Timer_Display().isActive());
    EXPECT_EQ(view.Window_Height, 260);
}

TEST(Player_Unroll_Test, The_Timer_Calls_The_Command_Line_Once)
{
    Fake_Player_View view;
    Player_Unroll unroll(view);
    int handed_over = 0;
    unroll.Start([&] { ++handed_over; });
    QDeadlineTimer deadline(5000);
    while (handed_over == 0 && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    QCoreApplication::processEvents(QEventLoop::AllEvents, 120);  // no second call after the last tick
    EXPECT_EQ(handed_over, 1);
    EXPECT_EQ(view.Window_Height, 260);
}

class Command_Line_Test : public testing::Test {
protected:
    std::optional<Command_Line_Request> Parse(const QStringList& arguments)
    {
        return Parse_Command_Line(arguments, program.Path(), current.Path());
    }
    Temp_Folder program;
    Temp_Folder current;
};

TEST_F(Command_Line_Test, No_Arguments_No_Request)
{
    EXPECT_FALSE(Parse({}).has_value());
}

TEST_F(Command_Line_Test, A_Bare_Name_Is_Taken_In_The_Program_Folder_First)
{
    program.Write(QStringLiteral("both.avi"), "x");
    current.Write(QStringLiteral("both.avi"), "x");
    current.Write(QStringLiteral("here.avi"), "x");
    EXPECT_EQ(Parse({"both.avi"})->File, program.File(QStringLiteral("both.avi")));
    EXPECT_EQ(Parse({"here.avi"})->File, current.File(QStringLiteral("here.avi")));
    EXPECT_EQ(Parse({"nowhere.avi"})->File, program.File(QStringLiteral("nowhere.avi")));
}

TEST_F(Command_Line_Test, Paths_With_A_Slash_Are_Taken_As_They_Are)
{
    EXPECT_EQ(Parse({"/films/a.avi"})->File, QStringLiteral("/films/a.avi"));
    EXPECT_EQ(Parse({"films/a.avi"})->File, QDir(current.Path()).filePath(QStringLiteral("films/a.avi")));
}

TEST_F(Command_Line_Test, Playlists_By_Extension_In_Any_Case)
{
    EXPECT_TRUE(Parse({"/p/list.orx"})->Is_Playlist);
    EXPECT_TRUE(Parse({"/p/LIST.M3U"})->Is_Playlist);
    EXPECT_FALSE(Parse({"/p/film.avi"})->Is_Playlist);
    EXPECT_FALSE(Parse({"/p/m3u"})->Is_Playlist);
}

TEST_F(Command_Line_Test, A_Switch_Plays_At_Once)
{
    EXPECT_FALSE(Parse({"/p/a.avi"})->Play_Now);
    EXPECT_TRUE(Parse({"/p/a.avi", "/play"})->Play_Now);
    EXPECT_TRUE(Parse({"/p/a.avi", "/"})->Play_Now);
    EXPECT_TRUE(Parse({"/p/a.avi", "--play"})->Play_Now);
    EXPECT_FALSE(Parse({"/p/a.avi", "play"})->Play_Now);
    EXPECT_TRUE(Parse({"/p/a.avi", "extra", "/x"})->Play_Now);
}

class Command_Line_Open_Test : public Player_Fixture {
protected:
    Command_Line_Openers openers{
        [this](const QString& path) {
            journal.Add("Load_Playlist", path);
            tracks.records = {Video_Track(QStringLiteral("First"), 1), Video_Track(QStringLiteral("Second"), 1)};
            state.Current_Track = 1;
        },
        [this](const QString& path) {
            journal.Add("Add_Media", path);
            if (path.contains(QLatin1String("broken")))
                return 0;
            tracks.records.push_back(Video_Track(QStringLiteral("Added"), 1));
            if (state.Current_Track == 0)
                state.Current_Track = 1;
            return int(tracks.records.size());
        }};
};

TEST_F(Command_Line_Open_Test, Playlist_With_Switch_Plays_Its_First_Track)
{
    Open_Command_Line_File({QStringLiteral("/p/list.orx"), true, true}, openers, session);
    EXPECT_EQ(journal.calls.first(), QStringLiteral("Load_Playlist(/p/list.orx)"));
    EXPECT_EQ(graph.Opened_Path(), QStringLiteral("/media/First.avi"));
    EXPECT_TRUE(state.Is_Playing);
}

TEST_F(Command_Line_Open_Test, Media_File_Is_Added_And_Played_Only_With_The_Switch)
{
    Open_Command_Line_File({QStringLiteral("/p/film.avi"), false, false}, openers, session);
    EXPECT_EQ(journal.calls, QStringList({"Add_Media(/p/film.avi)"}));
    EXPECT_FALSE(state.Is_Playing);

    tracks.records.insert(tracks.records.begin(), Video_Track(QStringLiteral("Earlier"), 1));
    state.Current_Track = 1;
    Open_Command_Line_File({QStringLiteral("/p/film.avi"), false, true}, openers, session);
    EXPECT_EQ(state.Current_Track, 3) << "the track added is played";
    EXPECT_EQ(graph.Opened_Path(), QStringLiteral("/media/Added.avi"));
    EXPECT_TRUE(state.Is_Playing);
}

TEST_F(Command_Line_Open_Test, Nothing_Plays_When_The_File_Was_Not_Added)
{
    Open_Command_Line_File({QStringLiteral("/p/broken.avi"), false, true}, openers, session);
    EXPECT_EQ(journal.calls, QStringList({"Add_Media(/p/broken.avi)"}));
    EXPECT_FALSE(state.Is_Playing);
}

} // namespace
} // namespace Orvane::Test

#include "player_fixture.h"

#include "player/command_line.h"
#include "player/unroll.h"
#include "support/temp_folder.h"

#include <QTest>

namespace Orvane::Test {

using Startup_Test = Player_Fixture;

TEST_F(Startup_Test, The_Bar_Unrolls_In_Thirteen_Steps_Of_20_Pixels_Then_Reads_The_Command_Line_Once)
{
    Player_Unroll unroll(view);
    QList<int> heights;
    int handed_over = 0;
    QObject::connect(&unroll.Timer_Display(), &QTimer::timeout, [&] { heights.append(view.height()); });
    unroll.Start([&] { ++handed_over; });
    QTRY_VERIFY_WITH_TIMEOUT(handed_over > 0, 5000);
    EXPECT_FALSE(unroll.Timer_Display().isActive()) << "a running timer would hand over again";
    EXPECT_EQ(handed_over, 1);
    EXPECT_EQ(heights, QList<int>({20, 40, 60, 80, 100, 120, 140, 160, 180, 200, 220, 240, 260, 260}));
}

TEST_F(Startup_Test, CommandLineFileKindAndSwitch)
{
    Temp_Folder program, current;
    program.Write("both.avi", "x");
    current.Write("both.avi", "x");
    current.Write("here.avi", "x");
    const std::pair<QStringList, QString> cases[] = {  // the file, "list" for a playlist, "play" with a switch
        {{"both.avi"}, program.File("both.avi") + "//"},  // a bare name: the program's folder first
        {{"here.avi"}, current.File("here.avi") + "//"},
        {{"films/a.avi", "--play"}, current.File("films/a.avi") + "//play"},
        {{"/p/LIST.M3U", "/"}, "/p/LIST.M3U/list/play"},
        {{"/p/list.orx", "play"}, "/p/list.orx/list/"},
        {{"/p/m3u", "extra", "/x"}, "/p/m3u//play"}};
    for (const auto& [arguments, request] : cases) {
        const auto parsed = Parse_Command_Line(arguments, program.Path(), current.Path()).value();
        EXPECT_EQ(parsed.File + (parsed.Is_Playlist ? "/list/" : "//") + (parsed.Play_Now ? "play" : ""), request);
    }
    EXPECT_FALSE(Parse_Command_Line({}, program.Path(), current.Path()).has_value());

    // The openers answer later, as the batch does once its files are analysed.
    std::function<void()> answer;
    const Command_Line_Openers openers{[&](const QString&, std::function<void()> done) {
                                           answer = [this, done] {
                                               tracks = {Video_Track("First", 1)};
                                               done();
                                           };
                                       },
                                       [&](const QString& path, std::function<void(int)> done) {
                                           answer = [this, path, done] {  // "broken" files are not added
                                               tracks.append(Video_Track(path.section('/', -1, -1), 1));
                                               done(path.contains("broken") ? 0 : int(tracks.size()));
                                           };
                                       }};
    for (const auto& request : {Command_Line_Request{"/p/broken", false, true}, {"/p/film", false, false}}) {
        Open_Command_Line_File(request, openers, session);
        answer();
    }
    EXPECT_FALSE(graph.open) << "nothing to play, or no switch";
    Open_Command_Line_File({"/p/film", false, true}, openers, session);
    EXPECT_FALSE(graph.open) << "nothing is played before the file is in";
    answer();
    EXPECT_EQ(graph.opened_path, "/media/film.avi");
    EXPECT_EQ(state.Current_Track, 3);
    Open_Command_Line_File({"/p/list.orx", true, true}, openers, session);
    answer();
    EXPECT_EQ(graph.opened_path, "/media/First.avi");
}

} // namespace Orvane::Test

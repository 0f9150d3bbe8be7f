// The whole program on real generated media: start-up, the command line,
// playing through the keys, the tick, the end of a track, the audio menu,
// subtitles and the language, as a person would drive it.
#include "base/time_text.h"
#include "config/config_language_list.h"
#include "config/frm_config.h"
#include "player/playback_session.h"
#include "player/player_controls.h"
#include "playlist/frm_playlist.h"
#include "playlist/playlist_model.h"
#include "playlist/playlist_window_batch.h"
#include "program_fixture.h"
#include "subtitles/frm_subtitle.h"
#include "ui/dialog_scripted_provider.h"
#include "ui/picture_button.h"
#include "ui/skin_label.h"

#include <QSignalSpy>
#include <QTimer>

#include <sys/stat.h>

namespace Orvane {
namespace {

using Orvane::Test::M3u;
using Orvane::Test::Media;

using Program_Test = Orvane::Test::Program_Fixture;

TEST_F(Program_Test, ADamagedConfigurationEndsTheStartBeforeAnyWindowIsShown)
{
    folder.Write("orvan.ini", "< Orvane >\r\n");
    Program program(folder.Path());
    EXPECT_FALSE(program.Start({}));
    EXPECT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_FALSE(program.Player_Window().isVisible());
}

// A pipe nobody writes to would hold a blocking open for ever: the window
// must unroll and the batch finish all the same.
TEST_F(Program_Test, ANamedPipeOnTheCommandLineLeavesTheWindowAnsweringAndAddsNothing)
{
    const QString pipe = folder.File("pipe.avi");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    Program program(folder.Path());
    QSignalSpy finished(&program.Playlist_Window().Batch(), &Playlist_Window_Batch::Finished);
    ASSERT_TRUE(program.Start({pipe, QStringLiteral("/play")}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return finished.count() == 1; }, 10000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.Player_Window().height() == 260; }, 5000)) << "unrolled";
    EXPECT_EQ(program.Model().Track_Count(), 0);
    EXPECT_TRUE(boxes.Boxes().empty()) << Last_Box();
}

// The first file has three audio streams; its header says 4 s but only 2 s
// play: its end of stream, not the analysed duration, moves on to the next.
TEST_F(Program_Test, AFileNamedWithTheSwitchPlaysItsStreamOfChoiceAndItsEndAdvancesToTheNext)
{
    const QString playlist = folder.Write("cut.m3u", M3u({{"Cut", Media().Half_Avi}, {"Whole", Media().Wav}}, 4));
    Program program(folder.Path());
    Start_Unrolled(program, {playlist, QStringLiteral("--play")});
    ASSERT_EQ(program.Model().Track_Count(), 2);
    ASSERT_GT(program.Model().Track(1).Duration, 3.5);
    EXPECT_EQ(program.State().Current_Track, 1);
    EXPECT_EQ(program.Player_Window().Title_Text(), "Cut");
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.Player_Window().Time_Text() == "00:00:01"; }, 4000));

    program.Controls().Gestion_KeyPress(' ');
    EXPECT_FALSE(program.State().Is_Playing);
    program.Session().Menus().Choose_Stream(3);
    EXPECT_EQ(program.State().Audio_Choice.Number(), 3);
    EXPECT_EQ(program.Graph().Heard_Stream(), 3);
    EXPECT_TRUE(program.State().Is_Playing);

    ASSERT_TRUE(QTest::qWaitFor([&] { return program.State().Current_Track == 2; }, 8000));
    EXPECT_TRUE(program.State().Is_Playing);
    EXPECT_EQ(program.Player_Window().Title_Text(), "Whole");
    EXPECT_TRUE(boxes.Boxes().empty()) << Last_Box();
}

TEST_F(Program_Test, TheSubtitleButtonShowsTheLinesAtTheirTimeInTheFontChosen)
{
    const QString subtitles = folder.Write("film.sub", Orvane::Test::One_Subtitle("Premier|sous-titre"));
    folder.Write("film.orx", Orvane::Test::Orx_Track("Film", Media().Avi_One_Stream, subtitles));
    Scripted_Dialog_Provider dialogs;
    Program program(folder.Path(), &dialogs);
    Start_Unrolled(program, {folder.File("film.orx"), QStringLiteral("/play")});
    ASSERT_TRUE(program.State().Subtitles_Loaded);

    program.Controls().Button_Click(Button_Subtitles);
    Frm_Subtitle& window = program.Subtitle_Window();
    EXPECT_TRUE(window.isVisible());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !window.Shape().isEmpty(); }, 4000));
    EXPECT_EQ(program.Player_Window().Time_Text(), "00:00:01");
    // The empty entry at 00:00:02 clears the window again.
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.Shape().isEmpty(); }, 4000));

    // A larger font chosen in the configuration window reaches the shown window.
    const int height = window.height();
    dialogs.Queue_Font(Font_Choice{"DejaVu Sans", 40});
    program.Controls().Button_Click(Button_Configuration);
    program.Config_Window()->Lbl_ST()->Press();
    program.Config_Window()->Button_Released(0);
    EXPECT_GT(window.height(), height);
    program.Controls().Button_Click(Button_Subtitles);
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(boxes.Boxes().empty()) << Last_Box();
}

// The MP3 states no length (its parser would only estimate it, later): the
// remaining time counts down from its analysed length from the first tick.
TEST_F(Program_Test, RemainingTimeAfterNextCountsDownFromTheNewTracksLength)
{
    QStringList shown;  // the time display after each tick of the second track
    Program program(folder.Path());
    Start_Unrolled(program, {folder.Write("two.m3u", M3u({{"First", Media().Wav}, {"Second", Media().Mp3}})),
                             QStringLiteral("/play")});
    QObject::connect(&program.Session().Timer(), &QTimer::timeout, &program.Session().Timer(), [&] {
        if (program.State().Current_Track == 2)
            shown.append(program.Player_Window().Time_Text());
    });
    program.Session().Display().Toggle_Time_Mode();
    program.Controls().Gestion_KeyPress('6');
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown.size() >= 4; }, 5000));
    int previous = int(std::lround(program.Model().Track(2).Duration));
    for (const QString& text : shown) {
        const int seconds = Parse_Time_Text(text).value_or(-1);
        EXPECT_TRUE(seconds >= 0 && seconds <= previous) << shown.join(u' ').toStdString();
        previous = seconds;
    }
}

// The player's and the playlist's captions in the new language.
TEST_F(Program_Test, TheConfigurationWindowSwitchesEveryWindowToEnglishAndSavesIt)
{
    Program program(folder.Path());
    ASSERT_TRUE(program.Start({}));
    ASSERT_EQ(program.Player_Window().Img_Btn(1)->toolTip(), "Lecture");

    program.Controls().Button_Click(Button_Configuration);
    ASSERT_NE(program.Config_Window(), nullptr);
    program.Config_Window()->Languages().Name_Label(1)->Press();  // "English"
    program.Config_Window()->Button_Released(0);

    EXPECT_EQ(program.Player_Window().Img_Btn(1)->toolTip(), "Play");
    EXPECT_EQ(program.Playlist_Window().findChild<Skin_Label*>("Lbl_Duree")->text(), "Duration:");
    EXPECT_TRUE(folder.Read("orvan.ini").contains("[LANGUE]\r\nEnglish\r\n")) << "the save option is on";
}

} // namespace
} // namespace Orvane

// The whole program on real generated media: start-up, the command line,
// playing through the keys, the tick, the end of a track, the audio menu and
// quitting, as a person would drive it.
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

#include <QFile>
#include <QSignalSpy>
#include <QTimer>

#include <sys/stat.h>

namespace Orvane {
namespace {

using Orvane::Test::M3u;
using Orvane::Test::Media;

class Program_Test : public Orvane::Test::Program_Fixture {
protected:
    // Starts the program on a file to play at once and waits for it to play.
    void Start_Playing(Program& program, const QStringList& arguments)
    {
        Start_Unrolled(program, arguments);
        ASSERT_TRUE(QTest::qWaitFor([&] { return program.State().Is_Playing; }, 5000));
    }
    QString Two_Tracks() { return folder.Write("two.m3u", M3u({{"First", Media().Wav}, {"Second", Media().Mp3}})); }
};

TEST_F(Program_Test, ADamagedConfigurationEndsTheStartBeforeAnyWindowIsShown)
{
    folder.Write("orvan.ini", "< Orvane >\r\n");
    Program program(folder.Path());
    EXPECT_FALSE(program.Start({}));
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_FALSE(program.Player_Window().isVisible());
}

TEST_F(Program_Test, AFileNamedWithTheSwitchPlaysAndTheTickAdvancesTheTime)
{
    Program program(folder.Path());
    Start_Playing(program, {Media().Avi_Three_Streams, QStringLiteral("/play")});
    ASSERT_EQ(program.Model().Track_Count(), 1);
    EXPECT_EQ(program.State().Current_Track, 1);
    EXPECT_EQ(program.Player_Window().Title_Text(), program.Model().Track(1).Title);
    ASSERT_TRUE(QTest::qWaitFor([&] { return program.Player_Window().Time_Text() == "00:00:02"; }, 4000));

    // Space pauses; the timer keeps running on the frozen position.
    program.Controls().Gestion_KeyPress(' ');
    EXPECT_FALSE(program.State().Is_Playing);
    EXPECT_TRUE(program.Session().Timer().isActive());

    // The audio menu switches the stream heard.
    program.Session().Menus().Choose_Stream(3);
    EXPECT_EQ(program.State().Audio_Choice.Number(), 3);
    EXPECT_EQ(program.Graph().Heard_Stream(), 3);
    EXPECT_TRUE(program.State().Is_Playing);
    EXPECT_TRUE(boxes.Boxes().empty()) << Last_Box();
}

// A pipe nobody writes to would hold a blocking open for ever: the window
// must unroll and the batch finish all the same.
TEST_F(Program_Test, ANamedPipeOnTheCommandLineLeavesTheWindowAnsweringAndAddsNothing)
{
    const QString pipe = folder.File("pipe.avi");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    Program program(folder.Path());
    QSignalSpy finished(&program.Playlist_Window().Batch(), &Playlist_Window_Batch::Finished);
    Start_Unrolled(program, {pipe, QStringLiteral("/play")});
    ASSERT_TRUE(QTest::qWaitFor([&] { return finished.count() == 1; }, 10000));
    EXPECT_EQ(program.Model().Track_Count(), 0);
    EXPECT_FALSE(program.State().Is_Playing);
    EXPECT_TRUE(boxes.Boxes().empty()) << Last_Box();
}

TEST_F(Program_Test, TheEndOfATrackAdvancesAndQuittingWritesTheVolumeInUse)
{
    Program program(folder.Path());
    Start_Playing(program, {Two_Tracks(), QStringLiteral("--play")});
    ASSERT_EQ(program.Model().Track_Count(), 2);
    EXPECT_EQ(program.State().Current_Track, 1);

    ASSERT_TRUE(QTest::qWaitFor([&] { return program.State().Current_Track == 2; }, 6000));
    EXPECT_TRUE(program.State().Is_Playing);
    EXPECT_EQ(program.Player_Window().Title_Text(), "Second");

    program.Controls().Gestion_KeyPress('8');
    program.Controls().Gestion_KeyPress('8');
    EXPECT_EQ(program.State().Volume_Level, 5);
    program.Controls().Quit();
    EXPECT_FALSE(program.Graph().Is_Open());
    EXPECT_EQ(Saved_Volume_Line(), " 5 \r");
}

TEST_F(Program_Test, TheSubtitleButtonShowsTheLinesAtTheirTimeOverThePicture)
{
    const QString subtitles = folder.Write("film.sub", Orvane::Test::One_Subtitle("Premier|sous-titre"));
    folder.Write("film.orx", Orvane::Test::Orx_Track("Film", Media().Avi_One_Stream, subtitles));
    Scripted_Dialog_Provider dialogs;
    Program program(folder.Path(), &dialogs);
    Start_Playing(program, {folder.File("film.orx"), QStringLiteral("/play")});
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

TEST_F(Program_Test, AFileThatEndsBeforeItsAnalysedDurationStillAdvances)
{
    const QString playlist =
        folder.Write("cut.m3u", M3u({{"Cut", Media().Half_Avi}, {"Whole", Media().Wav}}, 4));
    Program program(folder.Path());
    Start_Playing(program, {playlist, QStringLiteral("/play")});
    ASSERT_EQ(program.Model().Track_Count(), 2);
    ASSERT_GT(program.Model().Track(1).Duration, 3.5) << "the header's length, twice what plays";

    ASSERT_TRUE(QTest::qWaitFor([&] { return program.State().Current_Track == 2; }, 8000));
    EXPECT_TRUE(program.State().Is_Playing);
    EXPECT_EQ(program.Player_Window().Title_Text(), "Whole");
    EXPECT_TRUE(boxes.Boxes().empty()) << Last_Box();
}

TEST_F(Program_Test, RemainingTimeAfterNextCountsDownFromTheNewTracksLength)
{
    // The MP3 states no length: its parser would only estimate it, later.
    QStringList shown;  // the time display after each tick of the second track
    Program program(folder.Path());
    Start_Playing(program, {Two_Tracks(), QStringLiteral("/play")});
    QObject::connect(&program.Session().Timer(), &QTimer::timeout, &program.Session().Timer(), [&] {
        if (program.State().Current_Track == 2)
            shown.append(program.Player_Window().Time_Text());
    });
    program.Session().Display().Toggle_Time_Mode();
    program.Controls().Gestion_KeyPress('6');
    ASSERT_EQ(program.State().Current_Track, 2);

    ASSERT_TRUE(QTest::qWaitFor([&] { return shown.size() >= 4; }, 5000));
    int previous = int(std::lround(program.Model().Track(2).Duration));
    for (const QString& text : shown) {
        const int seconds = Parse_Time_Text(text).value_or(-1);
        EXPECT_GE(seconds, 0) << text.toStdString();
        EXPECT_LE(seconds, previous) << shown.join(u' ').toStdString();
        previous = seconds;
    }
}

TEST_F(Program_Test, APlaylistWhoseSubtitleFileIsDamagedKeepsItsTrackAndSaysWhy)
{
    const QString subtitles =
        folder.Write("bad.sub", "[TITLE]\r\nFilm\r\n[BEGIN]\r\n***\r\n[00:00:05]\r\nB\r\n[00:00:01]\r\nA\r\n[END]\r\n");
    folder.Write("film.orx", Orvane::Test::Orx_Track("Film", Media().Avi_One_Stream, subtitles));
    Program program(folder.Path());
    ASSERT_TRUE(program.Start({folder.File("film.orx")}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return program.Model().Track_Count() == 1; }, 5000));
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_TRUE(boxes.Last_Text().contains("00:00:01")) << Last_Box();
}

// Each window shows one of its captions in the new language.
TEST_F(Program_Test, TheGearButtonsWindowSwitchesEveryWindowToEnglishAndSavesIt)
{
    Program program(folder.Path());
    ASSERT_TRUE(program.Start({}));
    ASSERT_EQ(program.Player_Window().Img_Btn(1)->toolTip(), "Lecture");

    program.Controls().Button_Click(Button_Configuration);
    Frm_Config* window = program.Config_Window();
    ASSERT_NE(window, nullptr);
    window->Languages().Name_Label(1)->Press();  // "English"
    window->Button_Released(0);

    EXPECT_EQ(program.Current_Settings().Language_Name, "English");
    EXPECT_EQ(program.Player_Window().Img_Btn(1)->toolTip(), "Play");
    EXPECT_EQ(program.Playlist_Window().findChild<Skin_Label*>("Lbl_Duree")->text(), "Duration:");
    ASSERT_TRUE(QTest::qWaitFor([&] { return program.Config_Window() == nullptr; }, 2000)) << "unloaded";
    program.Controls().Button_Click(Button_Configuration);
    EXPECT_EQ(program.Config_Window()->windowTitle(), "Settings");
    EXPECT_TRUE(folder.Read("orvan.ini").contains("[LANGUE]\r\nEnglish\r\n")) << "the save option is on";
}

} // namespace
} // namespace Orvane

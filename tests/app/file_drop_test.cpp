// Files dragged from a file manager onto the windows, as synthesized drop
// events, and a playlist's relative entries found from its own folder.
#include "app/file_drop.h"
#include "playlist/frm_playlist.h"
#include "playlist/playlist_model.h"
#include "playlist/playlist_window_batch.h"
#include "program_fixture.h"
#include "subtitles/frm_display.h"

#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace Orvane {
namespace {

using Orvane::Test::Media;

class File_Drop_Test : public Orvane::Test::Program_Fixture {
protected:
    void TearDown() override { QDir::setCurrent(start_directory); }

    // Drags the files over a window and drops them; whether it was taken.
    bool Drop(QWidget& window, const QStringList& files)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& file : files)
            urls << QUrl::fromLocalFile(file);
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &drop);
        return drop.isAccepted();
    }

    const QString start_directory = QDir::currentPath();
    Program program{folder.Path()};
    File_Drop drops{program};
};

// On the playlist, files are added as its buttons add them; on the player
// or the display they are opened and the first plays.
TEST_F(File_Drop_Test, MediaAndPlaylistsDroppedAreAddedOrPlayedByTheWindowTheyFallOn)
{
    Start_Unrolled(program, {});
    EXPECT_FALSE(Drop(program.Player_Window(), {folder.Path()})) << "a folder is no file";
    ASSERT_TRUE(Drop(program.Playlist_Window(), {Media().Wav, Media().Mp3, folder.Path()}));
    EXPECT_FALSE(Drop(program.Player_Window(), {Media().Wav})) << "refused, not lost, while adding";
    ASSERT_TRUE(QTest::qWaitFor([&] { return !program.Playlist_Window().Batch().Is_Busy(); }, 10000));
    ASSERT_EQ(program.Model().Track_Count(), 2);
    EXPECT_EQ(program.Model().Track(2).Path, Media().Mp3);
    EXPECT_FALSE(program.State().Is_Playing) << "adding plays nothing";

    // A playlist's relative entries are found beside it, wherever the program runs.
    QDir(folder.Path()).mkdir("music");
    QFile::copy(Media().Wav, folder.File("music/song.wav"));
    folder.Write("music/list.m3u", Orvane::Test::M3u({{"Song", "song.wav"}}));
    QDir::setCurrent(QDir::tempPath());
    ASSERT_TRUE(Drop(program.Playlist_Window(), {folder.File("music/list.m3u")}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return program.Model().Track_Count() == 1; }, 10000)) << "it replaces";
    EXPECT_EQ(QFileInfo(program.Model().Track(1).Path).canonicalFilePath(),
              QFileInfo(folder.File("music/song.wav")).canonicalFilePath());

    ASSERT_TRUE(Drop(program.Player_Window(), {Media().Mp3}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.State().Current_Track == 2; }, 5000));
    EXPECT_TRUE(program.State().Is_Playing);
    ASSERT_TRUE(Drop(program.Display_Window(), {Media().Wav}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.State().Current_Track == 3; }, 5000));
    EXPECT_TRUE(boxes.Boxes().empty()) << Last_Box();
}

// A subtitle file belongs to the selected track; on the audio tab a sound is
// associated with it, as the tab's button does.
TEST_F(File_Drop_Test, SubtitlesAndSoundsDroppedGoToTheSelectedTrack)
{
    folder.Write("film.sub", Orvane::Test::One_Subtitle("Ligne"));
    Start_Unrolled(program, {Media().Avi_One_Stream});
    ASSERT_TRUE(QTest::qWaitFor([&] { return program.Model().Track_Count() == 1; }, 5000));
    ASSERT_EQ(program.Playlist_Window().Window_State().Selected_Track(), 1);
    ASSERT_TRUE(Drop(program.Player_Window(), {folder.File("film.sub")}));
    EXPECT_EQ(program.Model().Track(1).Subtitle_Path, folder.File("film.sub"));

    program.Playlist_Window().Show_Tab(Frm_PlayList::Tab_Audio);
    ASSERT_TRUE(Drop(program.Playlist_Window(), {Media().Associated_Wav}));
    EXPECT_EQ(program.Model().Track(1).Associated_Count, 1);
    EXPECT_EQ(program.Model().Track_Count(), 1) << "associated, not added";
    EXPECT_TRUE(boxes.Boxes().empty()) << Last_Box();
}

} // namespace
} // namespace Orvane

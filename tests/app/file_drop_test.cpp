// Files dragged from a file manager onto the windows, as synthesized drop
// events, and a playlist's relative entries found from its own folder.
#include "app/file_drop.h"
#include "playlist/frm_playlist.h"
#include "playlist/playlist_model.h"
#include "playlist/playlist_window_batch.h"
#include "playlist/track.h"
#include "program_fixture.h"
#include "subtitles/frm_display.h"

#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

namespace Orvane {
namespace {

using Orvane::Test::Media;

class File_Drop_Test : public Orvane::Test::Program_Fixture {
protected:
    void TearDown() override { QDir::setCurrent(start_directory); }

    void Start(const QStringList& arguments = {})
    {
        Start_Unrolled(program, arguments);
        // A file named is opened once the bar has unrolled.
        if (!arguments.isEmpty()) {
            ASSERT_TRUE(QTest::qWaitFor([&] { return program.Model().Track_Count() >= 1; }, 5000));
        }
    }
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
    bool Batch_Done()
    {
        return QTest::qWaitFor([&] { return !program.Playlist_Window().Batch().Is_Busy(); }, 10000);
    }

    const QString start_directory = QDir::currentPath();
    Program program{folder.Path()};
    File_Drop drops{program};
};

TEST_F(File_Drop_Test, MediaDroppedOnThePlaylistAreAddedAsTheAddButtonAdds)
{
    Start();
    ASSERT_TRUE(Drop(program.Playlist_Window(), {Media().Wav, Media().Mp3, folder.Path()}));
    ASSERT_TRUE(Batch_Done());
    ASSERT_EQ(program.Model().Track_Count(), 2) << "the folder is no file";
    EXPECT_EQ(program.Model().Track(2).Path, Media().Mp3);
    EXPECT_FALSE(program.State().Is_Playing) << "adding plays nothing";
}

TEST_F(File_Drop_Test, NothingButLocalFilesIsTaken)
{
    Start();
    EXPECT_FALSE(Drop(program.Player_Window(), {folder.Path()}));
    EXPECT_EQ(program.Model().Track_Count(), 0);
}

TEST_F(File_Drop_Test, AFileDroppedOnThePlayerOrTheDisplayPlays)
{
    Start();
    ASSERT_TRUE(Drop(program.Player_Window(), {Media().Mp3}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.State().Is_Playing; }, 5000));
    ASSERT_TRUE(Drop(program.Display_Window(), {Media().Wav}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.State().Current_Track == 2; }, 5000));
    EXPECT_TRUE(boxes.Boxes().empty()) << Last_Box();
}

TEST_F(File_Drop_Test, APlaylistDroppedIsLoadedWithItsRelativeEntriesFromItsFolder)
{
    QDir(folder.Path()).mkdir("music");
    QFile::copy(Media().Wav, folder.File("music/song.wav"));
    folder.Write("music/list.m3u", Orvane::Test::M3u({{"Song", "song.wav"}}));
    Start();
    QDir::setCurrent(QDir::tempPath());
    ASSERT_TRUE(Drop(program.Playlist_Window(), {folder.File("music/list.m3u")}));
    ASSERT_TRUE(Batch_Done());
    ASSERT_EQ(program.Model().Track_Count(), 1);
    EXPECT_EQ(QFileInfo(program.Model().Track(1).Path).canonicalFilePath(),
              QFileInfo(folder.File("music/song.wav")).canonicalFilePath());
}

TEST_F(File_Drop_Test, ASubtitleDroppedBelongsToTheSelectedTrack)
{
    folder.Write("film.sub", Orvane::Test::One_Subtitle("Ligne"));
    Start({Media().Avi_One_Stream});
    ASSERT_EQ(program.Playlist_Window().Window_State().Selected_Track(), 1);
    ASSERT_TRUE(Drop(program.Player_Window(), {folder.File("film.sub")}));
    EXPECT_EQ(program.Model().Track(1).Subtitle_Path, folder.File("film.sub"));
}

TEST_F(File_Drop_Test, OnTheAudioTabSoundIsAssociatedAndAPictureRefused)
{
    Start({Media().Avi_One_Stream});
    program.Playlist_Window().Show_Tab(Frm_PlayList::Tab_Audio);
    ASSERT_TRUE(Drop(program.Playlist_Window(), {Media().Associated_Wav}));
    EXPECT_EQ(program.Model().Track(1).Associated_Count, 1);
    EXPECT_EQ(program.Model().Track_Count(), 1) << "associated, not added";

    // Associating with the current track plays it anew, which brings the track list forward.
    program.Playlist_Window().Show_Tab(Frm_PlayList::Tab_Audio);
    ASSERT_TRUE(Drop(program.Playlist_Window(), {Media().Avi_Three_Streams}));
    EXPECT_EQ(program.Model().Track(1).Associated_Count, 1);
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_EQ(boxes.Last_Text(), program.Texts().Get_Text(1210));
}

} // namespace
} // namespace Orvane

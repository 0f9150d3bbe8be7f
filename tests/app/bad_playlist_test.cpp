// A playlist of fifty damaged and hostile files, as a user gets from a bad
// disc or a half-finished download: loading it neither blocks nor stops
// short, a file that cannot be played is left out, the good track after them
// all is added and plays, and Cancel ends the load at once.
#include "player/playback_session.h"
#include "playlist/frm_playlist.h"
#include "playlist/playlist_model.h"
#include "playlist/playlist_window_batch.h"
#include "program_fixture.h"
#include "support/damaged_media.h"
#include "support/hostile_files.h"

#include <QDir>
#include <QSignalSpy>

namespace Orvane {
namespace {

namespace Support = Orvane::Test;

constexpr int Bad_Files = 50;
constexpr qint64 Two_Gigabytes = qint64(2) << 30;

// The n-th bad file of the list, made in folder; empty when it could not be made.
QString Make_Bad_File(const Support::Temp_Folder& folder, int n)
{
    const QString good = Support::Media().Avi_Three_Streams;
    const QString path = folder.File(QStringLiteral("bad %1.avi").arg(n));
    bool made = false;
    switch (n % 9) {
    case 0: made = Support::Write_Truncated(good, path, 0.10); break;
    case 1: made = Support::Write_Truncated(good, path, 0.50); break;
    case 2: made = Support::Write_Byte_Flipped(good, path); break;
    case 3: made = Support::Write_Truncated(good, path, 0.0); break;
    case 4: made = Support::Write_Avi_Promising_Streams(good, path, 100); break;
    case 5: made = QFile::copy(Support::Media().Not_Media, path); break;
    case 6: made = Support::Make_Named_Pipe(path); break;
    case 7: made = QDir().mkdir(path); break;
    default: made = Support::Make_Sparse_File(path, Two_Gigabytes); break;
    }
    return made ? path : QString();
}

class Bad_Playlist : public Support::Program_Fixture {
protected:
    void SetUp() override
    {
        QString list = QStringLiteral("#EXTM3U\r\n");
        for (int n = 1; n <= Bad_Files; ++n) {
            const QString bad = Make_Bad_File(folder, n);
            ASSERT_FALSE(bad.isEmpty()) << "could not make bad file " << n;
            list += QStringLiteral("#EXTINF:4,Bad %1\r\n%2\r\n").arg(n).arg(bad);
        }
        list += QStringLiteral("#EXTINF:3,Good\r\n") + Support::Media().Wav + QStringLiteral("\r\n");
        playlist = folder.Write("bad.m3u", list.toUtf8());
    }

    // Starts the program and the load of the bad playlist.
    void Start_Loading()
    {
        ASSERT_TRUE(program.Start({}));
        batch.Load(playlist, program.Current_Settings(), program.Texts());
    }
    bool Last_Track_Is_The_Good_One()
    {
        const Playlist_Model& model = program.Model();
        return model.Track_Count() > 0 && model.Track(model.Track_Count()).Path == Support::Media().Wav;
    }

    QString playlist;
    Program program{folder.Path()};
    Playlist_Window_Batch& batch = program.Playlist_Window().Batch();
    QSignalSpy progress{&batch, &Playlist_Window_Batch::Progress};
};

TEST_F(Bad_Playlist, LoadsToTheGoodTrackAfterThemAllWhichThenPlays)
{
    Start_Loading();
    QTRY_VERIFY_WITH_TIMEOUT(!batch.Is_Busy(), 100000);
    ASSERT_TRUE(Last_Track_Is_The_Good_One());
    EXPECT_EQ(progress.size() > 0 ? progress.last().at(0).toInt() : 0, Bad_Files + 1) << "progress stopped short";

    program.Session().Play_Track_Number(program.Model().Track_Count());
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.State().Is_Playing && program.Graph().Is_Open(); }, 10000));
}

TEST_F(Bad_Playlist, CancelEndsTheLoadWithoutTheRest)
{
    Start_Loading();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !progress.isEmpty(); }, 20000)) << "no progress";
    batch.Cancel();
    QTRY_VERIFY_WITH_TIMEOUT(!batch.Is_Busy(), 5000);
    EXPECT_FALSE(Last_Track_Is_The_Good_One());
}

} // namespace
} // namespace Orvane

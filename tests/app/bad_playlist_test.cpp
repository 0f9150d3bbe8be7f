// Damaged and hostile media, as a user gets them from a bad disc or a
// half-finished download. A playlist of fifty of them neither blocks nor
// stops short: each file that cannot be played is left out, the good track
// after them all is added and plays. A track that fails while it plays
// leaves the player stopped with one message.
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
    default: made = Support::Make_Sparse_File(path, qint64(2) << 30); break;
    }
    return made ? path : QString();
}

using Bad_Playlist = Support::Program_Fixture;

TEST_F(Bad_Playlist, LoadsToTheGoodTrackAfterThemAllWhichThenPlays)
{
    std::vector<std::pair<QString, QString>> entries;
    for (int n = 1; n <= Bad_Files; ++n) {
        const QString bad = Make_Bad_File(folder, n);
        ASSERT_FALSE(bad.isEmpty()) << "could not make bad file " << n;
        entries.emplace_back(QStringLiteral("Bad %1").arg(n), bad);
    }
    entries.emplace_back(QStringLiteral("Good"), Support::Media().Wav);
    Program program(folder.Path());
    ASSERT_TRUE(program.Start({}));
    Playlist_Window_Batch& batch = program.Playlist_Window().Batch();
    QSignalSpy progress(&batch, &Playlist_Window_Batch::Progress);
    batch.Load(folder.Write("bad.m3u", Support::M3u(entries)), program.Current_Settings(), program.Texts());

    QTRY_VERIFY_WITH_TIMEOUT(!batch.Is_Busy(), 100000);
    EXPECT_EQ(progress.size() > 0 ? progress.last().at(0).toInt() : 0, Bad_Files + 1) << "progress stopped short";
    const int last = program.Model().Track_Count();
    ASSERT_GT(last, 0);
    ASSERT_EQ(program.Model().Track(last).Path, Support::Media().Wav);
    program.Session().Play_Track_Number(last);
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.State().Is_Playing && program.Graph().Is_Open(); }, 10000));
}

using Played_Damage = Support::Program_Fixture;

// Damaged files that GStreamer takes on play as far as they go, and the next
// track follows without a word. Since GStreamer plays past the damage of
// every file above (or refuses it when added), a failure while playing comes
// from the output breaking down after a few buffers: its error reaches the
// program from the running pipeline as a file's would.
TEST_F(Played_Damage, AfterPlayingOnOrFailingWithOneMessageTheNextTrackPlays)
{
    const QString cut = folder.File("cut.avi"), odd = folder.File("odd.avi");
    ASSERT_TRUE(Support::Write_Truncated(Support::Media().Avi_Three_Streams, cut, 0.10));
    ASSERT_TRUE(Support::Write_Avi_Promising_Streams(Support::Media().Avi_Three_Streams, odd, 100));
    const QString playlist =
        folder.Write("list.m3u", Support::M3u({{"Cut", cut}, {"Odd", odd}, {"Good", Support::Media().Wav}}));
    Program program(folder.Path());
    Start_Unrolled(program, {playlist, QStringLiteral("/play")});
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.State().Current_Track == 3; }, 15000));
    EXPECT_TRUE(program.State().Is_Playing);
    EXPECT_TRUE(boxes.Boxes().empty()) << Last_Box();

    const QByteArray sink = qgetenv("ORVANE_AUDIO_SINK");
    qputenv("ORVANE_AUDIO_SINK", "identity error-after=20 ! fakesink sync=true");
    program.Session().Play_Track_Number(2);
    EXPECT_TRUE(program.State().Is_Playing) << "it opened and plays before it fails";
    const bool failed = QTest::qWaitFor([&] { return !boxes.Boxes().empty(); }, 10000);
    qputenv("ORVANE_AUDIO_SINK", sink);
    ASSERT_TRUE(failed);
    EXPECT_FALSE(program.State().Is_Playing);
    EXPECT_FALSE(program.Graph().Is_Open());

    program.Session().Play_Track_Number(3);
    EXPECT_TRUE(QTest::qWaitFor([&] { return program.Player_Window().Time_Text() == "00:00:01"; }, 5000));
    EXPECT_EQ(boxes.Boxes().size(), 1u) << Last_Box();
}

} // namespace
} // namespace Orvane

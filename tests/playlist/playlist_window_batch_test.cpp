// Adding files while their analyses run on worker threads: the playlist
// comes out as if each file had been analysed in turn, whatever order the
// answers arrive in. (A file that never answers is the analysis pool's
// tests' concern; damaged real files through the batch the program's.)
#include "config/settings.h"
#include "media/analysis_pool.h"
#include "playlist/playlist_window_batch.h"
#include "playlist_test_support.h"
#include "support/gated_analyser.h"
#include "support/playlist_text.h"

#include <QTest>

namespace Orvane::Test {
namespace {

// A bench whose batch asks the gated analyser, with that many workers.
struct Gated_Bench : Playlist_Bench {
    explicit Gated_Bench(int workers)
    {
        batch.Use_Analyser(gated);
        batch.Pool().Set_Workers(workers);
    }
    std::shared_ptr<Gated_Analyser> gated = std::make_shared<Gated_Analyser>();
    Playlist_Window_Batch batch{model};
};

TEST(Playlist_Window_Batch, TracksGoInInEntryOrderAndEntryOneReplacesAsWhenAnalysedInTurn)
{
    const std::tuple<QStringList, QStringList, bool> cases[] = {  // files ("bad": unplayable), answers, a track before
        {{"/m/a.avi", "/m/b.avi", "/m/c.avi"}, {"/m/c.avi", "/m/b.avi", "/m/a.avi"}, true},
        {{"/m/a.avi", "/m/b.avi", "/m/c.avi"}, {"/m/b.avi", "/m/c.avi", "/m/a.avi"}, false},
        // Entry 1 cannot be played: entry 2 does not replace the old track.
        {{"/m/bad.avi", "/m/b.avi", "/m/c.avi"}, {"/m/c.avi", "/m/b.avi", "/m/bad.avi"}, true},
        {{"/m/a.avi", "/m/bad.avi", "/m/c.avi"}, {"/m/bad.avi", "/m/c.avi", "/m/a.avi"}, true}};
    for (const auto& [files, answers, track_before] : cases) {
        SCOPED_TRACE(answers.join(u' ').toStdString());
        Playlist_Bench in_turn;  // the same files added through the model one after the other
        Gated_Bench bench(int(files.size()));
        for (Playlist_Bench* each : {&in_turn, static_cast<Playlist_Bench*>(&bench)}) {
            each->analyser.files["old.avi"] = Gated_Analyser::Good();
            if (track_before)
                Add_File(each->model, "old.avi");
        }
        std::vector<std::pair<QString, QString>> entries;
        for (int entry = 1; entry <= files.size(); ++entry) {
            const QString& file = files[entry - 1];
            if (!file.contains("bad"))
                in_turn.analyser.files[file] = Gated_Analyser::Good();
            in_turn.model.Add_Track(file, {}, false, file, entry, 1);
            entries.emplace_back(file, file);
        }
        Temp_Folder folder;
        bench.batch.Load(folder.Write("list.m3u", M3u(entries)), Settings(), *bench.texts);
        QTRY_COMPARE(bench.gated->Running(), int(files.size()));
        for (int k = 0; k < answers.size(); ++k) {
            bench.gated->Release(answers[k]);
            QTRY_COMPARE(bench.gated->Answered(), k + 1);
        }
        QTRY_VERIFY(!bench.batch.Is_Busy());
        EXPECT_EQ(Paths(bench.model), Paths(in_turn.model));
        EXPECT_EQ(bench.player.calls, in_turn.player.calls);
    }
}

TEST(Playlist_Window_Batch, CancelStopsTheBatchAndLateAnswersAddNothing)
{
    Gated_Bench bench(4);
    ASSERT_TRUE(bench.batch.Add_Files({"1.avi", "2.avi", "3.avi", "4.avi"}, 0));
    QTRY_COMPARE(bench.gated->Running(), 4);
    bench.gated->Release("1.avi");
    QTRY_COMPARE(bench.model.Track_Count(), 1);
    bench.batch.Cancel();
    EXPECT_FALSE(bench.batch.Is_Busy());
    bench.gated->Release_All();
    QTRY_COMPARE(bench.gated->Answered(), 4);
    QCoreApplication::processEvents();
    EXPECT_EQ(Paths(bench.model), QStringList{"1.avi"});
    // The window takes new files at once.
    EXPECT_TRUE(bench.batch.Add_Files({"5.avi"}, 0));
    QTRY_VERIFY(!bench.batch.Is_Busy());
    EXPECT_EQ(Paths(bench.model), (QStringList{"1.avi", "5.avi"}));
}

} // namespace
} // namespace Orvane::Test

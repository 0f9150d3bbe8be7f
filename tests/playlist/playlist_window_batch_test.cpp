// Adding files while their analyses run on worker threads: the playlist
// comes out as if each file had been analysed in turn, whatever order the
// answers arrive in.
#include "config/settings.h"
#include "media/analysis_pool.h"
#include "media/gst_media_analyser.h"
#include "playlist/playlist_window_batch.h"
#include "playlist_test_support.h"
#include "support/gated_analyser.h"
#include "support/generated_media.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTest>

#include <sys/stat.h>

namespace Orvane::Test {
namespace {

QString M3u(const QStringList& media)
{
    QString text = "#EXTM3U\r\n";
    for (const QString& path : media)
        text += "#EXTINF:1," + QFileInfo(path).fileName() + "\r\n" + path + "\r\n";
    return text;
}

struct Out_Of_Order_Case {
    const char* name;
    QStringList files;         // "bad" in a name: cannot be rendered
    QStringList release_order;  // the order the analyses answer in
    bool playlist_before;       // a track is there before the load
};

void PrintTo(const Out_Of_Order_Case& test, std::ostream* out) { *out << test.name; }

class Playlist_Window_Batch_Order : public ::testing::TestWithParam<Out_Of_Order_Case> {};

// The same files added one after the other through the model, each analysed in turn.
QStringList Reference_Calls(const Out_Of_Order_Case& test, QStringList& paths)
{
    Playlist_Bench bench;
    bench.analyser.files["old.avi"] = Gated_Analyser::Good();
    if (test.playlist_before)
        Add_File(bench.model, "old.avi");
    for (const QString& file : test.files)
        if (!file.contains("bad"))
            bench.analyser.files[file] = Gated_Analyser::Good();
    for (int entry = 1; entry <= test.files.size(); ++entry)
        bench.model.Add_Track(test.files[entry - 1], {}, false, test.files[entry - 1], entry, 1);
    paths = Paths(bench.model);
    return bench.player.calls;
}

TEST_P(Playlist_Window_Batch_Order, TracksGoInInEntryOrderAndEntryOneReplacesAsWhenAnalysedInTurn)
{
    const Out_Of_Order_Case& test = GetParam();
    QStringList expected_paths;
    const QStringList expected_calls = Reference_Calls(test, expected_paths);

    Temp_Folder folder;
    Settings settings;
    Playlist_Bench bench;
    bench.analyser.files["old.avi"] = Gated_Analyser::Good();
    if (test.playlist_before)
        Add_File(bench.model, "old.avi");
    auto gated = std::make_shared<Gated_Analyser>();
    Playlist_Window_Batch batch(bench.model);
    batch.Use_Analyser(gated);
    batch.Pool().Set_Workers(int(test.files.size()));

    batch.Load(folder.Write("list.m3u", M3u(test.files).toUtf8()), settings, *bench.texts);
    QTRY_COMPARE(gated->Running(), int(test.files.size()));
    for (const QString& file : test.release_order) {
        gated->Release(file);
        QTRY_COMPARE(gated->Answered(), int(test.release_order.indexOf(file)) + 1);
    }
    QTRY_VERIFY(!batch.Is_Busy());
    EXPECT_EQ(Paths(bench.model), expected_paths);
    EXPECT_EQ(bench.player.calls, expected_calls);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, Playlist_Window_Batch_Order,
    ::testing::Values(
        Out_Of_Order_Case{"last_first", {"/m/a.avi", "/m/b.avi", "/m/c.avi"},
                          {"/m/c.avi", "/m/b.avi", "/m/a.avi"}, true},
        Out_Of_Order_Case{"middle_first", {"/m/a.avi", "/m/b.avi", "/m/c.avi"},
                          {"/m/b.avi", "/m/c.avi", "/m/a.avi"}, false},
        // Entry 1 cannot be played: entry 2 does not replace the old track.
        Out_Of_Order_Case{"first_bad", {"/m/bad.avi", "/m/b.avi", "/m/c.avi"},
                          {"/m/c.avi", "/m/b.avi", "/m/bad.avi"}, true},
        Out_Of_Order_Case{"middle_bad", {"/m/a.avi", "/m/bad.avi", "/m/c.avi"},
                          {"/m/bad.avi", "/m/c.avi", "/m/a.avi"}, true}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(Playlist_Window_Batch, CancelStopsTheBatchAndLateAnswersAddNothing)
{
    Playlist_Bench bench;
    auto gated = std::make_shared<Gated_Analyser>();
    Playlist_Window_Batch batch(bench.model);
    batch.Use_Analyser(gated);
    batch.Pool().Set_Workers(4);
    const QStringList files{"1.avi", "2.avi", "3.avi", "4.avi"};
    ASSERT_TRUE(batch.Add_Files(files, 0));
    QTRY_COMPARE(gated->Running(), 4);
    gated->Release("1.avi");
    QTRY_COMPARE(bench.model.Track_Count(), 1);
    batch.Cancel();
    EXPECT_FALSE(batch.Is_Busy());
    gated->Release_All();
    QTRY_COMPARE(gated->Answered(), 4);
    QCoreApplication::processEvents();
    EXPECT_EQ(Paths(bench.model), QStringList{"1.avi"});
    // The window takes new files at once.
    gated->Release("5.avi");
    EXPECT_TRUE(batch.Add_Files({"5.avi"}, 0));
    QTRY_VERIFY(!batch.Is_Busy());
    EXPECT_EQ(Paths(bench.model), (QStringList{"1.avi", "5.avi"}));
}

TEST(Playlist_Window_Batch, AFileThatNeverAnswersIsDroppedAtItsTimeLimitAndTheNextOneIsAdded)
{
    Playlist_Bench bench;
    auto gated = std::make_shared<Gated_Analyser>();
    Playlist_Window_Batch batch(bench.model);
    batch.Use_Analyser(gated);
    batch.Pool().Set_Workers(1);
    batch.Pool().Set_Time_Limit(std::chrono::milliseconds(300));
    gated->Release("before.avi");
    gated->Release("after.avi");
    batch.Add_Files({"before.avi", "stalled.avi", "after.avi"}, 0);
    QTRY_VERIFY_WITH_TIMEOUT(!batch.Is_Busy(), 10000);
    EXPECT_EQ(Paths(bench.model), (QStringList{"before.avi", "after.avi"}));
    gated->Release_All();
}

// Real files through GStreamer: a damaged or hostile file between two good
// ones is left out and the good ones keep their order. (Damaged media as
// such is in the model's tests; these are files that can stall a reader.)
struct Hostile_Case {
    const char* name;
    QString (*make)(const Temp_Folder& folder);
};

void PrintTo(const Hostile_Case& test, std::ostream* out) { *out << test.name; }

class Playlist_Window_Batch_Hostile : public ::testing::TestWithParam<Hostile_Case> {};

TEST_P(Playlist_Window_Batch_Hostile, IsSkippedAndTheNextFileIsAdded)
{
    Message_Box_Recorder boxes;
    Temp_Folder folder;
    Settings settings;
    Playlist_Bench bench;
    Playlist_Window_Batch batch(bench.model);
    batch.Use_Analyser(std::make_shared<Gst_Media_Analyser>());
    const QString hostile = GetParam().make(folder);
    ASSERT_FALSE(hostile.isEmpty());
    const QStringList media{Media().Wav, hostile, Media().Mp3};

    batch.Load(folder.Write("list.m3u", M3u(media).toUtf8()), settings, *bench.texts);
    QTRY_VERIFY_WITH_TIMEOUT(!batch.Is_Busy(), 60000);
    EXPECT_EQ(Paths(bench.model), (QStringList{Media().Wav, Media().Mp3}));
    EXPECT_TRUE(boxes.Boxes().empty()) << "a file that cannot be played is left out without a word";
}

INSTANTIATE_TEST_SUITE_P(
    Files, Playlist_Window_Batch_Hostile,
    ::testing::Values(
        Hostile_Case{"named_pipe",
                     [](const Temp_Folder& folder) {
                         const QString pipe = folder.File("pipe.avi");
                         return ::mkfifo(QFile::encodeName(pipe).constData(), 0600) == 0 ? pipe : QString();
                     }},
        Hostile_Case{"zero_length", [](const Temp_Folder& folder) { return folder.Write("empty.avi", {}); }},
        Hostile_Case{"folder", [](const Temp_Folder& folder) { return folder.Path(); }}),
    [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace Orvane::Test

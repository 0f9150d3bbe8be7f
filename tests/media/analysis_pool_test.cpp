// Analyses on worker threads: how many run at once, what a file that does
// not answer in time becomes, and that answers come back on the asking thread.
#include "media/analysis_pool.h"
#include "support/gated_analyser.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>
#include <QThread>
#include <atomic>
#include <thread>

namespace Orvane::Test {
namespace {

struct Answer_Log {
    QStringList answers;  // "path ok" or "path none", in the order they came
    bool all_on_asking_thread = true;

    Analysis_Pool::Answer For(const QString& path)
    {
        return [this, path](const std::optional<Media_Analysis>& analysis) {
            all_on_asking_thread = all_on_asking_thread && QThread::currentThread() == qApp->thread();
            answers << path + (analysis ? QStringLiteral(" ok") : QStringLiteral(" none"));
        };
    }
};

TEST(Analysis_Pool, NoMoreFilesRunAtOnceThanItHasWorkersAndEveryOneAnswersOnTheAskingThread)
{
    auto analyser = std::make_shared<Gated_Analyser>();
    Analysis_Pool pool(analyser);
    pool.Set_Workers(2);
    Answer_Log log;
    const QStringList files{"a", "b", "c", "bad d", "e"};
    for (const QString& file : files)
        pool.Analyse(file, log.For(file));
    QTRY_COMPARE(analyser->Running(), 2);
    EXPECT_EQ(pool.Waiting(), 3);
    for (const QString& file : files)
        analyser->Release(file);
    QTRY_COMPARE(log.answers.size(), 5);
    EXPECT_EQ(analyser->Most_Running(), 2);
    EXPECT_TRUE(log.all_on_asking_thread);
    EXPECT_TRUE(log.answers.contains("bad d none"));
    EXPECT_EQ(log.answers.filter(" ok").size(), 4);
}

TEST(Analysis_Pool, AFileThatDoesNotAnswerInTimeCountsAsUnrenderableAndGivesItsPlaceToTheNext)
{
    auto analyser = std::make_shared<Gated_Analyser>();
    Analysis_Pool pool(analyser);
    pool.Set_Workers(1);
    pool.Set_Time_Limit(std::chrono::milliseconds(300));
    Answer_Log log;
    analyser->Release("next");
    pool.Analyse("stuck", log.For("stuck"));
    pool.Analyse("next", log.For("next"));
    QTRY_COMPARE_WITH_TIMEOUT(log.answers.size(), 2, 10000);
    EXPECT_EQ(log.answers, (QStringList{"stuck none", "next ok"}));
    EXPECT_EQ(analyser->Running(), 1) << "the stuck thread is left behind, not waited for";
    // Its late answer is not given a second time.
    analyser->Release_All();
    QTRY_COMPARE(analyser->Answered(), 2);
    QCoreApplication::processEvents();
    EXPECT_EQ(log.answers.size(), 2);
}

TEST(Analysis_Pool, ClearedFilesNeverAnswer)
{
    auto analyser = std::make_shared<Gated_Analyser>();
    Analysis_Pool pool(analyser);
    pool.Set_Workers(1);
    Answer_Log log;
    pool.Analyse("running", log.For("running"));
    pool.Analyse("waiting", log.For("waiting"));
    QTRY_COMPARE(analyser->Running(), 1);
    pool.Clear();
    analyser->Release_All();
    QTRY_COMPARE(analyser->Answered(), 1);
    QCoreApplication::processEvents();
    EXPECT_TRUE(log.answers.isEmpty());
    EXPECT_EQ(pool.Running(), 0);
    EXPECT_EQ(pool.Waiting(), 0);
}

// A cancelled analysis is still inside GStreamer: ending the pool (and then
// the program) must not leave it running there.
TEST(Analysis_Pool, ItsEndWaitsForClearedAnalysesStillWithinTheirLimit)
{
    auto analyser = std::make_shared<Gated_Analyser>();
    auto pool = std::make_unique<Analysis_Pool>(analyser);
    pool->Analyse("running", [](const std::optional<Media_Analysis>&) {});
    QTRY_COMPARE(analyser->Running(), 1);
    pool->Clear();
    std::atomic<bool> ending{false};
    std::thread releaser([&] {
        while (!ending.load())
            std::this_thread::yield();
        analyser->Release_All();
    });
    ending.store(true);
    pool.reset();
    EXPECT_EQ(analyser->Answered(), 1);
    releaser.join();
}

} // namespace
} // namespace Orvane::Test

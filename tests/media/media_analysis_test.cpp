// What a file is, before it is played: the analysis of real files on their
// own short-lived pipelines, and the pool that runs analyses on worker
// threads: how many at once, what a file that does not answer in time
// becomes, that cleared files never answer, and that answers come back on
// the asking thread.
#include "media/analysis_pool.h"
#include "media/gst_media_analyser.h"
#include "media/gst_media_graph.h"
#include "media/media_generator.h"
#include "support/gated_analyser.h"
#include "support/generated_media.h"
#include "support/hostile_files.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>
#include <QThread>
#include <atomic>
#include <thread>
#include <tuple>

namespace Orvane {
namespace {

using namespace Orvane::Test;

TEST(Gst_Media_Analyser, FilesGiveKindSplitterStreamsPictureAndDuration)
{
    // A container other than AVI or MPEG, with an MP3 stream as the AVIs
    // have, and a film without sound.
    const Temp_Folder folder;
    const QString mkv = folder.File("film.mkv");
    const QString silent = folder.File("silent.avi");
    const QString film = QStringLiteral("videotestsrc num-buffers=30 ! video/x-raw,width=160,height=120,framerate=30/1 "
                                        "! jpegenc ! %1 ! filesink location=\"%2\" ");
    ASSERT_TRUE(Media_Generator::Run_Pipeline(film.arg("matroskamux name=mux", mkv)
                                              + "audiotestsrc num-buffers=43 ! lamemp3enc ! mux."));
    ASSERT_TRUE(Media_Generator::Run_Pipeline(film.arg("avimux", silent)));
    const Generated_Media& media = Media();
    Gst_Media_Analyser analyser;
    // The AVIs' MP3 streams pass an MPEG audio parser too, decoded before the
    // splitter in the bin's order: still "AVI", as only a plain file's parser counts.
    const std::tuple<QString, QString, bool, int, QSize, double> files[] = {
        // path, kind, splitter, audio streams, picture, duration
        {media.Avi_Three_Streams, "AVI", true, 3, {320, 240}, 4.0},
        {media.Avi_One_Stream, "AVI", true, 1, {320, 240}, 3.0},
        {media.Vcd_Dat, "MPEG", true, 1, {352, 288}, 3.0},
        {media.Wav, "WAV", false, 1, {0, 0}, 3.0},
        {media.Mp3, "MPEG", true, 1, {0, 0}, 3.0},
        {media.Mp2, "MPEG", true, 1, {0, 0}, 3.0},
        {mkv, "Autre", false, 1, {160, 120}, 1.0},
        {silent, "AVI", true, 0, {160, 120}, 1.0},
    };
    for (const auto& [path, kind, splitter, streams, picture, duration] : files) {
        SCOPED_TRACE(path.toStdString());
        const std::optional<Media_Analysis> analysis = analyser.Analyse_Media(path);
        ASSERT_TRUE(analysis);
        EXPECT_EQ(analysis->Media_Kind.toStdString(), kind.toStdString());
        EXPECT_EQ(analysis->Has_Splitter, splitter);
        EXPECT_EQ(analysis->Audio_Streams, streams);
        EXPECT_EQ(analysis->Has_Audio, streams > 0);
        EXPECT_EQ(analysis->Has_Video, !picture.isEmpty());
        EXPECT_EQ(QSize(analysis->Width, analysis->Height), picture);
        EXPECT_NEAR(analysis->Duration, duration, 0.2);
    }
}

// How long the file plays: decoded to its end as fast as it goes.
double Decoded_Length(const QString& path)
{
    const QString description = QStringLiteral("filesrc location=\"%1\" ! decodebin ! fakesink sync=false").arg(path);
    const Element_Ref pipeline = Element_Ref::Sink(gst_parse_launch(description.toUtf8().constData(), nullptr));
    const Bus_Ref bus = Bus_Ref::Adopt(gst_element_get_bus(pipeline.get()));
    gst_element_set_state(pipeline.get(), GST_STATE_PLAYING);
    const Message_Ref end = Message_Ref::Adopt(
        gst_bus_timed_pop_filtered(bus.get(), 10 * GST_SECOND, GstMessageType(GST_MESSAGE_EOS | GST_MESSAGE_ERROR)));
    gint64 position = -1;
    if (end && GST_MESSAGE_TYPE(end.get()) == GST_MESSAGE_EOS)
        gst_element_query_position(pipeline.get(), GST_FORMAT_TIME, &position);
    gst_element_set_state(pipeline.get(), GST_STATE_NULL);
    return double(position) / double(GST_SECOND);
}

TEST(Gst_Media_Analyser, AnMp3WithoutALengthHeaderGetsTheLengthThatPlaysNotAnEstimate)
{
    // The parser of an MP3 without a length header first answers an estimate
    // from the bitrate of the frames seen so far: 2.99 s for this one.
    const double plays = Decoded_Length(Media().Mp3);
    ASSERT_GT(plays, 2.9);
    const std::optional<Media_Analysis> analysis = Gst_Media_Analyser().Analyse_Media(Media().Mp3);
    ASSERT_TRUE(analysis);
    EXPECT_NEAR(analysis->Duration, plays, 0.02);
    Gst_Media_Graph graph;
    ASSERT_TRUE(graph.Open_Graph(Media().Mp3));
    EXPECT_NEAR(graph.Duration(), plays, 0.02) << "the player's graph knows it from the start";
}

TEST(Gst_Media_Analyser, FilesThatCannotBeRenderedGiveNothingWithoutBeingWaitedOn)
{
    const Temp_Folder folder;
    const QString pipe = folder.File("pipe.avi");  // nothing writes to it
    ASSERT_TRUE(Make_Named_Pipe(pipe));
    // Random bytes in a file named as a film.
    QByteArray noise(64 * 1024, '\0');
    quint32 seed = 12345;
    for (char& byte : noise)
        byte = char((seed = seed * 1664525u + 1013904223u) >> 24);
    Gst_Media_Analyser analyser;
    for (const QString& path : {Media().Not_Media, Media().Truncated_Avi, QStringLiteral("/no/such/file.avi"),
                                folder.Write("empty.mp3", {}), folder.Path(), pipe, folder.Write("noise.avi", noise)}) {
        SCOPED_TRACE(path.toStdString());
        EXPECT_FALSE(analyser.Analyse_Media(path));
    }
    EXPECT_TRUE(analyser.Analyse_Media(Media().Wav)) << "the analyser is still fine afterwards";
}

class Analysis_Pool_Test : public testing::Test {
protected:
    std::shared_ptr<Gated_Analyser> analyser_ = std::make_shared<Gated_Analyser>();
    std::unique_ptr<Analysis_Pool> pool_ = std::make_unique<Analysis_Pool>(analyser_);
    QStringList answers_;  // "path ok" or "path none", in the order they came
    bool all_on_asking_thread_ = true;

    void Analyse(const QString& path)
    {
        pool_->Analyse(path, [this, path](const std::optional<Media_Analysis>& analysis) {
            all_on_asking_thread_ = all_on_asking_thread_ && QThread::currentThread() == qApp->thread();
            answers_ << path + (analysis ? QStringLiteral(" ok") : QStringLiteral(" none"));
        });
    }
};

TEST_F(Analysis_Pool_Test, NoMoreFilesRunAtOnceThanItHasWorkersAndEveryOneAnswersOnTheAskingThread)
{
    pool_->Set_Workers(2);
    const QStringList files{"a", "b", "c", "bad d", "e"};
    for (const QString& file : files)
        Analyse(file);
    QTRY_COMPARE(analyser_->Running(), 2);
    EXPECT_EQ(pool_->Waiting(), 3);
    analyser_->Release_All();
    QTRY_COMPARE(answers_.size(), 5);
    EXPECT_EQ(analyser_->Most_Running(), 2);
    EXPECT_TRUE(all_on_asking_thread_);
    EXPECT_TRUE(answers_.contains("bad d none"));
    EXPECT_EQ(answers_.filter(" ok").size(), 4);
}

TEST_F(Analysis_Pool_Test, AFileThatDoesNotAnswerInTimeCountsAsUnrenderableAndGivesItsPlaceToTheNext)
{
    pool_->Set_Workers(1);
    pool_->Set_Time_Limit(std::chrono::milliseconds(300));
    analyser_->Release("next");
    Analyse("stuck");
    Analyse("next");
    QTRY_COMPARE_WITH_TIMEOUT(answers_.size(), 2, 10000);
    EXPECT_EQ(answers_, (QStringList{"stuck none", "next ok"}));
    EXPECT_EQ(analyser_->Running(), 1) << "the stuck thread is left behind, not waited for";
    // Its late answer is not given a second time.
    analyser_->Release_All();
    QTRY_COMPARE(analyser_->Answered(), 2);
    QCoreApplication::processEvents();
    EXPECT_EQ(answers_.size(), 2);
}

// A cleared analysis is still inside GStreamer: ending the pool (and then
// the program) must not leave it running there.
TEST_F(Analysis_Pool_Test, ClearedFilesNeverAnswerAndItsEndWaitsForThemWithinTheirLimit)
{
    pool_->Set_Workers(1);
    Analyse("running");
    Analyse("waiting");
    QTRY_COMPARE(analyser_->Running(), 1);
    pool_->Clear();
    EXPECT_EQ(pool_->Waiting(), 0);
    analyser_->Release("running");
    QTRY_COMPARE(analyser_->Answered(), 1);
    QCoreApplication::processEvents();
    EXPECT_TRUE(answers_.isEmpty());

    Analyse("late");
    QTRY_COMPARE(analyser_->Running(), 1);
    pool_->Clear();
    std::atomic<bool> ending{false};
    std::thread releaser([&] {
        while (!ending.load())
            std::this_thread::yield();
        analyser_->Release_All();
    });
    ending.store(true);
    pool_.reset();
    EXPECT_EQ(analyser_->Answered(), 2);
    releaser.join();
}

} // namespace
} // namespace Orvane

// The sound that reaches the output: one stream at a time through the
// selector, an associated file in the file's place aligned with the picture,
// the volume, and an output that keeps time without a sound device. What is
// heard is recorded through an appsink put in the place of the output.
#include "media/gst_media_graph.h"
#include "media/gst_walk.h"
#include "support/generated_media.h"

#include <gtest/gtest.h>
#include <gst/app/gstappsink.h>

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>

namespace Orvane {
namespace {

using Orvane::Test::Media;

// Mono float at 44.1 kHz into an appsink that plays in step with the clock.
constexpr int Rate = 44100;
constexpr char Probe_Output[] = "audioconvert ! audioresample ! audio/x-raw,format=F32LE,channels=1,rate=44100 "
                                "! appsink name=orvane_audio_probe sync=true";
const std::vector<int> Tones = {440, 660, 880, 1320, 330, 550, 770, 1000};

// Sets the output the graph builds (ORVANE_AUDIO_SINK) while it lives.
struct Audio_Output_Override {
    explicit Audio_Output_Override(const char* description) { qputenv("ORVANE_AUDIO_SINK", description); }
    ~Audio_Output_Override() { qputenv("ORVANE_AUDIO_SINK", previous); }
    QByteArray previous = qgetenv("ORVANE_AUDIO_SINK");
};

// Where one buffer that reached the output lies in time (seconds): on the
// pipeline's clock, and into the media it came from.
struct Chunk_Time {
    double Running_Time, Stream_Time;
};

// The power of one frequency in the samples (Goertzel).
double Tone_Power(const std::vector<float>& samples, double frequency)
{
    const double coefficient = 2.0 * std::cos(2.0 * M_PI * frequency / Rate);
    double previous = 0.0, before = 0.0;
    for (float sample : samples)
        before = std::exchange(previous, sample + coefficient * previous - before);
    const double power = previous * previous + before * before - coefficient * previous * before;
    return samples.empty() ? 0.0 : power / double(samples.size());
}

double Rms(const std::vector<float>& samples)
{
    const double sum = std::inner_product(samples.begin(), samples.end(), samples.begin(), 0.0);
    return samples.empty() ? 0.0 : std::sqrt(sum / double(samples.size()));
}

class Audio_Choice : public testing::Test {
protected:
    Audio_Output_Override output_{Probe_Output};
    Gst_Media_Graph graph_;
    Element_Ref probe_;
    std::vector<Chunk_Time> chunks_;  // of the last Play

    void Open(const QString& path)
    {
        ASSERT_TRUE(graph_.Open_Graph(path)) << graph_.Last_Error().toStdString();
        probe_ = Element_Ref::Adopt(gst_bin_get_by_name(GST_BIN(graph_.Pipeline()), "orvane_audio_probe"));
        ASSERT_TRUE(probe_);
    }
    void Render(const QString& path)
    {
        ASSERT_TRUE(graph_.Render_Associated_Audio(path)) << graph_.Last_Error().toStdString();
    }
    // Plays until 400 ms of sound came (or a generous time passed) and stops.
    // The first chunks may still hold what the output had prerolled before a
    // switch: the samples returned leave them out.
    std::vector<float> Play()
    {
        GstAppSink* sink = GST_APP_SINK(probe_.get());
        while (Sample_Ref::Adopt(gst_app_sink_try_pull_sample(sink, 0))) {
        }
        graph_.Run();
        chunks_.clear();
        std::vector<float> samples;
        const QDeadlineTimer deadline(5000);
        while (samples.size() < size_t(Rate) * 4 / 10 && !deadline.hasExpired()) {
            QCoreApplication::processEvents();
            const Sample_Ref sample = Sample_Ref::Adopt(gst_app_sink_try_pull_sample(sink, 20 * GST_MSECOND));
            GstBuffer* buffer = sample ? gst_sample_get_buffer(sample.get()) : nullptr;
            GstMapInfo map;
            if (!buffer || !gst_buffer_map(buffer, &map, GST_MAP_READ))
                continue;
            const GstSegment* segment = gst_sample_get_segment(sample.get());
            const GstClockTime pts = GST_BUFFER_PTS(buffer);
            chunks_.push_back({gst_segment_to_running_time(segment, GST_FORMAT_TIME, pts) / double(GST_SECOND),
                               gst_segment_to_stream_time(segment, GST_FORMAT_TIME, pts) / double(GST_SECOND)});
            const auto* data = reinterpret_cast<const float*>(map.data);
            if (chunks_.size() > 3)
                samples.insert(samples.end(), data, data + map.size / sizeof(float));
            gst_buffer_unmap(buffer, &map);
        }
        graph_.Stop();
        return samples;
    }
    // The one tone heard: the strongest, provided every other is 30 dB
    // weaker (0 for a mix).
    int Heard_Tone()
    {
        std::multimap<double, int> by_power;
        for (const std::vector<float> samples = Play(); int tone : Tones)
            by_power.emplace(Tone_Power(samples, tone), tone);
        const auto strongest = std::prev(by_power.end());
        return std::prev(strongest)->first > strongest->first / 1000 ? 0 : strongest->second;
    }
    // Each buffer heard is the part of its file that belongs with the picture
    // at that instant: media time minus running time is the seek target.
    void Expect_Aligned_On(double seek_target)
    {
        ASSERT_GT(chunks_.size(), 3u);
        for (size_t i = 3; i < chunks_.size(); ++i)
            EXPECT_NEAR(chunks_[i].Stream_Time - chunks_[i].Running_Time, seek_target, 0.04) << "buffer " << i;
    }
    // The file sources in the pipeline: the file's own and one per associated file.
    int File_Sources()
    {
        const std::vector<Element_Ref> elements = Bin_Elements(GST_BIN(graph_.Pipeline()), false);
        return int(std::count_if(elements.begin(), elements.end(),
                                 [](const Element_Ref& element) { return Factory_Name(element.get()) == "filesrc"; }));
    }
};

TEST_F(Audio_Choice, EachRecordedStreamIsHeardAloneGoingOnFromWhereTheGraphStopped)
{
    Open(Media().Avi_Three_Streams);
    EXPECT_EQ(Heard_Tone(), 440) << "the first stream is heard until one is chosen";
    graph_.Record_Audio_Pins(true, 3);
    EXPECT_EQ(graph_.Recorded_Streams(), (std::vector<int>{1, 2, 3}));
    graph_.Set_Current_Position(1.0);
    int heard = 1;
    for (int stream : {2, 3, 1}) {
        // The player's sequence from stream to stream.
        graph_.Disconnect_Audio_Stream(heard);
        const double stopped_at = graph_.Current_Position();
        graph_.Connect_Audio_Stream(stream);
        EXPECT_EQ(Heard_Tone(), Tones[size_t(stream) - 1]) << "stream " << stream;
        EXPECT_NEAR(chunks_.front().Stream_Time, stopped_at, 0.1);
        heard = stream;
    }
    graph_.Disconnect_Audio_Streams(true, 3);
    const std::vector<float> silence = Play();
    ASSERT_FALSE(silence.empty());
    EXPECT_LT(Rms(silence), 1e-4);
}

TEST_F(Audio_Choice, StreamsAreNumberedFromZeroWithoutAPictureAndTheVcdAudioIsStreamOne)
{
    Open(Media().Mp3);
    graph_.Record_Audio_Pins(false, 1);
    EXPECT_EQ(graph_.Recorded_Streams(), (std::vector<int>{0}));
    graph_.Disconnect_Audio_Streams(false, 1);
    graph_.Connect_Audio_Stream(0);
    EXPECT_EQ(Heard_Tone(), 770);

    Open(Media().Vcd_Dat);
    graph_.Record_Audio_Pins(true, 1);
    EXPECT_EQ(graph_.Recorded_Streams(), (std::vector<int>{1}));
    EXPECT_EQ(Heard_Tone(), 550);
}

TEST_F(Audio_Choice, AnAssociatedFileReplacesTheSoundAlignedWithThePictureBeforeAndAfterASeek)
{
    Open(Media().Avi_Three_Streams);
    graph_.Record_Audio_Pins(true, 3);
    graph_.Set_Current_Position(1.0);
    // A file without sound is refused, and its own error never reaches the session.
    QSignalSpy errors(&graph_, &Media_Graph::Error_Occurred);
    EXPECT_FALSE(graph_.Render_Associated_Audio(Media().Not_Media));
    EXPECT_FALSE(graph_.Last_Error().isEmpty());
    EXPECT_FALSE(graph_.Render_Associated_Audio(QStringLiteral("/no/such/file.wav")));
    EXPECT_EQ(graph_.Heard_Stream(), 1) << "a refused file leaves the sound alone";

    graph_.Disconnect_Audio_Streams(true, 3);
    // Rendered at 1 s, it starts there by itself (no seek restores it).
    Render(Media().Associated_Wav);
    EXPECT_NEAR(graph_.Current_Position(), 1.0, 0.05);
    EXPECT_EQ(Heard_Tone(), 1320);
    Expect_Aligned_On(1.0);

    graph_.Set_Current_Position(2.5);
    EXPECT_EQ(Heard_Tone(), 1320);
    EXPECT_NEAR(chunks_.front().Stream_Time, 2.5, 0.05);
    Expect_Aligned_On(2.5);
    EXPECT_NEAR(graph_.Current_Position(), chunks_.back().Stream_Time, 0.1);
    EXPECT_EQ(errors.count(), 0);
}

// The player's sequences for leaving an associated file, without opening the file again.
TEST_F(Audio_Choice, AnAssociatedFileLeavesInPlaceForAnotherAndForAStreamAtThePositionItWasHeard)
{
    Open(Media().Avi_Three_Streams);
    graph_.Record_Audio_Pins(true, 3);
    graph_.Set_Current_Position(1.0);
    graph_.Disconnect_Audio_Streams(true, 3);
    Render(Media().Associated_Wav);
    EXPECT_EQ(Heard_Tone(), 1320);
    const int pipeline_id = graph_.Pipeline_Id();

    graph_.Save_Position();
    ASSERT_TRUE(graph_.Drop_Associated_Audio());
    Render(Media().Wav);
    graph_.Restore_Position();
    EXPECT_EQ(Heard_Tone(), 1000);
    EXPECT_EQ(File_Sources(), 2) << "the first associated file is still in the pipeline";

    graph_.Save_Position();
    const double left_at = graph_.Current_Position();
    ASSERT_TRUE(graph_.Drop_Associated_Audio());
    ASSERT_TRUE(graph_.Drop_Associated_Audio()) << "dropping with nothing associated is no failure";
    EXPECT_EQ(graph_.Pipeline_Id(), pipeline_id) << "the file was opened again";
    EXPECT_EQ(graph_.Heard_Stream(), -1);
    graph_.Record_Audio_Pins(true, 3);
    graph_.Disconnect_Audio_Streams(true, 3);
    graph_.Restore_Position();
    graph_.Connect_Audio_Stream(2);
    EXPECT_EQ(Heard_Tone(), 660);
    EXPECT_NEAR(chunks_.front().Stream_Time, left_at, 0.1);
    Expect_Aligned_On(1.0);
    EXPECT_EQ(File_Sources(), 1) << "an associated file is still in the pipeline";
}

TEST_F(Audio_Choice, TheVolumeInHundredthsOfADecibelIsTheGainHeardNeverAboveFull)
{
    Open(Media().Wav);
    const double full = Rms(Play());
    ASSERT_GT(full, 0.1);
    graph_.Set_Volume(-3000);
    EXPECT_NEAR(Rms(Play()) / full, std::pow(10.0, -1.5), 0.003);
    graph_.Set_Volume(500);
    EXPECT_NEAR(Rms(Play()) / full, 1.0, 0.05);
}

// Without a device (as on a build machine) the output is a fakesink that keeps time.
TEST(Audio_Output, WithoutAUsableOutputTheClockRunsOnInTime)
{
    Audio_Output_Override output("no_such_element_anywhere ! fakesink");
    Gst_Media_Graph graph;
    ASSERT_TRUE(graph.Open_Graph(Media().Wav)) << graph.Last_Error().toStdString();
    QElapsedTimer clock;
    clock.start();
    graph.Run();
    ASSERT_TRUE(QTest::qWaitFor([&] { return graph.Current_Position() > 0.15; }, 3000));
    EXPECT_LT(graph.Current_Position(), clock.elapsed() / 1000.0 + 0.1) << "ahead of the wall clock";
}

} // namespace
} // namespace Orvane

// The sound heard through the selector: one stream at a time, an associated
// file in the file's place, aligned with the picture.
#include "audio_probe.h"
#include "media/gst_media_graph.h"
#include "media/gst_walk.h"
#include "support/generated_media.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>
#include <iostream>
#include <string>

namespace Orvane {
namespace {

using namespace std::chrono_literals;
namespace Support = Orvane::Test;

const std::vector<int> Tones = {440, 660, 880, 1320, 330, 550, 770, 1000};

class Audio_Choice : public testing::Test {
protected:
    Support::Audio_Output_Override output_{Support::Probe_Output};
    Gst_Media_Graph graph_;
    std::unique_ptr<Support::Audio_Probe> probe_;
    std::vector<Support::Audio_Chunk> chunks_;  // of the last Heard_Tone

    void Open(const QString& path)
    {
        ASSERT_TRUE(graph_.Open_Graph(path)) << graph_.Last_Error().toStdString();
        probe_ = std::make_unique<Support::Audio_Probe>(graph_.Pipeline());
        ASSERT_TRUE(probe_->Found());
    }
    // Plays a moment and returns the one tone heard: the strongest, provided
    // every other is 30 dB weaker (0 for a mix). The first chunks may still
    // hold what the output had prerolled before a switch.
    int Heard_Tone()
    {
        probe_->Drain();
        graph_.Run();
        chunks_ = probe_->Record(400ms);
        graph_.Stop();
        const std::vector<float> samples = Support::Joined(chunks_, 3);
        const int dominant = Support::Dominant_Tone(samples, Tones);
        for (int tone : Tones)
            if (tone != dominant && Support::Tone_Power(samples, tone) > Support::Tone_Power(samples, dominant) / 1000) {
                Describe_Mix();
                return 0;
            }
        return dominant;
    }
    // For a failure report: what each buffer held (tone, or 0 for silence).
    void Describe_Mix() const
    {
        std::string heard;
        for (const Support::Audio_Chunk& chunk : chunks_) {
            const std::vector<float> one = Support::Joined({chunk});
            const int tone = Support::Rms(one) < 1e-3 ? 0 : Support::Dominant_Tone(one, Tones);
            heard += std::to_string(tone) + "@" + std::to_string(chunk.Stream_Time).substr(0, 5) + " ";
        }
        std::cerr << "Buffers heard (tone@stream time): " << heard << '\n';
    }
    // Each buffer heard is the part of its file that belongs with the picture
    // at that instant: media time minus running time is the seek target.
    void Expect_Aligned_On(double seek_target)
    {
        ASSERT_GT(chunks_.size(), 3u);
        for (size_t i = 3; i < chunks_.size(); ++i)
            EXPECT_NEAR(chunks_[i].Stream_Time - chunks_[i].Running_Time, seek_target, 0.04) << "buffer " << i;
    }
};

TEST_F(Audio_Choice, EachRecordedStreamIsHeardAloneAfterTheSwitchSequence)
{
    Open(Support::Media().Avi_Three_Streams);
    EXPECT_EQ(graph_.Heard_Stream(), 1) << "the first stream is heard until one is chosen";
    EXPECT_EQ(Heard_Tone(), 440);
    graph_.Record_Audio_Pins(true, 3);
    EXPECT_EQ(graph_.Recorded_Streams(), (std::vector<int>{1, 2, 3}));
    EXPECT_TRUE(graph_.Find_Splitter());
    for (int stream : {2, 3, 1}) {
        graph_.Disconnect_Audio_Streams(true, 3);
        graph_.Connect_Audio_Stream(stream);
        EXPECT_EQ(graph_.Heard_Stream(), stream);
        EXPECT_EQ(Heard_Tone(), Tones[stream - 1]) << "stream " << stream;
    }
}

TEST_F(Audio_Choice, WithEveryStreamDisconnectedNothingIsHeard)
{
    Open(Support::Media().Avi_Three_Streams);
    graph_.Record_Audio_Pins(true, 3);
    graph_.Disconnect_Audio_Streams(true, 3);
    EXPECT_EQ(graph_.Heard_Stream(), -1);
    Heard_Tone();
    const std::vector<float> silent = Support::Joined(chunks_, 3);
    ASSERT_FALSE(silent.empty());
    EXPECT_LT(Support::Rms(silent), 1e-4);
}

TEST_F(Audio_Choice, AStreamSwitchGoesOnFromWhereTheGraphStopped)
{
    Open(Support::Media().Avi_Three_Streams);
    graph_.Record_Audio_Pins(true, 3);
    graph_.Set_Current_Position(1.5);
    graph_.Disconnect_Audio_Stream(1);
    const double stopped_at = graph_.Current_Position();
    graph_.Connect_Audio_Stream(2);
    EXPECT_NEAR(graph_.Current_Position(), stopped_at, 0.01);
    EXPECT_EQ(Heard_Tone(), 660);
    EXPECT_NEAR(chunks_.front().Stream_Time, stopped_at, 0.1);
}

TEST_F(Audio_Choice, AnAssociatedFileReplacesTheSoundAlignedWithThePictureBeforeAndAfterASeek)
{
    Open(Support::Media().Avi_Three_Streams);
    graph_.Record_Audio_Pins(true, 3);
    graph_.Set_Current_Position(1.0);
    graph_.Save_Position();
    graph_.Disconnect_Audio_Streams(true, 3);
    // Rendered at 1 s, it starts there by itself (no seek restores it).
    ASSERT_TRUE(graph_.Render_Associated_Audio(Support::Media().Associated_Wav)) << graph_.Last_Error().toStdString();
    EXPECT_NEAR(graph_.Current_Position(), 1.0, 0.05);
    EXPECT_EQ(Heard_Tone(), 1320);
    Expect_Aligned_On(1.0);

    graph_.Set_Current_Position(2.5);
    EXPECT_EQ(Heard_Tone(), 1320);
    EXPECT_NEAR(chunks_.front().Stream_Time, 2.5, 0.05);
    Expect_Aligned_On(2.5);
    EXPECT_NEAR(graph_.Current_Position(), chunks_.back().Stream_Time, 0.1);

    // A stream of the file can be chosen again without reopening.
    graph_.Disconnect_Audio_Streams(true, 3);
    graph_.Connect_Audio_Stream(2);
    EXPECT_EQ(Heard_Tone(), 660);
}

// The file sources in the pipeline: the file's own and one per associated file.
int File_Sources(GstElement* pipeline)
{
    int count = 0;
    for (const Element_Ref& element : Bin_Elements(GST_BIN(pipeline), false))
        count += Factory_Name(element.get()) == QStringLiteral("filesrc");
    return count;
}

TEST_F(Audio_Choice, AnAssociatedFileLeavesInPlaceForAStreamAtThePositionItWasHeard)
{
    Open(Support::Media().Avi_Three_Streams);
    graph_.Record_Audio_Pins(true, 3);
    graph_.Set_Current_Position(1.0);
    graph_.Disconnect_Audio_Streams(true, 3);
    ASSERT_TRUE(graph_.Render_Associated_Audio(Support::Media().Associated_Wav)) << graph_.Last_Error().toStdString();
    EXPECT_EQ(Heard_Tone(), 1320);
    const int pipeline_id = graph_.Pipeline_Id();
    graph_.Save_Position();
    const double left_at = graph_.Current_Position();

    // The player's sequence for choosing stream 2 again.
    ASSERT_TRUE(graph_.Drop_Associated_Audio());
    EXPECT_EQ(graph_.Pipeline_Id(), pipeline_id) << "the file was opened again";
    EXPECT_EQ(graph_.Heard_Stream(), -1);
    graph_.Record_Audio_Pins(true, 3);
    graph_.Disconnect_Audio_Streams(true, 3);
    graph_.Restore_Position();
    graph_.Connect_Audio_Stream(2);
    EXPECT_NEAR(graph_.Current_Position(), left_at, 0.05);
    EXPECT_EQ(Heard_Tone(), 660);
    EXPECT_NEAR(chunks_.front().Stream_Time, left_at, 0.1);
    Expect_Aligned_On(1.0);
    EXPECT_EQ(File_Sources(graph_.Pipeline()), 1) << "the associated file is still in the pipeline";
}

TEST_F(Audio_Choice, OneAssociatedFileLeavesInPlaceForAnother)
{
    Open(Support::Media().Avi_Three_Streams);
    graph_.Record_Audio_Pins(true, 3);
    graph_.Disconnect_Audio_Streams(true, 3);
    ASSERT_TRUE(graph_.Render_Associated_Audio(Support::Media().Associated_Wav)) << graph_.Last_Error().toStdString();
    EXPECT_EQ(Heard_Tone(), 1320);
    graph_.Save_Position();
    ASSERT_TRUE(graph_.Drop_Associated_Audio());
    ASSERT_TRUE(graph_.Render_Associated_Audio(Support::Media().Wav)) << graph_.Last_Error().toStdString();
    graph_.Restore_Position();
    EXPECT_EQ(Heard_Tone(), 1000);
    EXPECT_EQ(File_Sources(graph_.Pipeline()), 2) << "the first associated file is still in the pipeline";
    // Dropping with nothing associated is no failure, and leaves the sound alone.
    ASSERT_TRUE(graph_.Drop_Associated_Audio());
    ASSERT_TRUE(graph_.Drop_Associated_Audio());
    graph_.Connect_Audio_Stream(3);
    EXPECT_EQ(Heard_Tone(), 880);
}

TEST_F(Audio_Choice, AnAssociatedFileWithoutSoundIsRefusedAndTheFileKeepsPlaying)
{
    Open(Support::Media().Avi_Three_Streams);
    QSignalSpy errors(&graph_, &Media_Graph::Error_Occurred);
    EXPECT_FALSE(graph_.Render_Associated_Audio(Support::Media().Not_Media));
    EXPECT_FALSE(graph_.Last_Error().isEmpty());
    EXPECT_FALSE(graph_.Render_Associated_Audio(QStringLiteral("/no/such/file.wav")));
    EXPECT_EQ(Heard_Tone(), 440);  // the file played on: its bus was served meanwhile
    QCoreApplication::processEvents();
    EXPECT_EQ(errors.count(), 0) << "the refused file's own error reached the session";
}

TEST_F(Audio_Choice, StreamsAreNumberedFromZeroWithoutAPictureAndTheVcdAudioIsStreamOne)
{
    Open(Support::Media().Mp3);
    EXPECT_FALSE(graph_.Find_Splitter());
    graph_.Record_Audio_Pins(false, 1);
    EXPECT_EQ(graph_.Recorded_Streams(), (std::vector<int>{0}));
    graph_.Disconnect_Audio_Streams(false, 1);
    graph_.Connect_Audio_Stream(0);
    EXPECT_EQ(Heard_Tone(), 770);

    Open(Support::Media().Vcd_Dat);
    EXPECT_TRUE(graph_.Find_Splitter());
    graph_.Record_Audio_Pins(true, 1);
    EXPECT_EQ(graph_.Recorded_Streams(), (std::vector<int>{1}));
    EXPECT_EQ(Heard_Tone(), 550);
}

} // namespace
} // namespace Orvane

// The sound heard through the selector: one stream at a time, an associated
// file in the file's place, aligned with the picture.
#include "audio_probe.h"
#include "media/gst_media_graph.h"
#include "support/generated_media.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

namespace Orvane {
namespace {

using namespace std::chrono_literals;
namespace Support = Orvane::Test;
using Support::Audio_Probe;

const std::vector<int> Tones = {440, 660, 880, 1320};

class Audio_Choice : public testing::Test {
protected:
    Support::Audio_Output_Override output_{Support::Probe_Output};
    Gst_Media_Graph graph_;

    void Open(const QString& path)
    {
        ASSERT_TRUE(graph_.Open_Graph(path)) << graph_.Last_Error().toStdString();
        probe_ = std::make_unique<Audio_Probe>(graph_.Pipeline());
        ASSERT_TRUE(probe_->Found());
    }
    // Plays and returns the tone heard, skipping the first chunks that may
    // still hold what the output had prerolled before the switch.
    int Heard_Tone(std::vector<Support::Audio_Chunk>* chunks_out = nullptr)
    {
        probe_->Drain();
        graph_.Run();
        std::vector<Support::Audio_Chunk> chunks = probe_->Record(400ms);
        graph_.Stop();
        const std::vector<float> samples = Support::Joined(chunks, 3);
        if (chunks_out)
            *chunks_out = std::move(chunks);
        return Only_Tone(samples);
    }
    // The strongest candidate tone, provided every other one is at least
    // 30 dB weaker (0 otherwise): one source heard, not a mix.
    int Only_Tone(const std::vector<float>& samples)
    {
        const int dominant = Support::Dominant_Tone(samples, Tones);
        const double power = Support::Tone_Power(samples, dominant);
        for (int tone : Tones)
            if (tone != dominant && Support::Tone_Power(samples, tone) > power / 1000.0)
                return 0;
        return dominant;
    }

    std::unique_ptr<Audio_Probe> probe_;
};

TEST_F(Audio_Choice, EachRecordedStreamIsHeardAloneAfterTheDesignsSwitchSequence)
{
    Open(Support::Media().Avi_Three_Streams);
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
TEST_F(Audio_Choice, TheFirstStreamIsHeardUntilTheSessionChooses)
{
    Open(Support::Media().Avi_Three_Streams);
    EXPECT_EQ(graph_.Heard_Stream(), 1);
    EXPECT_EQ(Heard_Tone(), 440);
}

TEST_F(Audio_Choice, DisconnectingEveryStreamSilencesTheOutputUntilOneIsConnected)
{
    Open(Support::Media().Avi_Three_Streams);
    graph_.Record_Audio_Pins(true, 3);
    graph_.Disconnect_Audio_Streams(true, 3);
    EXPECT_EQ(graph_.Heard_Stream(), -1);
    probe_->Drain();
    graph_.Run();
    const std::vector<float> silent = Support::Joined(probe_->Record(300ms), 3);
    graph_.Stop();
    ASSERT_FALSE(silent.empty());
    EXPECT_LT(Support::Rms(silent), 1e-4);

    graph_.Connect_Audio_Stream(3);
    EXPECT_EQ(Heard_Tone(), 880);
}

TEST_F(Audio_Choice, AStreamSwitchKeepsThePositionWhereTheGraphStopped)
{
    Open(Support::Media().Avi_Three_Streams);
    graph_.Record_Audio_Pins(true, 3);
    graph_.Set_Current_Position(1.5);
    graph_.Disconnect_Audio_Stream(1);
    const double stopped_at = graph_.Current_Position();
    graph_.Connect_Audio_Stream(2);
    EXPECT_NEAR(graph_.Current_Position(), stopped_at, 0.01);

    std::vector<Support::Audio_Chunk> chunks;
    EXPECT_EQ(Heard_Tone(&chunks), 660);
    ASSERT_FALSE(chunks.empty());
    // The sound goes on from where the picture stopped, not from the start.
    EXPECT_NEAR(chunks.front().Stream_Time, stopped_at, 0.1);
}

TEST_F(Audio_Choice, AnAssociatedFileReplacesTheSoundAndFollowsThePictureAfterASeek)
{
    Open(Support::Media().Avi_Three_Streams);
    graph_.Record_Audio_Pins(true, 3);
    graph_.Set_Current_Position(1.0);
    graph_.Save_Position();
    graph_.Disconnect_Audio_Streams(true, 3);
    ASSERT_TRUE(graph_.Render_Associated_Audio(Support::Media().Associated_Wav))
        << graph_.Last_Error().toStdString();
    graph_.Restore_Position();
    EXPECT_EQ(graph_.Heard_Stream(), -1);

    std::vector<Support::Audio_Chunk> chunks;
    EXPECT_EQ(Heard_Tone(&chunks), 1320);
    ASSERT_GT(chunks.size(), 3u);
    // Every buffer heard is the part of the file that belongs to the same
    // instant of the picture: media time - running time is the seek target.
    for (size_t i = 3; i < chunks.size(); ++i)
        EXPECT_NEAR(chunks[i].Stream_Time - chunks[i].Running_Time, 1.0, 0.04) << "buffer " << i;

    graph_.Set_Current_Position(2.5);
    chunks.clear();
    EXPECT_EQ(Heard_Tone(&chunks), 1320);
    ASSERT_GT(chunks.size(), 3u);
    EXPECT_NEAR(chunks.front().Stream_Time, 2.5, 0.05);
    for (size_t i = 3; i < chunks.size(); ++i)
        EXPECT_NEAR(chunks[i].Stream_Time - chunks[i].Running_Time, 2.5, 0.04) << "buffer " << i;
    EXPECT_NEAR(graph_.Current_Position(), chunks.back().Stream_Time, 0.1);
}

TEST_F(Audio_Choice, AnAssociatedFileRenderedWhilePausedStartsWhereThePictureIs)
{
    Open(Support::Media().Avi_Three_Streams);
    graph_.Set_Current_Position(2.0);
    ASSERT_TRUE(graph_.Render_Associated_Audio(Support::Media().Associated_Wav));
    EXPECT_NEAR(graph_.Current_Position(), 2.0, 0.05);
    std::vector<Support::Audio_Chunk> chunks;
    EXPECT_EQ(Heard_Tone(&chunks), 1320);
    ASSERT_GT(chunks.size(), 3u);
    for (size_t i = 3; i < chunks.size(); ++i)
        EXPECT_NEAR(chunks[i].Stream_Time - chunks[i].Running_Time, 2.0, 0.04) << "buffer " << i;
}

TEST_F(Audio_Choice, AStreamCanBeChosenAgainOverAnAssociatedFileWithoutReopening)
{
    Open(Support::Media().Avi_Three_Streams);
    graph_.Record_Audio_Pins(true, 3);
    graph_.Disconnect_Audio_Streams(true, 3);
    ASSERT_TRUE(graph_.Render_Associated_Audio(Support::Media().Associated_Wav));
    EXPECT_EQ(Heard_Tone(), 1320);
    graph_.Disconnect_Audio_Streams(true, 3);
    graph_.Connect_Audio_Stream(2);
    EXPECT_EQ(Heard_Tone(), 660);
}

TEST_F(Audio_Choice, AnAssociatedFileThatHoldsNoSoundIsRefusedAndTheFileKeepsPlaying)
{
    Open(Support::Media().Avi_Three_Streams);
    graph_.Record_Audio_Pins(true, 3);
    EXPECT_FALSE(graph_.Render_Associated_Audio(Support::Media().Not_Media));
    EXPECT_FALSE(graph_.Last_Error().isEmpty());
    EXPECT_FALSE(graph_.Render_Associated_Audio(QStringLiteral("/no/such/file.wav")));
    QSignalSpy errors(&graph_, &Media_Graph::Error_Occurred);
    EXPECT_EQ(Heard_Tone(), 440);
    QTest::qWait(50);
    EXPECT_EQ(errors.count(), 0) << "the refused file's own error reached the session";
    EXPECT_TRUE(graph_.Is_Open());
}

TEST_F(Audio_Choice, AnAudioOnlyFileNumbersItsStreamFromZero)
{
    Open(Support::Media().Mp3);
    graph_.Record_Audio_Pins(false, 1);
    EXPECT_EQ(graph_.Recorded_Streams(), (std::vector<int>{0}));
    EXPECT_FALSE(graph_.Find_Splitter());
    graph_.Disconnect_Audio_Streams(false, 1);
    graph_.Connect_Audio_Stream(0);
    probe_->Drain();
    graph_.Run();
    const std::vector<float> samples = Support::Joined(probe_->Record(300ms), 3);
    graph_.Stop();
    EXPECT_EQ(Support::Dominant_Tone(samples, {330, 550, 770, 1000}), 770);
}

TEST_F(Audio_Choice, TheVcdSplitterGivesItsOneAudioStreamNumberOne)
{
    Open(Support::Media().Vcd_Dat);
    EXPECT_TRUE(graph_.Find_Splitter());
    graph_.Record_Audio_Pins(true, 1);
    EXPECT_EQ(graph_.Recorded_Streams(), (std::vector<int>{1}));
}

} // namespace
} // namespace Orvane

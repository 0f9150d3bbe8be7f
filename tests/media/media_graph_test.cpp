// The open file's pipeline: opening, transport, positions, volume, output,
// pictures, failures and the signals of a running pipeline.
#include "audio_probe.h"
#include "media/gst_media_graph.h"
#include "ui/video_widget.h"
#include "support/generated_media.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <cmath>
#include <sys/stat.h>

namespace Orvane {
namespace {

using namespace std::chrono_literals;
namespace Support = Orvane::Test;

Element_Ref Child(const Gst_Media_Graph& graph, const char* name)
{
    return Element_Ref::Adopt(gst_bin_get_by_name(GST_BIN(graph.Pipeline()), name));
}

void Post_Error(GstElement* pipeline, const char* text)
{
    GError* error = g_error_new_literal(GST_STREAM_ERROR, GST_STREAM_ERROR_DECODE, text);
    gst_element_post_message(pipeline, gst_message_new_error(GST_OBJECT(pipeline), error, nullptr));
    g_error_free(error);
}

TEST(Media_Graph_Open, FilesOpenPausedAtTheStartWithDurationPictureSizeAndANewId)
{
    struct Case {
        QString path;
        double duration;
        QSize picture;
    };
    Gst_Media_Graph graph;
    int previous_id = 0;
    for (const Case& file : {Case{Support::Media().Avi_Three_Streams, 4.0, QSize(320, 240)},
                             Case{Support::Media().Vcd_Dat, 3.0, QSize(352, 288)},
                             Case{Support::Media().Wav, 3.0, QSize()}}) {
        SCOPED_TRACE(file.path.toStdString());
        ASSERT_TRUE(graph.Open_Graph(file.path)) << graph.Last_Error().toStdString();
        EXPECT_NEAR(graph.Duration(), file.duration, 0.15);
        EXPECT_EQ(graph.Video_Size(), file.picture);
        // At its first frame: 0, or a little after for an MPEG system stream.
        EXPECT_LT(graph.Current_Position(), 0.3);
        GstState state = GST_STATE_VOID_PENDING;
        gst_element_get_state(graph.Pipeline(), &state, nullptr, 0);
        EXPECT_EQ(state, GST_STATE_PAUSED);
        EXPECT_GT(graph.Pipeline_Id(), previous_id);
        previous_id = graph.Pipeline_Id();
    }
    graph.Close_Graph();
    EXPECT_FALSE(graph.Is_Open());
    EXPECT_EQ(graph.Pipeline(), nullptr);
    EXPECT_EQ(graph.Pipeline_Id(), 0);
    EXPECT_EQ(graph.Duration(), 0.0);
}

TEST(Media_Graph_Open, FilesThatCannotBePlayedFailCleanlyAndLeaveTheGraphUsable)
{
    Gst_Media_Graph graph;
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Wav));
    // A named pipe nothing writes to would hold the open (and the window) for ever.
    const Support::Temp_Folder folder;
    const QString pipe = folder.File(QStringLiteral("pipe.avi"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    for (const QString& path : {Support::Media().Not_Media, Support::Media().Truncated_Avi,
                                QStringLiteral("/no/such/file.avi"), pipe}) {
        SCOPED_TRACE(path.toStdString());
        EXPECT_FALSE(graph.Open_Graph(path));
        EXPECT_FALSE(graph.Last_Error().isEmpty());
        EXPECT_FALSE(graph.Is_Open());
        EXPECT_EQ(graph.Pipeline(), nullptr);
        graph.Run();  // harmless on a closed graph
        graph.Set_Current_Position(1.0);
        graph.Connect_Audio_Stream(1);
        EXPECT_EQ(graph.Current_Position(), 0.0);
    }
    EXPECT_TRUE(graph.Open_Graph(Support::Media().Mp2));
    EXPECT_TRUE(graph.Last_Error().isEmpty());
}

TEST(Media_Graph_Transport, PositionsSeekRunAndStopKeepingThePosition)
{
    Gst_Media_Graph graph;
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Avi_One_Stream));
    graph.Set_Current_Position(1.25);
    EXPECT_NEAR(graph.Current_Position(), 1.25, 0.02);
    graph.Set_Current_Position(-3.0);
    EXPECT_NEAR(graph.Current_Position(), 0.0, 0.02);

    graph.Set_Current_Position(0.5);
    graph.Run();
    ASSERT_TRUE(QTest::qWaitFor([&] { return graph.Current_Position() > 0.7; }, 3000));
    const double played = graph.Current_Position();
    graph.Stop();
    const double stopped = graph.Current_Position();
    EXPECT_GE(stopped, played);
    // Time passes while the frames of another pipeline are decoded.
    Gst_Media_Graph other;
    ASSERT_TRUE(other.Open_Graph(Support::Media().Wav));
    other.Run();
    ASSERT_TRUE(QTest::qWaitFor([&] { return other.Current_Position() > 0.2; }, 3000));
    EXPECT_NEAR(graph.Current_Position(), stopped, 0.05) << "a stopped graph keeps its place";

    graph.Save_Position();
    graph.Set_Current_Position(2.5);
    graph.Restore_Position();
    EXPECT_NEAR(graph.Current_Position(), stopped, 0.02);
}

TEST(Media_Graph_Transport, EndAndErrorsAreSignalledFromTheEventLoopWithThePipelineId)
{
    Gst_Media_Graph graph;
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Avi_One_Stream));
    QSignalSpy ends(&graph, &Media_Graph::End_Of_Stream);
    QSignalSpy errors(&graph, &Media_Graph::Error_Occurred);
    graph.Set_Current_Position(graph.Duration() - 0.2);
    graph.Run();
    EXPECT_FALSE(graph.End_Reached());
    ASSERT_TRUE(ends.wait(3000));
    EXPECT_EQ(ends.at(0).at(0).toInt(), graph.Pipeline_Id());
    EXPECT_TRUE(graph.End_Reached());
    graph.Set_Current_Position(0.5);
    EXPECT_FALSE(graph.End_Reached()) << "moving away from the end leaves it";
    graph.Stop();

    Post_Error(graph.Pipeline(), "broken frame");
    EXPECT_EQ(errors.count(), 0) << "signals wait for the event loop";
    ASSERT_TRUE(errors.wait(2000));
    EXPECT_EQ(errors.at(0).at(0).toInt(), graph.Pipeline_Id());
    EXPECT_EQ(errors.at(0).at(1).toString(), QStringLiteral("broken frame"));
    EXPECT_EQ(graph.Last_Error(), QStringLiteral("broken frame"));

    // What a pipeline left on its bus when it was closed never arrives: the
    // next pipeline's own message, posted after them, comes alone.
    gst_element_post_message(graph.Pipeline(), gst_message_new_eos(GST_OBJECT(graph.Pipeline())));
    Post_Error(graph.Pipeline(), "stale");
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Wav));
    EXPECT_TRUE(graph.Last_Error().isEmpty());
    Post_Error(graph.Pipeline(), "next");
    ASSERT_TRUE(QTest::qWaitFor([&] { return errors.count() >= 2; }, 2000));
    EXPECT_EQ(errors.count(), 2);
    EXPECT_EQ(errors.at(1).at(1).toString(), QStringLiteral("next"));
    EXPECT_EQ(ends.count(), 1);
    EXPECT_FALSE(graph.End_Reached());
}

TEST(Media_Graph_Volume, HundredthsOfADecibelBecomeTheGainThatReachesTheOutput)
{
    Support::Audio_Output_Override output(Support::Probe_Output);
    Gst_Media_Graph graph;
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Wav));
    const auto gain = [&] {
        double linear = -1.0;
        g_object_get(Child(graph, "audio_volume").get(), "volume", &linear, nullptr);
        return linear;
    };
    for (int level = 0; level <= 6; ++level) {
        graph.Set_Volume(level * 500 - 3000);
        EXPECT_NEAR(gain(), std::pow(10.0, (level * 500 - 3000) / 2000.0), 1e-6) << level;
    }
    graph.Set_Volume(-20000);  // beyond the range: the quietest the volume knows
    EXPECT_NEAR(gain(), 1e-5, 1e-7);
    graph.Set_Volume(500);
    EXPECT_NEAR(gain(), 1.0, 1e-6);

    Support::Audio_Probe probe(graph.Pipeline());
    ASSERT_TRUE(probe.Found());
    const auto loudness = [&](int hundredths) {
        graph.Set_Volume(hundredths);
        graph.Set_Current_Position(0.5);
        probe.Drain();
        graph.Run();
        const double rms = Support::Rms(Support::Joined(probe.Record(200ms), 2));
        graph.Stop();
        return rms;
    };
    const double full = loudness(0);
    ASSERT_GT(full, 0.1);
    EXPECT_NEAR(loudness(-2000) / full, 0.1, 0.01);
}

TEST(Media_Graph_Output, WithoutAUsableOutputTheClockRunsOnThroughASilentSink)
{
    // Unset, or a description that cannot be built: the system's output, or
    // without a device (as on a build machine) a fakesink that keeps time.
    for (const char* description : {"", "no_such_element_anywhere ! fakesink"}) {
        SCOPED_TRACE(description);
        Support::Audio_Output_Override output(description);
        Gst_Media_Graph graph;
        ASSERT_TRUE(graph.Open_Graph(Support::Media().Wav)) << graph.Last_Error().toStdString();
        const Element_Ref silent = Child(graph, "silent_audio_output");
        ASSERT_TRUE(silent || Child(graph, "audio_output"));
        gboolean sync = TRUE;
        if (silent)
            g_object_get(silent.get(), "sync", &sync, nullptr);
        EXPECT_TRUE(sync) << "a silent output must still play in time";
        QElapsedTimer clock;
        clock.start();
        graph.Run();
        ASSERT_TRUE(QTest::qWaitFor([&] { return graph.Current_Position() > 0.15; }, 3000));
        // In time: the position never runs ahead of the wall clock.
        EXPECT_LT(graph.Current_Position(), clock.elapsed() / 1000.0 + 0.1);
    }
}

// The frames themselves (preroll, seek, resize, expose) are the video frame tests' business.
TEST(Media_Graph_Video, WhenTheWidgetGoesTheGraphDropsItsFramesAndPlaysOn)
{
    Gst_Media_Graph graph;
    auto widget = std::make_unique<Video_Widget>();
    graph.Set_Video_Widget(widget.get());
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Avi_One_Stream));
    ASSERT_TRUE(QTest::qWaitFor([&] { return widget->Has_Frame(); }, 2000));
    widget.reset();
    graph.Run();
    ASSERT_TRUE(QTest::qWaitFor([&] { return graph.Current_Position() > 0.3; }, 3000)) << "played on";
    graph.Stop();
}

} // namespace
} // namespace Orvane

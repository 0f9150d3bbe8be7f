// The open file's pipeline: opening and closing, transport, positions,
// volume, failures and the signals of a pipeline that runs.
#include "audio_probe.h"
#include "media/gst_media_graph.h"
#include "media/video_widget.h"
#include "support/generated_media.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>
#include <cmath>
#include <deque>

namespace Orvane {
namespace {

using namespace std::chrono_literals;
namespace Support = Orvane::Test;

double Volume_Property(const Gst_Media_Graph& graph)
{
    const Element_Ref volume = Element_Ref::Adopt(gst_bin_get_by_name(GST_BIN(graph.Pipeline()), "audio_volume"));
    double linear = -1.0;
    if (volume)
        g_object_get(volume.get(), "volume", &linear, nullptr);
    return linear;
}

TEST(Media_Graph_Open, AFileOpensPausedAtTheStartWithItsDurationAndPictureSize)
{
    Gst_Media_Graph graph;
    EXPECT_FALSE(graph.Is_Open());
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Avi_Three_Streams)) << graph.Last_Error().toStdString();
    EXPECT_TRUE(graph.Is_Open());
    EXPECT_NEAR(graph.Duration(), 4.0, 0.15);
    EXPECT_EQ(graph.Video_Size(), QSize(320, 240));
    EXPECT_NEAR(graph.Current_Position(), 0.0, 0.01);
    GstState state = GST_STATE_VOID_PENDING;
    gst_element_get_state(graph.Pipeline(), &state, nullptr, 0);
    EXPECT_EQ(state, GST_STATE_PAUSED);

    ASSERT_TRUE(graph.Open_Graph(Support::Media().Vcd_Dat));
    EXPECT_EQ(graph.Video_Size(), QSize(352, 288));
    EXPECT_NEAR(graph.Duration(), 3.0, 0.15);

    ASSERT_TRUE(graph.Open_Graph(Support::Media().Wav));
    EXPECT_TRUE(graph.Video_Size().isEmpty());
    EXPECT_NEAR(graph.Duration(), 3.0, 0.05);

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
    for (const QString& path : {Support::Media().Not_Media, Support::Media().Truncated_Avi,
                                QStringLiteral("/no/such/file.avi")}) {
        EXPECT_FALSE(graph.Open_Graph(path)) << path.toStdString();
        EXPECT_FALSE(graph.Last_Error().isEmpty()) << path.toStdString();
        EXPECT_FALSE(graph.Is_Open());
        EXPECT_EQ(graph.Pipeline(), nullptr);
        // Operations on a closed graph are harmless.
        graph.Run();
        graph.Set_Current_Position(1.0);
        graph.Connect_Audio_Stream(1);
        EXPECT_EQ(graph.Current_Position(), 0.0);
    }
    EXPECT_TRUE(graph.Open_Graph(Support::Media().Mp2));
    EXPECT_TRUE(graph.Last_Error().isEmpty());
}

TEST(Media_Graph_Open, EveryOpenGetsAPipelineIdOfItsOwn)
{
    Gst_Media_Graph graph;
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Wav));
    const int first = graph.Pipeline_Id();
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Wav));
    const int second = graph.Pipeline_Id();
    EXPECT_GT(first, 0);
    EXPECT_NE(first, second);
    EXPECT_FALSE(graph.Open_Graph(Support::Media().Not_Media));
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Wav));
    EXPECT_NE(graph.Pipeline_Id(), first);
    EXPECT_NE(graph.Pipeline_Id(), second);
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
    QTest::qWait(400);
    const double played = graph.Current_Position();
    EXPECT_GT(played, 0.7);
    EXPECT_LT(played, 1.5);

    graph.Stop();
    QTest::qWait(50);
    const double stopped = graph.Current_Position();
    QTest::qWait(200);
    EXPECT_NEAR(graph.Current_Position(), stopped, 0.01) << "a stopped graph keeps its place";
    EXPECT_GE(stopped, played);

    graph.Save_Position();
    graph.Set_Current_Position(2.5);
    graph.Restore_Position();
    EXPECT_NEAR(graph.Current_Position(), stopped, 0.02);
}

TEST(Media_Graph_Transport, TheEndOfTheFileIsSignalledWithThePipelineId)
{
    Gst_Media_Graph graph;
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Avi_One_Stream));
    QSignalSpy ends(&graph, &Media_Graph::End_Of_Stream);
    graph.Set_Current_Position(graph.Duration() - 0.2);
    graph.Run();
    ASSERT_TRUE(ends.wait(3000));
    EXPECT_EQ(ends.takeFirst().at(0).toInt(), graph.Pipeline_Id());
}

TEST(Media_Graph_Transport, AnErrorWhilePlayingIsSignalledOnceFromTheEventLoop)
{
    Gst_Media_Graph graph;
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Avi_One_Stream));
    QSignalSpy errors(&graph, &Media_Graph::Error_Occurred);
    graph.Run();
    GError* error = g_error_new_literal(GST_STREAM_ERROR, GST_STREAM_ERROR_DECODE, "broken frame");
    gst_element_post_message(graph.Pipeline(),
                             gst_message_new_error(GST_OBJECT(graph.Pipeline()), error, "test"));
    g_error_free(error);
    EXPECT_EQ(errors.count(), 0) << "signals wait for the event loop";
    ASSERT_TRUE(errors.wait(2000));
    QTest::qWait(50);
    ASSERT_EQ(errors.count(), 1);
    EXPECT_EQ(errors.at(0).at(0).toInt(), graph.Pipeline_Id());
    EXPECT_EQ(errors.at(0).at(1).toString(), QStringLiteral("broken frame"));
    EXPECT_EQ(graph.Last_Error(), QStringLiteral("broken frame"));
}

TEST(Media_Graph_Transport, MessagesLeftOnAClosedPipelineNeverReachTheSession)
{
    Gst_Media_Graph graph;
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Avi_One_Stream));
    QSignalSpy ends(&graph, &Media_Graph::End_Of_Stream);
    QSignalSpy errors(&graph, &Media_Graph::Error_Occurred);
    gst_element_post_message(graph.Pipeline(), gst_message_new_eos(GST_OBJECT(graph.Pipeline())));
    GError* error = g_error_new_literal(GST_STREAM_ERROR, GST_STREAM_ERROR_FAILED, "stale");
    gst_element_post_message(graph.Pipeline(), gst_message_new_error(GST_OBJECT(graph.Pipeline()), error, nullptr));
    g_error_free(error);
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Wav));
    QTest::qWait(200);
    EXPECT_EQ(ends.count(), 0);
    EXPECT_EQ(errors.count(), 0);
    EXPECT_TRUE(graph.Last_Error().isEmpty());
}

TEST(Media_Graph_Volume, HundredthsOfADecibelBecomeTheLinearGainOfTheVolumeElement)
{
    EXPECT_NEAR(Gst_Media_Graph::Linear_Gain(-3000), 0.0316228, 1e-6);
    EXPECT_NEAR(Gst_Media_Graph::Linear_Gain(-2000), 0.1, 1e-9);
    EXPECT_DOUBLE_EQ(Gst_Media_Graph::Linear_Gain(0), 1.0);

    Gst_Media_Graph graph;
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Avi_One_Stream));
    for (int level = 0; level <= 6; ++level) {
        const int hundredths = level * 500 - 3000;
        graph.Set_Volume(hundredths);
        EXPECT_NEAR(Volume_Property(graph), std::pow(10.0, hundredths / 2000.0), 1e-6) << hundredths;
    }
    graph.Set_Volume(-20000);  // beyond the range of the volume: the quietest it knows
    EXPECT_NEAR(Volume_Property(graph), 1e-5, 1e-7);
    graph.Set_Volume(500);
    EXPECT_NEAR(Volume_Property(graph), 1.0, 1e-6);
}

TEST(Media_Graph_Volume, TheGainIsWhatReachesTheOutput)
{
    Support::Audio_Output_Override output(Support::Probe_Output);
    Gst_Media_Graph graph;
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Wav));
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
    const double quiet = loudness(-2000);
    ASSERT_GT(full, 0.1);
    EXPECT_NEAR(quiet / full, 0.1, 0.01);
}

TEST(Media_Graph_Output, WithoutAUsableDeviceTheClockRunsOnThroughASilentSink)
{
    // Unset: the system's own output. Without a device (as on a build
    // machine) a fakesink that keeps time takes its place.
    Support::Audio_Output_Override output("");
    Gst_Media_Graph graph;
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Wav));
    const Element_Ref silent = Element_Ref::Adopt(gst_bin_get_by_name(GST_BIN(graph.Pipeline()), "silent_audio_output"));
    const Element_Ref device = Element_Ref::Adopt(gst_bin_get_by_name(GST_BIN(graph.Pipeline()), "audio_output"));
    ASSERT_TRUE(silent || device);
    if (silent) {
        gboolean sync = FALSE;
        g_object_get(silent.get(), "sync", &sync, nullptr);
        EXPECT_TRUE(sync) << "a silent output must still play in time";
    }
    graph.Run();
    QTest::qWait(300);
    EXPECT_GT(graph.Current_Position(), 0.15);
    EXPECT_LT(graph.Current_Position(), 1.0) << "played in time, not as fast as it decodes";
}

TEST(Media_Graph_Output, AnOutputDescriptionThatCannotBeBuiltFallsBackToTheDefault)
{
    Support::Audio_Output_Override output("no_such_element_anywhere ! fakesink");
    Gst_Media_Graph graph;
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Wav)) << graph.Last_Error().toStdString();
    const Element_Ref silent = Element_Ref::Adopt(gst_bin_get_by_name(GST_BIN(graph.Pipeline()), "silent_audio_output"));
    const Element_Ref device = Element_Ref::Adopt(gst_bin_get_by_name(GST_BIN(graph.Pipeline()), "audio_output"));
    EXPECT_TRUE(silent || device);
}

TEST(Media_Graph_Video, FramesReachTheWidgetOnTheGuiThreadAndStopWhenItGoes)
{
    Gst_Media_Graph graph;
    auto widget = std::make_unique<Video_Widget>();
    widget->resize(160, 120);
    graph.Set_Video_Widget(widget.get());
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Avi_One_Stream));
    // The prerolled picture arrives without playing.
    ASSERT_TRUE(QTest::qWaitFor([&] { return widget->Has_Frame(); }, 2000));
    EXPECT_EQ(widget->Last_Frame().size(), QSize(320, 240));
    // The test pattern's top-left bar is light grey, not black.
    EXPECT_GT(qGray(widget->Last_Frame().pixel(5, 5)), 150);

    widget->Clear_Frame();
    graph.Set_Current_Position(1.0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return widget->Has_Frame(); }, 2000)) << "the frame after a seek";

    widget.reset();  // the graph must notice and drop frames
    graph.Run();
    QTest::qWait(200);
    graph.Set_Video_Widget(nullptr);
    graph.Stop();
}

// Weak references to every object of a pipeline, to see them all go.
class Weak_Objects {
public:
    explicit Weak_Objects(GstElement* pipeline) { Watch(GST_OBJECT(pipeline)); }
    ~Weak_Objects()
    {
        for (GWeakRef& ref : refs_)
            g_weak_ref_clear(&ref);
    }
    void Watch_Everything_In(GstBin* bin)
    {
        GstIterator* iterator = gst_bin_iterate_recurse(bin);
        GValue item = G_VALUE_INIT;
        while (gst_iterator_next(iterator, &item) == GST_ITERATOR_OK) {
            auto* element = GST_ELEMENT(g_value_get_object(&item));
            Watch(GST_OBJECT(element));
            for (GList* pad = element->pads; pad; pad = pad->next)
                Watch(GST_OBJECT(pad->data));
            g_value_reset(&item);
        }
        g_value_unset(&item);
        gst_iterator_free(iterator);
    }
    int Alive()
    {
        int alive = 0;
        for (GWeakRef& ref : refs_) {
            if (GObject* object = static_cast<GObject*>(g_weak_ref_get(&ref))) {
                ++alive;
                g_object_unref(object);
            }
        }
        return alive;
    }
    size_t Watched() const { return refs_.size(); }

private:
    void Watch(GstObject* object)
    {
        refs_.emplace_back();
        g_weak_ref_init(&refs_.back(), object);
    }
    std::deque<GWeakRef> refs_;
};

TEST(Media_Graph_Lifetime, ClosingReleasesEveryElementAndPadOfThePipeline)
{
    Support::Audio_Output_Override output(Support::Probe_Output);
    Gst_Media_Graph graph;
    Video_Widget widget;
    graph.Set_Video_Widget(&widget);
    ASSERT_TRUE(graph.Open_Graph(Support::Media().Avi_Three_Streams));
    graph.Record_Audio_Pins(true, 3);
    graph.Disconnect_Audio_Streams(true, 3);
    ASSERT_TRUE(graph.Render_Associated_Audio(Support::Media().Associated_Wav));
    EXPECT_FALSE(graph.Render_Associated_Audio(Support::Media().Not_Media));
    graph.Run();
    QTest::qWait(200);
    graph.Set_Current_Position(1.0);

    Weak_Objects objects(graph.Pipeline());
    objects.Watch_Everything_In(GST_BIN(graph.Pipeline()));
    ASSERT_GT(objects.Watched(), 40u);
    graph.Close_Graph();
    QTest::qWait(50);
    EXPECT_EQ(objects.Alive(), 0);
}

} // namespace
} // namespace Orvane

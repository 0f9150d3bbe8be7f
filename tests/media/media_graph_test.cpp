// The open file's pipeline: opening, failures, the signals of a running
// pipeline, the graph dumped when opening fails, and its pictures. A picture
// painted is the decoded buffer itself: it must stay readable as long as it
// is shown, whatever becomes of its pipeline, land in its own place of the
// window's buffer, and keep showing through resizes and exposes. (Positions
// and the sound heard are in the audio choice tests.)
#include "media/gst_media_graph.h"
#include "ui/video_widget.h"
#include "support/generated_media.h"
#include "support/hostile_files.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <QBackingStore>
#include <QDir>
#include <QSignalSpy>
#include <QTest>
#include <tuple>

namespace Orvane {
namespace {

using namespace Orvane::Test;

void Post_Error(GstElement* pipeline, const char* text)
{
    GError* error = g_error_new_literal(GST_STREAM_ERROR, GST_STREAM_ERROR_DECODE, text);
    gst_element_post_message(pipeline, gst_message_new_error(GST_OBJECT(pipeline), error, nullptr));
    g_error_free(error);
}

TEST(Media_Graph_Open, FilesOpenAtTheStartWithANewIdAndThoseThatCannotBePlayedFailCleanly)
{
    const std::tuple<QString, double, QSize> files[] = {{Media().Avi_Three_Streams, 4.0, QSize(320, 240)},
                                                        {Media().Vcd_Dat, 3.0, QSize(352, 288)},
                                                        {Media().Wav, 3.0, QSize()}};
    Gst_Media_Graph graph;
    int previous_id = 0;
    for (const auto& [path, duration, picture] : files) {
        SCOPED_TRACE(path.toStdString());
        ASSERT_TRUE(graph.Open_Graph(path)) << graph.Last_Error().toStdString();
        EXPECT_NEAR(graph.Duration(), duration, 0.15);
        EXPECT_EQ(graph.Video_Size(), picture);
        // At its first frame: 0, or a little after for an MPEG system stream.
        EXPECT_LT(graph.Current_Position(), 0.3);
        // A late signal of the previous pipeline must be told apart.
        EXPECT_GT(graph.Pipeline_Id(), previous_id);
        previous_id = graph.Pipeline_Id();
    }
    // A named pipe nothing writes to would hold the open (and the window) for ever.
    const Temp_Folder folder;
    const QString pipe = folder.File(QStringLiteral("pipe.avi"));
    ASSERT_TRUE(Make_Named_Pipe(pipe));
    for (const QString& path : {Media().Not_Media, Media().Truncated_Avi, QStringLiteral("/no/such/file.avi"), pipe}) {
        SCOPED_TRACE(path.toStdString());
        EXPECT_FALSE(graph.Open_Graph(path));
        EXPECT_FALSE(graph.Last_Error().isEmpty());
        EXPECT_FALSE(graph.Is_Open());
        graph.Run();  // harmless on a closed graph
        graph.Set_Current_Position(1.0);
        graph.Connect_Audio_Stream(1);
        EXPECT_EQ(graph.Current_Position(), 0.0);
    }
    EXPECT_TRUE(graph.Open_Graph(Media().Mp2)) << "the graph is still usable";
    EXPECT_TRUE(graph.Last_Error().isEmpty());
}

TEST(Media_Graph_Signals, EndAndErrorsComeFromTheEventLoopWithThePipelineIdAndNeverFromAClosedPipeline)
{
    Gst_Media_Graph graph;
    ASSERT_TRUE(graph.Open_Graph(Media().Wav));
    QSignalSpy ends(&graph, &Media_Graph::End_Of_Stream);
    QSignalSpy errors(&graph, &Media_Graph::Error_Occurred);
    graph.Set_Current_Position(graph.Duration() - 0.2);
    graph.Run();
    ASSERT_TRUE(ends.wait(3000));
    EXPECT_EQ(ends.at(0).at(0).toInt(), graph.Pipeline_Id());
    EXPECT_TRUE(graph.End_Reached());
    graph.Set_Current_Position(-3.0);
    EXPECT_FALSE(graph.End_Reached()) << "moving away from the end leaves it";
    EXPECT_NEAR(graph.Current_Position(), 0.0, 0.02) << "no place before the start";

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
    ASSERT_TRUE(graph.Open_Graph(Media().Wav));
    EXPECT_TRUE(graph.Last_Error().isEmpty());
    Post_Error(graph.Pipeline(), "next");
    ASSERT_TRUE(QTest::qWaitFor([&] { return errors.count() >= 2; }, 2000));
    EXPECT_EQ(errors.count(), 2);
    EXPECT_EQ(errors.at(1).at(1).toString(), QStringLiteral("next"));
    EXPECT_EQ(ends.count(), 1);
    EXPECT_FALSE(graph.End_Reached());
}

TEST(Pipeline_Graph_Dump, AFileThatFailsToOpenLeavesItsGraphInTheDumpFolder)
{
    const QString folder = qEnvironmentVariable("GST_DEBUG_DUMP_DOT_DIR");
    if (folder.isEmpty())
        GTEST_SKIP() << "run by ctest with GST_DEBUG_DUMP_DOT_DIR set";
    ASSERT_TRUE(QDir().mkpath(folder));
    const auto dumps = [&] { return QDir(folder).entryList({"*orvane-preroll-error.dot"}, QDir::Files).size(); };
    const qsizetype before = dumps();
    Gst_Media_Graph graph;
    ASSERT_FALSE(graph.Open_Graph(Media().Not_Media));
    EXPECT_EQ(dumps(), before + 1) << "the pipeline's graph is written where the user asked for it";
}

class Video_Frames : public testing::Test {
protected:
    Gst_Media_Graph graph_;
    std::unique_ptr<Video_Widget> widget_ = std::make_unique<Video_Widget>();

    void Open(Video_Widget& widget, const QString& path)
    {
        graph_.Set_Video_Widget(&widget);
        ASSERT_TRUE(graph_.Open_Graph(path)) << graph_.Last_Error().toStdString();
        ASSERT_TRUE(QTest::qWaitFor([&] { return widget.Has_Frame(); }, 3000)) << "no prerolled picture";
    }
    QImage Painted() { return widget_->grab().toImage(); }
};

TEST_F(Video_Frames, APictureOutlivesItsPipelineUnchanged)
{
    Open(*widget_, Media().Avi_One_Stream);
    const QImage before = widget_->Last_Frame().copy();
    graph_.Set_Video_Widget(nullptr);
    graph_.Close_Graph();
    // Another pipeline decodes into whatever memory the first gave back.
    ASSERT_TRUE(graph_.Open_Graph(Media().Vcd_Dat));
    graph_.Run();
    ASSERT_TRUE(QTest::qWaitFor([&] { return graph_.Current_Position() > 0.1; }, 3000));
    graph_.Close_Graph();
    EXPECT_EQ(widget_->Last_Frame(), before);
    EXPECT_EQ(Painted().size(), widget_->size());
}

TEST_F(Video_Frames, AfterAResizeThePipelineSendsFramesOfTheNewSize)
{
    widget_->resize(320, 240);
    widget_->show();
    Open(*widget_, Media().Avi_One_Stream);
    graph_.Run();
    widget_->resize(640, 360);
    ASSERT_TRUE(QTest::qWaitFor([&] { return widget_->Last_Frame().size() == QSize(640, 360); }, 3000))
        << "frames stayed at " << widget_->Last_Frame().width() << "x" << widget_->Last_Frame().height();
    const QImage painted = Painted();
    const QImage frame = widget_->Last_Frame();  // the one just painted: no event came between
    graph_.Stop();
    EXPECT_EQ(painted.convertToFormat(QImage::Format_RGB32), frame.convertToFormat(QImage::Format_RGB32));
    EXPECT_EQ(graph_.Video_Size(), QSize(320, 240)) << "scaling leaves the file's own video size";
}

TEST_F(Video_Frames, APausedFrameIsWrittenIntoItsOwnPlaceOfTheWindowsBufferAndSurvivesAnExpose)
{
    QWidget window;
    window.resize(400, 300);
    window.setPalette(QPalette(Qt::magenta, Qt::magenta));
    window.setAutoFillBackground(true);
    auto* video = new Video_Widget(&window);
    video->setGeometry(30, 20, 320, 240);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    Open(*video, Media().Avi_One_Stream);
    const quint64 prerolled = video->Frames_Received();
    graph_.Set_Current_Position(1.0);
    // The picture of the paused seek is the one shown.
    ASSERT_TRUE(QTest::qWaitFor([&] { return video->Frames_Received() > prerolled; }, 3000));
    for (const char* when : {"before", "after an expose"}) {
        SCOPED_TRACE(when);
        window.repaint();
        auto* buffer = dynamic_cast<QImage*>(window.backingStore()->paintDevice());
        ASSERT_NE(buffer, nullptr) << "the platform's window buffer is not an image";
        EXPECT_EQ(buffer->copy(30, 20, 320, 240).convertToFormat(QImage::Format_RGB32), video->Last_Frame());
        // Nothing is written left of the widget's first column or below its last row.
        EXPECT_EQ(buffer->pixel(29, 100), qRgb(255, 0, 255));
        EXPECT_EQ(buffer->pixel(100, 260), qRgb(255, 0, 255));
        window.hide();
        QCoreApplication::processEvents();
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
}

TEST_F(Video_Frames, WhenTheWidgetGoesTheGraphDropsItsFramesAndPlaysOn)
{
    Open(*widget_, Media().Avi_One_Stream);
    widget_.reset();
    graph_.Run();
    ASSERT_TRUE(QTest::qWaitFor([&] { return graph_.Current_Position() > 0.3; }, 3000)) << "played on";
}

} // namespace
} // namespace Orvane

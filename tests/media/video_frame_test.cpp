// The picture painted is the decoded buffer itself: it must stay readable as
// long as it is shown, whatever becomes of its pipeline, land in the right
// place of the window's buffer, and keep showing through resizes and exposes.
#include "media/gst_media_graph.h"
#include "ui/video_widget.h"
#include "support/generated_media.h"

#include <gtest/gtest.h>

#include <QBackingStore>
#include <QTest>

namespace Orvane {
namespace {

namespace Support = Orvane::Test;

class Video_Frames : public testing::Test {
protected:
    Gst_Media_Graph graph_;
    Video_Widget widget_;

    void Open(const QString& path)
    {
        widget_.Clear_Frame();
        graph_.Set_Video_Widget(&widget_);
        ASSERT_TRUE(graph_.Open_Graph(path)) << graph_.Last_Error().toStdString();
        ASSERT_TRUE(QTest::qWaitFor([&] { return widget_.Has_Frame(); }, 3000)) << "no prerolled picture";
    }
    // Waits for a frame other than the one shown now.
    bool Next_Frame()
    {
        const quint64 shown = widget_.Frames_Received();
        return QTest::qWaitFor([&] { return widget_.Frames_Received() > shown; }, 3000);
    }
    QImage Painted() { return widget_.grab().toImage(); }
};

TEST_F(Video_Frames, APictureOutlivesItsPipelineUnchanged)
{
    Open(Support::Media().Avi_One_Stream);
    const QImage before = widget_.Last_Frame().copy();
    graph_.Set_Video_Widget(nullptr);
    graph_.Close_Graph();
    // Another pipeline decodes into whatever memory the first gave back.
    ASSERT_TRUE(graph_.Open_Graph(Support::Media().Vcd_Dat));
    graph_.Run();
    ASSERT_TRUE(QTest::qWaitFor([&] { return graph_.Current_Position() > 0.1; }, 3000));
    graph_.Close_Graph();
    EXPECT_EQ(widget_.Last_Frame(), before);
    EXPECT_EQ(Painted().size(), widget_.size());
}

TEST_F(Video_Frames, AfterAResizeThePipelineSendsFramesOfTheNewSize)
{
    widget_.resize(320, 240);
    widget_.show();
    Open(Support::Media().Avi_One_Stream);
    graph_.Run();
    ASSERT_TRUE(Next_Frame());
    widget_.resize(640, 360);
    ASSERT_TRUE(QTest::qWaitFor([&] { return widget_.Last_Frame().size() == QSize(640, 360); }, 3000))
        << "frames stayed at " << widget_.Last_Frame().width() << "x" << widget_.Last_Frame().height();
    const QImage painted = Painted();
    const QImage frame = widget_.Last_Frame();  // the one just painted: no event came between
    graph_.Stop();
    EXPECT_EQ(painted.convertToFormat(QImage::Format_RGB32), frame.convertToFormat(QImage::Format_RGB32));
}

TEST_F(Video_Frames, ScalingLeavesTheVideoSizeTheFilesOwn)
{
    widget_.resize(500, 100);
    widget_.show();
    Open(Support::Media().Avi_One_Stream);
    EXPECT_EQ(graph_.Video_Size(), QSize(320, 240));
}

TEST_F(Video_Frames, AFrameOfAnotherSizeIsStretchedOverTheWidget)
{
    widget_.resize(320, 240);
    widget_.show();
    Open(Support::Media().Avi_One_Stream);
    // Paused, no other frame comes to follow the new size.
    widget_.resize(640, 480);
    const QImage frame = widget_.Last_Frame();
    ASSERT_EQ(frame.size(), QSize(320, 240));
    const QImage painted = Painted();
    // The pattern's right-hand (blue) bar reaches the widget's right edge.
    EXPECT_NEAR(qBlue(painted.pixel(636, 8)), qBlue(frame.pixel(318, 4)), 24);
    EXPECT_NEAR(qRed(painted.pixel(636, 8)), qRed(frame.pixel(318, 4)), 24);
}

TEST_F(Video_Frames, AFrameIsWrittenIntoItsOwnPlaceOfTheWindowsBuffer)
{
    QWidget window;
    window.resize(400, 300);
    QPalette magenta;
    magenta.setColor(QPalette::Window, Qt::magenta);
    window.setPalette(magenta);
    window.setAutoFillBackground(true);
    auto* video = new Video_Widget(&window);
    video->setGeometry(30, 20, 320, 240);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    graph_.Set_Video_Widget(video);
    ASSERT_TRUE(graph_.Open_Graph(Support::Media().Avi_One_Stream));
    ASSERT_TRUE(QTest::qWaitFor([&] { return video->Has_Frame(); }, 3000)) << "no prerolled picture";
    window.repaint();
    auto* buffer = dynamic_cast<QImage*>(window.backingStore()->paintDevice());
    ASSERT_NE(buffer, nullptr) << "the platform's window buffer is not an image";
    const QImage area = buffer->copy(30, 20, 320, 240);
    EXPECT_EQ(area.convertToFormat(QImage::Format_RGB32), video->Last_Frame());
    // Nothing is written left of the widget's first column or below its last row.
    EXPECT_EQ(buffer->pixel(29, 100), qRgb(255, 0, 255));
    EXPECT_EQ(buffer->pixel(100, 260), qRgb(255, 0, 255));
}

TEST_F(Video_Frames, APausedPictureSurvivesAnExpose)
{
    widget_.resize(320, 240);
    widget_.show();
    Open(Support::Media().Avi_One_Stream);
    widget_.Clear_Frame();
    graph_.Set_Current_Position(1.0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return widget_.Has_Frame(); }, 3000)) << "no picture after the seek";
    const QImage before = Painted();
    ASSERT_GT(qGray(before.pixel(8, 8)), 150) << "the pattern's light grey bar, not black";
    widget_.hide();
    QCoreApplication::processEvents();
    widget_.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget_));
    EXPECT_TRUE(widget_.Has_Frame());
    EXPECT_EQ(Painted(), before);
}

} // namespace
} // namespace Orvane

// The picture painted is the decoded buffer itself: it must stay readable as
// long as it is shown, whatever becomes of its pipeline, and keep showing
// through resizes and exposes.
#include "media/gst_media_graph.h"
#include "ui/video_widget.h"
#include "support/generated_media.h"

#include <gtest/gtest.h>

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
        const qint64 shown = widget_.Last_Frame().cacheKey();
        return QTest::qWaitFor([&] { return widget_.Has_Frame() && widget_.Last_Frame().cacheKey() != shown; },
                               3000);
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
    widget_.resize(640, 360);
    widget_.show();
    QImage frame(320, 240, QImage::Format_RGB32);
    frame.fill(Qt::black);
    for (int y = 0; y < 240; ++y)
        frame.setPixel(319, y, qRgb(255, 255, 255));  // the right-hand column
    widget_.Show_Frame(frame);
    EXPECT_GT(qGray(Painted().pixel(639, 180)), 150);
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

// Messages of a real pipeline reach the GUI thread in the order GStreamer
// posts them.
#include "media/bus_watch.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QThread>
#include <set>

namespace Orvane {
namespace {

struct Seen {
    GstMessageType type;
    QString source;
    GstState new_state = GST_STATE_VOID_PENDING;
    guint32 seqnum = 0;
};

class Bus_Watch_Order : public testing::Test {
protected:
    void SetUp() override
    {
        pipeline_ = Element_Ref::Sink(gst_parse_launch(
            "audiotestsrc name=source num-buffers=10 samplesperbuffer=441 ! fakesink name=sink sync=true", nullptr));
        ASSERT_TRUE(pipeline_);
        watch_ = std::make_unique<Bus_Watch>(Bus_Ref::Adopt(gst_element_get_bus(pipeline_.get())),
                                             [this](GstMessage* message) { Record(message); });
    }
    void TearDown() override
    {
        watch_.reset();
        gst_element_set_state(pipeline_.get(), GST_STATE_NULL);
    }
    void Record(GstMessage* message)
    {
        on_gui_thread_ = on_gui_thread_ && QThread::currentThread() == qApp->thread();
        Seen seen{GST_MESSAGE_TYPE(message), QString::fromUtf8(GST_OBJECT_NAME(GST_MESSAGE_SRC(message)))};
        seen.seqnum = gst_message_get_seqnum(message);
        if (seen.type == GST_MESSAGE_STATE_CHANGED)
            gst_message_parse_state_changed(message, nullptr, &seen.new_state, nullptr);
        seen_.push_back(seen);
    }
    // Index of the first message of that type (from the pipeline itself
    // when pipeline_only), -1 when none came.
    int First(GstMessageType type, GstState state = GST_STATE_VOID_PENDING) const
    {
        const QString pipeline_name = QString::fromUtf8(GST_OBJECT_NAME(pipeline_.get()));
        for (size_t i = 0; i < seen_.size(); ++i)
            if (seen_[i].type == type && seen_[i].source == pipeline_name
                && (state == GST_STATE_VOID_PENDING || seen_[i].new_state == state))
                return int(i);
        return -1;
    }
    int Count(GstMessageType type) const
    {
        return int(std::count_if(seen_.begin(), seen_.end(), [type](const Seen& seen) { return seen.type == type; }));
    }

    Element_Ref pipeline_;
    std::unique_ptr<Bus_Watch> watch_;
    std::vector<Seen> seen_;
    bool on_gui_thread_ = true;
};

TEST_F(Bus_Watch_Order, APipelinePlayedToTheEndReportsInTheOrderOfItsLife)
{
    gst_element_set_state(pipeline_.get(), GST_STATE_PLAYING);
    ASSERT_TRUE(QTest::qWaitFor([this] { return First(GST_MESSAGE_EOS) >= 0; }, 3000));

    const int ready = First(GST_MESSAGE_STATE_CHANGED, GST_STATE_READY);
    const int paused = First(GST_MESSAGE_STATE_CHANGED, GST_STATE_PAUSED);
    const int async_done = First(GST_MESSAGE_ASYNC_DONE);
    const int clock = First(GST_MESSAGE_NEW_CLOCK);
    const int playing = First(GST_MESSAGE_STATE_CHANGED, GST_STATE_PLAYING);
    const int end = First(GST_MESSAGE_EOS);
    ASSERT_GE(ready, 0);
    EXPECT_LT(ready, paused);
    EXPECT_LT(paused, async_done);
    EXPECT_LT(async_done, clock);
    EXPECT_LT(clock, playing);
    EXPECT_LT(playing, end);
    EXPECT_EQ(Count(GST_MESSAGE_EOS), 1);
    EXPECT_GE(Count(GST_MESSAGE_STREAM_START), 1);
    EXPECT_TRUE(on_gui_thread_);
}

TEST_F(Bus_Watch_Order, MessagesWaitForTheEventLoopAndCanBeTakenAtOnce)
{
    gst_element_set_state(pipeline_.get(), GST_STATE_PAUSED);
    gst_element_get_state(pipeline_.get(), nullptr, nullptr, 2 * GST_SECOND);
    EXPECT_TRUE(seen_.empty()) << "nothing is handled outside the event loop";
    watch_->Dispatch_Pending();
    EXPECT_GE(First(GST_MESSAGE_ASYNC_DONE), 0);
    QTest::qWait(50);
    std::set<guint32> numbers;
    for (const Seen& seen : seen_)
        EXPECT_TRUE(numbers.insert(seen.seqnum).second) << "message " << seen.seqnum << " handled twice";
}

TEST_F(Bus_Watch_Order, AHandlerMayEndTheWatchWhileMessagesAreStillQueued)
{
    auto* pipeline = pipeline_.get();
    watch_ = std::make_unique<Bus_Watch>(Bus_Ref::Adopt(gst_element_get_bus(pipeline)), [this](GstMessage* message) {
        Record(message);
        watch_.reset();
    });
    gst_element_set_state(pipeline, GST_STATE_PAUSED);
    gst_element_get_state(pipeline, nullptr, nullptr, 2 * GST_SECOND);
    QTest::qWait(50);
    EXPECT_EQ(seen_.size(), 1u);
    EXPECT_FALSE(watch_);
}

} // namespace
} // namespace Orvane

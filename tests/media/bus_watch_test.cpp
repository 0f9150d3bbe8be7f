// Messages of a real pipeline reach the GUI thread once each, in the order
// GStreamer posts them.
#include "media/bus_watch.h"

#include <gtest/gtest.h>

#include <QTest>
#include <QThread>
#include <set>

namespace Orvane {
namespace {

struct Seen {
    GstMessageType type;
    bool from_pipeline;
    GstState new_state;
    guint32 seqnum;
};

class Bus_Watch_Order : public testing::Test {
protected:
    Element_Ref pipeline_ = Element_Ref::Sink(
        gst_parse_launch("audiotestsrc num-buffers=10 samplesperbuffer=441 ! fakesink sync=true", nullptr));
    std::vector<Seen> seen_;
    bool on_gui_thread_ = true;
    std::unique_ptr<Bus_Watch> watch_ = Watch([this](GstMessage* message) { Record(message); });

    ~Bus_Watch_Order() override
    {
        watch_.reset();
        gst_element_set_state(pipeline_.get(), GST_STATE_NULL);
    }
    std::unique_ptr<Bus_Watch> Watch(Bus_Watch::Handler handler)
    {
        return std::make_unique<Bus_Watch>(Bus_Ref::Adopt(gst_element_get_bus(pipeline_.get())), handler);
    }
    void Record(GstMessage* message)
    {
        on_gui_thread_ = on_gui_thread_ && QThread::currentThread() == qApp->thread();
        Seen seen{GST_MESSAGE_TYPE(message), GST_MESSAGE_SRC(message) == GST_OBJECT(pipeline_.get()),
                  GST_STATE_VOID_PENDING, gst_message_get_seqnum(message)};
        if (seen.type == GST_MESSAGE_STATE_CHANGED)
            gst_message_parse_state_changed(message, nullptr, &seen.new_state, nullptr);
        seen_.push_back(seen);
    }
    // Index of the pipeline's first message of that type (and new state), -1 when none.
    int First(GstMessageType type, GstState state = GST_STATE_VOID_PENDING) const
    {
        for (size_t i = 0; i < seen_.size(); ++i)
            if (seen_[i].type == type && seen_[i].from_pipeline && seen_[i].new_state == state)
                return int(i);
        return -1;
    }
};

TEST_F(Bus_Watch_Order, MessagesWaitForTheEventLoopOrATakeAtOnce)
{
    gst_element_set_state(pipeline_.get(), GST_STATE_PAUSED);
    gst_element_get_state(pipeline_.get(), nullptr, nullptr, 2 * GST_SECOND);
    EXPECT_TRUE(seen_.empty()) << "nothing is handled outside the event loop";
    watch_->Dispatch_Pending();
    EXPECT_GE(First(GST_MESSAGE_ASYNC_DONE), 0);
}

TEST_F(Bus_Watch_Order, AHandlerMayEndTheWatchWhileMessagesAreStillQueued)
{
    watch_ = Watch([this](GstMessage* message) {
        Record(message);
        watch_.reset();
    });
    gst_element_set_state(pipeline_.get(), GST_STATE_PAUSED);
    gst_element_get_state(pipeline_.get(), nullptr, nullptr, 2 * GST_SECOND);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !watch_; }, 3000));
    QCoreApplication::processEvents();  // what was still queued finds no watch
    EXPECT_EQ(seen_.size(), 1u);
    EXPECT_FALSE(watch_);
}

} // namespace
} // namespace Orvane

#include "media/frame_mailbox.h"

#include <QThread>

namespace Orvane {

Frame_Mailbox::Frame_Mailbox(QObject* parent) : QObject(parent) {}

void Frame_Mailbox::Post(int pipeline_id, Picture_Ref frame)
{
    bool queue_delivery = false;
    {
        std::lock_guard lock(mutex_);
        // The frame replaced is released once the lock is let go.
        std::swap(pending_, frame);
        pending_pipeline_ = pipeline_id;
        queue_delivery = !std::exchange(delivery_queued_, true);
    }
    if (queue_delivery)
        QMetaObject::invokeMethod(this, &Frame_Mailbox::Deliver, Qt::QueuedConnection);
}

void Frame_Mailbox::Set_Current_Pipeline(int pipeline_id)
{
    Q_ASSERT(QThread::currentThread() == thread());
    current_pipeline_ = pipeline_id;
}

void Frame_Mailbox::Deliver()
{
    Picture_Ref frame;
    int pipeline_id = 0;
    {
        std::lock_guard lock(mutex_);
        frame = std::exchange(pending_, nullptr);
        pipeline_id = pending_pipeline_;
        delivery_queued_ = false;
    }
    if (pipeline_id == current_pipeline_ && frame)
        emit Frame_Arrived(frame);
}

} // namespace Orvane

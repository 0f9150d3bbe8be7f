#pragma once

#include "ui/video_picture.h"

#include <QObject>
#include <atomic>
#include <mutex>

namespace Orvane {

// Carries video frames from a streaming thread to the GUI thread. Only the
// newest frame waits: a slow GUI skips frames instead of queueing them.
class Frame_Mailbox : public QObject {
    Q_OBJECT
public:
    explicit Frame_Mailbox(QObject* parent = nullptr);

    // Any thread. Frames are made only while someone is listening.
    bool Wanted() const { return wanted_.load(); }
    void Post(int pipeline_id, Picture_Ref frame);

    // GUI thread.
    void Set_Wanted(bool wanted) { wanted_.store(wanted); }
    // Frames of other pipelines still in the mail are dropped.
    void Set_Current_Pipeline(int pipeline_id);

signals:
    void Frame_Arrived(const Picture_Ref& frame);

private:
    void Deliver();

    std::atomic<bool> wanted_{false};
    std::mutex mutex_;
    Picture_Ref pending_;
    int pending_pipeline_ = 0;
    bool delivery_queued_ = false;
    int current_pipeline_ = 0;
};

} // namespace Orvane

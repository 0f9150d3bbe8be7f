#pragma once

#include "media/gst_ref.h"

#include <QObject>
#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace Orvane {

// Hands the messages of a pipeline's bus to a handler on the thread that
// created the watch (the GUI thread), through the bus's poll descriptor and a
// socket notifier, so it works under any Qt event dispatcher. Messages are
// handled in the order they were posted.
class Bus_Watch : public QObject {
    Q_OBJECT
public:
    using Handler = std::function<void(GstMessage*)>;

    Bus_Watch(Bus_Ref bus, Handler handler, QObject* parent = nullptr);
    ~Bus_Watch() override;
    Bus_Watch(const Bus_Watch&) = delete;
    Bus_Watch& operator=(const Bus_Watch&) = delete;

    // Handles every message waiting now, without waiting for the event loop.
    void Dispatch_Pending();

private:
    Bus_Ref bus_;
    Handler handler_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace Orvane

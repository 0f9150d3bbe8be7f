#pragma once

#include "media/gst_ref.h"

namespace Orvane {

// A bus sync handler (called on the posting thread, before the message is
// queued) that is removed when this object goes. The handler only observes:
// every message still reaches the bus queue.
class Bus_Sync_Handler {
public:
    using Observer = void (*)(GstMessage* message, gpointer data);

    Bus_Sync_Handler(Bus_Ref bus, Observer observer, gpointer data)
        : bus_(std::move(bus)), observer_(observer), data_(data)
    {
        gst_bus_set_sync_handler(bus_.get(), &Bus_Sync_Handler::Call, this, nullptr);
    }
    ~Bus_Sync_Handler() { gst_bus_set_sync_handler(bus_.get(), nullptr, nullptr, nullptr); }
    Bus_Sync_Handler(const Bus_Sync_Handler&) = delete;
    Bus_Sync_Handler& operator=(const Bus_Sync_Handler&) = delete;

private:
    static GstBusSyncReply Call(GstBus*, GstMessage* message, gpointer self)
    {
        auto* handler = static_cast<Bus_Sync_Handler*>(self);
        handler->observer_(message, handler->data_);
        return GST_BUS_PASS;
    }

    Bus_Ref bus_;
    Observer observer_;
    gpointer data_;
};

} // namespace Orvane

#pragma once

#include <glib-object.h>

#include <utility>

namespace Orvane {

// A GLib signal handler that is disconnected when this object goes. The
// instance is kept alive as long as the connection.
class Signal_Connection {
public:
    Signal_Connection() = default;
    Signal_Connection(gpointer instance, const char* signal, GCallback callback, gpointer data)
        : instance_(instance ? g_object_ref(instance) : nullptr)
    {
        if (instance_)
            id_ = g_signal_connect(instance_, signal, callback, data);
    }
    Signal_Connection(Signal_Connection&& other) noexcept
        : instance_(std::exchange(other.instance_, nullptr)), id_(std::exchange(other.id_, 0))
    {
    }
    Signal_Connection& operator=(Signal_Connection&& other) noexcept
    {
        if (this != &other) {
            Disconnect();
            instance_ = std::exchange(other.instance_, nullptr);
            id_ = std::exchange(other.id_, 0);
        }
        return *this;
    }
    Signal_Connection(const Signal_Connection&) = delete;
    Signal_Connection& operator=(const Signal_Connection&) = delete;
    ~Signal_Connection() { Disconnect(); }

    void Disconnect()
    {
        if (!instance_)
            return;
        if (id_ && g_signal_handler_is_connected(instance_, id_))
            g_signal_handler_disconnect(instance_, id_);
        g_object_unref(std::exchange(instance_, nullptr));
        id_ = 0;
    }
    bool Connected() const { return instance_ && id_; }

private:
    gpointer instance_ = nullptr;
    gulong id_ = 0;
};

} // namespace Orvane

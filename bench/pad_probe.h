#pragma once

#include "media/gst_ref.h"

#include <utility>

namespace Orvane {

// A pad probe that removes itself when this object goes.
class Pad_Probe {
public:
    Pad_Probe() = default;
    Pad_Probe(Pad_Ref pad, GstPadProbeType type, GstPadProbeCallback callback, gpointer data)
        : pad_(std::move(pad))
    {
        if (pad_)
            id_ = gst_pad_add_probe(pad_.get(), type, callback, data, nullptr);
    }
    Pad_Probe(Pad_Probe&& other) noexcept : pad_(std::move(other.pad_)), id_(std::exchange(other.id_, 0)) {}
    Pad_Probe& operator=(Pad_Probe&& other) noexcept
    {
        if (this != &other) {
            Remove();
            pad_ = std::move(other.pad_);
            id_ = std::exchange(other.id_, 0);
        }
        return *this;
    }
    Pad_Probe(const Pad_Probe&) = delete;
    Pad_Probe& operator=(const Pad_Probe&) = delete;
    ~Pad_Probe() { Remove(); }

    void Remove()
    {
        if (pad_ && id_)
            gst_pad_remove_probe(pad_.get(), id_);
        id_ = 0;
        pad_.Reset();
    }
    bool Installed() const { return id_ != 0; }
    GstPad* Pad() const { return pad_.get(); }

private:
    Pad_Ref pad_;
    gulong id_ = 0;
};

} // namespace Orvane

#pragma once

#include <gst/gst.h>

#include <memory>
#include <utility>

namespace Orvane {

// How a reference of one GStreamer/GLib type is taken and given back. Only
// the types listed here can be held, so a caps can never be released as an
// object by mistake.
template <typename T>
struct Gst_Ref_Policy;

struct Gst_Object_Policy {
    static void Ref(void* object) { gst_object_ref(object); }
    static void Unref(void* object) { gst_object_unref(object); }
};
struct Gst_Mini_Object_Policy {
    static void Ref(void* object) { gst_mini_object_ref(GST_MINI_OBJECT_CAST(object)); }
    static void Unref(void* object) { gst_mini_object_unref(GST_MINI_OBJECT_CAST(object)); }
};
struct G_Object_Policy {
    static void Ref(void* object) { g_object_ref(object); }
    static void Unref(void* object) { g_object_unref(object); }
};

template <> struct Gst_Ref_Policy<GstObject> : Gst_Object_Policy {};
template <> struct Gst_Ref_Policy<GstElement> : Gst_Object_Policy {};
template <> struct Gst_Ref_Policy<GstBin> : Gst_Object_Policy {};
template <> struct Gst_Ref_Policy<GstPad> : Gst_Object_Policy {};
template <> struct Gst_Ref_Policy<GstBus> : Gst_Object_Policy {};
template <> struct Gst_Ref_Policy<GstClock> : Gst_Object_Policy {};
template <> struct Gst_Ref_Policy<GstElementFactory> : Gst_Object_Policy {};
template <> struct Gst_Ref_Policy<GstMessage> : Gst_Mini_Object_Policy {};
template <> struct Gst_Ref_Policy<GstCaps> : Gst_Mini_Object_Policy {};
template <> struct Gst_Ref_Policy<GstEvent> : Gst_Mini_Object_Policy {};
template <> struct Gst_Ref_Policy<GstQuery> : Gst_Mini_Object_Policy {};
template <> struct Gst_Ref_Policy<GstSample> : Gst_Mini_Object_Policy {};
template <> struct Gst_Ref_Policy<GstBuffer> : Gst_Mini_Object_Policy {};
template <> struct Gst_Ref_Policy<GObject> : G_Object_Policy {};

// One counted reference to a GStreamer object or mini object. Copying takes
// another reference; destruction gives it back.
template <typename T>
class Gst_Ref {
public:
    Gst_Ref() = default;
    Gst_Ref(std::nullptr_t) {}

    // Takes over a reference the caller owns (a "transfer full" result).
    static Gst_Ref Adopt(T* object)
    {
        Gst_Ref ref;
        ref.object_ = object;
        return ref;
    }
    // Takes a new reference to an object the caller only borrows.
    static Gst_Ref Share(T* object)
    {
        if (object)
            Gst_Ref_Policy<T>::Ref(object);
        return Adopt(object);
    }
    // Adopts an initially floating object (a new element) by sinking it.
    static Gst_Ref Sink(T* object)
    {
        if (object)
            gst_object_ref_sink(object);
        return Adopt(object);
    }

    Gst_Ref(const Gst_Ref& other) : object_(other.object_)
    {
        if (object_)
            Gst_Ref_Policy<T>::Ref(object_);
    }
    Gst_Ref(Gst_Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Gst_Ref& operator=(Gst_Ref other) noexcept
    {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Gst_Ref() { Reset(); }

    void Reset()
    {
        if (T* object = std::exchange(object_, nullptr))
            Gst_Ref_Policy<T>::Unref(object);
    }
    T* get() const { return object_; }
    T* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    friend bool operator==(const Gst_Ref& a, const Gst_Ref& b) { return a.object_ == b.object_; }

private:
    T* object_ = nullptr;
};

using Element_Ref = Gst_Ref<GstElement>;
using Pad_Ref = Gst_Ref<GstPad>;
using Bus_Ref = Gst_Ref<GstBus>;
using Message_Ref = Gst_Ref<GstMessage>;
using Caps_Ref = Gst_Ref<GstCaps>;
using Sample_Ref = Gst_Ref<GstSample>;
using Buffer_Ref = Gst_Ref<GstBuffer>;

// Owned GLib values that are freed rather than counted.
struct G_Free_Deleter {
    void operator()(void* memory) const { g_free(memory); }
};
struct G_Error_Deleter {
    void operator()(GError* error) const { g_error_free(error); }
};
struct Gst_Iterator_Deleter {
    void operator()(GstIterator* iterator) const { gst_iterator_free(iterator); }
};
using G_String = std::unique_ptr<gchar, G_Free_Deleter>;
using G_Error = std::unique_ptr<GError, G_Error_Deleter>;
using Gst_Iterator = std::unique_ptr<GstIterator, Gst_Iterator_Deleter>;

// A GValue that unsets itself.
class G_Value {
public:
    G_Value() = default;
    ~G_Value()
    {
        if (G_IS_VALUE(&value_))
            g_value_unset(&value_);
    }
    G_Value(const G_Value&) = delete;
    G_Value& operator=(const G_Value&) = delete;
    GValue* get() { return &value_; }
    void Reset()
    {
        if (G_IS_VALUE(&value_))
            g_value_reset(&value_);
    }

private:
    GValue value_ = G_VALUE_INIT;
};

} // namespace Orvane

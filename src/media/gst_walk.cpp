#include "media/gst_walk.h"

namespace Orvane {

namespace {

template <typename T>
std::vector<Gst_Ref<T>> Collect(GstIterator* raw_iterator)
{
    std::vector<Gst_Ref<T>> items;
    if (!raw_iterator)
        return items;
    Gst_Iterator iterator(raw_iterator);
    G_Value item;
    for (;;) {
        switch (gst_iterator_next(iterator.get(), item.get())) {
        case GST_ITERATOR_OK:
            items.push_back(Gst_Ref<T>::Share(static_cast<T*>(g_value_get_object(item.get()))));
            item.Reset();
            break;
        case GST_ITERATOR_RESYNC:
            // The bin changed under us: start again from a clean list.
            items.clear();
            gst_iterator_resync(iterator.get());
            break;
        case GST_ITERATOR_ERROR:
        case GST_ITERATOR_DONE:
            return items;
        }
    }
}

} // namespace

Element_Ref Make_Element(const char* factory, const char* name)
{
    return Element_Ref::Sink(gst_element_factory_make(factory, name));
}

std::vector<Element_Ref> Bin_Elements(GstBin* bin, bool recurse)
{
    if (!recurse)
        return Collect<GstElement>(gst_bin_iterate_elements(bin));
    std::vector<Element_Ref> all;
    for (Element_Ref& child : Collect<GstElement>(gst_bin_iterate_elements(bin))) {
        const bool is_bin = GST_IS_BIN(child.get());
        GstElement* raw = child.get();
        all.push_back(std::move(child));
        if (is_bin)
            for (Element_Ref& grandchild : Bin_Elements(GST_BIN(raw), true))
                all.push_back(std::move(grandchild));
    }
    return all;
}

std::vector<Pad_Ref> Source_Pads(GstElement* element)
{
    return Collect<GstPad>(gst_element_iterate_src_pads(element));
}

std::vector<Pad_Ref> Sink_Pads(GstElement* element)
{
    return Collect<GstPad>(gst_element_iterate_sink_pads(element));
}

QString Factory_Name(GstElement* element)
{
    GstElementFactory* factory = gst_element_get_factory(element);
    return factory ? QString::fromUtf8(gst_plugin_feature_get_name(GST_PLUGIN_FEATURE(factory))) : QString();
}

QString Factory_Klass(GstElement* element)
{
    GstElementFactory* factory = gst_element_get_factory(element);
    if (!factory)
        return QString();
    return QString::fromUtf8(gst_element_factory_get_metadata(factory, GST_ELEMENT_METADATA_KLASS));
}

QString Object_Name(gpointer object)
{
    return QString::fromUtf8(G_String(gst_object_get_name(GST_OBJECT(object))).get());
}

QString Stream_Id(GstPad* pad)
{
    return QString::fromUtf8(G_String(gst_pad_get_stream_id(pad)).get());
}

QString Pad_Media_Type(GstPad* pad)
{
    Caps_Ref caps = Caps_Ref::Adopt(gst_pad_get_current_caps(pad));
    if (!caps)
        caps = Caps_Ref::Adopt(gst_pad_query_caps(pad, nullptr));
    if (!caps || gst_caps_is_empty(caps.get()) || gst_caps_is_any(caps.get()))
        return QString();
    return QString::fromUtf8(gst_structure_get_name(gst_caps_get_structure(caps.get(), 0)));
}

std::vector<Element_Ref> Upstream_Chain(GstElement* element)
{
    std::vector<Element_Ref> chain;
    std::vector<Pad_Ref> sinks = Sink_Pads(element);
    Pad_Ref pad = sinks.empty() ? Pad_Ref() : sinks.front();
    // Bounded: a pipeline is a graph without cycles, but a broken one must not hang us.
    for (int step = 0; pad && step < 64; ++step) {
        Pad_Ref peer = Pad_Ref::Adopt(gst_pad_get_peer(pad.get()));
        if (!peer)
            break;
        Element_Ref upstream = Element_Ref::Adopt(gst_pad_get_parent_element(peer.get()));
        if (!upstream)
            break;
        std::vector<Pad_Ref> linked = Collect<GstPad>(gst_pad_iterate_internal_links(peer.get()));
        chain.push_back(upstream);
        pad = linked.empty() ? Pad_Ref() : linked.front();
    }
    return chain;
}

} // namespace Orvane

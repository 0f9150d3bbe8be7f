#include "media/parsed_length.h"

#include "media/gst_ref.h"
#include "media/gst_walk.h"
#include "media/signal_connection.h"

#include <QFile>

namespace Orvane {

namespace {

// Streaming thread: every parsed stream runs into a sink of its own, as fast
// as it comes.
void On_Pad_Added(GstElement*, GstPad* pad, gpointer pipeline)
{
    Element_Ref sink = Make_Element("fakesink");
    if (!sink)
        return;
    g_object_set(sink.get(), "sync", FALSE, "async", FALSE, nullptr);
    if (!gst_bin_add(GST_BIN(pipeline), sink.get()))
        return;
    Pad_Ref sink_pad = Pad_Ref::Adopt(gst_element_get_static_pad(sink.get(), "sink"));
    gst_pad_link(pad, sink_pad.get());
    gst_element_sync_state_with_parent(sink.get());
}

} // namespace

std::optional<double> Parsed_Length(const QString& path, std::chrono::milliseconds limit)
{
    const Element_Ref pipeline = Element_Ref::Sink(gst_pipeline_new("length"));
    const Element_Ref source = Make_Element("filesrc");
    const Element_Ref parser = Make_Element("parsebin");
    if (!pipeline || !source || !parser)
        return std::nullopt;
    g_object_set(source.get(), "location", QFile::encodeName(path).constData(), nullptr);
    gst_bin_add_many(GST_BIN(pipeline.get()), source.get(), parser.get(), nullptr);
    if (!gst_element_link(source.get(), parser.get()))
        return std::nullopt;
    const Signal_Connection pad_added(parser.get(), "pad-added", G_CALLBACK(&On_Pad_Added), pipeline.get());

    std::optional<double> length;
    if (gst_element_set_state(pipeline.get(), GST_STATE_PLAYING) != GST_STATE_CHANGE_FAILURE) {
        const Bus_Ref bus = Bus_Ref::Adopt(gst_element_get_bus(pipeline.get()));
        const Message_Ref message = Message_Ref::Adopt(gst_bus_timed_pop_filtered(
            bus.get(), GstClockTime(limit.count()) * GST_MSECOND,
            GstMessageType(GST_MESSAGE_EOS | GST_MESSAGE_ERROR)));
        // At the end, the position the sinks reached is where the last frame ends.
        gint64 position = -1;
        if (message && GST_MESSAGE_TYPE(message.get()) == GST_MESSAGE_EOS
            && gst_element_query_position(pipeline.get(), GST_FORMAT_TIME, &position) && position > 0)
            length = double(position) / double(GST_SECOND);
    }
    gst_element_set_state(pipeline.get(), GST_STATE_NULL);
    return length;
}

} // namespace Orvane

#include "media/gst_media_analyser.h"

#include "base/file_kind.h"
#include "media/gst_walk.h"
#include "media/media_kind.h"
#include "media/parsed_length.h"
#include "media/signal_connection.h"

#include <QFile>
#include <optional>

namespace Orvane {

namespace {

// How long a file that does not know its length at once may run to find it.
constexpr std::chrono::milliseconds Duration_Wait{1000};

bool Is_Container_Demuxer(GstElement* element)
{
    const QString klass = Factory_Klass(element);
    return klass.contains(QStringLiteral("Demux")) && !klass.contains(QStringLiteral("Metadata"));
}

bool Behind_Container_Demuxer(GstElement* element)
{
    for (const Element_Ref& upstream : Upstream_Chain(element))
        if (Is_Container_Demuxer(upstream.get()))
            return true;
    return false;
}

// One file's analysis pipeline: filesrc ! decodebin, each decoded stream
// into a renderer of its kind. Torn down when this object goes.
class Analysis_Pipeline {
public:
    explicit Analysis_Pipeline(const QString& path)
    {
        pipeline_ = Element_Ref::Sink(gst_pipeline_new("analysis"));
        const Element_Ref source = Make_Element("filesrc");
        const Element_Ref decoder = Make_Element("decodebin");
        if (!pipeline_ || !source || !decoder)
            return;
        g_object_set(source.get(), "location", QFile::encodeName(path).constData(), nullptr);
        gst_bin_add_many(GST_BIN(pipeline_.get()), source.get(), decoder.get(), nullptr);
        built_ = gst_element_link(source.get(), decoder.get());
        pad_added_ = Signal_Connection(decoder.get(), "pad-added",
                                       G_CALLBACK(&Analysis_Pipeline::On_Pad_Added), pipeline_.get());
    }
    ~Analysis_Pipeline()
    {
        if (pipeline_)
            gst_element_set_state(pipeline_.get(), GST_STATE_NULL);
    }
    Analysis_Pipeline(const Analysis_Pipeline&) = delete;
    Analysis_Pipeline& operator=(const Analysis_Pipeline&) = delete;

    GstBin* Bin() const { return GST_BIN(pipeline_.get()); }

    // Prerolls; false on an error or when the time limit passes first.
    bool Preroll(std::chrono::milliseconds time_limit)
    {
        if (!built_)
            return false;
        if (gst_element_set_state(pipeline_.get(), GST_STATE_PAUSED) == GST_STATE_CHANGE_FAILURE)
            return false;
        Bus_Ref bus = Bus_Ref::Adopt(gst_element_get_bus(pipeline_.get()));
        const GstClockTime limit = GstClockTime(time_limit.count()) * GST_MSECOND;
        const gint64 deadline = g_get_monotonic_time() + time_limit.count() * 1000;
        for (;;) {
            const gint64 left_us = deadline - g_get_monotonic_time();
            if (left_us <= 0)
                return false;
            Message_Ref message = Message_Ref::Adopt(gst_bus_timed_pop_filtered(
                bus.get(), std::min<GstClockTime>(limit, GstClockTime(left_us) * GST_USECOND),
                GstMessageType(GST_MESSAGE_ASYNC_DONE | GST_MESSAGE_ERROR)));
            if (!message)
                return false;
            if (GST_MESSAGE_TYPE(message.get()) == GST_MESSAGE_ERROR)
                return false;
            if (GST_MESSAGE_SRC(message.get()) == GST_OBJECT(pipeline_.get()))
                return true;
        }
    }

    // Seconds. A file that does not know its length when prerolled (an MP3
    // without a header of its length) is parsed to its end: its parser's
    // early figure is only an estimate. Failing that, it is run on, as fast
    // as it decodes, until it knows some length or ends.
    double Duration_Seconds(const QString& path, std::chrono::milliseconds time_limit)
    {
        if (const std::optional<double> known = Query(&gst_element_query_duration))
            return *known;
        if (const std::optional<double> parsed = Parsed_Length(path))
            return *parsed;
        gst_element_set_state(pipeline_.get(), GST_STATE_PLAYING);
        Bus_Ref bus = Bus_Ref::Adopt(gst_element_get_bus(pipeline_.get()));
        Message_Ref message = Message_Ref::Adopt(gst_bus_timed_pop_filtered(
            bus.get(), GstClockTime(time_limit.count()) * GST_MSECOND,
            GstMessageType(GST_MESSAGE_DURATION_CHANGED | GST_MESSAGE_EOS | GST_MESSAGE_ERROR)));
        if (const std::optional<double> known = Query(&gst_element_query_duration))
            return *known;
        if (message && GST_MESSAGE_TYPE(message.get()) == GST_MESSAGE_EOS)
            return Query(&gst_element_query_position).value_or(0.0);
        return 0.0;
    }

    // The picture size the video renderer received, 0 x 0 when none.
    std::pair<int, int> Picture_Size() const
    {
        for (const Element_Ref& element : Bin_Elements(Bin(), false)) {
            if (Factory_Name(element.get()) != Element_Name::Video_Renderer)
                continue;
            for (const Pad_Ref& pad : Sink_Pads(element.get())) {
                Caps_Ref caps = Caps_Ref::Adopt(gst_pad_get_current_caps(pad.get()));
                if (!caps || gst_caps_get_size(caps.get()) == 0)
                    continue;
                const GstStructure* structure = gst_caps_get_structure(caps.get(), 0);
                int width = 0;
                int height = 0;
                if (gst_structure_get_int(structure, "width", &width)
                    && gst_structure_get_int(structure, "height", &height))
                    return {width, height};
            }
        }
        return {0, 0};
    }

private:
    std::optional<double> Query(gboolean (*query)(GstElement*, GstFormat, gint64*)) const
    {
        gint64 value = -1;
        if (!query(pipeline_.get(), GST_FORMAT_TIME, &value) || value <= 0)
            return std::nullopt;
        return double(value) / double(GST_SECOND);
    }

    // Streaming thread: give each decoded stream a renderer of its kind.
    static void On_Pad_Added(GstElement*, GstPad* pad, gpointer pipeline)
    {
        const QString type = Pad_Media_Type(pad);
        const char* factory = type.startsWith(QStringLiteral("audio/")) ? "fakeaudiosink"
            : type.startsWith(QStringLiteral("video/"))                  ? "fakevideosink"
                                                                         : "fakesink";
        Element_Ref renderer = Make_Element(factory);
        if (!renderer)
            renderer = Make_Element("fakesink");
        if (!renderer || !gst_bin_add(GST_BIN(pipeline), renderer.get()))
            return;
        // Nothing is shown or heard: frames go through as fast as they come.
        g_object_set(renderer.get(), "sync", FALSE, nullptr);
        Pad_Ref sink = Pad_Ref::Adopt(gst_element_get_static_pad(renderer.get(), "sink"));
        if (sink)
            gst_pad_link(pad, sink.get());
        gst_element_sync_state_with_parent(renderer.get());
    }

    Element_Ref pipeline_;
    Signal_Connection pad_added_;
    bool built_ = false;
};

} // namespace

Gst_Media_Analyser::Gst_Media_Analyser(std::chrono::milliseconds time_limit) : time_limit_(time_limit) {}

QStringList Gst_Media_Analyser::Element_Names(GstBin* pipeline)
{
    QStringList names;
    for (const Element_Ref& element : Bin_Elements(pipeline, true)) {
        const QString name = Factory_Name(element.get());
        if (name == Element_Name::Mpeg_Audio_Parser && Behind_Container_Demuxer(element.get()))
            continue;
        names.append(name);
    }
    return names;
}

std::optional<Media_Analysis> Gst_Media_Analyser::Analyse_Media(const QString& path)
{
    // filesrc would wait in its open for a named pipe's writer, for ever.
    if (!Is_Regular_File(path))
        return std::nullopt;
    Analysis_Pipeline pipeline(path);
    if (!pipeline.Preroll(time_limit_))
        return std::nullopt;

    const Renderer_Count renderers = Count_Renderers(Element_Names(pipeline.Bin()));
    Media_Analysis analysis;
    analysis.Media_Kind = renderers.Kind.Media_Kind;
    analysis.Has_Splitter = renderers.Kind.Has_Splitter;
    analysis.Has_Video = renderers.Has_Video;
    analysis.Has_Audio = renderers.Has_Audio;
    analysis.Video_Renderer_Found = renderers.Video_Renderer_Found;
    analysis.Audio_Streams = renderers.Count;
    if (analysis.Video_Renderer_Found) {
        const auto [width, height] = pipeline.Picture_Size();
        analysis.Width = width;
        analysis.Height = height;
    }
    analysis.Duration = pipeline.Duration_Seconds(path, Duration_Wait);
    return analysis;
}

} // namespace Orvane

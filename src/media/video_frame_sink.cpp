#include "media/video_frame_sink.h"

#include "media/frame_mailbox.h"

#include <gst/app/gstappsink.h>
#include <gst/video/video.h>

#include <memory>

namespace Orvane {

namespace {

// A video frame mapped for reading, with the buffer it keeps referenced:
// unmapped, and the buffer given back to its pool, when this object goes.
class Mapped_Frame {
public:
    Mapped_Frame(GstBuffer* buffer, const GstVideoInfo& info)
    {
        GstVideoInfo copy = info;
        // Mapping takes its own reference on the buffer until the unmap.
        mapped_ = gst_video_frame_map(&frame_, &copy, buffer, GST_MAP_READ);
    }
    ~Mapped_Frame()
    {
        if (mapped_)
            gst_video_frame_unmap(&frame_);
    }
    Mapped_Frame(const Mapped_Frame&) = delete;
    Mapped_Frame& operator=(const Mapped_Frame&) = delete;

    bool Mapped() const { return mapped_; }
    const GstVideoFrame& Frame() const { return frame_; }

    // A QImage's cleanup: the last copy of the image is gone.
    static void Release(void* frame) { delete static_cast<Mapped_Frame*>(frame); }

private:
    GstVideoFrame frame_{};
    bool mapped_ = false;
};

} // namespace

Video_Frame_Sink::Video_Frame_Sink(Frame_Mailbox& mailbox, int pipeline_id)
    : mailbox_(mailbox), pipeline_id_(pipeline_id)
{
    GError* raw_error = nullptr;
    branch_ = Element_Ref::Sink(gst_parse_bin_from_description(
        "videoconvertscale name=video_convert n-threads=0 add-borders=false "
        "! capsfilter name=video_picture caps=video/x-raw,format={BGRx,RGBx} "
        "! appsink name=video_sink sync=true enable-last-sample=false",
        TRUE, &raw_error));
    G_Error error(raw_error);
    if (error || !branch_) {
        branch_.Reset();
        return;
    }
    gst_object_set_name(GST_OBJECT(branch_.get()), "video_output");
    app_sink_ = Element_Ref::Adopt(gst_bin_get_by_name(GST_BIN(branch_.get()), "video_sink"));
    converter_ = Element_Ref::Adopt(gst_bin_get_by_name(GST_BIN(branch_.get()), "video_convert"));
    picture_filter_ = Element_Ref::Adopt(gst_bin_get_by_name(GST_BIN(branch_.get()), "video_picture"));
    GstAppSinkCallbacks callbacks{};
    callbacks.new_preroll = [](GstAppSink* sink, gpointer self) {
        return On_Preroll(GST_ELEMENT(sink), self);
    };
    callbacks.new_sample = [](GstAppSink* sink, gpointer self) {
        return On_Sample(GST_ELEMENT(sink), self);
    };
    gst_app_sink_set_callbacks(GST_APP_SINK(app_sink_.get()), &callbacks, this, nullptr);
}

Video_Frame_Sink::~Video_Frame_Sink()
{
    if (app_sink_) {
        GstAppSinkCallbacks none{};
        gst_app_sink_set_callbacks(GST_APP_SINK(app_sink_.get()), &none, nullptr, nullptr);
    }
}

void Video_Frame_Sink::Set_Picture_Size(QSize pixels)
{
    if (!picture_filter_ || pixels == picture_size_)
        return;
    picture_size_ = pixels;
    // Any pixel aspect ratio is accepted, so the converter fills exactly this
    // size: the picture is stretched over the video area as the widget would.
    Caps_Ref caps = Caps_Ref::Adopt(gst_caps_from_string("video/x-raw,format={BGRx,RGBx}"));
    if (!pixels.isEmpty())
        gst_caps_set_simple(caps.get(), "width", G_TYPE_INT, pixels.width(), "height", G_TYPE_INT,
                            pixels.height(), nullptr);
    // The filter asks upstream to negotiate again; frames already converted
    // arrive at the old size and are scaled by the widget.
    g_object_set(picture_filter_.get(), "caps", caps.get(), nullptr);
}

QSize Video_Frame_Sink::Frame_Size() const
{
    if (!converter_)
        return {};
    Pad_Ref pad = Pad_Ref::Adopt(gst_element_get_static_pad(converter_.get(), "sink"));
    Caps_Ref caps = Caps_Ref::Adopt(pad ? gst_pad_get_current_caps(pad.get()) : nullptr);
    GstVideoInfo info;
    if (!caps || !gst_video_info_from_caps(&info, caps.get()))
        return {};
    return QSize(GST_VIDEO_INFO_WIDTH(&info), GST_VIDEO_INFO_HEIGHT(&info));
}

GstFlowReturn Video_Frame_Sink::On_Preroll(GstElement* sink, gpointer self)
{
    static_cast<Video_Frame_Sink*>(self)->Deliver(
        Sample_Ref::Adopt(gst_app_sink_pull_preroll(GST_APP_SINK(sink))));
    return GST_FLOW_OK;
}

GstFlowReturn Video_Frame_Sink::On_Sample(GstElement* sink, gpointer self)
{
    static_cast<Video_Frame_Sink*>(self)->Deliver(
        Sample_Ref::Adopt(gst_app_sink_pull_sample(GST_APP_SINK(sink))));
    return GST_FLOW_OK;
}

void Video_Frame_Sink::Deliver(Sample_Ref sample)
{
    if (!sample || !mailbox_.Wanted())
        return;
    const QImage image = To_Image(sample.get());
    if (!image.isNull())
        mailbox_.Post(pipeline_id_, image);
}

QImage Video_Frame_Sink::To_Image(GstSample* sample)
{
    GstVideoInfo info;
    GstCaps* caps = gst_sample_get_caps(sample);
    GstBuffer* buffer = gst_sample_get_buffer(sample);
    if (!caps || !buffer || !gst_video_info_from_caps(&info, caps))
        return {};
    QImage::Format format = QImage::Format_Invalid;
    switch (GST_VIDEO_INFO_FORMAT(&info)) {
    case GST_VIDEO_FORMAT_BGRx:
        // Little-endian B, G, R, x bytes are the 0xffRRGGBB words of RGB32.
        format = G_BYTE_ORDER == G_LITTLE_ENDIAN ? QImage::Format_RGB32 : QImage::Format_Invalid;
        break;
    case GST_VIDEO_FORMAT_RGBx:
        format = QImage::Format_RGBX8888;
        break;
    default:
        break;
    }
    if (format == QImage::Format_Invalid)
        return {};
    auto mapped = std::make_unique<Mapped_Frame>(buffer, info);
    if (!mapped->Mapped())
        return {};
    const GstVideoFrame& frame = mapped->Frame();
    // Read-only over the decoder's memory: the image keeps the frame mapped
    // (and its buffer alive, whatever becomes of the pipeline) until its last
    // copy goes; a writer would get a copy of its own.
    QImage image(static_cast<const uchar*>(GST_VIDEO_FRAME_PLANE_DATA(&frame, 0)), GST_VIDEO_FRAME_WIDTH(&frame),
                 GST_VIDEO_FRAME_HEIGHT(&frame), GST_VIDEO_FRAME_PLANE_STRIDE(&frame, 0), format,
                 &Mapped_Frame::Release, mapped.get());
    if (image.isNull())
        return {};
    mapped.release();  // the image owns it now
    return image;
}

} // namespace Orvane

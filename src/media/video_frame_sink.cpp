#include "media/video_frame_sink.h"

#include "media/frame_mailbox.h"
#include "media/gst_video_picture.h"

#include <gst/app/gstappsink.h>
#include <gst/video/video.h>

namespace Orvane {

Video_Frame_Sink::Video_Frame_Sink(Frame_Mailbox& mailbox, int pipeline_id)
    : mailbox_(mailbox), pipeline_id_(pipeline_id), converter_cache_(std::make_shared<Picture_Converter>())
{
    GError* raw_error = nullptr;
    branch_ = Element_Ref::Sink(gst_parse_bin_from_description(
        "videoconvertscale name=video_scale n-threads=0 add-borders=false "
        "! capsfilter name=video_picture caps=video/x-raw "
        "! appsink name=video_sink sync=true enable-last-sample=false",
        TRUE, &raw_error));
    G_Error error(raw_error);
    if (error || !branch_) {
        branch_.Reset();
        return;
    }
    gst_object_set_name(GST_OBJECT(branch_.get()), "video_output");
    app_sink_ = Element_Ref::Adopt(gst_bin_get_by_name(GST_BIN(branch_.get()), "video_sink"));
    scaler_ = Element_Ref::Adopt(gst_bin_get_by_name(GST_BIN(branch_.get()), "video_scale"));
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
    // Any pixel aspect ratio is accepted, so the scaler fills exactly this
    // size: the picture is stretched over the video area as the widget would.
    // No pixel format is asked for: the scaler keeps the decoder's (a third
    // of the bytes of RGB for the usual 4:2:0), and the conversion to the
    // window's format is the copy into the window (see Video_Widget).
    Caps_Ref caps = Caps_Ref::Adopt(gst_caps_from_string("video/x-raw"));
    if (!pixels.isEmpty())
        gst_caps_set_simple(caps.get(), "width", G_TYPE_INT, pixels.width(), "height", G_TYPE_INT,
                            pixels.height(), nullptr);
    // The filter asks upstream to negotiate again; frames already converted
    // arrive at the old size and are scaled by the widget.
    g_object_set(picture_filter_.get(), "caps", caps.get(), nullptr);
}

QSize Video_Frame_Sink::Frame_Size() const
{
    if (!scaler_)
        return {};
    Pad_Ref pad = Pad_Ref::Adopt(gst_element_get_static_pad(scaler_.get(), "sink"));
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
    if (Picture_Ref picture = Gst_Video_Picture::From_Sample(std::move(sample), converter_cache_))
        mailbox_.Post(pipeline_id_, std::move(picture));
}

} // namespace Orvane

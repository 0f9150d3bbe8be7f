#include "media/gst_video_picture.h"

#include <QThread>
#include <algorithm>

namespace Orvane {

namespace {

// A video frame mapped for as long as this object lives.
class Mapped_Video_Frame {
public:
    Mapped_Video_Frame(GstBuffer* buffer, const GstVideoInfo& info, GstMapFlags flags)
    {
        GstVideoInfo copy = info;
        mapped_ = gst_video_frame_map(&frame_, &copy, buffer, flags);
    }
    ~Mapped_Video_Frame()
    {
        if (mapped_)
            gst_video_frame_unmap(&frame_);
    }
    Mapped_Video_Frame(const Mapped_Video_Frame&) = delete;
    Mapped_Video_Frame& operator=(const Mapped_Video_Frame&) = delete;

    bool Mapped() const { return mapped_; }
    GstVideoFrame& Frame() { return frame_; }

private:
    GstVideoFrame frame_{};
    bool mapped_ = false;
};

// The GStreamer format writing a 32-bit image's bytes; alpha, where the image
// has it, is written opaque.
GstVideoFormat Format_Of(QImage::Format format)
{
    const bool little_endian = G_BYTE_ORDER == G_LITTLE_ENDIAN;
    switch (format) {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32:
    case QImage::Format_ARGB32_Premultiplied:
        // 0xAARRGGBB words: B, G, R, A bytes in memory on a little-endian machine.
        return little_endian ? GST_VIDEO_FORMAT_BGRA : GST_VIDEO_FORMAT_ARGB;
    case QImage::Format_RGBX8888:
    case QImage::Format_RGBA8888:
    case QImage::Format_RGBA8888_Premultiplied:
        return GST_VIDEO_FORMAT_RGBA;
    default:
        return GST_VIDEO_FORMAT_UNKNOWN;
    }
}

} // namespace

Picture_Converter::~Picture_Converter()
{
    if (converter_)
        gst_video_converter_free(converter_);
}

bool Picture_Converter::Convert(const GstVideoFrame& source, GstVideoFrame& target)
{
    std::lock_guard lock(mutex_);
    if (!converter_ || !gst_video_info_is_equal(&input_, &source.info)
        || !gst_video_info_is_equal(&output_, &target.info)) {
        if (converter_)
            gst_video_converter_free(std::exchange(converter_, nullptr));
        // A plain colour conversion is cheap enough for one thread; scaling
        // shares its rows among the cores, as the pipeline's scaler did.
        const bool scales = GST_VIDEO_INFO_WIDTH(&source.info) != GST_VIDEO_INFO_WIDTH(&target.info)
                            || GST_VIDEO_INFO_HEIGHT(&source.info) != GST_VIDEO_INFO_HEIGHT(&target.info);
        const guint threads = scales ? guint(std::clamp(QThread::idealThreadCount(), 1, 4)) : 1u;
        GstStructure* options =
            gst_structure_new("options", GST_VIDEO_CONVERTER_OPT_RESAMPLER_METHOD, GST_TYPE_VIDEO_RESAMPLER_METHOD,
                              GST_VIDEO_RESAMPLER_METHOD_LINEAR, GST_VIDEO_CONVERTER_OPT_THREADS, G_TYPE_UINT,
                              threads, nullptr);
        converter_ = gst_video_converter_new(const_cast<GstVideoInfo*>(&source.info), &target.info, options);
        if (!converter_)
            return false;
        input_ = source.info;
        output_ = target.info;
    }
    gst_video_converter_frame(converter_, &source, &target);
    return true;
}

Gst_Video_Picture::Gst_Video_Picture(Sample_Ref sample, const GstVideoInfo& info,
                                     std::shared_ptr<Picture_Converter> converter)
    : sample_(std::move(sample)), info_(info), converter_(std::move(converter))
{
}

Picture_Ref Gst_Video_Picture::From_Sample(Sample_Ref sample, std::shared_ptr<Picture_Converter> converter)
{
    GstVideoInfo info;
    GstCaps* caps = sample ? gst_sample_get_caps(sample.get()) : nullptr;
    if (!caps || !gst_sample_get_buffer(sample.get()) || !gst_video_info_from_caps(&info, caps))
        return nullptr;
    return Picture_Ref(new Gst_Video_Picture(std::move(sample), info, std::move(converter)));
}

QSize Gst_Video_Picture::Size() const
{
    return QSize(GST_VIDEO_INFO_WIDTH(&info_), GST_VIDEO_INFO_HEIGHT(&info_));
}

bool Gst_Video_Picture::Draw_Into(QImage& target) const
{
    const GstVideoFormat format = Format_Of(target.format());
    if (format == GST_VIDEO_FORMAT_UNKNOWN || target.isNull())
        return false;
    GstVideoInfo output;
    if (!gst_video_info_set_format(&output, format, guint(target.width()), guint(target.height())))
        return false;
    // The converter changes pixels, not timing or fields.
    GST_VIDEO_INFO_FPS_N(&output) = GST_VIDEO_INFO_FPS_N(&info_);
    GST_VIDEO_INFO_FPS_D(&output) = GST_VIDEO_INFO_FPS_D(&info_);
    GST_VIDEO_INFO_INTERLACE_MODE(&output) = GST_VIDEO_INFO_INTERLACE_MODE(&info_);
    // The target's rows may lie inside a larger image (the window's buffer):
    // its own row length, and no byte past its last pixel.
    GST_VIDEO_INFO_PLANE_STRIDE(&output, 0) = int(target.bytesPerLine());
    output.size = gsize(target.bytesPerLine()) * gsize(target.height() - 1) + gsize(target.width()) * 4;
    Buffer_Ref target_buffer = Buffer_Ref::Adopt(gst_buffer_new_wrapped_full(
        GstMemoryFlags(0), target.bits(), output.size, 0, output.size, nullptr, nullptr));
    Mapped_Video_Frame to(target_buffer.get(), output, GST_MAP_WRITE);
    Mapped_Video_Frame from(gst_sample_get_buffer(sample_.get()), info_, GST_MAP_READ);
    return to.Mapped() && from.Mapped() && converter_->Convert(from.Frame(), to.Frame());
}

} // namespace Orvane

#pragma once

#include "media/gst_ref.h"
#include "ui/video_picture.h"

#include <gst/video/video.h>

#include <memory>
#include <mutex>

namespace Orvane {

// Colour conversion (and scaling, for a frame of another size than its
// target) of decoded frames. Making a converter computes its tables, so the
// last one is kept for as long as input and output stay the same.
class Picture_Converter {
public:
    Picture_Converter() = default;
    ~Picture_Converter();
    Picture_Converter(const Picture_Converter&) = delete;
    Picture_Converter& operator=(const Picture_Converter&) = delete;

    bool Convert(const GstVideoFrame& source, GstVideoFrame& target);

private:
    // Pictures may outlive their pipeline and go on any thread; drawing is
    // on the GUI thread, but nothing here relies on it.
    std::mutex mutex_;
    GstVideoInfo input_{};
    GstVideoInfo output_{};
    GstVideoConverter* converter_ = nullptr;
};

// A decoded frame, in the decoder's pixel format: the sample keeps its buffer
// referenced (and readable whatever becomes of the pipeline) for as long as
// the picture is kept.
class Gst_Video_Picture final : public Video_Picture {
public:
    // Null when the sample carries no raw video.
    static Picture_Ref From_Sample(Sample_Ref sample, std::shared_ptr<Picture_Converter> converter);

    QSize Size() const override;
    bool Draw_Into(QImage& target) const override;

private:
    Gst_Video_Picture(Sample_Ref sample, const GstVideoInfo& info, std::shared_ptr<Picture_Converter> converter);

    Sample_Ref sample_;
    GstVideoInfo info_;
    std::shared_ptr<Picture_Converter> converter_;
};

} // namespace Orvane

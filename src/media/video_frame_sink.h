#pragma once

#include "media/gst_ref.h"

#include <QSize>
#include <memory>

namespace Orvane {

class Frame_Mailbox;
class Picture_Converter;

// The video branch of a pipeline: scaling to the picture's size in the
// pipeline (on the scaler's own threads), into an appsink whose frames,
// prerolled or played, go to the mailbox as pictures holding the decoded
// buffers themselves, in the decoder's pixel format.
// The pipeline must be stopped (NULL) before this object goes.
class Video_Frame_Sink {
public:
    Video_Frame_Sink(Frame_Mailbox& mailbox, int pipeline_id);
    ~Video_Frame_Sink();
    Video_Frame_Sink(const Video_Frame_Sink&) = delete;
    Video_Frame_Sink& operator=(const Video_Frame_Sink&) = delete;

    // The branch to add to the pipeline, with one sink pad.
    GstElement* Branch() const { return branch_.get(); }
    // The video's own size (before scaling), empty before negotiation.
    QSize Frame_Size() const;
    // Frames are scaled to this size in device pixels; an empty size keeps
    // the video's own. GUI thread.
    void Set_Picture_Size(QSize pixels);

private:
    static GstFlowReturn On_Preroll(GstElement* sink, gpointer self);
    static GstFlowReturn On_Sample(GstElement* sink, gpointer self);
    void Deliver(Sample_Ref sample);

    Frame_Mailbox& mailbox_;
    int pipeline_id_;
    Element_Ref branch_;
    Element_Ref app_sink_;
    Element_Ref scaler_;
    Element_Ref picture_filter_;
    QSize picture_size_;
    // Shared by this branch's pictures, which may outlive it.
    std::shared_ptr<Picture_Converter> converter_cache_;
};

} // namespace Orvane

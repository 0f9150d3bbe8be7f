#pragma once

#include "media/associated_audio.h"
#include "media/bus_sync_handler.h"
#include "media/gst_ref.h"
#include "media/signal_connection.h"
#include "media/video_frame_sink.h"

#include <QSize>
#include <QString>
#include <chrono>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace Orvane {

class Frame_Mailbox;

// The pipeline of one open file:
//   filesrc ! decodebin, each decoded audio stream through
//   audioconvert ! audioresample ! capsfilter (one format for all) into a pad of its own of
//   input-selector ! audioconvert ! audioresample ! volume ! output,
//   the picture into the video branch (Video_Frame_Sink), anything else to a fakesink;
// and for each associated audio file (Associated_Audio) one more selector
// pad. The selector's active pad is the one heard. The audio and video
// chains join the pipeline with the first stream of their kind.
//
// Locking: a streaming thread that adds elements holds structure_mutex_ and,
// inside it, takes mutex_ for short reads and writes; so the order is always
// structure_mutex_ then mutex_, and mutex_ is never held while taking
// structure_mutex_.
class Playback_Pipeline {
public:
    using Duration_Limit = std::chrono::milliseconds;

    struct Audio_Input {
        Pad_Ref Selector_Pad;
        Pad_Ref Decoder_Pad;  // the decodebin pad the stream comes out of
        Pad_Ref Entry_Pad;    // the first pad of its branch, fed by Decoder_Pad
        QString Stream_Id;    // of its stream-start event
        bool Associated = false;
    };

    // What a pipeline is opened with.
    struct Setup {
        int Pipeline_Id = 0;
        Frame_Mailbox& Mailbox;
        Duration_Limit Limit;
        bool& No_Audio_Device_Reported;  // see Make_Audio_Output
    };

    // Builds and prerolls (paused at 0). Null with error set on failure;
    // nothing is left running then.
    static std::unique_ptr<Playback_Pipeline> Open(const QString& path, const Setup& setup, QString& error);
    ~Playback_Pipeline();
    Playback_Pipeline(const Playback_Pipeline&) = delete;
    Playback_Pipeline& operator=(const Playback_Pipeline&) = delete;

    GstElement* Element() const { return pipeline_.get(); }
    Bus_Ref Bus() const;
    double Duration() const;
    QSize Video_Size() const { return video_size_; }
    // The size, in device pixels, the frames are scaled to (empty: the video's).
    void Set_Picture_Size(QSize pixels) { video_->Set_Picture_Size(pixels); }

    // Playing also completes the removal of associated files that were left
    // while paused (see Associated_Audio::Start_Removal).
    void Set_State(GstState state);
    void Finish_Leaving_Audio();
    // Waits for a pending state change (a preroll after a seek) to finish.
    bool Wait_Until_Settled(Duration_Limit limit) const;
    std::optional<double> Position() const;
    bool Seek(double seconds, Duration_Limit limit);

    void Set_Volume(double linear);
    void Set_Muted(bool muted);
    bool Muted() const;

    std::vector<Audio_Input> Audio_Inputs() const;  // in the order the streams appeared
    void Select_Audio_Input(GstPad* selector_pad);
    Pad_Ref Selected_Audio_Input() const;

    // The AVI or MPEG splitter that decoding put into the pipeline, if any.
    [[nodiscard]] Element_Ref Find_Splitter() const;

    Associated_Audio& Associated() { return *associated_; }
    const Associated_Audio& Associated() const { return *associated_; }

private:
    friend class Associated_Audio;  // links its files' pads as this pipeline links its own

    // The shared end of the audio, in order from selector to output, named
    // by their job as an audio-output bin names its parts.
    struct Audio_Output_Chain {
        Element_Ref Selector;  // input-selector: the input heard
        Element_Ref Convert;
        Element_Ref Resample;
        Element_Ref Volume;
        Element_Ref Output;
        std::vector<GstElement*> In_Order() const;
    };

    explicit Playback_Pipeline(int pipeline_id, Frame_Mailbox& mailbox);
    bool Build(const QString& path, bool& no_audio_device_reported, QString& error);
    bool Preroll(Duration_Limit limit, QString& error);

    // Streaming threads (a decodebin's pad-added), each of them.
    static void On_Pad_Added(GstElement* decoder, GstPad* pad, gpointer self);
    // The selector pad the stream now feeds; what was added for it goes to
    // added when given.
    Pad_Ref Link_Audio(GstPad* pad, bool associated, std::vector<Element_Ref>* added = nullptr);
    Caps_Ref Common_Audio_Caps(GstPad* first_pad);  // with structure_mutex_ held
    // Drops the input of selector_pad from Audio_Inputs; its entry pad.
    Pad_Ref Forget_Audio_Input(GstPad* selector_pad);
    void Link_Video(GstPad* pad);
    Element_Ref Link_Elsewhere(GstPad* pad);  // the fakesink it now feeds

    Element_Ref pipeline_;
    Element_Ref decoder_;
    Audio_Output_Chain audio_;
    std::unique_ptr<Video_Frame_Sink> video_;
    std::unique_ptr<Associated_Audio> associated_;
    std::unique_ptr<Bus_Sync_Handler> sync_handler_;  // goes before the associated files it reports to
    Signal_Connection pad_added_;
    QSize video_size_;
    mutable double duration_ = 0.0;

    // Held by streaming threads while they add elements, so that two streams
    // never add the same chain.
    std::mutex structure_mutex_;
    mutable std::mutex mutex_;  // guards what streaming threads touch below
    Caps_Ref common_audio_caps_;  // guarded by structure_mutex_
    bool audio_chain_added_ = false;
    bool video_chain_added_ = false;
    std::vector<Audio_Input> audio_inputs_;
};

} // namespace Orvane

#pragma once

#include "media/bus_sync_handler.h"
#include "media/gst_ref.h"
#include "media/signal_connection.h"
#include "media/video_frame_sink.h"

#include <QSize>
#include <QString>
#include <chrono>
#include <condition_variable>
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
// and for each associated audio file, filesrc ! decodebin into one more
// selector pad. The selector's active pad is the one heard. The audio and
// video chains join the pipeline with the first stream of their kind.
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

    void Set_State(GstState state);
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
    Element_Ref Find_Splitter() const;

    // Renders an associated audio file into this pipeline; its selector pad,
    // or nothing with error set (the file's elements are taken out again).
    Pad_Ref Add_Associated_Audio(const QString& path, Duration_Limit limit, QString& error);
    // Moves an associated file's branch, on its own, to position: the part
    // of the file at position plays at the running time the picture shows
    // it, without flushing (and prerolling again) the rest of the pipeline.
    bool Align_Associated_Audio(GstPad* selector_pad, double position);
    // A message from the elements of an associated file that failed.
    bool From_Abandoned_Branch(GstObject* source) const;

private:
    struct Associated_Branch;

    explicit Playback_Pipeline(int pipeline_id, Frame_Mailbox& mailbox);
    bool Build(const QString& path, bool& no_audio_device_reported, QString& error);
    bool Preroll(Duration_Limit limit, QString& error);

    // Streaming threads.
    static void On_Pad_Added(GstElement* decoder, GstPad* pad, gpointer self);
    static void On_Associated_Pad_Added(GstElement* decoder, GstPad* pad, gpointer branch);
    static void On_Associated_No_More_Pads(GstElement* decoder, gpointer branch);
    static void On_Sync_Message(GstMessage* message, gpointer self);
    Pad_Ref Link_Audio(GstPad* pad, bool associated);
    Caps_Ref Common_Audio_Caps(GstPad* first_pad);  // with structure_mutex_ held
    // The running time at which the picture (or the sound heard) shows position.
    GstClockTime Running_Time_Of(double position) const;
    void Link_Video(GstPad* pad);
    void Link_Elsewhere(GstPad* pad);

    Element_Ref pipeline_;
    Element_Ref decoder_;
    // The audio chain, in order from selector to output.
    std::vector<Element_Ref> audio_chain_;
    std::unique_ptr<Video_Frame_Sink> video_;
    std::unique_ptr<Bus_Sync_Handler> sync_handler_;
    Signal_Connection pad_added_;
    std::vector<std::unique_ptr<Associated_Branch>> associated_;
    std::vector<Element_Ref> abandoned_;
    QSize video_size_;
    mutable double duration_ = 0.0;

    // Held by streaming threads while they add elements, so that two streams
    // never add the same chain; never held while waiting for mutex_.
    std::mutex structure_mutex_;
    mutable std::mutex mutex_;  // guards what streaming threads touch below
    std::condition_variable branch_settled_;
    Caps_Ref common_audio_caps_;  // guarded by structure_mutex_
    bool audio_chain_added_ = false;
    bool video_chain_added_ = false;
    std::vector<Audio_Input> audio_inputs_;
};

} // namespace Orvane

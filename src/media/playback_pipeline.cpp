#include "media/playback_pipeline.h"
#include "base/file_kind.h"

#include "media/audio_output.h"
#include "media/gst_diagnostics.h"
#include "media/gst_walk.h"
#include "media/media_kind.h"
#include "media/parsed_length.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace Orvane {

namespace {

// How long a call to play waits for the pipeline to play before it completes
// the removal of an associated file; past it, the next call completes it.
constexpr GstClockTime Removal_Wait = 500 * GST_MSECOND;

// Adds elements to the bin, links them in order and brings them to the bin's
// state, the most downstream first so nothing pushes into a stopped element.
bool Add_Chain(GstBin* bin, const std::vector<GstElement*>& chain)
{
    for (GstElement* element : chain)
        if (!gst_bin_add(bin, element))
            return false;
    for (size_t i = 1; i < chain.size(); ++i)
        if (!gst_element_link(chain[i - 1], chain[i]))
            return false;
    for (auto element = chain.rbegin(); element != chain.rend(); ++element)
        gst_element_sync_state_with_parent(*element);
    return true;
}

bool Link_Pads(GstPad* source, GstElement* element, const char* sink_name = "sink")
{
    Pad_Ref sink = Pad_Ref::Adopt(gst_element_get_static_pad(element, sink_name));
    return sink && GST_PAD_LINK_SUCCESSFUL(gst_pad_link(source, sink.get()));
}

} // namespace

Playback_Pipeline::Playback_Pipeline(int pipeline_id, Frame_Mailbox& mailbox)
    : video_(std::make_unique<Video_Frame_Sink>(mailbox, pipeline_id)),
      associated_(std::make_unique<Associated_Audio>(*this))
{
}

std::vector<GstElement*> Playback_Pipeline::Audio_Output_Chain::In_Order() const
{
    return {Selector.get(), Convert.get(), Resample.get(), Volume.get(), Output.get()};
}

Playback_Pipeline::~Playback_Pipeline()
{
    // Stops every streaming thread before the callbacks' objects go.
    if (pipeline_)
        gst_element_set_state(pipeline_.get(), GST_STATE_NULL);
    // Chains that never joined the pipeline (a file without sound) may have
    // left NULL: the audio output opens its device on its own.
    for (GstElement* element : audio_.In_Order())
        if (element)
            gst_element_set_state(element, GST_STATE_NULL);
}

std::unique_ptr<Playback_Pipeline> Playback_Pipeline::Open(const QString& path, const Setup& setup,
                                                           QString& error)
{
    std::unique_ptr<Playback_Pipeline> pipeline(new Playback_Pipeline(setup.Pipeline_Id, setup.Mailbox));
    if (!pipeline->Build(path, setup.No_Audio_Device_Reported, error) || !pipeline->Preroll(setup.Limit, error))
        return nullptr;
    pipeline->video_size_ = pipeline->video_->Frame_Size();
    // A length the file does not state is measured now, as the analysis
    // measured it: the parser's estimate moves while it plays, and the time
    // display and the cursor would move with it.
    if (pipeline->Duration() <= 0.0)
        pipeline->duration_ = Parsed_Length(path).value_or(0.0);
    return pipeline;
}

bool Playback_Pipeline::Build(const QString& path, bool& no_audio_device_reported, QString& error)
{
    // A named pipe or a device is refused like an unreadable file: filesrc
    // would wait in its open, and the window with it.
    if (!QFileInfo(path).isReadable() || !Is_Regular_File(path)) {
        error = QStringLiteral("Cannot read \"%1\"").arg(path);
        return false;
    }
    pipeline_ = Element_Ref::Sink(gst_pipeline_new("playback"));
    const Element_Ref source = Make_Element("filesrc", "file_source");
    decoder_ = Make_Element("decodebin", "file_decoder");
    audio_.Selector = Make_Element("input-selector", "audio_selector");
    audio_.Convert = Make_Element("audioconvert", "audio_convert");
    audio_.Resample = Make_Element("audioresample", "audio_resample");
    audio_.Volume = Make_Element("volume", "audio_volume");
    audio_.Output = Make_Audio_Output(no_audio_device_reported);
    bool complete = pipeline_ && source && decoder_ && video_->Branch();
    for (GstElement* element : audio_.In_Order())
        complete = complete && element;
    if (!complete) {
        error = QStringLiteral("A GStreamer element the player needs is missing");
        return false;
    }
    // Streams not heard are dropped in step with the clock, as if played: a
    // switch goes on from the moment being heard, and no stream waits for
    // another (which would stall the demuxer feeding them all).
    g_object_set(audio_.Selector.get(), "sync-streams", TRUE, "sync-mode", 1 /* clock */,
                 "cache-buffers", TRUE, nullptr);
    g_object_set(source.get(), "location", QFile::encodeName(path).constData(), nullptr);
    gst_bin_add_many(GST_BIN(pipeline_.get()), source.get(), decoder_.get(), nullptr);
    if (!gst_element_link(source.get(), decoder_.get())) {
        error = QStringLiteral("Cannot link the file source");
        return false;
    }
    pad_added_ = Signal_Connection(decoder_.get(), "pad-added", G_CALLBACK(&Playback_Pipeline::On_Pad_Added), this);
    sync_handler_ = std::make_unique<Bus_Sync_Handler>(Bus(), &Associated_Audio::On_Sync_Message, associated_.get());
    return true;
}

bool Playback_Pipeline::Preroll(Duration_Limit limit, QString& error)
{
    const Bus_Ref bus = Bus();
    const gint64 deadline = g_get_monotonic_time() + gint64(limit.count()) * 1000;
    const bool refused = gst_element_set_state(pipeline_.get(), GST_STATE_PAUSED) == GST_STATE_CHANGE_FAILURE;
    for (;;) {
        const gint64 left = deadline - g_get_monotonic_time();
        Message_Ref message = Message_Ref::Adopt(gst_bus_timed_pop_filtered(
            bus.get(), left > 0 ? GstClockTime(left) * GST_USECOND : 0,
            GstMessageType(GST_MESSAGE_ASYNC_DONE | GST_MESSAGE_ERROR)));
        if (!message) {
            error = refused ? QStringLiteral("The file cannot be played")
                            : QStringLiteral("The file did not open in time");
            Dump_Pipeline_Graph(pipeline_.get(), refused ? "refused" : "preroll-timeout");
            return false;
        }
        if (GST_MESSAGE_TYPE(message.get()) == GST_MESSAGE_ERROR) {
            error = Message_Text(message.get());
            Dump_Pipeline_Graph(pipeline_.get(), "preroll-error");
            return false;
        }
        if (GST_MESSAGE_SRC(message.get()) == GST_OBJECT(pipeline_.get()))
            return true;
    }
}

Bus_Ref Playback_Pipeline::Bus() const
{
    return Bus_Ref::Adopt(gst_element_get_bus(pipeline_.get()));
}

double Playback_Pipeline::Duration() const
{
    // Known at opening, or else from the first figure the pipeline gives.
    gint64 duration = -1;
    if (duration_ <= 0.0 && gst_element_query_duration(pipeline_.get(), GST_FORMAT_TIME, &duration)
        && duration > 0)
        duration_ = double(duration) / double(GST_SECOND);
    return duration_;
}

void Playback_Pipeline::Set_State(GstState state)
{
    GstStateChangeReturn result = gst_element_set_state(pipeline_.get(), state);
    if (state != GST_STATE_PLAYING || !associated_->Removal_Pending())
        return;
    // The leaving branch's thread is free once the audio sink plays, which
    // may take the pipeline a moment (it may still be prerolling).
    if (result == GST_STATE_CHANGE_ASYNC)
        result = gst_element_get_state(pipeline_.get(), nullptr, nullptr, Removal_Wait);
    if (result == GST_STATE_CHANGE_SUCCESS)
        Finish_Leaving_Audio();
}

void Playback_Pipeline::Finish_Leaving_Audio()
{
    if (associated_->Removal_Pending() && !associated_->Finish_Removal()) {
        qCWarning(Media_Log, "An associated audio file would not leave the pipeline");
        Dump_Pipeline_Graph(pipeline_.get(), "associated-removal");
    }
}

bool Playback_Pipeline::Wait_Until_Settled(Duration_Limit limit) const
{
    const GstStateChangeReturn result = gst_element_get_state(
        pipeline_.get(), nullptr, nullptr, GstClockTime(limit.count()) * GST_MSECOND);
    return result == GST_STATE_CHANGE_SUCCESS || result == GST_STATE_CHANGE_NO_PREROLL;
}

std::optional<double> Playback_Pipeline::Position() const
{
    gint64 position = -1;
    if (!gst_element_query_position(pipeline_.get(), GST_FORMAT_TIME, &position) || position < 0)
        return std::nullopt;
    return double(position) / double(GST_SECOND);
}

bool Playback_Pipeline::Seek(double seconds, Duration_Limit limit)
{
    // After a flushing seek every stream starts again at running time 0:
    // the associated files' own alignment no longer applies.
    for (const Audio_Input& input : Audio_Inputs())
        if (input.Associated)
            gst_pad_set_offset(input.Entry_Pad.get(), 0);
    const gint64 target = gint64(std::max(0.0, seconds) * double(GST_SECOND));
    if (!gst_element_seek_simple(pipeline_.get(), GST_FORMAT_TIME,
                                 GstSeekFlags(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE), target))
        return false;
    return Wait_Until_Settled(limit);
}

void Playback_Pipeline::Set_Volume(double linear)
{
    g_object_set(audio_.Volume.get(), "volume", linear, nullptr);
}

void Playback_Pipeline::Set_Muted(bool muted)
{
    g_object_set(audio_.Volume.get(), "mute", gboolean(muted), nullptr);
}

bool Playback_Pipeline::Muted() const
{
    gboolean muted = FALSE;
    g_object_get(audio_.Volume.get(), "mute", &muted, nullptr);
    return muted;
}

std::vector<Playback_Pipeline::Audio_Input> Playback_Pipeline::Audio_Inputs() const
{
    std::vector<Audio_Input> inputs;
    {
        std::lock_guard lock(mutex_);
        inputs = audio_inputs_;
    }
    // The decoder's pad holds the stream-start from the moment it appears;
    // the selector's pad only once data went through.
    for (Audio_Input& input : inputs) {
        input.Stream_Id = Stream_Id(input.Decoder_Pad.get());
        if (input.Stream_Id.isEmpty())
            input.Stream_Id = Stream_Id(input.Selector_Pad.get());
    }
    return inputs;
}

Pad_Ref Playback_Pipeline::Forget_Audio_Input(GstPad* selector_pad)
{
    std::lock_guard lock(mutex_);
    const auto input = std::find_if(audio_inputs_.begin(), audio_inputs_.end(), [selector_pad](const Audio_Input& input) {
        return input.Selector_Pad.get() == selector_pad;
    });
    if (input == audio_inputs_.end())
        return nullptr;
    Pad_Ref entry = input->Entry_Pad;
    audio_inputs_.erase(input);
    return entry;
}

void Playback_Pipeline::Select_Audio_Input(GstPad* selector_pad)
{
    g_object_set(audio_.Selector.get(), "active-pad", selector_pad, nullptr);
}

Pad_Ref Playback_Pipeline::Selected_Audio_Input() const
{
    GstPad* active = nullptr;
    g_object_get(audio_.Selector.get(), "active-pad", &active, nullptr);
    return Pad_Ref::Adopt(active);
}

Element_Ref Playback_Pipeline::Find_Splitter() const
{
    Element_Ref splitter;
    for (const Element_Ref& element : Bin_Elements(GST_BIN(decoder_.get()), true)) {
        const QString name = Factory_Name(element.get());
        if (name == Element_Name::Avi_Splitter || name == Element_Name::Mpeg_Splitter)
            splitter = element;
    }
    return splitter;
}

// Streaming thread.
void Playback_Pipeline::On_Pad_Added(GstElement*, GstPad* pad, gpointer self)
{
    auto* pipeline = static_cast<Playback_Pipeline*>(self);
    const QString type = Pad_Media_Type(pad);
    if (type.startsWith(QStringLiteral("audio/")))
        pipeline->Link_Audio(pad, false);
    else if (type.startsWith(QStringLiteral("video/")))
        pipeline->Link_Video(pad);
    else
        pipeline->Link_Elsewhere(pad);
}

// Streaming thread, with structure_mutex_ held.
Caps_Ref Playback_Pipeline::Common_Audio_Caps(GstPad* first_pad)
{
    if (common_audio_caps_)
        return common_audio_caps_;
    // The first stream's rate and channels, as 32-bit float.
    int rate = 44100;
    int channels = 2;
    Caps_Ref caps = Caps_Ref::Adopt(gst_pad_get_current_caps(first_pad));
    if (caps && gst_caps_get_size(caps.get()) > 0) {
        const GstStructure* structure = gst_caps_get_structure(caps.get(), 0);
        gst_structure_get_int(structure, "rate", &rate);
        gst_structure_get_int(structure, "channels", &channels);
    }
    common_audio_caps_ = Caps_Ref::Adopt(gst_caps_new_simple(
        "audio/x-raw", "format", G_TYPE_STRING, "F32LE", "layout", G_TYPE_STRING, "interleaved", "rate",
        G_TYPE_INT, rate, "channels", G_TYPE_INT, std::clamp(channels, 1, 8), nullptr));
    return common_audio_caps_;
}

// Streaming thread.
Pad_Ref Playback_Pipeline::Link_Audio(GstPad* pad, bool associated, std::vector<Element_Ref>* added)
{
    std::lock_guard structure(structure_mutex_);
    bool chain_added = false;
    {
        std::lock_guard lock(mutex_);
        chain_added = audio_chain_added_;
    }
    if (!chain_added) {
        if (!Add_Chain(GST_BIN(pipeline_.get()), audio_.In_Order()))
            return nullptr;
        std::lock_guard lock(mutex_);
        audio_chain_added_ = true;
    }
    // Every input is converted to one format before the selector: a switch
    // then never changes the caps downstream, and the selector's loss of a
    // pad's pending caps when a flush comes right after a switch is harmless.
    const Element_Ref convert = Make_Element("audioconvert");
    const Element_Ref resample = Make_Element("audioresample");
    const Element_Ref format = Make_Element("capsfilter");
    if (!convert || !resample || !format)
        return nullptr;
    g_object_set(format.get(), "caps", Common_Audio_Caps(pad).get(), nullptr);
    GstBin* bin = GST_BIN(pipeline_.get());
    gst_bin_add_many(bin, convert.get(), resample.get(), format.get(), nullptr);
    if (added)
        *added = {convert, resample, format};
    if (!gst_element_link_many(convert.get(), resample.get(), format.get(), nullptr))
        return nullptr;
    Pad_Ref selector_pad = Pad_Ref::Adopt(
        gst_element_request_pad_simple(audio_.Selector.get(), "sink_%u"));
    Pad_Ref format_output = Pad_Ref::Adopt(gst_element_get_static_pad(format.get(), "src"));
    if (!selector_pad || !GST_PAD_LINK_SUCCESSFUL(gst_pad_link(format_output.get(), selector_pad.get())))
        return nullptr;
    for (GstElement* element : {format.get(), resample.get(), convert.get()})
        gst_element_sync_state_with_parent(element);
    if (!Link_Pads(pad, convert.get()))
        return nullptr;
    std::lock_guard lock(mutex_);
    audio_inputs_.push_back({selector_pad, Pad_Ref::Share(pad),
                             Pad_Ref::Adopt(gst_element_get_static_pad(convert.get(), "sink")), QString(),
                             associated});
    return selector_pad;
}

// Streaming thread.
void Playback_Pipeline::Link_Video(GstPad* pad)
{
    bool first = false;
    {
        std::lock_guard lock(mutex_);
        first = !std::exchange(video_chain_added_, true);
    }
    if (!first) {
        Link_Elsewhere(pad);  // one picture is shown
        return;
    }
    std::lock_guard structure(structure_mutex_);
    GstElement* branch = video_->Branch();
    if (gst_bin_add(GST_BIN(pipeline_.get()), branch)) {
        Link_Pads(pad, branch);
        gst_element_sync_state_with_parent(branch);
    }
}

// Streaming thread.
Element_Ref Playback_Pipeline::Link_Elsewhere(GstPad* pad)
{
    Element_Ref sink = Make_Element("fakesink");
    if (!sink)
        return nullptr;
    // A sparse stream (subtitles) must not hold up the preroll.
    g_object_set(sink.get(), "sync", FALSE, "async", FALSE, nullptr);
    std::lock_guard structure(structure_mutex_);
    if (!gst_bin_add(GST_BIN(pipeline_.get()), sink.get()))
        return nullptr;
    Link_Pads(pad, sink.get());
    gst_element_sync_state_with_parent(sink.get());
    return sink;
}

} // namespace Orvane

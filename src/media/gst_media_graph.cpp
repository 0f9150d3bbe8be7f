#include "media/gst_media_graph.h"

#include "media/bus_watch.h"
#include "media/gst_diagnostics.h"
#include "media/gst_walk.h"
#include "media/media_kind.h"
#include "media/playback_pipeline.h"
#include "ui/video_widget.h"

#include <QThread>
#include <cmath>

namespace Orvane {

namespace {

using namespace std::chrono_literals;

// Bounds on every wait, so a broken file never hangs the player.
constexpr auto Open_Limit = 5000ms;
constexpr auto Seek_Limit = 3000ms;
constexpr auto Associated_Limit = 3000ms;
// Positions this close count as the same place for Restore_Position (seconds).
constexpr double Restore_Tolerance = 0.1;

} // namespace

Gst_Media_Graph::Gst_Media_Graph(QObject* parent) : Media_Graph(parent) {}

Gst_Media_Graph::~Gst_Media_Graph()
{
    Close_Graph();
}

double Gst_Media_Graph::Linear_Gain(int hundredths_of_decibel)
{
    return std::pow(10.0, double(hundredths_of_decibel) / 2000.0);
}

bool Gst_Media_Graph::Open_Graph(const QString& path)
{
    Q_ASSERT(QThread::currentThread() == thread());
    Close_Graph();
    last_error_.clear();
    const int id = ++last_pipeline_id_;
    mailbox_.Set_Current_Pipeline(id);
    QString error;
    pipeline_ = Playback_Pipeline::Open(path, {id, mailbox_, Open_Limit, no_audio_device_reported_}, error);
    if (!pipeline_) {
        last_error_ = error;
        return false;
    }
    pipeline_id_ = id;
    if (video_widget_)
        pipeline_->Set_Picture_Size(video_widget_->Picture_Pixels());
    bus_watch_ = std::make_unique<Bus_Watch>(pipeline_->Bus(), [this](GstMessage* message) {
        On_Bus_Message(message);
    });
    Select_Default_Stream();
    return true;
}

void Gst_Media_Graph::Close_Graph()
{
    Q_ASSERT(QThread::currentThread() == thread());
    saved_audio_pins_.clear();
    bus_watch_.reset();
    pipeline_.reset();
    pipeline_id_ = 0;
    last_position_ = 0.0;
    end_reached_ = false;
}

bool Gst_Media_Graph::Is_Open() const
{
    return pipeline_ != nullptr;
}

int Gst_Media_Graph::Pipeline_Id() const
{
    return pipeline_id_;
}

QString Gst_Media_Graph::Last_Error() const
{
    return last_error_;
}

GstElement* Gst_Media_Graph::Pipeline() const
{
    return pipeline_ ? pipeline_->Element() : nullptr;
}

void Gst_Media_Graph::Run()
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (pipeline_)
        pipeline_->Set_State(GST_STATE_PLAYING);
}

void Gst_Media_Graph::Pause()
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (pipeline_)
        pipeline_->Set_State(GST_STATE_PAUSED);
}

void Gst_Media_Graph::Stop()
{
    // Stopping keeps the position; the session rewinds itself when it wants to.
    Pause();
}

double Gst_Media_Graph::Current_Position() const
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (!pipeline_)
        return 0.0;
    if (const std::optional<double> position = pipeline_->Position())
        last_position_ = *position;
    return last_position_;
}

void Gst_Media_Graph::Set_Current_Position(double seconds)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (!pipeline_)
        return;
    last_position_ = std::max(0.0, seconds);
    end_reached_ = false;
    moved_at_ = gst_util_get_timestamp();
    if (!pipeline_->Seek(seconds, Seek_Limit)) {
        qCWarning(Media_Log, "Seeking to %.3f s did not finish in time", seconds);
        Dump_Pipeline_Graph(pipeline_->Element(), "seek-failed");
    }
}

double Gst_Media_Graph::Duration() const
{
    return pipeline_ ? pipeline_->Duration() : 0.0;
}

bool Gst_Media_Graph::End_Reached() const
{
    return pipeline_ && end_reached_;
}

QSize Gst_Media_Graph::Video_Size() const
{
    return pipeline_ ? pipeline_->Video_Size() : QSize();
}

void Gst_Media_Graph::Set_Volume(int hundredths_of_decibel)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (pipeline_)
        pipeline_->Set_Volume(Linear_Gain(std::clamp(hundredths_of_decibel, -10000, 0)));
}

void Gst_Media_Graph::Show_Cursor()
{
    if (video_widget_)
        video_widget_->setCursor(Qt::ArrowCursor);
}

void Gst_Media_Graph::Set_Video_Widget(Video_Widget* widget)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (video_widget_) {
        disconnect(&mailbox_, nullptr, video_widget_, nullptr);
        disconnect(video_widget_, nullptr, this, nullptr);
    }
    video_widget_ = widget;
    mailbox_.Set_Wanted(widget != nullptr);
    if (!widget)
        return;
    connect(&mailbox_, &Frame_Mailbox::Frame_Arrived, widget, &Video_Widget::Show_Frame);
    // The pipeline scales to the widget, so the GUI thread only copies pixels.
    connect(widget, &Video_Widget::Picture_Pixels_Changed, this, [this](QSize pixels) {
        if (pipeline_)
            pipeline_->Set_Picture_Size(pixels);
    });
    if (pipeline_)
        pipeline_->Set_Picture_Size(widget->Picture_Pixels());
    connect(widget, &QObject::destroyed, this, [this] { mailbox_.Set_Wanted(false); });
}

bool Gst_Media_Graph::Find_Splitter() const
{
    return pipeline_ && pipeline_->Find_Splitter();
}

std::map<int, Pad_Ref> Gst_Media_Graph::Streams_By_Number(bool has_video) const
{
    std::map<int, Pad_Ref> streams;
    if (!pipeline_)
        return streams;
    std::vector<Playback_Pipeline::Audio_Input> inputs;
    for (Playback_Pipeline::Audio_Input& input : pipeline_->Audio_Inputs())
        if (!input.Associated)
            inputs.push_back(std::move(input));

    // A stream is known by the splitter pad that carries it: the same
    // stream-id travels from that pad through parser and decoder.
    if (const Element_Ref splitter = pipeline_->Find_Splitter()) {
        const QString factory = Factory_Name(splitter.get());
        for (const Pad_Ref& pad : Source_Pads(splitter.get())) {
            const std::optional<int> number = Audio_Stream_Number(factory, Object_Name(pad.get()), has_video);
            const QString stream_id = Stream_Id(pad.get());
            if (!number || stream_id.isEmpty())
                continue;
            for (const Playback_Pipeline::Audio_Input& input : inputs)
                if (input.Stream_Id == stream_id)
                    streams.emplace(*number, input.Selector_Pad);
        }
    }
    if (streams.empty()) {
        // Without a splitter, the streams are numbered as they appeared.
        int number = has_video ? 1 : 0;
        for (const Playback_Pipeline::Audio_Input& input : inputs)
            streams.emplace(number++, input.Selector_Pad);
    }
    return streams;
}

void Gst_Media_Graph::Select_Default_Stream()
{
    // Until the session chooses, the first stream of the file is the one heard.
    const std::map<int, Pad_Ref> streams = Streams_By_Number(!Video_Size().isEmpty());
    if (!streams.empty())
        pipeline_->Select_Audio_Input(streams.begin()->second.get());
}

void Gst_Media_Graph::Record_Audio_Pins(bool has_video, int stream_count)
{
    Q_ASSERT(QThread::currentThread() == thread());
    saved_audio_pins_.clear();
    for (auto& [number, pad] : Streams_By_Number(has_video))
        if (number <= stream_count)
            saved_audio_pins_.emplace(number, pad);
}

std::vector<int> Gst_Media_Graph::Recorded_Streams() const
{
    std::vector<int> numbers;
    for (const auto& entry : saved_audio_pins_)
        numbers.push_back(entry.first);
    return numbers;
}

void Gst_Media_Graph::Disconnect_Audio_Stream(int stream)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (!pipeline_)
        return;
    Stop();
    auto saved = saved_audio_pins_.find(stream);
    if (saved != saved_audio_pins_.end() && saved->second == pipeline_->Selected_Audio_Input())
        pipeline_->Set_Muted(true);
}

void Gst_Media_Graph::Disconnect_Audio_Streams(bool has_video, int stream_count)
{
    const int first = has_video ? 1 : 0;
    for (int stream = first; stream < first + stream_count; ++stream)
        Disconnect_Audio_Stream(stream);
}

void Gst_Media_Graph::Connect_Audio_Stream(int stream)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (!pipeline_)
        return;
    auto saved = saved_audio_pins_.find(stream);
    if (saved == saved_audio_pins_.end()) {
        qCWarning(Media_Log, "Audio stream %d was not recorded: nothing to connect", stream);
        return;
    }
    pipeline_->Select_Audio_Input(saved->second.get());
    pipeline_->Set_Muted(false);
}

bool Gst_Media_Graph::Render_Associated_Audio(const QString& path)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (!pipeline_) {
        last_error_ = QStringLiteral("No media is open");
        return false;
    }
    QString error;
    const Pad_Ref pad = pipeline_->Associated().Add(path, Associated_Limit, error);
    if (!pad) {
        last_error_ = error;
        qCWarning(Media_Log, "%s", qUtf8Printable(error));
        return false;
    }
    // The file starts at its beginning: move it alone to where the picture
    // is before it is heard, so both run from the same point of the clock.
    if (!pipeline_->Associated().Align(pad.get(), Current_Position()))
        qCWarning(Media_Log, "The associated audio file could not be moved to the picture's position");
    pipeline_->Select_Audio_Input(pad.get());
    pipeline_->Set_Muted(false);
    return true;
}

bool Gst_Media_Graph::Drop_Associated_Audio()
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (!pipeline_)
        return false;
    Associated_Audio& associated = pipeline_->Associated();
    if (associated.Empty())
        return true;
    // The selector keeps an active pad (the file's first stream, silent)
    // while the associated input goes.
    pipeline_->Set_Muted(true);
    Select_Default_Stream();
    associated.Start_Removal();
    GstState state = GST_STATE_NULL;
    GstState pending = GST_STATE_NULL;
    gst_element_get_state(pipeline_->Element(), &state, &pending, 0);
    if (state == GST_STATE_PLAYING && pending == GST_STATE_VOID_PENDING)
        pipeline_->Finish_Leaving_Audio();
    return true;
}

int Gst_Media_Graph::Heard_Stream() const
{
    if (!pipeline_ || pipeline_->Muted())
        return -1;
    const Pad_Ref active = pipeline_->Selected_Audio_Input();
    const std::map<int, Pad_Ref> streams =
        saved_audio_pins_.empty() ? Streams_By_Number(!Video_Size().isEmpty()) : saved_audio_pins_;
    for (const auto& [number, pad] : streams)
        if (pad == active)
            return number;
    return -1;
}

void Gst_Media_Graph::Save_Position()
{
    saved_position_ = Current_Position();
}

void Gst_Media_Graph::Restore_Position()
{
    // When the graph was not rebuilt since the position was saved, it stands
    // a few milliseconds past it (it ran on until it stopped): seeking back
    // would only flush it and interrupt the sound again.
    if (pipeline_ && std::abs(Current_Position() - saved_position_) < Restore_Tolerance)
        return;
    Set_Current_Position(saved_position_);
}

void Gst_Media_Graph::On_Bus_Message(GstMessage* message)
{
    const int id = pipeline_id_;
    switch (GST_MESSAGE_TYPE(message)) {
    case GST_MESSAGE_ERROR: {
        const QString text = Message_Text(message);
        if (pipeline_ && pipeline_->Associated().From_Abandoned_Branch(GST_MESSAGE_SRC(message))) {
            qCWarning(Media_Log, "Associated audio file: %s", qUtf8Printable(text));
            break;
        }
        qCWarning(Media_Log, "%s", qUtf8Printable(text));
        Dump_Pipeline_Graph(pipeline_ ? pipeline_->Element() : nullptr, "error");
        last_error_ = text;
        QMetaObject::invokeMethod(
            this, [this, id, text] { emit Error_Occurred(id, text); }, Qt::QueuedConnection);
        break;
    }
    case GST_MESSAGE_EOS:
        if (GST_MESSAGE_TIMESTAMP(message) < moved_at_)
            break;
        end_reached_ = true;
        QMetaObject::invokeMethod(this, [this, id] { emit End_Of_Stream(id); }, Qt::QueuedConnection);
        break;
    case GST_MESSAGE_WARNING:
        qCWarning(Media_Log, "%s", qUtf8Printable(Message_Text(message)));
        break;
    default:
        break;
    }
}

} // namespace Orvane

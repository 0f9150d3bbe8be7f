#pragma once

#include "media/frame_mailbox.h"
#include "media/gst_ref.h"
#include "media/media_graph.h"

#include <QPointer>
#include <chrono>
#include <map>
#include <memory>

namespace Orvane {

class Bus_Watch;
class Playback_Pipeline;

// The one pipeline of the open media on GStreamer (see Playback_Pipeline for
// its shape). The audio heard is the active pad of an input-selector:
// disconnecting and connecting a splitter's audio output selects pads, and
// "no stream connected" mutes the output. Bus messages arrive on the GUI
// thread; signals are emitted from the event loop, never from inside a call.
class Gst_Media_Graph : public Media_Graph {
    Q_OBJECT
public:
    explicit Gst_Media_Graph(QObject* parent = nullptr);
    ~Gst_Media_Graph() override;

    bool Open_Graph(const QString& path) override;
    void Close_Graph() override;
    bool Is_Open() const override;
    int Pipeline_Id() const override;
    QString Last_Error() const override;

    void Run() override;
    void Pause() override;
    void Stop() override;
    double Current_Position() const override;
    void Set_Current_Position(double seconds) override;
    double Duration() const override;
    bool End_Reached() const override;
    QSize Video_Size() const override;
    void Set_Volume(int hundredths_of_decibel) override;
    void Show_Cursor() override;

    void Record_Audio_Pins(bool has_video, int stream_count) override;
    void Disconnect_Audio_Stream(int stream) override;
    void Disconnect_Audio_Streams(bool has_video, int stream_count) override;
    void Connect_Audio_Stream(int stream) override;
    bool Render_Associated_Audio(const QString& path) override;
    bool Drop_Associated_Audio() override;
    void Save_Position() override;
    void Restore_Position() override;

    // Whether the open pipeline holds an AVI or MPEG splitter (Has_Splitter).
    [[nodiscard]] bool Find_Splitter() const;
    // Frames go to this widget (none: frames are dropped). It must outlive
    // the graph or be unset first.
    void Set_Video_Widget(Video_Widget* widget);
    // The open pipeline, for tests that look inside; null when closed.
    GstElement* Pipeline() const;
    // The stream numbers Record_Audio_Pins found, in increasing order.
    std::vector<int> Recorded_Streams() const;
    // Stream number heard now, or -1 when an associated file or nothing is heard.
    int Heard_Stream() const;

    // The volume element's linear gain for a volume in hundredths of a decibel.
    static double Linear_Gain(int hundredths_of_decibel);

private:
    void On_Bus_Message(GstMessage* message);
    void Select_Default_Stream();
    std::map<int, Pad_Ref> Streams_By_Number(bool has_video) const;

    Frame_Mailbox mailbox_;
    QPointer<Video_Widget> video_widget_;
    std::unique_ptr<Playback_Pipeline> pipeline_;
    std::unique_ptr<Bus_Watch> bus_watch_;
    int pipeline_id_ = 0;
    int last_pipeline_id_ = 0;
    QString last_error_;
    std::map<int, Pad_Ref> saved_audio_pins_;  // Saved_Audio_Pins, by stream number
    double saved_position_ = 0.0;              // Saved_Position
    mutable double last_position_ = 0.0;       // answered while a position query fails
    bool end_reached_ = false;
    // When the pipeline was last moved: an end-of-stream posted before
    // belongs to the place it left.
    GstClockTime moved_at_ = 0;
    bool no_audio_device_reported_ = false;
};

} // namespace Orvane

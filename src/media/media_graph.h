#pragma once

#include <QObject>
#include <QSize>
#include <QString>

namespace Orvane {

class Video_Widget;

// The one pipeline of the open media, as the playback session sees it. The
// GStreamer engine implements it; session tests use a fake. Every operation
// is called on the GUI thread. Signals carry the id of the pipeline they come
// from, so a late message of a closed pipeline can be told apart.
//
// Audio streams are numbered as the player numbers them: for a file with a
// picture, stream k (1..n) is the k-th audio stream of the demuxer
// (avidemux audio_<k-1>, the MPEG audio pad for k = 1); for a file without
// a picture, 0..n-1.
class Media_Graph : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    ~Media_Graph() override = default;

    // Builds and prerolls the pipeline of path (paused at 0). False when the
    // file cannot be played; Last_Error() then says why and nothing is open.
    virtual bool Open_Graph(const QString& path) = 0;
    // Tears the pipeline down (it is not stopped first).
    virtual void Close_Graph() = 0;
    // False wherever "no media is open".
    virtual bool Is_Open() const = 0;
    virtual int Pipeline_Id() const = 0;
    virtual QString Last_Error() const = 0;

    virtual void Run() = 0;
    virtual void Pause() = 0;
    virtual void Stop() = 0;  // paused, position kept
    virtual double Current_Position() const = 0;          // seconds
    virtual void Set_Current_Position(double seconds) = 0;  // accurate flushing seek
    virtual double Duration() const = 0;                  // Media_Duration, read after opening
    // The pipeline played to its end (an end-of-stream) since it was opened
    // or last moved by Set_Current_Position. Known from the event loop.
    virtual bool End_Reached() const = 0;
    virtual QSize Video_Size() const = 0;                 // empty without a picture
    virtual void Set_Volume(int hundredths_of_decibel) = 0;  // -3000 .. 0
    virtual void Show_Cursor() = 0;

    // Choice of the audio heard: exactly one source is heard at a time.
    virtual void Record_Audio_Pins(bool has_video, int stream_count) = 0;
    virtual void Disconnect_Audio_Stream(int stream) = 0;  // stops the graph first
    virtual void Disconnect_Audio_Streams(bool has_video, int stream_count) = 0;
    virtual void Connect_Audio_Stream(int stream) = 0;     // neither stops nor runs
    // Renders an associated audio file into the same pipeline (shared clock).
    virtual bool Render_Associated_Audio(const QString& path) = 0;
    // Takes the associated files rendered out of the pipeline in place, the
    // position kept; nothing is heard until a stream is connected or another
    // file rendered. False when only opening the file again drops them.
    virtual bool Drop_Associated_Audio() = 0;
    virtual void Save_Position() = 0;
    virtual void Restore_Position() = 0;

signals:
    // The pipeline failed while open (the session reports it and closes).
    void Error_Occurred(int pipeline_id, const QString& message);
    void End_Of_Stream(int pipeline_id);
};

} // namespace Orvane

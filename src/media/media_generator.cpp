#include "media/media_generator.h"

#include "media/gst_diagnostics.h"
#include "media/gst_ref.h"

#include <QFile>
#include <cmath>

namespace Orvane::Media_Generator {

namespace {

constexpr int Audio_Rate = 44100;
constexpr int Samples_Per_Buffer = 1024;
constexpr int Video_Rate = 25;

int Audio_Buffers(double seconds) { return int(std::ceil(seconds * Audio_Rate / Samples_Per_Buffer)); }
int Video_Frames(double seconds) { return int(std::ceil(seconds * Video_Rate)); }

QString Tone(int frequency, double seconds)
{
    return QStringLiteral("audiotestsrc wave=sine volume=0.5 freq=%1 num-buffers=%2 samplesperbuffer=%3 "
                          "! audio/x-raw,rate=%4,channels=2 ")
        .arg(frequency)
        .arg(Audio_Buffers(seconds))
        .arg(Samples_Per_Buffer)
        .arg(Audio_Rate);
}

QString Pattern(double seconds, int width, int height)
{
    return QStringLiteral("videotestsrc pattern=smpte horizontal-speed=4 num-buffers=%1 "
                          "! video/x-raw,format=I420,width=%2,height=%3,framerate=%4/1 ")
        .arg(Video_Frames(seconds))
        .arg(width)
        .arg(height)
        .arg(Video_Rate);
}

QString Quoted(const QString& path)
{
    QString escaped = path;
    escaped.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    return u'"' + escaped + u'"';
}

} // namespace

bool Run_Pipeline(const QString& launch_description, QString* error)
{
    GError* raw_error = nullptr;
    // A parsed pipeline comes floating: sunk, it is owned here like any other.
    const Element_Ref pipeline =
        Element_Ref::Sink(gst_parse_launch(launch_description.toUtf8().constData(), &raw_error));
    const G_Error parse_error(raw_error);
    if (parse_error || !pipeline) {
        if (error)
            *error = parse_error ? QString::fromUtf8(parse_error->message) : QStringLiteral("no pipeline");
        if (pipeline)
            gst_element_set_state(pipeline.get(), GST_STATE_NULL);
        return false;
    }
    const Bus_Ref bus = Bus_Ref::Adopt(gst_element_get_bus(pipeline.get()));
    gst_element_set_state(pipeline.get(), GST_STATE_PLAYING);
    // Generous: on a loaded build machine the MPEG-2 encoder alone takes tens of seconds.
    const Message_Ref message = Message_Ref::Adopt(gst_bus_timed_pop_filtered(
        bus.get(), 180 * GST_SECOND, GstMessageType(GST_MESSAGE_EOS | GST_MESSAGE_ERROR)));
    const bool finished = message && GST_MESSAGE_TYPE(message.get()) == GST_MESSAGE_EOS;
    if (!finished && error)
        *error = message ? Message_Text(message.get()) : QStringLiteral("timed out");
    gst_element_set_state(pipeline.get(), GST_STATE_NULL);
    return finished;
}

bool Avi(const QString& path, double seconds, const std::vector<int>& frequencies, int width,
         int height, QString* error)
{
    QString description = Pattern(seconds, width, height)
        + QStringLiteral("! avenc_mpeg4 ! avimux name=mux ! filesink location=%1 ").arg(Quoted(path));
    for (int frequency : frequencies)
        description += Tone(frequency, seconds) + QStringLiteral("! lamemp3enc ! mux. ");
    return Run_Pipeline(description, error);
}

bool Mpeg1_System(const QString& path, double seconds, int frequency, QString* error)
{
    // mplex format 0 writes an MPEG-1 system stream, as on a video CD.
    const QString description = Pattern(seconds, 352, 288)
        + QStringLiteral("! mpeg2enc format=0 ! mplex name=mux format=0 ! filesink location=%1 ")
              .arg(Quoted(path))
        + Tone(frequency, seconds) + QStringLiteral("! twolamemp2enc ! mux.");
    return Run_Pipeline(description, error);
}

bool Wav(const QString& path, double seconds, int frequency, QString* error)
{
    return Run_Pipeline(Tone(frequency, seconds)
                            + QStringLiteral("! wavenc ! filesink location=%1").arg(Quoted(path)),
                        error);
}

bool Mp3(const QString& path, double seconds, int frequency, QString* error)
{
    return Run_Pipeline(Tone(frequency, seconds)
                            + QStringLiteral("! lamemp3enc ! filesink location=%1").arg(Quoted(path)),
                        error);
}

bool Mp2(const QString& path, double seconds, int frequency, QString* error)
{
    return Run_Pipeline(Tone(frequency, seconds)
                            + QStringLiteral("! twolamemp2enc ! filesink location=%1").arg(Quoted(path)),
                        error);
}

} // namespace Orvane::Media_Generator

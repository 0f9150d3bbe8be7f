// Plays the three-stream AVI through an appsink, switches stream 1 -> 2 -> 3,
// to an associated WAV, back to stream 1, to the WAV again, to a second WAV
// and back to stream 2, the way the player's audio menu does each, and
// measures for each switch the silence heard and how far the sound is from
// the picture afterwards.
#include "media/gst_media_graph.h"
#include "media/gst_ref.h"
#include "media/media_generator.h"
#include "pad_probe.h"

#include <gst/app/gstappsink.h>
#include <gst/gst.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <functional>
#include <map>
#include <mutex>
#include <vector>

namespace {

using namespace Orvane;

constexpr int Rate = 44100;
const std::vector<int> Tones = {440, 660, 880, 1320, 1000};

// When a buffer was played and which part of its media it held.
struct Timed {
    gint64 Arrival = 0;      // monotonic microseconds when it reached its sink
    double Clock = 0.0;      // seconds on the pipeline clock when rendered
    double Offset = 0.0;     // media time minus running time
    guint32 Segment = 0;     // seqnum of the segment it belongs to
    int Tone = 0;            // for sound: the candidate tone heard, 0 for silence
    double Length = 0.0;     // seconds
};

double Seconds(GstClockTime time)
{
    return double(time) / double(GST_SECOND);
}

int Tone_Of(const float* samples, size_t count)
{
    double energy = 0.0;
    for (size_t i = 0; i < count; ++i)
        energy += double(samples[i]) * samples[i];
    if (count == 0 || std::sqrt(energy / count) < 0.01)
        return 0;
    int best = 0;
    double best_power = -1.0;
    for (int frequency : Tones) {
        const double coefficient = 2.0 * std::cos(2.0 * M_PI * frequency / Rate);
        double previous = 0.0;
        double before = 0.0;
        for (size_t i = 0; i < count; ++i) {
            const double current = samples[i] + coefficient * previous - before;
            before = previous;
            previous = current;
        }
        const double power = previous * previous + before * before - coefficient * previous * before;
        if (power > best_power) {
            best_power = power;
            best = frequency;
        }
    }
    return best;
}

// Records the sound at the appsink (as it is rendered) and the pictures at
// the video sink.
class Recorder {
public:
    explicit Recorder(GstElement* pipeline)
    {
        audio_sink_ = Element_Ref::Adopt(gst_bin_get_by_name(GST_BIN(pipeline), "orvane_audio_probe"));
        const Element_Ref video_sink = Element_Ref::Adopt(gst_bin_get_by_name(GST_BIN(pipeline), "video_sink"));
        if (audio_sink_) {
            GstAppSinkCallbacks callbacks{};
            callbacks.new_sample = [](GstAppSink* sink, gpointer self) {
                static_cast<Recorder*>(self)->On_Sound(sink);
                return GST_FLOW_OK;
            };
            gst_app_sink_set_callbacks(GST_APP_SINK(audio_sink_.get()), &callbacks, this, nullptr);
        }
        if (video_sink)
            video_probe_ = Pad_Probe(Pad_Ref::Adopt(gst_element_get_static_pad(video_sink.get(), "sink")),
                                     GST_PAD_PROBE_TYPE_BUFFER, &Recorder::On_Picture, this);
    }
    ~Recorder()
    {
        if (audio_sink_) {
            GstAppSinkCallbacks none{};
            gst_app_sink_set_callbacks(GST_APP_SINK(audio_sink_.get()), &none, nullptr, nullptr);
        }
    }
    bool Ready() const { return audio_sink_ && video_probe_.Installed(); }

    std::vector<Timed> Sound() const
    {
        std::lock_guard lock(mutex_);
        return sound_;
    }
    std::vector<Timed> Pictures() const
    {
        std::lock_guard lock(mutex_);
        return pictures_;
    }

private:
    void On_Sound(GstAppSink* sink)
    {
        const Sample_Ref sample = Sample_Ref::Adopt(gst_app_sink_pull_sample(sink));
        GstBuffer* buffer = sample ? gst_sample_get_buffer(sample.get()) : nullptr;
        const GstSegment* segment = sample ? gst_sample_get_segment(sample.get()) : nullptr;
        GstMapInfo map;
        if (!buffer || !segment || !gst_buffer_map(buffer, &map, GST_MAP_READ))
            return;
        Timed timed;
        const GstClockTime pts = GST_BUFFER_PTS(buffer);
        const double running = Seconds(gst_segment_to_running_time(segment, GST_FORMAT_TIME, pts));
        timed.Clock = running + Seconds(gst_element_get_base_time(GST_ELEMENT(sink)));
        timed.Offset = Seconds(gst_segment_to_stream_time(segment, GST_FORMAT_TIME, pts)) - running;
        timed.Length = double(map.size / sizeof(float)) / Rate;
        timed.Tone = Tone_Of(reinterpret_cast<const float*>(map.data), map.size / sizeof(float));
        gst_buffer_unmap(buffer, &map);
        const Gst_Ref<GstEvent> segment_event = Gst_Ref<GstEvent>::Adopt(
            gst_pad_get_sticky_event(GST_BASE_SINK_PAD(sink), GST_EVENT_SEGMENT, 0));
        timed.Segment = segment_event ? gst_event_get_seqnum(segment_event.get()) : 0;
        timed.Arrival = g_get_monotonic_time();
        std::lock_guard lock(mutex_);
        sound_.push_back(timed);
    }

    static GstPadProbeReturn On_Picture(GstPad* pad, GstPadProbeInfo* info, gpointer self)
    {
        GstBuffer* buffer = GST_PAD_PROBE_INFO_BUFFER(info);
        const Gst_Ref<GstEvent> event =
            Gst_Ref<GstEvent>::Adopt(gst_pad_get_sticky_event(pad, GST_EVENT_SEGMENT, 0));
        if (!buffer || !event)
            return GST_PAD_PROBE_OK;
        const GstSegment* segment = nullptr;
        gst_event_parse_segment(event.get(), &segment);
        const GstClockTime pts = GST_BUFFER_PTS(buffer);
        Timed timed;
        timed.Offset = Seconds(gst_segment_to_stream_time(segment, GST_FORMAT_TIME, pts))
            - Seconds(gst_segment_to_running_time(segment, GST_FORMAT_TIME, pts));
        timed.Segment = gst_event_get_seqnum(event.get());
        timed.Arrival = g_get_monotonic_time();
        auto* recorder = static_cast<Recorder*>(self);
        std::lock_guard lock(recorder->mutex_);
        recorder->pictures_.push_back(timed);
        return GST_PAD_PROBE_OK;
    }

    Element_Ref audio_sink_;
    Pad_Probe video_probe_;
    mutable std::mutex mutex_;
    std::vector<Timed> sound_;
    std::vector<Timed> pictures_;
};

void Play_For(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

struct Switch {
    const char* name;
    int from;
    int to;
    const char* kind;  // in the names of the figures printed
};

} // namespace

int main(int argc, char** argv)
{
    gst_init(&argc, &argv);
    QCoreApplication application(argc, argv);
    QTemporaryDir folder;
    const QString film = folder.filePath(QStringLiteral("three streams.avi"));
    const QString english = folder.filePath(QStringLiteral("english.wav"));
    const QString french = folder.filePath(QStringLiteral("french.wav"));
    QString error;
    if (!Media_Generator::Avi(film, 12.0, {440, 660, 880}, 320, 240, &error)
        || !Media_Generator::Wav(english, 12.0, 1320, &error) || !Media_Generator::Wav(french, 12.0, 1000, &error)) {
        std::fprintf(stderr, "could not generate the media: %s\n", qPrintable(error));
        return 1;
    }
    qputenv("ORVANE_AUDIO_SINK", "audioconvert ! audioresample ! audio/x-raw,format=F32LE,channels=1,rate=44100 "
                                 "! appsink name=orvane_audio_probe sync=true max-buffers=1 drop=true");

    Gst_Media_Graph graph;
    if (!graph.Open_Graph(film)) {
        std::fprintf(stderr, "cannot open: %s\n", qPrintable(graph.Last_Error()));
        return 1;
    }
    // What was heard and seen, kept across a rebuild of the graph (all times
    // are on the system's monotonic clock, which every pipeline uses).
    std::vector<Timed> sound;
    std::vector<Timed> pictures;
    auto recorder = std::make_unique<Recorder>(graph.Pipeline());
    const auto harvest = [&] {
        const std::vector<Timed> heard = recorder->Sound();
        const std::vector<Timed> seen = recorder->Pictures();
        sound.insert(sound.end(), heard.begin(), heard.end());
        pictures.insert(pictures.end(), seen.begin(), seen.end());
        recorder.reset();
    };
    if (!recorder->Ready()) {
        std::fprintf(stderr, "the probe sinks are missing\n");
        return 1;
    }
    graph.Record_Audio_Pins(true, 3);
    graph.Disconnect_Audio_Streams(true, 3);
    graph.Connect_Audio_Stream(1);
    // Started at 1 s, as after a seek: the running time no longer equals the
    // position, so a file rendered later must be moved to the picture.
    graph.Set_Current_Position(1.0);
    graph.Run();
    Play_For(1000);

    // The session's own sequences (see the player's audio menu), each timed
    // on the GUI thread.
    std::vector<double> call_ms;
    const auto timed = [&call_ms](const std::function<void()>& sequence) {
        const gint64 start = g_get_monotonic_time();
        sequence();
        call_ms.push_back(double(g_get_monotonic_time() - start) / 1000.0);
        Play_For(1000);
    };
    for (int stream : {2, 3})
        timed([&graph, stream] {
            graph.Disconnect_Audio_Stream(stream - 1);
            graph.Connect_Audio_Stream(stream);
            graph.Run();
        });
    bool rendered = true;
    const auto to_associated = [&](int stream, const QString& path) {
        graph.Save_Position();
        graph.Disconnect_Audio_Stream(stream);
        rendered = graph.Render_Associated_Audio(path) && rendered;
        graph.Restore_Position();
        graph.Run();
    };
    // Leaving an associated file as the player's audio menu does: the file
    // leaves the running pipeline, which is opened again only if it cannot.
    bool in_place = true;
    const auto leave_associated = [&] {
        graph.Save_Position();
        graph.Stop();
        in_place = graph.Drop_Associated_Audio() && in_place;
        graph.Record_Audio_Pins(true, 3);
        graph.Disconnect_Audio_Streams(true, 3);
    };
    const auto back_to_stream = [&](int stream) {
        leave_associated();
        graph.Restore_Position();
        graph.Connect_Audio_Stream(stream);
        graph.Run();
    };
    timed([&] { to_associated(3, english); });
    timed([&] { back_to_stream(1); });
    timed([&] { to_associated(1, english); });
    timed([&] {
        leave_associated();
        rendered = graph.Render_Associated_Audio(french) && rendered;
        graph.Restore_Position();
        graph.Run();
    });
    timed([&] { back_to_stream(2); });
    if (!rendered || !in_place) {
        std::fprintf(stderr, "a switch failed: %s\n", qPrintable(graph.Last_Error()));
        return 1;
    }
    graph.Stop();
    harvest();
    graph.Close_Graph();

    const std::vector<Switch> switches = {{"stream 1 -> 2", 440, 660, "stream_to_stream"},
                                          {"stream 2 -> 3", 660, 880, "stream_to_stream"},
                                          {"stream 3 -> associated", 880, 1320, "stream_to_associated"},
                                          {"associated -> stream 1", 1320, 440, "associated_to_stream"},
                                          {"stream 1 -> associated", 440, 1320, "stream_to_associated"},
                                          {"associated -> associated", 1320, 1000, "associated_to_associated"},
                                          {"associated -> stream 2", 1000, 660, "associated_to_stream"}};
    std::map<std::string, std::pair<double, double>> worst_by_kind;  // gap, offset
    double gap_max = 0.0;
    double offset_max = 0.0;
    size_t from = 0;
    for (size_t index = 0; index < switches.size(); ++index) {
        const Switch& change = switches[index];
        // The first buffer of the new sound, and the last of the old before it.
        size_t first_new = from;
        while (first_new < sound.size() && sound[first_new].Tone != change.to)
            ++first_new;
        size_t last_old = first_new;
        while (last_old > from && sound[last_old - 1].Tone != change.from)
            --last_old;
        if (first_new >= sound.size() || last_old == from) {
            std::printf("%s: not heard\n", change.name);
            return 1;
        }
        // The longest stretch without sound around the switch: a pause, a
        // missing buffer or silent samples all count.
        double gap_ms = 0.0;
        double sound_end = -1.0;
        const size_t window_end = std::min(sound.size(), first_new + 10);
        for (size_t i = last_old > from + 10 ? last_old - 10 : from; i < window_end; ++i) {
            if (sound[i].Tone == 0)
                continue;
            if (sound_end >= 0.0)
                gap_ms = std::max(gap_ms, (sound[i].Clock - sound_end) * 1000.0);
            sound_end = sound[i].Clock + sound[i].Length;
        }

        // Afterwards: what is heard against the picture last seen before it.
        double offset_ms = 0.0;
        for (size_t i = first_new; i < sound.size() && sound[i].Tone == change.to; ++i) {
            const Timed* seen = nullptr;
            for (const Timed& picture : pictures)
                if (picture.Arrival <= sound[i].Arrival && picture.Arrival >= sound[first_new].Arrival)
                    seen = &picture;
            if (seen)
                offset_ms = std::max(offset_ms, std::abs(sound[i].Offset - seen->Offset) * 1000.0);
        }
        std::printf("%-24s gap %6.1f ms   offset %6.1f ms   calls %6.1f ms\n", change.name, gap_ms, offset_ms,
                    call_ms[index]);
        auto& [kind_gap, kind_offset] = worst_by_kind[change.kind];
        kind_gap = std::max(kind_gap, gap_ms);
        kind_offset = std::max(kind_offset, offset_ms);
        gap_max = std::max(gap_max, gap_ms);
        offset_max = std::max(offset_max, offset_ms);
        from = first_new;
    }
    for (const auto& [kind, worst] : worst_by_kind) {
        std::printf("gap_ms_%s: %.1f\n", kind.c_str(), worst.first);
        std::printf("offset_ms_%s: %.1f\n", kind.c_str(), worst.second);
    }
    std::printf("gap_ms_max: %.1f\n", gap_max);
    std::printf("offset_ms_max: %.1f\n", offset_max);
    return 0;
}

#include "audio_probe.h"

#include <gst/app/gstappsink.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <cmath>
#include <cstring>

namespace Orvane::Test {

Audio_Output_Override::Audio_Output_Override(const char* description)
    : previous_(qgetenv("ORVANE_AUDIO_SINK"))
{
    qputenv("ORVANE_AUDIO_SINK", description);
}

Audio_Output_Override::~Audio_Output_Override()
{
    qputenv("ORVANE_AUDIO_SINK", previous_);
}

Audio_Probe::Audio_Probe(GstElement* pipeline)
{
    if (pipeline)
        sink_ = Element_Ref::Adopt(gst_bin_get_by_name(GST_BIN(pipeline), "orvane_audio_probe"));
}

std::vector<Audio_Chunk> Audio_Probe::Record(std::chrono::milliseconds length)
{
    std::vector<Audio_Chunk> chunks;
    if (!sink_)
        return chunks;
    const size_t wanted = size_t(length.count()) * Probe_Rate / 1000;
    size_t received = 0;
    QElapsedTimer waited;
    waited.start();
    while (received < wanted && waited.elapsed() < length.count() + 5000) {
        QCoreApplication::processEvents();
        const Sample_Ref sample =
            Sample_Ref::Adopt(gst_app_sink_try_pull_sample(GST_APP_SINK(sink_.get()), 20 * GST_MSECOND));
        if (!sample)
            continue;
        GstBuffer* buffer = gst_sample_get_buffer(sample.get());
        const GstSegment* segment = gst_sample_get_segment(sample.get());
        GstMapInfo map;
        if (buffer && segment && gst_buffer_map(buffer, &map, GST_MAP_READ)) {
            Audio_Chunk chunk;
            const GstClockTime pts = GST_BUFFER_PTS(buffer);
            chunk.Running_Time = double(gst_segment_to_running_time(segment, GST_FORMAT_TIME, pts)) / GST_SECOND;
            chunk.Stream_Time = double(gst_segment_to_stream_time(segment, GST_FORMAT_TIME, pts)) / GST_SECOND;
            chunk.Samples.resize(map.size / sizeof(float));
            std::memcpy(chunk.Samples.data(), map.data, chunk.Samples.size() * sizeof(float));
            received += chunk.Samples.size();
            chunks.push_back(std::move(chunk));
            gst_buffer_unmap(buffer, &map);
        }
    }
    return chunks;
}

void Audio_Probe::Drain()
{
    if (!sink_)
        return;
    while (Sample_Ref::Adopt(gst_app_sink_try_pull_sample(GST_APP_SINK(sink_.get()), 0))) {
    }
}

std::vector<float> Joined(const std::vector<Audio_Chunk>& chunks, size_t skip_chunks)
{
    std::vector<float> samples;
    for (size_t i = skip_chunks; i < chunks.size(); ++i)
        samples.insert(samples.end(), chunks[i].Samples.begin(), chunks[i].Samples.end());
    return samples;
}

double Tone_Power(const std::vector<float>& samples, double frequency, int rate)
{
    const double coefficient = 2.0 * std::cos(2.0 * M_PI * frequency / rate);
    double previous = 0.0;
    double before_previous = 0.0;
    for (float sample : samples) {
        const double current = sample + coefficient * previous - before_previous;
        before_previous = previous;
        previous = current;
    }
    const double power = previous * previous + before_previous * before_previous
        - coefficient * previous * before_previous;
    return samples.empty() ? 0.0 : power / double(samples.size());
}

int Dominant_Tone(const std::vector<float>& samples, const std::vector<int>& candidates)
{
    int best = 0;
    double best_power = -1.0;
    for (int frequency : candidates) {
        const double power = Tone_Power(samples, frequency);
        if (power > best_power) {
            best_power = power;
            best = frequency;
        }
    }
    return best;
}

double Rms(const std::vector<float>& samples)
{
    double sum = 0.0;
    for (float sample : samples)
        sum += double(sample) * sample;
    return samples.empty() ? 0.0 : std::sqrt(sum / double(samples.size()));
}

} // namespace Orvane::Test

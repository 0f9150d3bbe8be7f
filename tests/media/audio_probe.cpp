#include "audio_probe.h"

#include <gst/app/gstappsink.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace Orvane::Test {

namespace {
constexpr int Rate = 44100;
double Seconds(GstClockTime time) { return double(time) / double(GST_SECOND); }
} // namespace

Audio_Probe::Audio_Probe(GstElement* pipeline)
    : sink_(Element_Ref::Adopt(gst_bin_get_by_name(GST_BIN(pipeline), "orvane_audio_probe")))
{
}

std::vector<Audio_Chunk> Audio_Probe::Record(std::chrono::milliseconds length)
{
    std::vector<Audio_Chunk> chunks;
    size_t received = 0;
    QElapsedTimer waited;
    waited.start();
    while (sink_ && received < size_t(length.count()) * Rate / 1000 && waited.elapsed() < length.count() + 5000) {
        QCoreApplication::processEvents();
        const Sample_Ref sample =
            Sample_Ref::Adopt(gst_app_sink_try_pull_sample(GST_APP_SINK(sink_.get()), 20 * GST_MSECOND));
        GstBuffer* buffer = sample ? gst_sample_get_buffer(sample.get()) : nullptr;
        GstMapInfo map;
        if (!buffer || !gst_buffer_map(buffer, &map, GST_MAP_READ))
            continue;
        const GstSegment* segment = gst_sample_get_segment(sample.get());
        const GstClockTime pts = GST_BUFFER_PTS(buffer);
        Audio_Chunk chunk{Seconds(gst_segment_to_running_time(segment, GST_FORMAT_TIME, pts)),
                          Seconds(gst_segment_to_stream_time(segment, GST_FORMAT_TIME, pts)),
                          std::vector<float>(map.size / sizeof(float))};
        std::memcpy(chunk.Samples.data(), map.data, chunk.Samples.size() * sizeof(float));
        gst_buffer_unmap(buffer, &map);
        received += chunk.Samples.size();
        chunks.push_back(std::move(chunk));
    }
    return chunks;
}

void Audio_Probe::Drain()
{
    while (sink_ && Sample_Ref::Adopt(gst_app_sink_try_pull_sample(GST_APP_SINK(sink_.get()), 0))) {
    }
}

std::vector<float> Joined(const std::vector<Audio_Chunk>& chunks, size_t skip_chunks)
{
    std::vector<float> samples;
    for (size_t i = skip_chunks; i < chunks.size(); ++i)
        samples.insert(samples.end(), chunks[i].Samples.begin(), chunks[i].Samples.end());
    return samples;
}

double Tone_Power(const std::vector<float>& samples, double frequency)
{
    const double coefficient = 2.0 * std::cos(2.0 * M_PI * frequency / Rate);
    double previous = 0.0;
    double before = 0.0;
    for (float sample : samples)
        before = std::exchange(previous, sample + coefficient * previous - before);
    const double power = previous * previous + before * before - coefficient * previous * before;
    return samples.empty() ? 0.0 : power / double(samples.size());
}

int Dominant_Tone(const std::vector<float>& samples, const std::vector<int>& candidates)
{
    return *std::max_element(candidates.begin(), candidates.end(), [&samples](int a, int b) {
        return Tone_Power(samples, a) < Tone_Power(samples, b);
    });
}

double Rms(const std::vector<float>& samples)
{
    double sum = 0.0;
    for (float sample : samples)
        sum += double(sample) * sample;
    return samples.empty() ? 0.0 : std::sqrt(sum / double(samples.size()));
}

} // namespace Orvane::Test

#pragma once

#include "media/gst_ref.h"

#include <QByteArray>
#include <chrono>
#include <vector>

namespace Orvane::Test {

// The audio output tests record through: mono float at 44.1 kHz into an
// appsink that plays in step with the clock.
inline constexpr char Probe_Output[] =
    "audioconvert ! audioresample ! audio/x-raw,format=F32LE,channels=1,rate=44100 "
    "! appsink name=orvane_audio_probe sync=true";

// Sets ORVANE_AUDIO_SINK while it lives.
struct Audio_Output_Override {
    explicit Audio_Output_Override(const char* description) { qputenv("ORVANE_AUDIO_SINK", description); }
    ~Audio_Output_Override() { qputenv("ORVANE_AUDIO_SINK", previous); }
    QByteArray previous = qgetenv("ORVANE_AUDIO_SINK");
};

// One buffer that reached the output, with where it lies in time (seconds).
struct Audio_Chunk {
    double Running_Time = 0.0;  // on the pipeline's clock
    double Stream_Time = 0.0;   // into the media it came from
    std::vector<float> Samples;
};

// Reads what the pipeline's probe appsink received.
class Audio_Probe {
public:
    explicit Audio_Probe(GstElement* pipeline);
    bool Found() const { return bool(sink_); }
    // The buffers received until length of sound came (or a generous time passed).
    std::vector<Audio_Chunk> Record(std::chrono::milliseconds length);
    void Drain();  // drops what waits in the appsink

private:
    Element_Ref sink_;
};

std::vector<float> Joined(const std::vector<Audio_Chunk>& chunks, size_t skip_chunks = 0);
double Tone_Power(const std::vector<float>& samples, double frequency);  // Goertzel
int Dominant_Tone(const std::vector<float>& samples, const std::vector<int>& candidates);
double Rms(const std::vector<float>& samples);

} // namespace Orvane::Test

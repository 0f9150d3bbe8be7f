#pragma once

#include "media/gst_ref.h"

#include <QByteArray>
#include <chrono>
#include <vector>

namespace Orvane::Test {

// The audio output tests record through: mono 32-bit float at 44.1 kHz into
// an appsink that plays in step with the clock.
inline constexpr char Probe_Output[] =
    "audioconvert ! audioresample ! audio/x-raw,format=F32LE,channels=1,rate=44100 "
    "! appsink name=orvane_audio_probe sync=true";
inline constexpr int Probe_Rate = 44100;

// Sets ORVANE_AUDIO_SINK while it lives.
class Audio_Output_Override {
public:
    explicit Audio_Output_Override(const char* description);
    ~Audio_Output_Override();
    Audio_Output_Override(const Audio_Output_Override&) = delete;
    Audio_Output_Override& operator=(const Audio_Output_Override&) = delete;

private:
    QByteArray previous_;
};

// One buffer that reached the output, with where it lies in time.
struct Audio_Chunk {
    double Running_Time = 0.0;  // seconds on the pipeline's clock
    double Stream_Time = 0.0;   // seconds into the media it came from
    std::vector<float> Samples;
};

// Reads what the pipeline's probe appsink received.
class Audio_Probe {
public:
    explicit Audio_Probe(GstElement* pipeline);

    bool Found() const { return bool(sink_); }
    // Pulls buffers until at least length of sound was received (or a
    // generous time passed): the chunks in order.
    std::vector<Audio_Chunk> Record(std::chrono::milliseconds length);
    // Drops whatever is waiting in the appsink.
    void Drain();

private:
    Element_Ref sink_;
};

std::vector<float> Joined(const std::vector<Audio_Chunk>& chunks, size_t skip_chunks = 0);
// Power of one frequency in the samples (Goertzel).
double Tone_Power(const std::vector<float>& samples, double frequency, int rate = Probe_Rate);
// The candidate frequency with the most power.
int Dominant_Tone(const std::vector<float>& samples, const std::vector<int>& candidates);
double Rms(const std::vector<float>& samples);

} // namespace Orvane::Test

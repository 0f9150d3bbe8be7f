#pragma once

#include <QString>
#include <vector>

namespace Orvane {

// Writes small media files with GStreamer's own encoders and muxers: the test
// fixtures, the benchmarks' inputs and the demo playlist come from here.
// Each function runs its pipeline to the end and returns false (with the
// reason in error when given) if it could not. gst_init must have run.
namespace Media_Generator {

bool Run_Pipeline(const QString& launch_description, QString* error = nullptr);

// MPEG-4 video (a moving test pattern) with one MP3 stream per frequency.
bool Avi(const QString& path, double seconds, const std::vector<int>& frequencies,
         int width = 320, int height = 240, QString* error = nullptr);
// MPEG-1 system stream (VCD-like) with MPEG-1 video and one MP2 stream.
bool Mpeg1_System(const QString& path, double seconds, int frequency, QString* error = nullptr);
bool Wav(const QString& path, double seconds, int frequency, QString* error = nullptr);
bool Mp3(const QString& path, double seconds, int frequency, QString* error = nullptr);
bool Mp2(const QString& path, double seconds, int frequency, QString* error = nullptr);

} // namespace Media_Generator
} // namespace Orvane

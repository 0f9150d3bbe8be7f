#pragma once

#include <QString>
#include <chrono>
#include <optional>

namespace Orvane {

// The length in seconds of a file that does not state it (an MP3 without a
// header of its length, whose parser only estimates it from the bitrate of
// the frames seen so far, an estimate that moves as it plays): found by
// parsing the whole file, without decoding it, to its end. Parsing runs at
// the speed of reading (a four-minute MP3 in a few tens of milliseconds).
// Nothing when the file cannot be parsed or the limit passes first.
std::optional<double> Parsed_Length(const QString& path,
                                    std::chrono::milliseconds limit = std::chrono::milliseconds(3000));

} // namespace Orvane

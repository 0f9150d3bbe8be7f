#pragma once

#include "media/gst_ref.h"
#include "media/media_analysis.h"

#include <QStringList>
#include <chrono>

namespace Orvane {

// Analyses each file on a short-lived pipeline of its own: the file decoded
// by decodebin into fake renderers, prerolled, then inspected.
class Gst_Media_Analyser : public Media_Analyser {
public:
    // time_limit bounds the wait for a file that never prerolls.
    explicit Gst_Media_Analyser(std::chrono::milliseconds time_limit = std::chrono::seconds(5));

    std::optional<Media_Analysis> Analyse_Media(const QString& path) override;

    // Factory names of the pipeline's elements in the bin's own order, for
    // Detect_Media_Kind and Count_Renderers. An MPEG audio parser behind a
    // container's demuxer parses that container's stream, not a plain audio
    // file, so it is left out (a tag demuxer such as id3demux is no container).
    static QStringList Element_Names(GstBin* pipeline);

private:
    std::chrono::milliseconds time_limit_;
};

} // namespace Orvane

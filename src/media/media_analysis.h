#pragma once

#include <QString>
#include <cstdint>
#include <optional>

namespace Orvane {

// What one file holds, found once on a short-lived pipeline of its own.
struct Media_Analysis {
    QString Media_Kind = QStringLiteral("Autre"); // "AVI", "MPEG", "WAV" or "Autre"
    bool Has_Splitter = false;
    bool Has_Video = false;
    bool Has_Audio = false;
    bool Video_Renderer_Found = false;
    int16_t Audio_Streams = 0;  // decodable audio streams
    double Duration = 0.0;      // seconds
    int Width = 0;              // pixels, when a picture was found
    int Height = 0;
};

// Analysis behind an interface, so the playlist can be tested with a fake.
class Media_Analyser {
public:
    virtual ~Media_Analyser() = default;
    // Nothing when the file cannot be rendered (never throws, whatever the file holds).
    virtual std::optional<Media_Analysis> Analyse_Media(const QString& path) = 0;
};

} // namespace Orvane

#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>

namespace Orvane {

// The elements that tell a file's kind and the renderers of an analysis
// pipeline, by factory name. These functions read a list of the factory names
// of a pipeline's elements in the bin's own order (see
// Gst_Media_Analyser::Element_Names) and need no GStreamer.
namespace Element_Name {
inline const QString Avi_Splitter = QStringLiteral("avidemux");
inline const QString Mpeg_Splitter = QStringLiteral("mpegpsdemux");
inline const QString Mpeg_Audio_Parser = QStringLiteral("mpegaudioparse");
inline const QString Wave_Parser = QStringLiteral("wavparse");
inline const QString Video_Renderer = QStringLiteral("fakevideosink");
inline const QString Sound_Renderer = QStringLiteral("fakeaudiosink");
} // namespace Element_Name

struct Media_Kind_Result {
    QString Media_Kind = QStringLiteral("Autre");
    bool Has_Splitter = false;
};

// The first recognised element in list order decides: the AVI or MPEG
// splitter ("AVI"/"MPEG", with a splitter), the MPEG audio parser of a plain
// audio file ("MPEG", the splitter of such a file), the wave parser ("WAV").
// Every other element says "Autre" and no splitter, and the walk goes on.
Media_Kind_Result Detect_Media_Kind(const QStringList& element_names);

struct Renderer_Count {
    Media_Kind_Result Kind;
    bool Has_Video = false;
    bool Has_Audio = false;
    bool Video_Renderer_Found = false;
    int16_t Count = 0;  // sound renderers: the file's decodable audio streams
};

// Detect_Media_Kind, then the video renderer and the number of sound renderers.
Renderer_Count Count_Renderers(const QStringList& element_names);

// The player's number for the audio stream a splitter's source pad carries:
// avidemux audio_<i> is stream i + 1 beside a picture and i without one;
// mpegpsdemux has at most one audio stream, its audio pad is 1 (0 without a
// picture). Nothing for other pads and other elements.
std::optional<int> Audio_Stream_Number(const QString& splitter_factory, const QString& pad_name,
                                       bool has_video);

} // namespace Orvane

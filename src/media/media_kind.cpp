#include "media/media_kind.h"

namespace Orvane {

Media_Kind_Result Detect_Media_Kind(const QStringList& element_names)
{
    Media_Kind_Result result;
    for (const QString& name : element_names) {
        if (name == Element_Name::Avi_Splitter) {
            result.Has_Splitter = true;
            result.Media_Kind = QStringLiteral("AVI");
            break;
        }
        if (name == Element_Name::Mpeg_Splitter || name == Element_Name::Mpeg_Audio_Parser) {
            result.Has_Splitter = true;
            result.Media_Kind = QStringLiteral("MPEG");
            break;
        }
        if (name == Element_Name::Wave_Parser) {
            result.Media_Kind = QStringLiteral("WAV");
            break;
        }
        result.Has_Splitter = false;
        result.Media_Kind = QStringLiteral("Autre");
    }
    return result;
}

Renderer_Count Count_Renderers(const QStringList& element_names)
{
    Renderer_Count result;
    result.Kind = Detect_Media_Kind(element_names);
    for (const QString& name : element_names) {
        if (name == Element_Name::Video_Renderer) {
            result.Video_Renderer_Found = true;
            result.Has_Video = true;
        } else if (name == Element_Name::Sound_Renderer) {
            result.Has_Audio = true;
            ++result.Count;
        }
    }
    result.Has_Video = result.Video_Renderer_Found;
    return result;
}

std::optional<int> Audio_Stream_Number(const QString& splitter_factory, const QString& pad_name,
                                       bool has_video)
{
    const int first = has_video ? 1 : 0;
    const QString prefix = QStringLiteral("audio_");
    if (!pad_name.startsWith(prefix))
        return std::nullopt;
    if (splitter_factory == Element_Name::Avi_Splitter) {
        bool numeric = false;
        const int index = pad_name.mid(prefix.size()).toInt(&numeric, 10);
        if (!numeric || index < 0)
            return std::nullopt;
        return first + index;
    }
    if (splitter_factory == Element_Name::Mpeg_Splitter)
        return first;
    return std::nullopt;
}

} // namespace Orvane

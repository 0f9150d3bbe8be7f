// The kind of a file and its renderers from the elements decoding put into
// the analysis pipeline, read in the bin's own order.
#include "media/media_kind.h"

#include <gtest/gtest.h>

#include <optional>

namespace Orvane {
namespace {

TEST(Detect_Media_Kind, TheFirstRecognisedElementInListOrderDecides)
{
    struct Case {
        QStringList elements;
        const char* kind;
        bool splitter;
    };
    const Case cases[] = {
        // As an AVI with MP3 sound lists its elements (newest first, the
        // renderers before the decoder bin's children).
        {{"fakevideosink", "fakeaudiosink", "decodebin", "avdec_mpeg4", "mpg123audiodec", "multiqueue", "avidemux",
          "typefind", "filesrc"}, "AVI", true},
        {{"decodebin", "mpegpsdemux", "wavparse"}, "MPEG", true},
        {{"decodebin", "wavparse", "avidemux"}, "WAV", false},
        {{"mpegaudioparse", "typefind"}, "MPEG", true},
        {{"fakevideosink", "decodebin", "avdec_h264", "matroskademux", "typefind"}, "Autre", false},
        {{}, "Autre", false},
        // Names are compared whole: a factory merely starting like a splitter is no splitter.
        {{"avidemuxer", "wavparser"}, "Autre", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.elements.join(u' ').toStdString());
        const Media_Kind_Result result = Detect_Media_Kind(c.elements);
        EXPECT_EQ(result.Media_Kind, c.kind);
        EXPECT_EQ(result.Has_Splitter, c.splitter);
    }
}

// Files with sound are counted on real files by the analyser's test; a film
// without sound is not generated there.
TEST(Count_Renderers, AFilmWithoutSoundHasAPictureAndNoSoundRenderer)
{
    const Renderer_Count silent_film = Count_Renderers({"fakevideosink", "decodebin", "mpegpsdemux"});
    EXPECT_EQ(silent_film.Count, 0);
    EXPECT_FALSE(silent_film.Has_Audio);
    EXPECT_TRUE(silent_film.Has_Video);
}

TEST(Audio_Stream_Number, SplitterPadsAreNumberedAsThePlayerNumbersStreams)
{
    struct Case {
        const char* splitter;
        const char* pad;
        bool picture;
        std::optional<int> stream;
    };
    const Case cases[] = {
        // With a picture, stream 0 is the video: the first audio pad is stream 1.
        {"avidemux", "audio_0", true, 1}, {"avidemux", "audio_10", true, 11}, {"avidemux", "audio_1", false, 1},
        {"avidemux", "video_0", true, {}}, {"avidemux", "audio_x", true, {}},
        // An MPEG-1 system stream has one audio stream, whatever its id.
        {"mpegpsdemux", "audio_c0", true, 1}, {"mpegpsdemux", "audio_c3", false, 0},
        {"mpegpsdemux", "video_e0", true, {}}, {"matroskademux", "audio_0", true, {}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Audio_Stream_Number(c.splitter, c.pad, c.picture), c.stream) << c.splitter << " " << c.pad;
}

} // namespace
} // namespace Orvane

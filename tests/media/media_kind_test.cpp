// The kind of a file and its renderers from the elements decoding put into
// the analysis pipeline, read in the bin's own order.
#include "media/media_kind.h"

#include <gtest/gtest.h>

namespace Orvane {
namespace {

TEST(Detect_Media_Kind, TheFirstRecognisedElementInListOrderDecides)
{
    // As an AVI with MP3 sound lists its elements (newest first, the
    // renderers before the decoder bin's children).
    const QStringList avi = {"fakevideosink", "fakeaudiosink", "decodebin", "avdec_mpeg4",
                             "mpg123audiodec", "multiqueue", "avidemux", "typefind", "filesrc"};
    EXPECT_EQ(Detect_Media_Kind(avi).Media_Kind, "AVI");
    EXPECT_TRUE(Detect_Media_Kind(avi).Has_Splitter);

    EXPECT_EQ(Detect_Media_Kind({"decodebin", "mpegpsdemux", "wavparse"}).Media_Kind, "MPEG");
    EXPECT_EQ(Detect_Media_Kind({"decodebin", "wavparse", "avidemux"}).Media_Kind, "WAV");
    EXPECT_EQ(Detect_Media_Kind({"mpegaudioparse", "typefind"}).Media_Kind, "MPEG");
    EXPECT_TRUE(Detect_Media_Kind({"mpegaudioparse", "typefind"}).Has_Splitter);
}

TEST(Detect_Media_Kind, AWaveFileHasNoSplitterAndUnknownContainersAreAutre)
{
    const Media_Kind_Result wav = Detect_Media_Kind({"fakeaudiosink", "decodebin", "wavparse", "typefind"});
    EXPECT_EQ(wav.Media_Kind, "WAV");
    EXPECT_FALSE(wav.Has_Splitter);

    const Media_Kind_Result matroska =
        Detect_Media_Kind({"fakevideosink", "decodebin", "avdec_h264", "matroskademux", "typefind"});
    EXPECT_EQ(matroska.Media_Kind, "Autre");
    EXPECT_FALSE(matroska.Has_Splitter);
    EXPECT_EQ(Detect_Media_Kind({}).Media_Kind, "Autre");
    // Names are compared whole: a factory merely starting like a splitter is no splitter.
    EXPECT_EQ(Detect_Media_Kind({"avidemuxer", "wavparser"}).Media_Kind, "Autre");
}

TEST(Count_Renderers, CountsSoundRenderersAndFindsTheVideoRenderer)
{
    const Renderer_Count three = Count_Renderers({"fakevideosink", "fakeaudiosink", "fakesink", "fakeaudiosink",
                                                  "fakesink", "fakeaudiosink", "fakesink", "decodebin",
                                                  "avidemux"});
    EXPECT_EQ(three.Count, 3);
    EXPECT_TRUE(three.Has_Audio);
    EXPECT_TRUE(three.Has_Video);
    EXPECT_TRUE(three.Video_Renderer_Found);
    EXPECT_EQ(three.Kind.Media_Kind, "AVI");

    const Renderer_Count silent_film = Count_Renderers({"fakevideosink", "decodebin", "mpegpsdemux"});
    EXPECT_EQ(silent_film.Count, 0);
    EXPECT_FALSE(silent_film.Has_Audio);
    EXPECT_TRUE(silent_film.Has_Video);

    const Renderer_Count song = Count_Renderers({"fakeaudiosink", "decodebin", "mpegaudioparse"});
    EXPECT_EQ(song.Count, 1);
    EXPECT_FALSE(song.Has_Video);
    EXPECT_FALSE(song.Video_Renderer_Found);
}

TEST(Audio_Stream_Number, SplitterPadsAreNumberedAsThePlayerNumbersStreams)
{
    // With a picture, stream 0 is the video: the first audio pad is stream 1.
    EXPECT_EQ(Audio_Stream_Number("avidemux", "audio_0", true), 1);
    EXPECT_EQ(Audio_Stream_Number("avidemux", "audio_2", true), 3);
    EXPECT_EQ(Audio_Stream_Number("avidemux", "audio_10", true), 11);
    EXPECT_EQ(Audio_Stream_Number("avidemux", "audio_0", false), 0);
    EXPECT_EQ(Audio_Stream_Number("avidemux", "audio_1", false), 1);
    EXPECT_FALSE(Audio_Stream_Number("avidemux", "video_0", true));
    EXPECT_FALSE(Audio_Stream_Number("avidemux", "audio_x", true));
    // An MPEG-1 system stream has one audio stream, whatever its id.
    EXPECT_EQ(Audio_Stream_Number("mpegpsdemux", "audio_c0", true), 1);
    EXPECT_EQ(Audio_Stream_Number("mpegpsdemux", "audio_c3", false), 0);
    EXPECT_FALSE(Audio_Stream_Number("mpegpsdemux", "video_e0", true));
    EXPECT_FALSE(Audio_Stream_Number("matroskademux", "audio_0", true));
}

} // namespace
} // namespace Orvane

// Analysis of real files on their own short-lived pipelines.
#include "media/gst_media_analyser.h"
#include "media/media_generator.h"
#include "support/generated_media.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace Orvane {
namespace {

namespace Support = Orvane::Test;

TEST(Gst_Media_Analyser, VideoFilesGiveKindSplitterStreamsDurationAndPictureSize)
{
    Gst_Media_Analyser analyser;
    const std::optional<Media_Analysis> avi = analyser.Analyse_Media(Support::Media().Avi_Three_Streams);
    ASSERT_TRUE(avi);
    EXPECT_EQ(avi->Media_Kind, "AVI");
    EXPECT_TRUE(avi->Has_Splitter);
    EXPECT_TRUE(avi->Has_Video);
    EXPECT_TRUE(avi->Video_Renderer_Found);
    EXPECT_TRUE(avi->Has_Audio);
    EXPECT_EQ(avi->Audio_Streams, 3);
    EXPECT_NEAR(avi->Duration, 4.0, 0.15);
    EXPECT_EQ(avi->Width, 320);
    EXPECT_EQ(avi->Height, 240);

    const std::optional<Media_Analysis> one = analyser.Analyse_Media(Support::Media().Avi_One_Stream);
    ASSERT_TRUE(one);
    EXPECT_EQ(one->Audio_Streams, 1);
    EXPECT_NEAR(one->Duration, 3.0, 0.15);

    const std::optional<Media_Analysis> vcd = analyser.Analyse_Media(Support::Media().Vcd_Dat);
    ASSERT_TRUE(vcd);
    EXPECT_EQ(vcd->Media_Kind, "MPEG");
    EXPECT_TRUE(vcd->Has_Splitter);
    EXPECT_TRUE(vcd->Has_Video);
    EXPECT_EQ(vcd->Audio_Streams, 1);
    EXPECT_EQ(vcd->Width, 352);
    EXPECT_EQ(vcd->Height, 288);
    EXPECT_NEAR(vcd->Duration, 3.0, 0.15);
}

TEST(Gst_Media_Analyser, AudioFilesHaveNoPictureAndTheirOwnKind)
{
    Gst_Media_Analyser analyser;
    struct Expected {
        QString path;
        QString kind;
        bool splitter;
    };
    for (const Expected& file : {Expected{Support::Media().Wav, "WAV", false},
                                 Expected{Support::Media().Mp3, "MPEG", true},
                                 Expected{Support::Media().Mp2, "MPEG", true}}) {
        const std::optional<Media_Analysis> audio = analyser.Analyse_Media(file.path);
        ASSERT_TRUE(audio) << file.path.toStdString();
        EXPECT_EQ(audio->Media_Kind, file.kind) << file.path.toStdString();
        EXPECT_EQ(audio->Has_Splitter, file.splitter) << file.path.toStdString();
        EXPECT_FALSE(audio->Has_Video);
        EXPECT_FALSE(audio->Video_Renderer_Found);
        EXPECT_TRUE(audio->Has_Audio);
        EXPECT_EQ(audio->Audio_Streams, 1);
        EXPECT_EQ(audio->Width, 0);
        // An MP3 without a length header tells its duration only as it runs.
        EXPECT_NEAR(audio->Duration, 3.0, 0.2) << file.path.toStdString();
    }
}

TEST(Gst_Media_Analyser, AContainerOtherThanAviOrMpegIsAutre)
{
    Support::Temp_Folder folder;
    const QString mkv = folder.File("film.mkv");
    ASSERT_TRUE(Media_Generator::Run_Pipeline(
        QStringLiteral("videotestsrc num-buffers=10 ! video/x-raw,width=160,height=120 ! jpegenc "
                       "! matroskamux name=mux ! filesink location=\"%1\" "
                       "audiotestsrc num-buffers=10 ! lamemp3enc ! mux.")
            .arg(mkv)));
    const std::optional<Media_Analysis> analysis = Gst_Media_Analyser().Analyse_Media(mkv);
    ASSERT_TRUE(analysis);
    EXPECT_EQ(analysis->Media_Kind, "Autre");
    EXPECT_FALSE(analysis->Has_Splitter);
    EXPECT_EQ(analysis->Audio_Streams, 1);
    EXPECT_EQ(analysis->Width, 160);
}

TEST(Gst_Media_Analyser, FilesThatCannotBeRenderedGiveNothing)
{
    Gst_Media_Analyser analyser;
    Support::Temp_Folder folder;
    EXPECT_FALSE(analyser.Analyse_Media(Support::Media().Not_Media));
    EXPECT_FALSE(analyser.Analyse_Media(Support::Media().Truncated_Avi));
    EXPECT_FALSE(analyser.Analyse_Media(QStringLiteral("/no/such/file.avi")));
    EXPECT_FALSE(analyser.Analyse_Media(folder.Write("empty.mp3", QByteArray())));
    EXPECT_FALSE(analyser.Analyse_Media(folder.Path()));  // a folder
    // Random bytes in a file named as a film.
    QByteArray noise(64 * 1024, '\0');
    quint32 seed = 12345;
    for (char& byte : noise) {
        seed = seed * 1664525u + 1013904223u;
        byte = char(seed >> 24);
    }
    EXPECT_FALSE(analyser.Analyse_Media(folder.Write("noise.avi", noise)));
    // The analyser is still fine afterwards.
    EXPECT_TRUE(analyser.Analyse_Media(Support::Media().Wav));
}

TEST(Gst_Media_Analyser, ElementNamesLeaveOutTheParserOfAContainersStream)
{
    // An MP3 stream inside an AVI is parsed by an MPEG audio parser too; only
    // the parser of a plain MP3 file stands for the file's splitter.
    const auto names_of = [](const QString& path) {
        QStringList names;
        GstElement* pipeline = gst_parse_launch(
            QStringLiteral("filesrc location=\"%1\" ! decodebin ! fakesink").arg(path).toUtf8().constData(), nullptr);
        gst_element_set_state(pipeline, GST_STATE_PAUSED);
        gst_element_get_state(pipeline, nullptr, nullptr, 5 * GST_SECOND);
        names = Gst_Media_Analyser::Element_Names(GST_BIN(pipeline));
        gst_element_set_state(pipeline, GST_STATE_NULL);
        gst_object_unref(pipeline);
        return names;
    };
    const QStringList avi = names_of(Support::Media().Avi_One_Stream);
    EXPECT_TRUE(avi.contains("avidemux"));
    EXPECT_FALSE(avi.contains("mpegaudioparse")) << avi.join(' ').toStdString();
    const QStringList mp3 = names_of(Support::Media().Mp3);
    EXPECT_TRUE(mp3.contains("mpegaudioparse")) << mp3.join(' ').toStdString();
}

} // namespace
} // namespace Orvane

// Analysis of real files on their own short-lived pipelines.
#include "media/gst_media_analyser.h"
#include "media/gst_media_graph.h"
#include "media/media_generator.h"
#include "support/generated_media.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <QFile>
#include <sys/stat.h>

#include <QSize>
#include <gst/gst.h>

namespace Orvane {
namespace {

namespace Support = Orvane::Test;

TEST(Gst_Media_Analyser, FilesGiveKindSplitterStreamsPictureAndDuration)
{
    struct Case {
        QString path;
        QString kind;
        bool splitter;
        int streams;
        QSize picture;
        double duration;  // an MP3 without a length header tells it only as it runs
    };
    const Support::Generated_Media& media = Support::Media();
    Gst_Media_Analyser analyser;
    // The AVIs' MP3 streams pass an MPEG audio parser too, decoded before the
    // splitter in the bin's order: still "AVI", as only a plain file's parser counts.
    for (const Case& file : {Case{media.Avi_Three_Streams, "AVI", true, 3, {320, 240}, 4.0},
                             Case{media.Avi_One_Stream, "AVI", true, 1, {320, 240}, 3.0},
                             Case{media.Vcd_Dat, "MPEG", true, 1, {352, 288}, 3.0},
                             Case{media.Wav, "WAV", false, 1, {0, 0}, 3.0},
                             Case{media.Mp3, "MPEG", true, 1, {0, 0}, 3.0},
                             Case{media.Mp2, "MPEG", true, 1, {0, 0}, 3.0}}) {
        SCOPED_TRACE(file.path.toStdString());
        const std::optional<Media_Analysis> analysis = analyser.Analyse_Media(file.path);
        ASSERT_TRUE(analysis);
        EXPECT_EQ(analysis->Media_Kind.toStdString(), file.kind.toStdString());
        EXPECT_EQ(analysis->Has_Splitter, file.splitter);
        EXPECT_EQ(analysis->Audio_Streams, file.streams);
        EXPECT_TRUE(analysis->Has_Audio);
        const bool picture = !file.picture.isEmpty();
        EXPECT_EQ(analysis->Has_Video, picture);
        EXPECT_EQ(analysis->Video_Renderer_Found, picture);
        EXPECT_EQ(QSize(analysis->Width, analysis->Height), file.picture);
        EXPECT_NEAR(analysis->Duration, file.duration, 0.2);
    }
}

// How long the file plays: decoded to its end as fast as it goes.
double Decoded_Length(const QString& path)
{
    GError* error = nullptr;
    GstElement* pipeline = gst_parse_launch(
        QStringLiteral("filesrc location=\"%1\" ! decodebin ! fakesink sync=false").arg(path).toUtf8().constData(),
        &error);
    g_clear_error(&error);
    if (!pipeline)
        return -1.0;
    gst_element_set_state(pipeline, GST_STATE_PLAYING);
    GstBus* bus = gst_element_get_bus(pipeline);
    GstMessage* end = gst_bus_timed_pop_filtered(bus, 10 * GST_SECOND,
                                                 GstMessageType(GST_MESSAGE_EOS | GST_MESSAGE_ERROR));
    gint64 position = -1;
    if (end && GST_MESSAGE_TYPE(end) == GST_MESSAGE_EOS)
        gst_element_query_position(pipeline, GST_FORMAT_TIME, &position);
    if (end)
        gst_message_unref(end);
    gst_object_unref(bus);
    gst_element_set_state(pipeline, GST_STATE_NULL);
    gst_object_unref(pipeline);
    return double(position) / double(GST_SECOND);
}

TEST(Gst_Media_Analyser, AnMp3WithoutALengthHeaderGetsTheLengthThatPlaysNotAnEstimate)
{
    // The parser of an MP3 without a length header first answers an estimate
    // from the bitrate of the frames seen so far: 2.99 s for this one.
    const QString mp3 = Support::Media().Mp3;
    const double plays = Decoded_Length(mp3);
    ASSERT_GT(plays, 2.9);
    const std::optional<Media_Analysis> analysis = Gst_Media_Analyser().Analyse_Media(mp3);
    ASSERT_TRUE(analysis);
    EXPECT_NEAR(analysis->Duration, plays, 0.02);
    Gst_Media_Graph graph;
    ASSERT_TRUE(graph.Open_Graph(mp3));
    EXPECT_NEAR(graph.Duration(), plays, 0.02) << "the player's graph knows it from the start";
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
    // A named pipe nothing writes to: refused at once rather than waited on.
    const QString pipe = folder.File("pipe.avi");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(analyser.Analyse_Media(pipe));
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

} // namespace
} // namespace Orvane

// The playlist on real files: media generated with GStreamer and analysed
// by the GStreamer analyser, a subtitle file read by the subtitle reader.
#include "config/settings.h"
#include "media/gst_media_analyser.h"
#include "playlist_test_support.h"
#include "subtitles/subtitle_reader.h"
#include "support/generated_media.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"

#include <gtest/gtest.h>

#include <QFileInfo>

namespace Orvane::Test {
namespace {

TEST(Playlist_Real_Media, AnalysedFilesFillTheRecordsAndRefuseWhatTheyMust)
{
    const Generated_Media& media = Media();
    Message_Box_Recorder boxes;
    Gst_Media_Analyser analyser;
    Playback_State state;
    No_Player_Hooks hooks;
    Subtitle_Table subtitles;
    const auto texts = Test_Texts({1002, 1210, 1310});
    Settings settings;
    settings.Subtitle_Font_Name = QStringLiteral("DejaVu Sans");
    settings.Subtitle_Font_Size = 20;
    Playlist_Model model(analyser, state, hooks, subtitles, *texts, [&](const QString& path) {
        return Load_Subtitles(path, settings, *texts, 1280, subtitles);
    });

    for (const QString& path : {media.Avi_Three_Streams, media.Not_Media, media.Wav, media.Truncated_Avi, media.Vcd_Dat})
        Add_File(model, path, 2);
    // The letter named .avi and the cut file cannot be played: silently left out.
    ASSERT_EQ(Paths(model), (QStringList{media.Avi_Three_Streams, media.Wav, media.Vcd_Dat}));
    EXPECT_TRUE(boxes.Boxes().empty());
    EXPECT_EQ(state.Current_Track, 1);

    const Track_Record& film = model.Track(1);
    EXPECT_EQ(film.Picture_Size, "320x240");
    EXPECT_EQ(film.Kind, "AVI");
    EXPECT_EQ(film.Audio_Streams, 3);
    EXPECT_EQ(film.Duration_Text, "00:00:04");
    EXPECT_TRUE(film.Has_Video && film.Has_Audio && film.Shows_Picture);

    const Track_Record& tone = model.Track(2);
    EXPECT_EQ(tone.Picture_Size, "--");
    EXPECT_EQ(tone.Kind, "WAV");
    EXPECT_FALSE(tone.Shows_Picture);
    EXPECT_EQ(tone.Duration_Text, "00:00:03");

    EXPECT_EQ(model.Track(3).Kind, "MPEG");
    EXPECT_EQ(model.Track(3).Picture_Size, "352x288");
    EXPECT_EQ(model.Playlist_Duration_Text(), "00:00:10");

    // Audio may be associated; a file with a picture may not.
    EXPECT_TRUE(model.Associate_Audio(1, media.Associated_Wav, QStringLiteral("english")));
    EXPECT_FALSE(model.Associate_Audio(1, media.Avi_One_Stream, QStringLiteral("one stream")));
    EXPECT_EQ(boxes.Last_Text(), "T1210");
    ASSERT_EQ(model.Track(1).Associated_Count, 1);
    EXPECT_EQ(model.Track(1).Associated_Audio[0].Duration_Text, "00:00:04");
    EXPECT_EQ(model.Track(1).Associated_Audio[0].Kind, "WAV");
    EXPECT_EQ(state.Audio_Choice, 1);

    // A subtitle file read for real: its header lands in the selected record.
    Temp_Folder folder;
    const QString sub = folder.Write(QStringLiteral("film.en.sub"),
                                     "[TITLE]\r\n\r\n[AUTHOR]\r\nAnn Author\r\n[SOURCE]\r\nDVD\r\n[DELAY]\r\n12\r\n"
                                     "[BEGIN]\r\n-\r\n[00:00:01]\r\nHello|World\r\n[END]\r\n");
    model.Select_Track(1);
    ASSERT_TRUE(model.Associate_Subtitle(sub, QFileInfo(sub).fileName()));
    EXPECT_EQ(model.Track(1).Subtitle_Name, "film");
    EXPECT_EQ(model.Track(1).Subtitle_Info_1, "Ann Author");
    EXPECT_EQ(model.Track(1).Subtitle_Info_2, "DVD");
    EXPECT_EQ(model.Track(1).Subtitle_Delay, 12);
    EXPECT_EQ(boxes.Last_Text(), "T1002");

    // A damaged one is reported by the reader and stores nothing.
    const QString damaged = folder.Write(QStringLiteral("bad.sub"), "[DELAY]\r\n75\r\n[BEGIN]\r\n-\r\n[END]\r\n");
    model.Select_Track(2);
    EXPECT_FALSE(model.Associate_Subtitle(damaged, QStringLiteral("bad.sub")));
    EXPECT_TRUE(boxes.Last_Text().contains(QStringLiteral("T1310")));
    EXPECT_TRUE(model.Track(2).Subtitle_Path.isEmpty());
}

} // namespace
} // namespace Orvane::Test

// File names taken from paths, and the open-dialog filter strings.
#include "playlist/name_from_path.h"
#include "playlist/open_dialog_filters.h"
#include "playlist_test_support.h"

#include <gtest/gtest.h>

namespace Orvane::Test {
namespace {

TEST(Name_From_Path, TakesTheNameAfterTheLastSlashUpToItsFirstDot)
{
    EXPECT_EQ(Name_From_Path(QStringLiteral("/films/english.wav")), "english");
    EXPECT_EQ(Name_From_Path(QStringLiteral("/films/la.version.longue.avi")), "la");
    // Dots in folder names are not looked at.
    EXPECT_EQ(Name_From_Path(QStringLiteral("/home/a.b/c.d/track.mp3")), "track");
    EXPECT_EQ(Name_From_Path(QStringLiteral("/music.mp3")), "music");
    // No dot: the whole rest, never a failure.
    EXPECT_EQ(Name_From_Path(QStringLiteral("/films/README")), "README");
    EXPECT_EQ(Name_From_Path(QStringLiteral("/films/")), "");
    EXPECT_EQ(Name_From_Path(QString()), "");
    EXPECT_EQ(Name_From_Path(QStringLiteral("/")), "");
    // The first character is never a separator: a bare name loses it.
    EXPECT_EQ(Name_From_Path(QStringLiteral("film.avi")), "ilm");
    EXPECT_EQ(Name_From_Path(QStringLiteral("a/b.wav")), "b");
}

TEST(Open_Dialog_Filters, DescriptionsFromTheTextsWithTheirOwnSpacing)
{
    const auto texts = Test_Texts({701, 702, 703, 704});
    const Open_Dialog_Filters filters = Build_Open_Dialog_Filters(*texts);
    const QString nul(QChar(u'\0'));
    EXPECT_EQ(filters.Filter_Media,
              "T701 *.avi;*.mpeg;*.mpg;*.dat;*.mpeg4;*.wav;*.mp3;*.mp2;*.mpa)" + nul
                  + "*.avi;*.mpeg;*.mpg;*.dat;*.mpeg4;*.wav;*.mp3;*.mp2;*.mpa");
    EXPECT_EQ(filters.Filter_Subtitles, "T702 (*.sub)" + nul + "*.sub");
    EXPECT_EQ(filters.Filter_Playlists, "T703(*.orx;*.m3u)" + nul + "*.orx;*.m3u");
    EXPECT_EQ(filters.Filter_Own_Playlist, "T703 (*.orx)" + nul + "*.orx");
    EXPECT_EQ(filters.Filter_Audio, "T704(*.wav;*.mp3;*.mpa)" + nul + "*.wav;*.mp3;*.mpa");
}

} // namespace
} // namespace Orvane::Test

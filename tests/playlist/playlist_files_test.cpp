#include "config/settings.h"
#include "playlist/playlist_files.h"
#include "playlist/playlist_test_support.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"

#include <gtest/gtest.h>

#include <QDir>

namespace Orvane::Test {
namespace {

// Each entry the loader hands on, as "entry | title | media | count[audio,...]" and " | subtitle" when given.
struct Recording_Target : Playlist_Load_Target {
    void Add_Track(const QString& media, const QStringList& audio, bool disc_change, const QString& title,
                   int entry, int16_t mode) override
    {
        EXPECT_EQ(mode, 1);
        entries << QString::number(entry) + " | " + title + " | " + media + " | " + QString::number(audio.size())
                       + "[" + audio.join(u',') + "]" + (disc_change ? " disc" : "");
    }
    void Associate_Subtitle(const QString& path) override { entries.last() += " | " + path; }
    void Beep(int line_number) override { beeps << line_number; }

    QStringList entries;
    QList<int> beeps;
};

QByteArray Crlf_Lines(const QStringList& lines)
{
    return (lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n")).toUtf8();
}

QStringList Record(const QString& title, const QString& media, const QString& audio = {}, const QString& sub = {})
{
    return {"#TRACK", "Titre=" + title, "Media=" + media, "Audio=" + audio, "SousT=" + sub};
}

class Playlist_Files_Test : public testing::Test {
protected:
    ~Playlist_Files_Test() override { QDir::setCurrent(saved_directory_); }

    Playlist_Load_Result Load(const QStringList& lines, const QString& name = QStringLiteral("list.orx"))
    {
        target_ = Recording_Target();
        return Load_Playlist(folder_.Write(name, Crlf_Lines(lines)), settings_, *texts_, target_);
    }

    QString saved_directory_ = QDir::currentPath();
    Temp_Folder folder_;
    std::unique_ptr<Text_Table> texts_ = Test_Texts();
    Settings settings_;
    Recording_Target target_;
    Message_Box_Recorder recorder_;
};

TEST_F(Playlist_Files_Test, SavedTracksComeBackThroughThePlaylistModel)
{
    Playlist_Bench bench;
    for (const char* film : {"/films/a.avi", "/films/b.mpg", "/films/c.avi"})
        bench.analyser.Add(film, 60);
    for (const char* sound : {"/audio/fr.wav", "/audio/en.wav"})
        bench.analyser.Add(sound, 30, {});
    bench.subtitle_files["/s/a.sub"] = Subtitle_Table();
    const QStringList file = QStringList{"#EXTORX"}
                             + Record("Le film; partie 1", "/films/a.avi", "/audio/fr.wav;/audio/en.wav", "/s/a.sub")
                             + Record("Été", "/films/b.mpg") + Record("not in the list", "/films/c.avi");
    ASSERT_EQ(Load_Playlist(folder_.Write("hand.orx", Crlf_Lines(file)), settings_, *texts_, bench.model),
              Playlist_Load_Result::Loaded);
    // The list count given decides how many tracks are written, as whole records.
    const QString saved = folder_.File("saved.orx");
    ASSERT_TRUE(Save_Playlist(saved, bench.model.Playlist(), 2, *texts_));
    EXPECT_EQ(folder_.Read("saved.orx"), Crlf_Lines(file.mid(0, 11)));
    // Read back (replacing the playlist): names, durations and sizes are worked out anew.
    ASSERT_EQ(Load_Playlist(saved, settings_, *texts_, bench.model), Playlist_Load_Result::Loaded);
    EXPECT_EQ(Paths(bench.model), QStringList({"/films/a.avi", "/films/b.mpg"}));
    const Track_Record& first = bench.model.Track(1);
    ASSERT_EQ(first.Associated_Count, 2);
    EXPECT_EQ(QStringList({Summary(first), first.Associated_Audio[0].Path, first.Associated_Audio[1].Path,
                           first.Associated_Audio[1].Name + " " + first.Associated_Audio[1].Duration_Text,
                           first.Subtitle_Path, bench.model.Track(2).Title}),
              QStringList({"Le film; partie 1 320x240 00:01:00 AVI 1 VAP", "/audio/fr.wav", "/audio/en.wav",
                           "en 00:00:30", "/s/a.sub", "Été"}));
    EXPECT_TRUE(recorder_.Boxes().empty());

    const QString unwritable = folder_.File("no such folder/list.orx");
    EXPECT_FALSE(Save_Playlist(unwritable, bench.model.Playlist(), 2, *texts_));
    EXPECT_EQ(recorder_.Last_Text(), "T1209\n" + unwritable + "\nNo such file or directory");
}

TEST_F(Playlist_Files_Test, OwnFormatEntriesAsTheLoaderHandsThemOn)
{
    settings_.CD1_Drive = QStringLiteral("/media/cdrom/");
    settings_.CD2_Drive = QStringLiteral("Aucun");
    const QStringList file = QStringList{"#extorx", "#track", "titre=lower case keys", "media=/a.avi", "audio=",
                                         "soust=", "#TRACKS", "Title=Out of step", "Media=/b.avi", "Audio=x",
                                         "Sub=/films/b.sub"}
                             + Record("A", "C:\\films\\a.avi", "a.wav;;b.wav", "a.sub")
                             + Record("B", "/b.avi", "D:\\fr.wav;", "ab.sub") + Record("C", "/c.avi", ";", "C:\\b.sub")
                             + Record("1", "$$CD1$$\\VIDEO\\A.AVI") + Record("2", "$$CD2$$\\VIDEO\\B.AVI")
                             + Record("3", "$$cd1$$\\C.AVI");
    ASSERT_EQ(Load(file), Playlist_Load_Result::Loaded);
    // Wrong keys only beep (lines 7, 8, 11); the values still start at the seventh character.
    EXPECT_EQ(target_.beeps, QList<int>({7, 8, 11}));
    EXPECT_EQ(target_.entries, (QStringList{"1 | lower case keys | /a.avi | 0[]",
                                            "2 | Out of step | /b.avi | 1[x] | ilms/b.sub",
                                            "3 | A | C:/films/a.avi | 3[a.wav,,b.wav]",  // "a.sub": too short
                                            "4 | B | /b.avi | 2[D:/fr.wav,]",            // "ab.sub" as well
                                            "5 | C | /c.avi | 2[,] | C:/b.sub",
                                            "6 | 1 | /media/cdrom/VIDEO/A.AVI | 0[]",
                                            "7 | 2 | /media/cdrom/VIDEO/B.AVI | 0[] disc",  // no second drive
                                            "8 | 3 | $$cd1$$/C.AVI | 0[]"}));
    ASSERT_EQ(recorder_.Boxes().size(), 2u);
    EXPECT_EQ(recorder_.Boxes()[1].text, "T1208");
    EXPECT_EQ(recorder_.Boxes()[1].style, Box_Style::Critical_Ok);

    settings_.CD2_Drive = QStringLiteral("/media/cdrom1");
    ASSERT_EQ(Load(file), Playlist_Load_Result::Loaded);
    EXPECT_EQ(target_.entries[6], "7 | 2 | /media/cdrom1/VIDEO/B.AVI | 0[]");
}

TEST_F(Playlist_Files_Test, FilesThatStopShortOrAreNoPlaylists)
{
    EXPECT_EQ(Load(QStringList{"#EXTORX"} + Record("A", "/a.avi") + QStringList{"#TRACK", "Titre=B"}),
              Playlist_Load_Result::Failed);
    EXPECT_EQ(target_.entries, QStringList{"1 | A | /a.avi | 0[]"}) << "what was read stays added";
    ASSERT_EQ(recorder_.Boxes().size(), 1u);
    EXPECT_EQ(recorder_.Last_Text(), "list.orx\n62, Input past end of file");
    recorder_.Clear();
    EXPECT_EQ(Load({"[playlist]", "File1=/a.mp3"}, QStringLiteral("list.pls")), Playlist_Load_Result::Not_A_Playlist);
    EXPECT_EQ(Load_Playlist(folder_.Write("empty.orx", {}), settings_, *texts_, target_),
              Playlist_Load_Result::Not_A_Playlist);
    EXPECT_TRUE(target_.entries.isEmpty());
    EXPECT_TRUE(recorder_.Boxes().empty());
    EXPECT_EQ(Load_Playlist(folder_.File("missing.m3u"), settings_, *texts_, target_), Playlist_Load_Result::Failed);
    EXPECT_EQ(recorder_.Last_Text(), "missing.m3u\n53, File not found");
}

TEST_F(Playlist_Files_Test, M3uEntriesCountEveryLineAndResolveAgainstTheCurrentDirectory)
{
    ASSERT_TRUE(QDir::setCurrent(folder_.Path()));
    const QString here = QDir::currentPath();
    ASSERT_EQ(Load({"#extm3u", "# a comment", "#EXTINF:12,Artist, Title, with commas", "music/a.mp3",
                    "#extinf:8,lower case: skipped", "skipped.mp3", "#EXTINF:no comma", "/home/user/b.mp3",
                    "#EXTINFO:-1,Also taken", "C:\\Music\\c.mp3", "#EXTINF:1,Dots", "..\\d.mp3"},
                   QStringLiteral("list.m3u")),
              Playlist_Load_Result::Loaded);
    // The first entry is on line 3: number 2, so it does not empty the playlist. The path lines do not count.
    EXPECT_EQ(target_.entries, (QStringList{"2 | Artist, Title, with commas | " + here + "/music/a.mp3 | 0[]",
                                            "5 |  | /home/user/b.mp3 | 0[]", "6 | Also taken | C:/Music/c.mp3 | 0[]",
                                            "7 | Dots | " + here + "/../d.mp3 | 0[]"}));
    // An "#EXTINF" on line 2 is entry 1, which replaces the playlist.
    ASSERT_EQ(Load({"#EXTM3U", "#EXTINF:1,One", "/one.mp3", "#EXTINF:2,Two"}, QStringLiteral("cut.m3u")),
              Playlist_Load_Result::Failed);
    EXPECT_EQ(target_.entries, QStringList{"1 | One | /one.mp3 | 0[]"});
    EXPECT_EQ(recorder_.Last_Text(), "cut.m3u\n62, Input past end of file");
}

// "#EXTM3U", a first track (entry 1), comments, then a second track whose entry number is
// comments + 2: past what 16 bits hold.
QStringList M3u_With_Comments_Between(int comments)
{
    QStringList lines{"#EXTM3U", "#EXTINF:1,First", "/music/first.mp3"};
    lines.reserve(comments + 5);
    for (int i = 0; i < comments; ++i)
        lines << "# comment";
    return lines << "#EXTINF:1,Second" << "/music/second.mp3";
}

TEST_F(Playlist_Files_Test, EntryNumbersPastSixteenBitsAreOrdinaryEntries)
{
    // Past a signed and past an unsigned 16-bit count.
    for (const auto& [comments, second_entry] : {std::pair(32766, "32768"), {65535, "65537"}}) {
        SCOPED_TRACE(comments);
        ASSERT_EQ(Load(M3u_With_Comments_Between(comments), QStringLiteral("long.m3u")), Playlist_Load_Result::Loaded);
        EXPECT_EQ(target_.entries, (QStringList{"1 | First | /music/first.mp3 | 0[]",
                                                QString(second_entry) + " | Second | /music/second.mp3 | 0[]"}));
    }

    // Entry 65,537 does not wrap to 1, which would replace the playlist: the first track stays.
    Playlist_Bench bench;
    bench.analyser.Add("/music/first.mp3", 10, {});
    bench.analyser.Add("/music/second.mp3", 20, {});
    ASSERT_EQ(Load_Playlist(folder_.Write("long.m3u", Crlf_Lines(M3u_With_Comments_Between(65535))), settings_,
                            *texts_, bench.model),
              Playlist_Load_Result::Loaded);
    EXPECT_EQ(Paths(bench.model), QStringList({"/music/first.mp3", "/music/second.mp3"}));
}

// Playlists written by other players: each is read, or refused with one clear box.
TEST_F(Playlist_Files_Test, SamplePlaylistsAreReadOrRefusedClearly)
{
    const QDir samples(QStringLiteral(ORVANE_SOURCE_DIR "/../shared/corpus/m3u"));
    if (!samples.exists())
        GTEST_SKIP() << "no sample files beside the project";
    ASSERT_TRUE(QDir::setCurrent(folder_.Path()));
    QMap<QString, QStringList> read;
    for (const QString& name : samples.entryList(QDir::Files)) {
        SCOPED_TRACE(name.toStdString());
        target_ = Recording_Target();
        recorder_.Clear();
        const Playlist_Load_Result result = Load_Playlist(samples.filePath(name), settings_, *texts_, target_);
        EXPECT_EQ(recorder_.Boxes().size(), result == Playlist_Load_Result::Failed ? 1u : 0u);
        EXPECT_TRUE(recorder_.Last_Text().isEmpty() || recorder_.Last_Text().startsWith(name + u'\n'));
        EXPECT_FALSE(target_.entries.join(u' ').contains(u'\\'));
        read[name] = result == Playlist_Load_Result::Not_A_Playlist ? QStringList{"not a playlist"} : target_.entries;
    }
    // A byte-order mark before the header, Windows paths, comments between entries; Latin-1 text; no header;
    // an entry line that begins with tabs.
    const QStringList bocelli = read["tmk907__PlaylistsNET__PlaylistExt.m3u"];
    ASSERT_EQ(bocelli.size(), 3);
    EXPECT_EQ(bocelli[1], "3 | Andrea Bocelli - Con Te Partiro | D:/Muzyka/Andrea Bocelli/01 Con Te Partiro.mp3 | 0[]");
    EXPECT_TRUE(read["tmk907__PlaylistsNET__LatinEncoding.m3u"].value(0).contains(
        QString::fromUtf8("| Röyksopp feat. Susanne Sundfør - Running To The Sea |")));
    EXPECT_EQ(read["tmk907__PlaylistsNET__PlaylistNotExt.m3u"], QStringList{"not a playlist"});
    EXPECT_TRUE(read["GNOME__totem-pl-parser__O_G_Money_Snoop_Dogg.m3u"].isEmpty());
}

} // namespace
} // namespace Orvane::Test

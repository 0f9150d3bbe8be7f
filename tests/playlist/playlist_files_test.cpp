#include "config/settings.h"
#include "playlist/playlist_files.h"
#include "playlist_test_support.h"
#include "ui/message_box.h"

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

QStringList Record(const QString& title, const QString& media, const QString& audio = {}, const QString& sub = {})
{
    return {"#TRACK", "Titre=" + title, "Media=" + media, "Audio=" + audio, "SousT=" + sub};
}

class Playlist_Files_Test : public testing::Test {
protected:
    ~Playlist_Files_Test() override { QDir::setCurrent(saved_directory_); }

    // Writes the lines as the file name (unless there are none) and loads it into target_.
    Playlist_Load_Result Load(const QStringList& lines, const QString& name = QStringLiteral("list.orx"))
    {
        target_ = Recording_Target();
        if (!lines.isEmpty())
            folder_.Write(name, Crlf_Lines(lines));
        return Load_Playlist(folder_.File(name), settings_, *texts_, target_);
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
    // The list count given decides how many tracks are written, as whole records; the old file goes whole.
    const QString saved = folder_.Write("saved.orx", QByteArray(4000, 'x'));
    ASSERT_TRUE(Save_Playlist(saved, bench.model.Playlist(), 2, *texts_));
    EXPECT_EQ(folder_.Read("saved.orx"), Crlf_Lines(file.mid(0, 11)));
    // Read back, replacing the playlist: the same tracks, associated files and subtitles.
    ASSERT_EQ(Load_Playlist(saved, settings_, *texts_, bench.model), Playlist_Load_Result::Loaded);
    EXPECT_EQ(Paths(bench.model, &Track_Record::Title), QStringList({"Le film; partie 1", "Été"}));
    EXPECT_EQ(Paths(bench.model, &Track_Record::Subtitle_Path), QStringList({"/s/a.sub", ""}));
    EXPECT_EQ(bench.model.Track(1).Associated_Count, 2);
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
    EXPECT_EQ(Load({}, QStringLiteral("missing.m3u")), Playlist_Load_Result::Failed);
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
}

// Entry 65,537 is past what 16 bits hold: it must not wrap to 1, which would replace the playlist.
TEST_F(Playlist_Files_Test, EntryNumbersPastSixteenBitsDoNotReplaceThePlaylist)
{
    QStringList lines{"#EXTM3U", "#EXTINF:1,First", "/music/first.mp3"};
    for (int i = 0; i < 65535; ++i)
        lines << "# comment";
    folder_.Write("long.m3u", Crlf_Lines(lines << "#EXTINF:1,Second" << "/music/second.mp3"));
    Playlist_Bench bench;
    bench.analyser.Add("/music/first.mp3", 10, {});
    bench.analyser.Add("/music/second.mp3", 20, {});
    ASSERT_EQ(Load_Playlist(folder_.File("long.m3u"), settings_, *texts_, bench.model), Playlist_Load_Result::Loaded);
    EXPECT_EQ(Paths(bench.model), QStringList({"/music/first.mp3", "/music/second.mp3"}));
}

} // namespace
} // namespace Orvane::Test

#include "config/settings.h"
#include "playlist/playlist_files.h"
#include "playlist/playlist_test_support.h"
#include "support/temp_folder.h"
#include "ui/message_box.h"

#include <gtest/gtest.h>

#include <QDir>

namespace Orvane {
namespace {

using Orvane::Test::Temp_Folder;

// One call the loader made, written down as a line.
class Recording_Target : public Playlist_Load_Target {
public:
    struct Entry {
        QString media;
        QStringList audio;
        bool disc_change;
        QString title;
        int entry;
        int mode;
        QString subtitle;
    };

    void Add_Track(const QString& media_path, const QStringList& audio_paths, bool disc_change,
                   const QString& title, int16_t entry, int16_t mode) override
    {
        entries.push_back({media_path, audio_paths, disc_change, title, entry, mode, {}});
    }
    void Associate_Subtitle(const QString& subtitle_path) override
    {
        ASSERT_FALSE(entries.empty()) << "a subtitle before any track";
        entries.back().subtitle = subtitle_path;
    }
    void Beep(int line_number) override { beeps.append(line_number); }

    std::vector<Entry> entries;
    QList<int> beeps;
};

QByteArray Crlf_Lines(const QStringList& lines)
{
    return (lines.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n")).toUtf8();
}

// Puts the process's current directory back when the test ends.
class Current_Directory_Guard {
public:
    Current_Directory_Guard() : saved_(QDir::currentPath()) {}
    ~Current_Directory_Guard() { QDir::setCurrent(saved_); }

private:
    QString saved_;
};

class Playlist_Files_Test : public testing::Test {
protected:
    Playlist_Load_Result Load(const QStringList& lines, const QString& name = QStringLiteral("list.orx"))
    {
        target_ = Recording_Target();
        return Load_Playlist(folder_.Write(name, Crlf_Lines(lines)), settings_, *texts_, target_);
    }

    Temp_Folder folder_;
    std::unique_ptr<Text_Table> texts_ = Orvane::Test::Test_Texts({1208, 1209});
    Settings settings_;
    Recording_Target target_;
    Message_Box_Recorder recorder_;
};

Track_Record Track(const QString& title, const QString& path, const QStringList& audio = {},
                   const QString& subtitle = {})
{
    Track_Record track;
    track.Title = title;
    track.Path = path;
    for (const QString& audio_path : audio)
        track.Associated_Audio.push_back({audio_path, QStringLiteral("name"), QStringLiteral("00:00:03"),
                                          QStringLiteral("WAV")});
    track.Associated_Count = int16_t(audio.size());
    track.Subtitle_Path = subtitle;
    return track;
}

TEST_F(Playlist_Files_Test, SavedFileHoldsWholeRecordsForTheListedTracks)
{
    const std::vector<Track_Record> playlist{
        Track_Record(),  // element 0 never holds a track
        Track("Le film; partie 1", "/films/a.avi", {"/audio/fr.wav", "/audio/en.wav"}, "/films/a.sub"),
        Track("Été", "/films/b.mpg"),
        Track("not in the list", "/films/c.avi"),
    };
    const QString path = folder_.File(QStringLiteral("saved.orx"));
    ASSERT_TRUE(Save_Playlist(path, playlist, 2, *texts_));
    EXPECT_EQ(folder_.Read(QStringLiteral("saved.orx")),
              Crlf_Lines({"#EXTORX",
                          "#TRACK", "Titre=Le film; partie 1", "Media=/films/a.avi",
                          "Audio=/audio/fr.wav;/audio/en.wav", "SousT=/films/a.sub",
                          "#TRACK", "Titre=Été", "Media=/films/b.mpg", "Audio=", "SousT="}));
    EXPECT_TRUE(recorder_.Boxes().empty());

    // An empty list writes the header alone.
    ASSERT_TRUE(Save_Playlist(path, playlist, 0, *texts_));
    EXPECT_EQ(folder_.Read(QStringLiteral("saved.orx")), Crlf_Lines({"#EXTORX"}));

    // A file that cannot be written says so and leaves nothing behind.
    const QString unwritable = folder_.File(QStringLiteral("no such folder/list.orx"));
    EXPECT_FALSE(Save_Playlist(unwritable, playlist, 2, *texts_));
    ASSERT_EQ(recorder_.Boxes().size(), 1u);
    EXPECT_EQ(recorder_.Last_Text(), "T1209\n" + unwritable);
    EXPECT_EQ(recorder_.Boxes()[0].style, Box_Style::Critical_Ok);
}

TEST_F(Playlist_Files_Test, SavedTracksComeBackThroughThePlaylistModel)
{
    Orvane::Test::Playlist_Bench source;
    source.analyser.Add_Video(QStringLiteral("/films/a.avi"), 60);
    source.analyser.Add_Video(QStringLiteral("/films/b.avi"), 90);
    source.analyser.Add_Audio(QStringLiteral("/audio/fr.wav"), 60);
    source.analyser.Add_Audio(QStringLiteral("/audio/en.wav"), 60);
    Subtitle_Table subtitle_file;
    subtitle_file.Subtitle_Title = QStringLiteral("Sous-titres");
    source.Add_Subtitle_File(QStringLiteral("/films/a.sub"), subtitle_file);

    // Both sides load through the same loader: the source from a hand-made file.
    ASSERT_EQ(Load_Playlist(folder_.Write(QStringLiteral("hand.orx"),
                                          Crlf_Lines({"#EXTORX",
                                                      "#TRACK", "Titre=First", "Media=/films/a.avi",
                                                      "Audio=/audio/fr.wav;/audio/en.wav", "SousT=/films/a.sub",
                                                      "#TRACK", "Titre=Second", "Media=/films/b.avi",
                                                      "Audio=", "SousT="})),
                            settings_, *texts_, source.model),
              Playlist_Load_Result::Loaded);
    ASSERT_EQ(source.model.Track_Count(), 2);
    ASSERT_EQ(source.model.Track(1).Associated_Count, 2);
    ASSERT_EQ(source.model.Track(1).Subtitle_Path, "/films/a.sub");

    const QString saved = folder_.File(QStringLiteral("saved.orx"));
    ASSERT_TRUE(Save_Playlist(saved, source.model.Playlist(), source.model.Track_Count(), *texts_));

    Orvane::Test::Playlist_Bench copy;
    copy.analyser = source.analyser;
    copy.Add_Subtitle_File(QStringLiteral("/films/a.sub"), subtitle_file);
    ASSERT_EQ(Load_Playlist(saved, settings_, *texts_, copy.model), Playlist_Load_Result::Loaded);
    EXPECT_EQ(Orvane::Test::Titles(copy.model), QStringList({"First", "Second"}));
    EXPECT_EQ(Orvane::Test::Paths(copy.model), QStringList({"/films/a.avi", "/films/b.avi"}));
    const Track_Record& first = copy.model.Track(1);
    ASSERT_EQ(first.Associated_Count, 2);
    EXPECT_EQ(first.Associated_Audio[0].Path, "/audio/fr.wav");
    EXPECT_EQ(first.Associated_Audio[1].Path, "/audio/en.wav");
    EXPECT_EQ(first.Associated_Audio[1].Name, "en");  // worked out anew
    EXPECT_EQ(first.Subtitle_Path, "/films/a.sub");
    EXPECT_EQ(first.Duration, 60.0);
    EXPECT_EQ(copy.model.Track(2).Associated_Count, 0);
    EXPECT_EQ(copy.model.Track(2).Subtitle_Path, "");
    for (const auto& box : recorder_.Boxes())
        EXPECT_NE(box.style, Box_Style::Critical_Ok) << box.text.toStdString();
}

TEST_F(Playlist_Files_Test, OwnFormatKeysOnlyBeepAndValuesStartAtTheSeventhCharacter)
{
    ASSERT_EQ(Load({"#extorx",
                    "#track", "titre=lower case keys", "media=/a.avi", "audio=", "soust=",
                    "#TRACKS", "Title=Out of step", "Media=/b.avi", "Audio=x", "Sub=/films/b.sub"}),
              Playlist_Load_Result::Loaded);
    ASSERT_EQ(target_.entries.size(), 2u);
    EXPECT_EQ(target_.entries[0].title, "lower case keys");
    EXPECT_EQ(target_.entries[0].media, "/a.avi");
    EXPECT_EQ(target_.entries[0].entry, 1);
    EXPECT_EQ(target_.entries[0].mode, 1);
    // The second record's "#TRACKS", "Title=" and "Sub=..." lines beep; their
    // values are taken all the same.
    EXPECT_EQ(target_.beeps, QList<int>({7, 8, 11}));
    EXPECT_EQ(target_.entries[1].title, "Out of step");
    EXPECT_EQ(target_.entries[1].entry, 2);
    EXPECT_EQ(target_.entries[1].subtitle, "ilms/b.sub");
    EXPECT_TRUE(recorder_.Boxes().empty());
}

TEST_F(Playlist_Files_Test, AudioListKeepsEmptyPiecesAndWindowsPathsTurnToSlashes)
{
    ASSERT_EQ(Load({"#EXTORX",
                    "#TRACK", "Titre=A", "Media=C:\\films\\a.avi", "Audio=a.wav;;b.wav", "SousT=",
                    "#TRACK", "Titre=B", "Media=/b.avi", "Audio=D:\\fr.wav;", "SousT=C:\\films\\b.sub",
                    "#TRACK", "Titre=C", "Media=/c.avi", "Audio=;", "SousT="}),
              Playlist_Load_Result::Loaded);
    ASSERT_EQ(target_.entries.size(), 3u);
    EXPECT_EQ(target_.entries[0].media, "C:/films/a.avi");
    EXPECT_EQ(target_.entries[0].audio, QStringList({"a.wav", "", "b.wav"}));
    EXPECT_EQ(target_.entries[1].audio, QStringList({"D:/fr.wav", ""}));
    EXPECT_EQ(target_.entries[1].subtitle, "C:/films/b.sub");
    EXPECT_EQ(target_.entries[2].audio, QStringList({"", ""}));
}

TEST_F(Playlist_Files_Test, ShortSubtitleEntriesAreReportedAndLoadingGoesOn)
{
    ASSERT_EQ(Load({"#EXTORX",
                    "#TRACK", "Titre=A", "Media=/a.avi", "Audio=", "SousT=a.sub",
                    "#TRACK", "Titre=B", "Media=/b.avi", "Audio=", "SousT=ab.sub",
                    "#TRACK", "Titre=C", "Media=/c.avi", "Audio=", "SousT="}),
              Playlist_Load_Result::Loaded);
    ASSERT_EQ(target_.entries.size(), 3u);
    EXPECT_EQ(target_.entries[0].subtitle, "");  // 5 characters: not associated
    EXPECT_EQ(target_.entries[1].subtitle, "");  // 6 characters: not associated either
    EXPECT_EQ(target_.entries[2].subtitle, "");
    ASSERT_EQ(recorder_.Boxes().size(), 2u);
    EXPECT_EQ(recorder_.Boxes()[0].text, "T1208");
    EXPECT_EQ(recorder_.Boxes()[0].style, Box_Style::Critical_Ok);
}

TEST_F(Playlist_Files_Test, DiscMarkersTakeTheConfiguredDrives)
{
    const QStringList file{"#EXTORX",
                           "#TRACK", "Titre=1", "Media=$$CD1$$\\VIDEO\\A.AVI", "Audio=", "SousT=",
                           "#TRACK", "Titre=2", "Media=$$CD2$$\\VIDEO\\B.AVI", "Audio=", "SousT=",
                           "#TRACK", "Titre=3", "Media=$$cd1$$\\C.AVI", "Audio=", "SousT="};
    settings_.CD1_Drive = QStringLiteral("/media/cdrom/");
    settings_.CD2_Drive = QStringLiteral("Aucun");
    ASSERT_EQ(Load(file), Playlist_Load_Result::Loaded);
    ASSERT_EQ(target_.entries.size(), 3u);
    EXPECT_EQ(target_.entries[0].media, "/media/cdrom/VIDEO/A.AVI");
    EXPECT_FALSE(target_.entries[0].disc_change);
    // No second drive: the second disc goes into the first drive, after a change.
    EXPECT_EQ(target_.entries[1].media, "/media/cdrom/VIDEO/B.AVI");
    EXPECT_TRUE(target_.entries[1].disc_change);
    // The marker is written in capitals or not at all.
    EXPECT_EQ(target_.entries[2].media, "$$cd1$$/C.AVI");

    settings_.CD2_Drive = QStringLiteral("/media/cdrom1");
    ASSERT_EQ(Load(file), Playlist_Load_Result::Loaded);
    EXPECT_EQ(target_.entries[1].media, "/media/cdrom1/VIDEO/B.AVI");
    EXPECT_FALSE(target_.entries[1].disc_change);
}

TEST_F(Playlist_Files_Test, FilesThatStopShortOrAreNoPlaylists)
{
    // Ending inside the second record: the first stays added, one box says why.
    EXPECT_EQ(Load({"#EXTORX",
                    "#TRACK", "Titre=A", "Media=/a.avi", "Audio=", "SousT=",
                    "#TRACK", "Titre=B"}),
              Playlist_Load_Result::Failed);
    ASSERT_EQ(target_.entries.size(), 1u);
    ASSERT_EQ(recorder_.Boxes().size(), 1u);
    EXPECT_EQ(recorder_.Last_Text(), "list.orx\n62, Input past end of file");

    recorder_.Clear();
    EXPECT_EQ(Load({"[playlist]", "File1=/a.mp3"}, QStringLiteral("list.pls")), Playlist_Load_Result::Not_A_Playlist);
    EXPECT_EQ(Load_Playlist(folder_.Write(QStringLiteral("empty.orx"), {}), settings_, *texts_, target_),
              Playlist_Load_Result::Not_A_Playlist);
    EXPECT_TRUE(target_.entries.empty());
    EXPECT_TRUE(recorder_.Boxes().empty());

    EXPECT_EQ(Load_Playlist(folder_.File(QStringLiteral("missing.m3u")), settings_, *texts_, target_),
              Playlist_Load_Result::Failed);
    EXPECT_EQ(recorder_.Last_Text(), "missing.m3u\n53, File not found");
}

TEST_F(Playlist_Files_Test, M3uEntriesCountEveryLineAndResolveAgainstTheCurrentDirectory)
{
    Current_Directory_Guard guard;
    ASSERT_TRUE(QDir::setCurrent(folder_.Path()));
    ASSERT_EQ(Load({"#extm3u",
                    "# a comment",
                    "#EXTINF:12,Artist, Title, with commas",
                    "music/a.mp3",
                    "#extinf:8,lower case: skipped",
                    "skipped.mp3",
                    "#EXTINF:no comma",
                    "/home/user/b.mp3",
                    "#EXTINFO:-1,Also taken",
                    "C:\\Music\\c.mp3",
                    "#EXTINF:1,Dots",
                    "..\\d.mp3"},
                   QStringLiteral("list.m3u")),
              Playlist_Load_Result::Loaded);
    const QString here = QDir::currentPath();
    ASSERT_EQ(target_.entries.size(), 4u);
    // The first entry is on line 3: it gets entry number 2 and so does not empty the playlist.
    EXPECT_EQ(target_.entries[0].entry, 2);
    EXPECT_EQ(target_.entries[0].title, "Artist, Title, with commas");
    EXPECT_EQ(target_.entries[0].media, here + "/music/a.mp3");
    EXPECT_TRUE(target_.entries[0].audio.isEmpty());
    EXPECT_FALSE(target_.entries[0].disc_change);
    EXPECT_EQ(target_.entries[0].mode, 1);
    // Lines 5 and 6 count one each; the path line after an entry does not.
    EXPECT_EQ(target_.entries[1].entry, 5);
    EXPECT_EQ(target_.entries[1].title, "");
    EXPECT_EQ(target_.entries[1].media, "/home/user/b.mp3");
    EXPECT_EQ(target_.entries[2].entry, 6);
    EXPECT_EQ(target_.entries[2].media, "C:/Music/c.mp3");
    EXPECT_EQ(target_.entries[3].entry, 7);
    EXPECT_EQ(target_.entries[3].media, here + "/../d.mp3");

    // An "#EXTINF" on line 2 is entry 1, which replaces the playlist.
    ASSERT_EQ(Load({"#EXTM3U", "#EXTINF:1,One", "/one.mp3", "#EXTINF:2,Two"}, QStringLiteral("cut.m3u")),
              Playlist_Load_Result::Failed);
    ASSERT_EQ(target_.entries.size(), 1u);
    EXPECT_EQ(target_.entries[0].entry, 1);
    EXPECT_EQ(recorder_.Last_Text(), "cut.m3u\n62, Input past end of file");
}

// Playlists written by other players: each is read or refused with one clear
// box, and a few of them are read exactly so.
TEST_F(Playlist_Files_Test, SamplePlaylistsAreReadOrRefusedClearly)
{
    const QDir samples(QStringLiteral(ORVANE_SOURCE_DIR "/../shared/corpus/m3u"));
    if (!samples.exists())
        GTEST_SKIP() << "no sample files beside the project";
    Current_Directory_Guard guard;
    ASSERT_TRUE(QDir::setCurrent(folder_.Path()));
    const QStringList names = samples.entryList(QDir::Files);
    EXPECT_FALSE(names.isEmpty());
    for (const QString& name : names) {
        target_ = Recording_Target();
        recorder_.Clear();
        const Playlist_Load_Result result = Load_Playlist(samples.filePath(name), settings_, *texts_, target_);
        if (result == Playlist_Load_Result::Failed) {
            ASSERT_EQ(recorder_.Boxes().size(), 1u) << name.toStdString();
            EXPECT_TRUE(recorder_.Last_Text().startsWith(name + u'\n')) << name.toStdString();
        } else {
            EXPECT_TRUE(recorder_.Boxes().empty()) << name.toStdString();
        }
        for (const auto& entry : target_.entries) {
            EXPECT_FALSE(entry.media.contains(u'\\')) << name.toStdString();
            EXPECT_EQ(entry.mode, 1);
        }
        if (name == QLatin1String("tmk907__PlaylistsNET__PlaylistExt.m3u")) {
            // A byte-order mark before the header, Windows paths, comments between entries.
            EXPECT_EQ(result, Playlist_Load_Result::Loaded);
            ASSERT_EQ(target_.entries.size(), 3u);
            EXPECT_EQ(target_.entries[0].title, "Andrea Bocelli - Chiara");
            EXPECT_EQ(target_.entries[0].media, "D:/Muzyka/Andrea Bocelli/04 Chiara.mp3");
            EXPECT_EQ(target_.entries[0].entry, 1);
            EXPECT_EQ(target_.entries[1].entry, 3);
        } else if (name == QLatin1String("tmk907__PlaylistsNET__LatinEncoding.m3u")) {
            ASSERT_EQ(target_.entries.size(), 1u);
            EXPECT_EQ(target_.entries[0].title, QString::fromUtf8("Röyksopp feat. Susanne Sundfør - Running To The Sea"));
        } else if (name == QLatin1String("tmk907__PlaylistsNET__PlaylistNotExt.m3u")) {
            EXPECT_EQ(result, Playlist_Load_Result::Not_A_Playlist);
        } else if (name == QLatin1String("GNOME__totem-pl-parser__O_G_Money_Snoop_Dogg.m3u")) {
            // Its entry line begins with tabs: not an "#EXTINF" line.
            EXPECT_EQ(result, Playlist_Load_Result::Loaded);
            EXPECT_TRUE(target_.entries.empty());
        }
    }
}

} // namespace
} // namespace Orvane

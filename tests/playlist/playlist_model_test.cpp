// The playlist's rules for adding, replacing, removing and associating,
// checked on a fake analyser and recording player hooks. Every change the
// model announces is also checked for list/record agreement by the bench.
#include "playlist_test_support.h"

#include "ui/message_box.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

namespace Orvane::Test {
namespace {

class Playlist_Model_Test : public ::testing::Test {
protected:
    void SetUp() override
    {
        bench.analyser.Add_Video(QStringLiteral("/films/one.avi"), 61.4, 320, 240, 2);
        bench.analyser.Add_Video(QStringLiteral("/films/two.mpg"), 3599.5, 352, 288, 1, QStringLiteral("MPEG"));
        bench.analyser.Add_Audio(QStringLiteral("/music/three.mp3"), 10.0, QStringLiteral("MPEG"));
        bench.analyser.Add_Audio(QStringLiteral("/films/english.wav"), 61.0);
        bench.analyser.Add_Audio(QStringLiteral("/films/commentary.v2.wav"), 30.0);
    }

    Track_Record& Mutable_Track(int k) { return const_cast<Track_Record&>(bench.model.Track(k)); }

    Message_Box_Recorder boxes;
    Playlist_Bench bench;
    Playlist_Model& model = bench.model;
};

TEST_F(Playlist_Model_Test, FirstTrackIsOpenedNotPlayedAndLaterAddsKeepTheCurrentTrack)
{
    QSignalSpy usable(&model, &Playlist_Model::Track_Controls_Usable_Changed);
    Add_File(model, QStringLiteral("/films/one.avi"));
    EXPECT_EQ(bench.state.Current_Track, 1);
    EXPECT_FALSE(bench.state.Is_Playing);
    // Opened after the record exists and is current.
    EXPECT_EQ(bench.hooks.calls, QStringList{QStringLiteral("Open_First_Track(/films/one.avi) current=1 count=1")});
    ASSERT_EQ(usable.count(), 1);
    EXPECT_TRUE(usable.at(0).at(0).toBool());

    bench.state.Current_Track = 1;
    Add_File(model, QStringLiteral("/films/two.mpg"), 1, 0);
    Add_File(model, QStringLiteral("/music/three.mp3"), 2, 0);
    EXPECT_EQ(bench.state.Current_Track, 1);
    EXPECT_EQ(bench.hooks.calls.size(), 1) << bench.hooks.calls.join(u'\n').toStdString();
    EXPECT_EQ(Titles(model), (QStringList{"one.avi", "two.mpg", "three.mp3"}));
    // The new entry is selected and its details shown.
    EXPECT_EQ(model.Selected_Track(), 3);
    EXPECT_EQ(model.Info_Track(), 3);
    EXPECT_GE(bench.step_checks, 3);
}

TEST_F(Playlist_Model_Test, RecordHoldsTheAnalysis)
{
    Media_Analysis uncounted;
    uncounted.Media_Kind = QStringLiteral("Autre");
    uncounted.Has_Audio = true;
    uncounted.Audio_Streams = -2;
    uncounted.Duration = 12.5;  // half to even: 12
    bench.analyser.Add(QStringLiteral("/odd/file.ogg"), uncounted);

    Add_File(model, QStringLiteral("/films/one.avi"));
    Add_File(model, QStringLiteral("/music/three.mp3"), 2);
    Add_File(model, QStringLiteral("/odd/file.ogg"), 3);
    model.Add_Track(QStringLiteral("/films/two.mpg"), {}, true, QStringLiteral("Disc two"), 4, 1);

    const Track_Record& video = model.Track(1);
    EXPECT_EQ(video.Path, "/films/one.avi");
    EXPECT_EQ(video.Picture_Size, "320x240");
    EXPECT_EQ(video.Duration_Text, "00:01:01");
    EXPECT_DOUBLE_EQ(video.Duration, 61.4);
    EXPECT_EQ(video.Audio_Streams, 2);
    EXPECT_TRUE(video.Has_Video && video.Has_Audio && video.Shows_Picture);
    EXPECT_EQ(video.Kind, "AVI");
    EXPECT_EQ(video.Associated_Count, 0);
    EXPECT_TRUE(video.Subtitle_Path.isEmpty());

    const Track_Record& sound = model.Track(2);
    EXPECT_EQ(sound.Picture_Size, "--");
    EXPECT_FALSE(sound.Shows_Picture);
    EXPECT_EQ(sound.Kind, "MPEG");

    EXPECT_EQ(model.Track(3).Audio_Streams, -1) << "a count of -2 is kept as -1";
    EXPECT_EQ(model.Track(3).Duration_Text, "00:00:12");

    EXPECT_TRUE(model.Track(4).Disc_Change);
    EXPECT_EQ(model.Track(4).Title, "Disc two");
    EXPECT_EQ(model.Track(4).Duration_Text, "01:00:00");  // 3599.5 rounds to even 3600

    // 61.4 + 10 + 12.5 + 3599.5 = 3683.4
    EXPECT_EQ(model.Playlist_Duration_Text(), "01:01:23");
}

TEST_F(Playlist_Model_Test, UnrenderableFileIsDroppedWithoutAWord)
{
    Add_File(model, QStringLiteral("/films/one.avi"));
    bench.hooks.calls.clear();
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);

    Add_File(model, QStringLiteral("/films/letter.avi"), 2);
    // Even as the first entry of a replacing add: the analysis comes first.
    Add_File(model, QStringLiteral("/films/letter.avi"), 1, 1);

    EXPECT_EQ(model.Track_Count(), 1);
    EXPECT_EQ(inserted.count(), 0);
    EXPECT_TRUE(boxes.Boxes().empty());
    EXPECT_EQ(boxes.Beeps(), 0);
    EXPECT_TRUE(bench.hooks.calls.isEmpty());
    EXPECT_EQ(model.Last_Added_Track(), 0);
}

TEST_F(Playlist_Model_Test, ShiftReplacesAndPlainAddAppends)
{
    Add_File(model, QStringLiteral("/films/one.avi"));
    Add_File(model, QStringLiteral("/films/two.mpg"), 2);
    bench.state.Current_Track = 2;
    bench.hooks.calls.clear();

    // Without Shift (mode 0) even entry 1 appends.
    Add_File(model, QStringLiteral("/music/three.mp3"), 1, 0);
    EXPECT_EQ(Paths(model), (QStringList{"/films/one.avi", "/films/two.mpg", "/music/three.mp3"}));
    EXPECT_TRUE(bench.hooks.calls.isEmpty());

    // With Shift: the first file of the selection replaces the list, the next ones append.
    Add_File(model, QStringLiteral("/music/three.mp3"), 1, 1);
    Add_File(model, QStringLiteral("/films/one.avi"), 2, 1);
    EXPECT_EQ(Paths(model), (QStringList{"/music/three.mp3", "/films/one.avi"}));
    EXPECT_EQ(bench.state.Current_Track, 1);
    EXPECT_EQ(bench.hooks.calls,
              (QStringList{
                  "Clear_Audio_Menus(2) current=2 count=3",  // menus of the old current track, record still there
                  "Reset_Player() current=0 count=0",
                  "Open_First_Track(/music/three.mp3) current=1 count=1",
              }));
}

TEST_F(Playlist_Model_Test, RemovingShiftsRecordsAndKeepsTheCurrentMedia)
{
    for (const char* path : {"/films/one.avi", "/films/two.mpg", "/music/three.mp3", "/films/english.wav"})
        Add_File(model, QString::fromLatin1(path), 2);
    Mutable_Track(3).Subtitle_Name = QStringLiteral("third's subtitle");
    bench.state.Current_Track = 3;
    bench.hooks.calls.clear();

    model.Remove_Track(1);
    EXPECT_EQ(Paths(model), (QStringList{"/films/two.mpg", "/music/three.mp3", "/films/english.wav"}));
    EXPECT_EQ(bench.state.Current_Track, 2);
    EXPECT_EQ(model.Track(bench.state.Current_Track).Path, "/music/three.mp3");
    EXPECT_EQ(model.Track(2).Subtitle_Name, "third's subtitle") << "the whole record moves";

    model.Remove_Track(3);  // after the current one
    EXPECT_EQ(bench.state.Current_Track, 2);
    EXPECT_EQ(model.Playlist_Duration_Text(), "01:00:10");
    EXPECT_TRUE(bench.hooks.calls.isEmpty()) << "removing other tracks leaves the player alone";

    model.Remove_Track(0);
    model.Remove_Track(3);
    EXPECT_EQ(model.Track_Count(), 2);
}

TEST_F(Playlist_Model_Test, RemovingTheCurrentTrackOpensTheOneTakingItsPlace)
{
    for (const char* path : {"/films/one.avi", "/films/two.mpg", "/music/three.mp3"})
        Add_File(model, QString::fromLatin1(path), 2);
    bench.state.Current_Track = 2;
    bench.hooks.calls.clear();

    model.Remove_Track(2);
    EXPECT_EQ(bench.state.Current_Track, 2);
    EXPECT_EQ(bench.hooks.calls, (QStringList{
                                     "Clear_Audio_Menus(2) current=2 count=3",
                                     "Reset_Player() current=0 count=2",
                                     "Open_First_Track(/music/three.mp3) current=2 count=2",
                                 }));

    // The last track: the new last one takes over.
    bench.hooks.calls.clear();
    model.Remove_Track(2);
    EXPECT_EQ(bench.state.Current_Track, 1);
    EXPECT_EQ(bench.hooks.calls.last(), "Open_First_Track(/films/one.avi) current=1 count=1");

    // The only track: nothing is current and the track controls are off.
    QSignalSpy usable(&model, &Playlist_Model::Track_Controls_Usable_Changed);
    bench.hooks.calls.clear();
    model.Remove_Track(1);
    EXPECT_EQ(bench.state.Current_Track, 0);
    EXPECT_EQ(bench.hooks.calls.last(), "Reset_Player() current=0 count=0");
    ASSERT_EQ(usable.count(), 1);
    EXPECT_FALSE(usable.at(0).at(0).toBool());
    EXPECT_EQ(model.Playlist_Duration_Text(), "00:00:00");
    EXPECT_EQ(model.Info_Track(), 0);
}

TEST_F(Playlist_Model_Test, SelectionAndShownDetailsFollowRemoval)
{
    for (const char* path : {"/films/one.avi", "/films/two.mpg", "/music/three.mp3"})
        Add_File(model, QString::fromLatin1(path), 2);
    model.Associate_Audio(3, QStringLiteral("/films/english.wav"), QStringLiteral("english"));
    model.Select_Track(3);
    model.Remove_Track(1);
    // Still the same media selected, shown under its new number.
    EXPECT_EQ(model.Selected_Track(), 2);
    EXPECT_EQ(model.Info_Track(), 2);
    EXPECT_EQ(model.Track(model.Info_Track()).Path, "/music/three.mp3");
    EXPECT_EQ(model.Audio_List()->stringList(), QStringList{"english"});

    // Removing the selected entry shows the entry that takes its place.
    model.Remove_Track(2);
    EXPECT_EQ(model.Info_Track(), model.Selected_Track());
    EXPECT_TRUE(model.Audio_List()->stringList().isEmpty());
}

TEST_F(Playlist_Model_Test, AssociatedAudioRules)
{
    Add_File(model, QStringLiteral("/films/one.avi"));
    Add_File(model, QStringLiteral("/films/two.mpg"), 2);
    bench.state.Current_Track = 1;
    bench.state.Audio_Choice = 0;
    bench.hooks.calls.clear();

    // A file with a picture is refused with text 1210 and changes nothing.
    EXPECT_FALSE(model.Associate_Audio(1, QStringLiteral("/films/two.mpg"), QStringLiteral("two")));
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_EQ(boxes.Last_Text(), "T1210");
    EXPECT_EQ(boxes.Boxes()[0].style, Box_Style::Critical_Ok);
    EXPECT_EQ(model.Track(1).Associated_Count, 0);
    EXPECT_TRUE(model.Track(1).Associated_Audio.empty());
    EXPECT_EQ(bench.state.Audio_Choice, 0);
    // A file that cannot be rendered is refused without a word.
    EXPECT_FALSE(model.Associate_Audio(1, QStringLiteral("/films/missing.wav"), QStringLiteral("missing")));
    EXPECT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_TRUE(bench.hooks.calls.isEmpty());

    // To the current track: choice 0 becomes 1, the player hears about it.
    model.Select_Track(1);
    EXPECT_TRUE(model.Associate_Audio(1, QStringLiteral("/films/english.wav"), QStringLiteral("english")));
    EXPECT_TRUE(model.Associate_Audio(1, QStringLiteral("/films/commentary.v2.wav"), QStringLiteral("commentary")));
    EXPECT_EQ(bench.state.Audio_Choice, 1);
    EXPECT_EQ(bench.hooks.calls, (QStringList{"Associated_Audio_Added(1,1) current=1 count=2",
                                              "Associated_Audio_Added(1,2) current=1 count=2"}));
    const Track_Record& track = model.Track(1);
    ASSERT_EQ(track.Associated_Count, 2);
    EXPECT_EQ(track.Associated_Audio[0].Path, "/films/english.wav");
    EXPECT_EQ(track.Associated_Audio[0].Duration_Text, "00:01:01");
    EXPECT_EQ(track.Associated_Audio[0].Kind, "WAV");
    EXPECT_EQ(model.Audio_List()->stringList(), (QStringList{"english", "commentary"}));
    EXPECT_EQ(model.Audio_Selection()->currentIndex().row(), 1) << "the new entry is selected";

    // To another track: no hook, choice unchanged; Lst_Audio_Asso shows that track.
    bench.hooks.calls.clear();
    bench.state.Audio_Choice = 0;
    EXPECT_TRUE(model.Associate_Audio(2, QStringLiteral("/films/english.wav"), QStringLiteral("english")));
    EXPECT_EQ(bench.state.Audio_Choice, 0);
    EXPECT_TRUE(bench.hooks.calls.isEmpty());
    EXPECT_EQ(model.Info_Track(), 2);
    EXPECT_EQ(model.Audio_List()->stringList(), QStringList{"english"});
}

TEST_F(Playlist_Model_Test, AddTrackNamesItsAssociatedAudioFromThePaths)
{
    model.Add_Track(QStringLiteral("/films/one.avi"),
                    {QStringLiteral("/films/english.wav"), QString(), QStringLiteral("/films/commentary.v2.wav"),
                     QStringLiteral("/films/two.mpg")},
                    false, QStringLiteral("One"), 1, 1);
    const Track_Record& track = model.Track(1);
    // The empty piece and the file with a picture are not associated; the
    // count says what the record holds.
    ASSERT_EQ(track.Associated_Count, 2);
    ASSERT_EQ(track.Associated_Audio.size(), 2u);
    EXPECT_EQ(track.Associated_Audio[0].Name, "english");
    EXPECT_EQ(track.Associated_Audio[1].Name, "commentary");
    EXPECT_EQ(boxes.Last_Text(), "T1210");
    EXPECT_EQ(model.Audio_List()->stringList(), (QStringList{"english", "commentary"}));
    // Associated while nothing was current yet: the player only opens the track.
    EXPECT_EQ(bench.hooks.calls.filter(QStringLiteral("Associated_Audio_Added")).size(), 0);
    EXPECT_EQ(bench.state.Current_Track, 1);
}

TEST_F(Playlist_Model_Test, RemovingAssociatedAudioKeepsTheChoiceOnTheSameSound)
{
    Add_File(model, QStringLiteral("/films/one.avi"));  // two streams: choices 1, 2, then files 3, 4
    model.Associate_Audio(1, QStringLiteral("/films/english.wav"), QStringLiteral("english"));
    model.Associate_Audio(1, QStringLiteral("/films/commentary.v2.wav"), QStringLiteral("commentary"));
    bench.state.Audio_Choice = 4;  // the commentary is heard
    bench.hooks.calls.clear();

    model.Audio_Selection()->setCurrentIndex(model.Audio_List()->index(0), QItemSelectionModel::ClearAndSelect);
    model.Remove_Associated_Audio();
    EXPECT_EQ(bench.state.Audio_Choice, 3) << "the commentary moved from 4 to 3";
    EXPECT_EQ(bench.hooks.calls, (QStringList{"Clear_Audio_Menus(1) current=1 count=1",
                                              "Associated_Audio_Removed(1,silent) current=1 count=1"}));
    EXPECT_EQ(model.Track(1).Associated_Count, 1);
    EXPECT_EQ(model.Audio_List()->stringList(), QStringList{"commentary"});

    // Removing the file heard falls back to the first stream.
    bench.hooks.calls.clear();
    model.Audio_Selection()->setCurrentIndex(model.Audio_List()->index(0), QItemSelectionModel::ClearAndSelect);
    model.Remove_Associated_Audio();
    EXPECT_EQ(bench.state.Audio_Choice, 1);
    EXPECT_EQ(bench.hooks.calls.last(), "Associated_Audio_Removed(1,heard) current=1 count=1");
    EXPECT_TRUE(model.Track(1).Associated_Audio.empty());

    // Nothing selected: nothing removed.
    model.Remove_Associated_Audio();
    EXPECT_EQ(model.Track(1).Associated_Count, 0);
}

TEST_F(Playlist_Model_Test, SubtitleGoesToTheSelectedTrackWithTheAnswerToTheQuestion)
{
    Subtitle_Table untitled;
    untitled.Subtitle_Author = QStringLiteral("Ann Author");
    untitled.Subtitle_Source = QStringLiteral("DVD");
    untitled.Subtitle_Delay = 7;
    bench.Add_Subtitle_File(QStringLiteral("/subs/film.fr.sub"), untitled);
    Subtitle_Table titled = untitled;
    titled.Subtitle_Title = QStringLiteral("Le film");
    bench.Add_Subtitle_File(QStringLiteral("/subs/titled.sub"), titled);

    EXPECT_FALSE(model.Associate_Subtitle(QStringLiteral("/subs/titled.sub"), QStringLiteral("titled.sub")))
        << "no track selected";
    Add_File(model, QStringLiteral("/films/one.avi"));
    Add_File(model, QStringLiteral("/films/two.mpg"), 2);
    model.Select_Track(1);
    boxes.Set_Answer(Box_Answer::Ok);

    QSignalSpy panel(&model, &Playlist_Model::Subtitle_Panel_Changed);
    ASSERT_TRUE(model.Associate_Subtitle(QStringLiteral("/subs/film.fr.sub"), QStringLiteral("film.fr.sub")));
    const Track_Record& first = model.Track(1);
    EXPECT_EQ(first.Subtitle_Path, "/subs/film.fr.sub");
    EXPECT_EQ(first.Subtitle_Name, "film") << "no title: the file title up to its first dot";
    EXPECT_EQ(first.Subtitle_Info_1, "Ann Author");
    EXPECT_EQ(first.Subtitle_Info_2, "DVD");
    EXPECT_EQ(first.Subtitle_Delay, 7);
    EXPECT_TRUE(first.Subtitle_Flag);
    EXPECT_EQ(boxes.Boxes().back().text, "T1002");
    EXPECT_EQ(boxes.Boxes().back().style, Box_Style::Ok_Cancel);
    EXPECT_TRUE(bench.state.Subtitles_Loaded);
    EXPECT_EQ(panel.last().at(0).toInt(), 1);
    EXPECT_TRUE(model.Track(2).Subtitle_Path.isEmpty());

    model.Select_Track(2);
    boxes.Set_Answer(Box_Answer::Cancel);
    ASSERT_TRUE(model.Associate_Subtitle(QStringLiteral("/subs/titled.sub"), QStringLiteral("titled.sub")));
    EXPECT_EQ(model.Track(2).Subtitle_Name, "Le film");
    EXPECT_FALSE(model.Track(2).Subtitle_Flag);

    // A file the reader refuses stores nothing and asks nothing.
    const auto boxes_before = boxes.Boxes().size();
    EXPECT_FALSE(model.Associate_Subtitle(QStringLiteral("/subs/broken.sub"), QStringLiteral("broken.sub")));
    EXPECT_EQ(model.Track(2).Subtitle_Path, "/subs/titled.sub");
    EXPECT_EQ(boxes.Boxes().size(), boxes_before);

    // A file without a delay has nothing to apply: no question.
    Subtitle_Table no_delay = titled;
    no_delay.Subtitle_Delay = 0;
    bench.Add_Subtitle_File(QStringLiteral("/subs/plain.sub"), no_delay);
    const auto asked = boxes.Boxes().size();
    boxes.Set_Answer(Box_Answer::Ok);
    ASSERT_TRUE(model.Associate_Subtitle(QStringLiteral("/subs/plain.sub"), QStringLiteral("plain.sub")));
    EXPECT_EQ(boxes.Boxes().size(), asked);
    EXPECT_FALSE(model.Track(2).Subtitle_Flag);
}

TEST_F(Playlist_Model_Test, LoadersSubtitleFollowsTheTrackJustAdded)
{
    bench.Add_Subtitle_File(QStringLiteral("/subs/a.sub"), Subtitle_Table());
    Add_File(model, QStringLiteral("/films/one.avi"));
    Add_File(model, QStringLiteral("/films/two.mpg"), 2);
    model.Select_Track(1);

    Playlist_Load_Target& target = model;
    target.Add_Track(QStringLiteral("/music/three.mp3"), {}, false, QStringLiteral("Three"), 1, 0);
    target.Associate_Subtitle(QStringLiteral("/subs/a.sub"));
    EXPECT_EQ(model.Track(3).Subtitle_Path, "/subs/a.sub");
    EXPECT_EQ(model.Track(3).Subtitle_Name, "a");
    EXPECT_TRUE(model.Track(1).Subtitle_Path.isEmpty());

    // The media of the entry was dropped: its subtitle is not read at all.
    bench.subtitle_loads.clear();
    target.Add_Track(QStringLiteral("/films/gone.avi"), {}, false, QStringLiteral("Gone"), 2, 0);
    target.Associate_Subtitle(QStringLiteral("/subs/a.sub"));
    EXPECT_TRUE(bench.subtitle_loads.isEmpty());
    EXPECT_TRUE(model.Track(3).Subtitle_Name == "a" && model.Track_Count() == 3);
}

TEST_F(Playlist_Model_Test, DelayStepsUpToAMinuteOnTheCurrentTrack)
{
    Add_File(model, QStringLiteral("/films/one.avi"));
    Add_File(model, QStringLiteral("/films/two.mpg"), 2);
    bench.state.Current_Track = 1;
    model.Select_Track(2);  // the selected track is not the one that changes
    bench.subtitles.Subtitle_Delay = 0;

    model.Step_Subtitle_Delay(1);
    EXPECT_EQ(bench.subtitles.Subtitle_Delay, 0) << "down at 0 does nothing";
    for (int expected = 1; expected <= 59; ++expected) {
        model.Step_Subtitle_Delay(0);
        ASSERT_EQ(bench.subtitles.Subtitle_Delay, expected);
    }
    model.Step_Subtitle_Delay(0);
    EXPECT_EQ(bench.subtitles.Subtitle_Delay, 60);
    EXPECT_EQ(model.Track(1).Subtitle_Delay, 60) << "stored as 00:01:00";
    EXPECT_EQ(model.Track(2).Subtitle_Delay, 0);
    EXPECT_EQ(model.Subtitle_Panel_Track(), 1);

    // 00:01:00 reads 0 seconds: down does nothing, up starts again at 1.
    model.Step_Subtitle_Delay(1);
    EXPECT_EQ(bench.subtitles.Subtitle_Delay, 60);
    model.Step_Subtitle_Delay(0);
    EXPECT_EQ(bench.subtitles.Subtitle_Delay, 1);
    EXPECT_EQ(model.Track(1).Subtitle_Delay, 1);
    model.Step_Subtitle_Delay(1);
    EXPECT_EQ(model.Track(1).Subtitle_Delay, 0);
    model.Step_Subtitle_Delay(2);
    EXPECT_EQ(bench.subtitles.Subtitle_Delay, 0);
}

TEST_F(Playlist_Model_Test, ClearingEmptiesEverythingShown)
{
    Add_File(model, QStringLiteral("/films/one.avi"));
    model.Associate_Audio(1, QStringLiteral("/films/english.wav"), QStringLiteral("english"));
    bench.hooks.calls.clear();
    model.Clear_Playlist();
    EXPECT_EQ(model.Track_Count(), 0);
    EXPECT_EQ(model.Playlist().size(), 1u);
    EXPECT_EQ(bench.state.Current_Track, 0);
    EXPECT_EQ(bench.hooks.calls, QStringList{"Clear_Audio_Menus(1) current=1 count=1"});
    EXPECT_TRUE(model.Audio_List()->stringList().isEmpty());
    EXPECT_EQ(model.Selected_Track(), 0);
    EXPECT_EQ(model.Playlist_Duration_Text(), "00:00:00");
    EXPECT_FALSE(model.Track_Controls_Usable());
}

TEST_F(Playlist_Model_Test, SubtitleFlagTogglesOnThePanelTrack)
{
    Add_File(model, QStringLiteral("/films/one.avi"));
    Add_File(model, QStringLiteral("/films/two.mpg"), 2);
    model.Select_Track(1);
    model.Toggle_Subtitle_Flag();
    EXPECT_TRUE(model.Track(1).Subtitle_Flag);
    EXPECT_FALSE(model.Track(2).Subtitle_Flag);
    model.Toggle_Subtitle_Flag();
    EXPECT_FALSE(model.Track(1).Subtitle_Flag);
}

} // namespace
} // namespace Orvane::Test

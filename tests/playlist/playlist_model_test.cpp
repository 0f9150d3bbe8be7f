// The playlist's rules on a fake analyser and a recording player (the bench checks
// list/record agreement after every change). What GStreamer finds in real files is the
// analyser's tests' concern; real files go through the model in the program's tests.
#include "playlist/name_from_path.h"
#include "playlist_test_support.h"

namespace Orvane::Test {
namespace {

const QString One = QStringLiteral("/films/one.avi"), Two = QStringLiteral("/films/two.mpg"),
              Three = QStringLiteral("/music/three.mp3"), English = QStringLiteral("/films/english.wav"),
              Commentary = QStringLiteral("/films/commentary.v2.wav");

class Playlist_Model_Test : public ::testing::Test {
protected:
    Playlist_Model_Test()
    {
        bench.analyser.Add(One, 61.4, {320, 240}, 2);
        bench.analyser.Add(Two, 3599.5, {352, 288}, 1, QStringLiteral("MPEG"));
        bench.analyser.Add(Three, 10.4, {}, 1, QStringLiteral("MPEG"));
        bench.analyser.Add(English, 61.0, {}, 1, QStringLiteral("WAV"));
        bench.analyser.Add(Commentary, 30.0, {}, 1, QStringLiteral("WAV"));
    }
    void Add_All(const QStringList& paths)
    {
        for (const QString& path : paths)
            Add_File(model, path, 2);
        calls.clear();
    }
    // The titles; the current, selected and shown tracks; the total duration; Lst_Audio_Asso.
    QString State() const
    {
        return Paths(model, &Track_Record::Title).join(u',')
               + QStringLiteral(" current=%1 selected=%2 shown=%3 ").arg(bench.state.Current_Track)
                     .arg(window.Selected_Track()).arg(window.Info_Track())
               + window.Playlist_Duration_Text() + " [" + window.Audio_List()->stringList().join(u',') + "]";
    }

    Playlist_Bench bench;
    Playlist_Model& model = bench.model;
    Playlist_Window_State& window = bench.window;
    QStringList& calls = bench.player.calls;
};

TEST_F(Playlist_Model_Test, TheFirstTrackIsOpenedNotPlayedAndUnrenderableFilesAreDroppedSilently)
{
    Add_File(model, One);
    Add_File(model, Three, 1);
    Add_File(model, bench.analyser.Add("/odd/file.ogg", 86412.5, {}, -2, "Autre"), 3);
    Add_File(model, QStringLiteral("/films/letter.avi"), 1, 1);  // the analysis comes before replacing
    model.Add_Track(Two, {}, true, QStringLiteral("Disc two"), 4, 1);
    EXPECT_FALSE(bench.state.Is_Playing);
    EXPECT_TRUE(window.Track_Controls_Usable());
    EXPECT_EQ(calls, QStringList{"Open_First_Track(/films/one.avi) current=1 count=1"}) << "once the record is current";
    EXPECT_TRUE(bench.prompts.calls.isEmpty());
    QStringList records;
    for (int k = 1; k <= model.Track_Count(); ++k)
        records << Summary(model.Track(k));
    // -2 streams are kept as -1; the seconds round half to even (86412.5 -> 86412, 3599.5 -> 3600) and a row
    // wraps at a day. The total is the sum of what the rows show (not 90083.8 rounded) and counts on past a day.
    EXPECT_EQ(records, (QStringList{"one.avi 320x240 00:01:01 AVI 2 VAP", "three.mp3 -- 00:00:10 MPEG 1 A",
                                    "file.ogg -- 00:00:12 Autre -1 ", "Disc two 352x288 01:00:00 MPEG 1 VAPD"}));
    EXPECT_DOUBLE_EQ(model.Track(1).Duration, 61.4);
    EXPECT_EQ(State(), "one.avi,three.mp3,file.ogg,Disc two current=1 selected=4 shown=4 25:01:23 []");
}

TEST_F(Playlist_Model_Test, RemovingShiftsRecordsAndKeepsTheCurrentMedia)
{
    Add_All({One, Two, Three, English});
    const_cast<Track_Record&>(model.Track(3)).Subtitle_Name = QStringLiteral("third's subtitle");
    model.Associate_Audio(3, English, QStringLiteral("english"));
    bench.state.Current_Track = 3;
    model.Remove_Track(1);
    EXPECT_EQ(State(), "two.mpg,three.mp3,english.wav current=2 selected=2 shown=2 01:01:11 [english]");
    EXPECT_EQ(model.Track(2).Subtitle_Name, "third's subtitle") << "the whole record moves";
    for (int track : {3, 0, 3})
        model.Remove_Track(track);
    EXPECT_EQ(State(), "two.mpg,three.mp3 current=2 selected=2 shown=2 01:00:10 [english]");
    EXPECT_TRUE(calls.isEmpty()) << "removing other tracks leaves the player alone";

    // The current track: the one taking its place (or the new last one) is opened.
    Add_All({One});
    for (int track : {2, 2, 1})
        model.Remove_Track(track);
    EXPECT_EQ(calls, (QStringList{"Clear_Audio_Menus(2) current=2 count=3", "Reset_Player() current=0 count=2",
                                  "Open_First_Track(/films/one.avi) current=2 count=2",
                                  "Clear_Audio_Menus(2) current=2 count=2", "Reset_Player() current=0 count=1",
                                  "Open_First_Track(/films/two.mpg) current=1 count=1",
                                  "Clear_Audio_Menus(1) current=1 count=1", "Reset_Player() current=0 count=0"}));
    EXPECT_EQ(State(), " current=0 selected=0 shown=0 00:00:00 []");
    EXPECT_FALSE(window.Track_Controls_Usable());
}

TEST_F(Playlist_Model_Test, AssociatedAudioRulesAndTheChoiceThatFollowsThem)
{
    // From Add_Track's list the empty piece is left out and the file with a picture refused with a word.
    model.Add_Track(One, {English, QString(), Two}, false, QStringLiteral("One"), 1, 1);
    Add_All({Two});  // nothing chosen yet
    EXPECT_FALSE(model.Associate_Audio(1, Two, QStringLiteral("two")));
    EXPECT_FALSE(model.Associate_Audio(1, QStringLiteral("/films/missing.wav"), QStringLiteral("missing")));
    EXPECT_EQ(bench.prompts.calls, QStringList({"Refuse(1210)", "Refuse(1210)"}));
    EXPECT_EQ(model.Track(1).Associated_Count, 1);
    EXPECT_TRUE(calls.isEmpty());

    // To the current track: choice 0 becomes 1, the player hears about it, the new entry is selected.
    window.Select_Track(1);
    EXPECT_TRUE(model.Associate_Audio(1, Commentary, QStringLiteral("commentary")));
    EXPECT_EQ(calls, QStringList{"Associated_Audio_Added(1,2) current=1 count=2"});
    EXPECT_EQ(model.Track(1).Associated_Audio[1].Kind, "WAV");
    EXPECT_EQ(State(), "One,two.mpg current=1 selected=1 shown=1 01:01:01 [english,commentary]");
    EXPECT_EQ(std::pair(int(bench.state.Audio_Choice.Number()), window.Selected_Audio_Entry()), std::pair(1, 2));
    // To another track: no call, choice unchanged; the list shows that track.
    bench.state.Audio_Choice = Audio_Choice::From_Number(0);
    EXPECT_TRUE(model.Associate_Audio(2, English, QStringLiteral("english")));
    EXPECT_EQ(std::pair(int(bench.state.Audio_Choice.Number()), calls.size()), std::pair(0, qsizetype(1)));
    EXPECT_EQ(State(), "One,two.mpg current=1 selected=2 shown=2 01:01:01 [english]");

    // Removing files from the current track (two streams: choices 1, 2, then the files 3, 4) keeps the choice
    // on the same sound; the file heard gone, the first stream.
    window.Select_Track(1);
    bench.state.Audio_Choice = Audio_Choice::From_Number(4);
    calls.clear();
    QList<int> choices;
    for (int i = 0; i < 3; ++i) {  // the third time nothing is selected: nothing removed
        window.Audio_Selection()->setCurrentIndex(window.Audio_List()->index(0), QItemSelectionModel::ClearAndSelect);
        model.Remove_Associated_Audio(window.Info_Track(), window.Selected_Audio_Entry());
        choices << bench.state.Audio_Choice.Number();
    }
    EXPECT_EQ(choices, (QList<int>{3, 1, 1}));
    EXPECT_EQ(calls, (QStringList{"Clear_Audio_Menus(1) current=1 count=2",
                                  "Associated_Audio_Removed(1,silent) current=1 count=2",
                                  "Clear_Audio_Menus(1) current=1 count=2",
                                  "Associated_Audio_Removed(1,heard) current=1 count=2"}));
}

TEST_F(Playlist_Model_Test, SubtitleGoesToItsTrackWithTheAnswerToTheQuestion)
{
    Subtitle_Table& delayed = bench.subtitle_files["/s/a.fr.sub"];
    delayed.Subtitle_Author = QStringLiteral("Ann Author");
    delayed.Subtitle_Source = QStringLiteral("DVD");
    delayed.Subtitle_Delay = 7;
    bench.subtitle_files["/s/plain.sub"] = Subtitle_Table();
    Add_All({One, Two});
    bench.prompts.answer = false;
    ASSERT_TRUE(model.Associate_Subtitle(1, QStringLiteral("/s/a.fr.sub"), QStringLiteral("a.fr.sub")));
    EXPECT_FALSE(model.Associate_Subtitle(1, QStringLiteral("/s/broken.sub"), QStringLiteral("broken.sub")));
    // No title: the name up to its first dot; a refused file stores nothing; the answer was No.
    const Track_Record& t = model.Track(1);
    EXPECT_EQ(QStringList({t.Subtitle_Path, t.Subtitle_Name, t.Subtitle_Info_1, t.Subtitle_Info_2,
                           QString::number(t.Subtitle_Delay), t.Subtitle_Flag ? "on" : "off"}).join(u'|'),
              "/s/a.fr.sub|a|Ann Author|DVD|7|off");
    EXPECT_TRUE(bench.state.Subtitles_Loaded);
    ASSERT_TRUE(model.Associate_Subtitle(2, QStringLiteral("/s/plain.sub"), QStringLiteral("plain.sub")));
    EXPECT_EQ(bench.prompts.calls, QStringList({"Confirm(1002)"})) << "no delay, no question";

    // A loaded playlist's subtitle goes with the track just added: not read at all when its media was dropped.
    Playlist_Load_Target& loader = model;
    loader.Add_Track(QStringLiteral("/films/gone.avi"), {}, false, QStringLiteral("Gone"), 2, 0);
    bench.subtitle_loads.clear();
    loader.Associate_Subtitle(QStringLiteral("/s/a.fr.sub"));
    EXPECT_TRUE(bench.subtitle_loads.isEmpty());
    EXPECT_EQ(Paths(model, &Track_Record::Subtitle_Path), QStringList({"/s/a.fr.sub", "/s/plain.sub"}));
}

// The bound is kept as it is: from 59 the up step makes 60 s (00:01:00), whose seconds read 0.
TEST_F(Playlist_Model_Test, DelayStepsUpToAMinuteOnTheCurrentTrack)
{
    Add_All({One, Two});  // the first is current
    window.Select_Track(2);  // the selected track is not the one that changes
    QList<int> delays;
    for (int direction : QList<int>{1} + QList<int>(60, 0) + QList<int>{1, 0, 1, 2, 0}) {
        model.Step_Subtitle_Delay(direction);
        delays << bench.subtitles.Subtitle_Delay;
    }
    EXPECT_EQ(delays.first(3), (QList<int>{0, 1, 2})) << "down at 0 does nothing";
    // Down at 00:01:00 does nothing, up gives 1; 2 is no direction.
    EXPECT_EQ(delays.sliced(59), (QList<int>{59, 60, 60, 1, 0, 0, 1}));
    EXPECT_EQ(std::pair(model.Track(1).Subtitle_Delay, model.Track(2).Subtitle_Delay), std::pair(1, 0));
    EXPECT_EQ(window.Subtitle_Panel_Track(), 1);
}

TEST(Name_From_Path, TakesTheNameAfterTheLastSlashUpToItsFirstDot)
{
    // Dots in folders are not looked at; no dot gives the whole rest; the first character is never a separator.
    const std::pair<const char*, const char*> cases[] = {
        {"/films/la.version.longue.avi", "la"}, {"/home/a.b/c.d/track.mp3", "track"}, {"/films/README", "README"},
        {"/films/", ""}, {"", ""}, {"film.avi", "ilm"}, {"a/b.wav", "b"}};
    for (const auto& [path, name] : cases)
        EXPECT_EQ(Name_From_Path(QString::fromUtf8(path)), name) << path;
}

TEST(Audio_Choice_Number, ReadsAgainstTheStreamCountAndKeepsTheSameSoundWhenAFileGoes)
{
    // A stream count the analysis could not tell (below 0) counts as none: 1 and 2 name the first two files.
    for (const Audio_Choice choice : {Audio_Choice::From_Number(1), Audio_Choice::From_Number(2)})
        EXPECT_EQ(choice.Is_Associated(-1) ? choice.Associated_Number(-1) : 0, choice.Number());
    const std::tuple<int, int, int, int> removals[] = {  // number, removed file j, streams, after
        {4, 1, 2, 3}, {4, 2, 2, 0}, {3, 2, 2, 3}, {2, 1, 2, 2}, {2, 1, 0, 1}, {1, 1, 0, 0}, {2, 1, -1, 1}};
    for (const auto& [number, j, streams, after] : removals)
        EXPECT_EQ(Audio_Choice::From_Number(number).Without_Associated(j, streams).Number(), after)
            << number << " without file " << j << " of " << streams << " streams";
}

} // namespace
} // namespace Orvane::Test

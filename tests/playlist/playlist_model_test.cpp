// The playlist's rules on a fake analyser and a recording player (the bench checks
// list/record agreement after every change). What GStreamer finds in real files is the
// analyser's tests' concern; real files go through the model in the batch's tests.
#include "playlist/name_from_path.h"
#include "playlist_test_support.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

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
        bench.analyser.Add(Three, 10.0, {}, 1, QStringLiteral("MPEG"));
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
    QStringList& prompts = bench.prompts.calls;
};

TEST_F(Playlist_Model_Test, FirstTrackIsOpenedNotPlayedAndLaterAddsKeepTheCurrentTrack)
{
    QSignalSpy usable(&window, &Playlist_Window_State::Track_Controls_Usable_Changed);
    Add_File(model, One);
    EXPECT_FALSE(bench.state.Is_Playing);
    EXPECT_EQ(usable.count(), 1);
    EXPECT_TRUE(usable.value(0).value(0).toBool());
    Add_File(model, Two, 1, 0);
    Add_File(model, Three, 2, 0);
    EXPECT_EQ(calls, QStringList{"Open_First_Track(/films/one.avi) current=1 count=1"}) << "once the record is current";
    EXPECT_EQ(State(), "one.avi,two.mpg,three.mp3 current=1 selected=3 shown=3 01:01:11 []");
    EXPECT_GE(bench.step_checks, 3);
}

TEST_F(Playlist_Model_Test, RecordsHoldTheAnalysisAndUnrenderableFilesAreDroppedSilently)
{
    Add_All({One, Three, bench.analyser.Add("/odd/file.ogg", 12.5, {}, -2, "Autre"), "/films/letter.avi"});
    Add_File(model, QStringLiteral("/films/letter.avi"), 1, 1);  // the analysis comes before replacing
    EXPECT_TRUE(prompts.isEmpty());
    EXPECT_TRUE(calls.isEmpty());
    EXPECT_EQ(model.Last_Added_Track(), 0);
    model.Add_Track(Two, {}, true, QStringLiteral("Disc two"), 4, 1);
    QStringList records;
    for (int k = 1; k <= model.Track_Count(); ++k)
        records << Summary(model.Track(k));
    // -2 streams are kept as -1; the seconds round half to even (12.5 -> 12, 3599.5 -> 3600).
    EXPECT_EQ(records, (QStringList{"one.avi 320x240 00:01:01 AVI 2 VAP", "three.mp3 -- 00:00:10 MPEG 1 A",
                                    "file.ogg -- 00:00:12 Autre -1 ", "Disc two 352x288 01:00:00 MPEG 1 VAPD"}));
    EXPECT_DOUBLE_EQ(model.Track(1).Duration, 61.4);
    EXPECT_EQ(window.Playlist_Duration_Text(), "01:01:23");  // 3683.4 s
}

TEST_F(Playlist_Model_Test, TheTotalIsTheSumOfWhatTheRowsShow)
{
    struct Case {
        std::vector<double> seconds;
        QString rows;
        QString total;
    };
    const Case cases[] = {
        {{1.4, 1.4, 1.4}, "00:00:01 00:00:01 00:00:01", "00:00:03"},  // not 4.2 rounded
        {{2.5, 3.5, 0.6}, "00:00:02 00:00:04 00:00:01", "00:00:07"},  // halves to the even neighbour
        {{86399.6, 1.0}, "00:00:00 00:00:01", "24:00:01"},            // a row wraps at a day, the total counts on
    };
    for (const Case& test : cases) {
        Playlist_Bench case_bench;
        Playlist_Model& case_model = case_bench.model;
        QStringList rows;
        for (std::size_t k = 0; k < test.seconds.size(); ++k) {
            const QString path = case_bench.analyser.Add(QStringLiteral("/films/%1.avi").arg(k), test.seconds[k]);
            Add_File(case_model, path, 2);
            rows << case_model.Track(int(k) + 1).Duration_Text;
        }
        EXPECT_EQ(rows.join(u' '), test.rows);
        EXPECT_EQ(case_bench.window.Playlist_Duration_Text(), test.total) << test.rows.toStdString();
    }
}

TEST_F(Playlist_Model_Test, ShiftReplacesAndPlainAddAppends)
{
    Add_All({One, Two});
    model.Associate_Audio(2, English, QStringLiteral("english"));
    bench.state.Current_Track = 2;
    Add_File(model, Three, 1, 0);
    EXPECT_EQ(Paths(model), (QStringList{One, Two, Three})) << "without Shift even entry 1 appends";
    EXPECT_TRUE(calls.isEmpty());
    Add_File(model, Three, 1, 1);
    Add_File(model, One, 2, 1);
    // The old track's menus are cleared while its record is still there.
    EXPECT_EQ(calls, (QStringList{"Clear_Audio_Menus(2) current=2 count=3",
                                  "Reset_Player() current=0 count=0",
                                  "Open_First_Track(/music/three.mp3) current=1 count=1"}));
    EXPECT_EQ(State(), "three.mp3,one.avi current=1 selected=2 shown=2 00:01:11 []");
}

TEST_F(Playlist_Model_Test, RemovingShiftsRecordsAndKeepsTheCurrentMedia)
{
    Add_All({One, Two, Three, English});
    const_cast<Track_Record&>(model.Track(3)).Subtitle_Name = QStringLiteral("third's subtitle");
    model.Associate_Audio(3, English, QStringLiteral("english"));
    bench.state.Current_Track = 3;
    calls.clear();
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

TEST_F(Playlist_Model_Test, AssociatedAudioRules)
{
    // From Add_Track's list the empty piece is left out and the file with a picture refused.
    model.Add_Track(One, {English, QString(), Two}, false, QStringLiteral("One"), 1, 1);
    Add_All({Two});
    bench.state.Audio_Choice = Audio_Choice::From_Number(0);
    EXPECT_FALSE(model.Associate_Audio(1, Two, QStringLiteral("two")));
    EXPECT_FALSE(model.Associate_Audio(1, QStringLiteral("/films/missing.wav"), QStringLiteral("missing")));
    // Refused twice with a word; a file that cannot be rendered without one.
    EXPECT_EQ(prompts, QStringList({"Refuse(1210)", "Refuse(1210)"}));
    EXPECT_EQ(std::pair(int(model.Track(1).Associated_Count), int(bench.state.Audio_Choice.Number())), std::pair(1, 0));
    EXPECT_TRUE(calls.isEmpty());

    // To the current track: choice 0 becomes 1, the player hears about it, the new entry is selected.
    window.Select_Track(1);
    EXPECT_TRUE(model.Associate_Audio(1, Commentary, QStringLiteral("commentary")));
    EXPECT_EQ(calls, QStringList{"Associated_Audio_Added(1,2) current=1 count=2"});
    const Associated_Audio_Entry& added = model.Track(1).Associated_Audio[1];
    EXPECT_EQ(QStringList({added.Path, added.Name, added.Duration_Text, added.Kind}),
              QStringList({Commentary, "commentary", "00:00:30", "WAV"}));
    EXPECT_EQ(State(), "One,two.mpg current=1 selected=1 shown=1 01:01:01 [english,commentary]");
    EXPECT_EQ(std::pair(int(bench.state.Audio_Choice.Number()), window.Selected_Audio_Entry()), std::pair(1, 2));
    // To another track: no hook, choice unchanged; the list shows that track.
    bench.state.Audio_Choice = Audio_Choice::From_Number(0);
    EXPECT_TRUE(model.Associate_Audio(2, English, QStringLiteral("english")));
    EXPECT_EQ(std::pair(int(bench.state.Audio_Choice.Number()), calls.size()), std::pair(0, qsizetype(1)));
    EXPECT_EQ(State(), "One,two.mpg current=1 selected=2 shown=2 01:01:01 [english]");
}

TEST_F(Playlist_Model_Test, RemovingAssociatedAudioKeepsTheChoiceOnTheSameSound)
{
    Add_All({One});  // two streams: choices 1, 2, then files 3, 4
    model.Associate_Audio(1, English, QStringLiteral("english"));
    model.Associate_Audio(1, Commentary, QStringLiteral("commentary"));
    bench.state.Audio_Choice = Audio_Choice::From_Number(4);
    calls.clear();
    QList<int> choices;
    for (int i = 0; i < 3; ++i) {  // the third time nothing is selected: nothing removed
        window.Audio_Selection()->setCurrentIndex(window.Audio_List()->index(0), QItemSelectionModel::ClearAndSelect);
        model.Remove_Associated_Audio(window.Info_Track(), window.Selected_Audio_Entry());
        choices << bench.state.Audio_Choice.Number();
    }
    EXPECT_EQ(choices, (QList<int>{3, 1, 1})) << "4 -> 3 for the same file; the file heard gone: the first stream";
    EXPECT_EQ(calls, (QStringList{"Clear_Audio_Menus(1) current=1 count=1",
                                  "Associated_Audio_Removed(1,silent) current=1 count=1",
                                  "Clear_Audio_Menus(1) current=1 count=1",
                                  "Associated_Audio_Removed(1,heard) current=1 count=1"}));
    EXPECT_EQ(model.Track(1).Associated_Count, 0);
}

TEST_F(Playlist_Model_Test, SubtitleGoesToItsTrackWithTheAnswerToTheQuestion)
{
    Subtitle_Table& untitled = bench.subtitle_files["/s/a.fr.sub"];
    untitled.Subtitle_Author = QStringLiteral("Ann Author");
    untitled.Subtitle_Source = QStringLiteral("DVD");
    untitled.Subtitle_Delay = 7;
    (bench.subtitle_files["/s/titled.sub"] = untitled).Subtitle_Title = QStringLiteral("Le film");
    (bench.subtitle_files["/s/plain.sub"] = untitled).Subtitle_Delay = 0;
    const auto subtitle_of = [this](int k) {
        const Track_Record& t = model.Track(k);
        return QStringList({t.Subtitle_Path, t.Subtitle_Name, t.Subtitle_Info_1, t.Subtitle_Info_2,
                            QString::number(t.Subtitle_Delay), t.Subtitle_Flag ? "on" : "off"}).join(u'|');
    };
    EXPECT_FALSE(model.Associate_Subtitle(1, QStringLiteral("/s/titled.sub"), QStringLiteral("titled.sub")));
    Add_All({One, Two});
    QSignalSpy panel(&window, &Playlist_Window_State::Subtitle_Panel_Changed);
    ASSERT_TRUE(model.Associate_Subtitle(1, QStringLiteral("/s/a.fr.sub"), QStringLiteral("a.fr.sub")));
    EXPECT_EQ(subtitle_of(1), "/s/a.fr.sub|a|Ann Author|DVD|7|on");  // no title: the name up to its first dot
    EXPECT_TRUE(bench.state.Subtitles_Loaded);
    EXPECT_EQ(panel.last().at(0).toInt(), 1);
    bench.prompts.answer = false;
    ASSERT_TRUE(model.Associate_Subtitle(2, QStringLiteral("/s/titled.sub"), QStringLiteral("titled.sub")));
    EXPECT_EQ(subtitle_of(2), "/s/titled.sub|Le film|Ann Author|DVD|7|off");
    EXPECT_FALSE(model.Associate_Subtitle(2, QStringLiteral("/s/broken.sub"), QStringLiteral("broken.sub")));
    EXPECT_EQ(subtitle_of(2), "/s/titled.sub|Le film|Ann Author|DVD|7|off") << "a refused file stores nothing";
    bench.prompts.answer = true;
    ASSERT_TRUE(model.Associate_Subtitle(2, QStringLiteral("/s/plain.sub"), QStringLiteral("plain.sub")));
    EXPECT_EQ(subtitle_of(2), "/s/plain.sub|plain|Ann Author|DVD|0|off") << "no delay, no question";
    EXPECT_EQ(prompts, QStringList({"Confirm(1002)", "Confirm(1002)"}));

    // A loaded playlist's subtitle goes with the track just added: not read at all when its media was dropped.
    Playlist_Load_Target& loader = model;
    loader.Add_Track(QStringLiteral("/films/gone.avi"), {}, false, QStringLiteral("Gone"), 2, 0);
    bench.subtitle_loads.clear();
    loader.Associate_Subtitle(QStringLiteral("/s/titled.sub"));
    EXPECT_TRUE(bench.subtitle_loads.isEmpty());
    EXPECT_EQ(Paths(model, &Track_Record::Subtitle_Path), QStringList({"/s/a.fr.sub", "/s/plain.sub"}));
}

TEST_F(Playlist_Model_Test, DelayStepsUpToAMinuteOnTheCurrentTrack)
{
    Add_All({One, Two});
    bench.state.Current_Track = 1;
    window.Select_Track(2);  // the selected track is not the one that changes
    QList<int> delays, expected{0};
    for (int s = 1; s <= 60; ++s)
        expected << s;
    for (int direction : QList<int>{1} + QList<int>(60, 0) + QList<int>{1, 0, 1, 2, 0}) {
        model.Step_Subtitle_Delay(direction);
        delays << bench.subtitles.Subtitle_Delay;
    }
    // Down at 0 does nothing; 59 goes up to 00:01:00, whose seconds read 0: down does nothing, up gives 1.
    EXPECT_EQ(delays, expected << 60 << 1 << 0 << 0 << 1);
    EXPECT_EQ(std::pair(model.Track(1).Subtitle_Delay, model.Track(2).Subtitle_Delay), std::pair(1, 0));
    EXPECT_EQ(window.Subtitle_Panel_Track(), 1);
}

TEST(Name_From_Path, TakesTheNameAfterTheLastSlashUpToItsFirstDot)
{
    // Dots in folders are not looked at; no dot gives the whole rest; the first character is never a separator.
    const std::pair<const char*, const char*> cases[] = {
        {"/films/english.wav", "english"}, {"/films/la.version.longue.avi", "la"}, {"/home/a.b/c.d/track.mp3", "track"},
        {"/music.mp3", "music"}, {"/films/README", "README"}, {"/films/", ""}, {"", ""}, {"/", ""},
        {"film.avi", "ilm"}, {"a/b.wav", "b"}};
    for (const auto& [path, name] : cases)
        EXPECT_EQ(Name_From_Path(QString::fromUtf8(path)), name) << path;
}

} // namespace
} // namespace Orvane::Test

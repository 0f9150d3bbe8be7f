#include "player_fixture.h"
#include <tuple>

namespace Orvane::Test {

class Time_Display_Test : public Player_Fixture {
protected:
    void SetUp() override
    {
        tracks = {Video_Track("Film", 1)};
        Start(1, false);
    }
    Time_Display& time() { return session.Display(); }
};

TEST_F(Time_Display_Test, Seek_Arithmetic_Over_The_310_Pixel_Track)
{
    for (const auto& [x_twips, position] : {std::pair{0, 0.0}, {4650, 60.0}, {15 * 31, 6.0}}) {
        time().Seek_To_X(x_twips);
        EXPECT_DOUBLE_EQ(graph.position, position) << x_twips;
    }
}

TEST_F(Time_Display_Test, DragSeeksInsideTheTrackAndFreezesOutside)
{
    state.Next_Subtitle_Time = "00:00:20";
    time().Progress_Mouse_Down(1500);
    EXPECT_EQ(view.Cursor_Left(), 100);
    EXPECT_DOUBLE_EQ(graph.position, 100.0 / 310.0 * 60.0);
    EXPECT_EQ(state.Next_Subtitle_Time, "00:00:20") << "the subtitle window is hidden";
    time().Progress_Mouse_Move(3000);
    time().Progress_Mouse_Move(4665);
    time().Progress_Mouse_Move(-15);
    EXPECT_EQ(view.Cursor_Left(), 200);
    EXPECT_EQ(journal.Only({"Set_Current"}).size(), 2) << "no seeking outside the track";
    time().Progress_Mouse_Move(4650);
    EXPECT_EQ(view.Cursor_Left(), 310) << "back on the track";
    EXPECT_EQ(graph.position, 60.0);
    time().Progress_Mouse_Up();
    journal.Clear();
    time().Progress_Mouse_Move(1500);
    graph.Close_Graph();
    time().Progress_Mouse_Down(1500);
    EXPECT_EQ(journal.calls, QStringList({"Close_Graph"})) << "no seeking after the release or without media";

    graph.open = true;  // with the subtitle window shown, seeking clears it and searches again
    state.Subtitles_Shown = true;
    time().Progress_Mouse_Down(0);
    EXPECT_TRUE(journal.calls.contains("Show_Subtitle(|,1)"));
    EXPECT_EQ(state.Next_Subtitle_Time, "Aucun");
}

// The cursor follows the position over the 310-pixel track.
TEST_F(Time_Display_Test, SeekToSecondsStaysWithinTheMediaAndSearchesTheSubtitlesAgain)
{
    state.Subtitles_Shown = true;
    state.Next_Subtitle_Time = "00:00:20";
    for (const auto& [seconds, position, cursor] :
         {std::tuple{30.0, 30.0, 155}, {-5.0, 0.0, 0}, {90.0, 60.0, 310}}) {
        EXPECT_TRUE(time().Seek_To_Seconds(seconds));
        EXPECT_DOUBLE_EQ(graph.position, position) << seconds;
        EXPECT_EQ(view.Cursor_Left(), cursor) << seconds;
    }
    EXPECT_EQ(state.Next_Subtitle_Time, "Aucun");
    graph.Close_Graph();
    EXPECT_FALSE(time().Seek_To_Seconds(10.0)) << "nothing to seek without media";
}

TEST_F(Time_Display_Test, TimeModeToggleChangesTheCaptionNowAndTheTimeOnTheTick)
{
    graph.position = 10.0;
    session.Tick();
    session.Pause();
    time().Toggle_Time_Mode();
    EXPECT_EQ(view.Lbl_Indic_Type_Temps()->text(), "102 English");
    EXPECT_EQ(view.Time_Text(), "00:00:10");
    session.Tick();  // paused, but the tick still writes the time
    EXPECT_EQ(view.Time_Text(), "00:00:50");
    time().Toggle_Time_Mode();
    EXPECT_EQ(view.Lbl_Indic_Type_Temps()->text(), "101 English");
    EXPECT_EQ(time().Time_For_Position(32767.0), "09:06:07") << "a time of day";
    EXPECT_EQ(time().Time_For_Position(32768.0), std::nullopt) << "past the supported range";
}

TEST_F(Time_Display_Test, RemainingTimeIsNeverBelowZero)
{
    state.Time_Mode = 2;
    const std::tuple<double, double, QString> cases[] = {  // graph's duration, position, shown
        {60.0, 10.0, "00:00:50"},
        {0.0, 1.0, "00:00:00"},  // a graph that does not know its duration yet
        {60.0, 61.0, "00:00:00"}};
    for (const auto& [duration, position, shown] : cases) {
        graph.duration = duration;
        EXPECT_EQ(time().Time_For_Position(position), shown) << duration << " " << position;
    }
}

TEST_F(Time_Display_Test, StatusLabelsAndLampsOfTheCurrentTrack)
{
    tracks = {Video_Track("One", 1), Video_Track("Dubbed", 1, {"Deutsch"}), Audio_Track("Song", {"Karaoke"}),
              Video_Track("Two", 2)};
    tracks[0].Subtitle_Path = "/media/One.sub";
    tracks[0].Subtitle_Name = "French";
    const std::tuple<int, int, bool, bool, QString> cases[] = {  // track, choice, subtitles loaded, shown
        {0, 1, false, false, "/1101 English/////"},    {1, 1, false, false, "1/One/////"},
        {1, 1, true, false, "1/One///st0//French"},    {1, 1, true, true, "1/One////st1/French"},
        {2, 2, false, false, "2/Dubbed/lamp/Deutsch///"}, {2, 1, false, false, "2/Dubbed/lamp/1102 English1///"},
        {3, 2, false, false, "3/Song/////"},           {4, 2, false, false, "4/Two/lamp/1102 English2///"}};
    const auto lamp = [this](QWidget* picture, const char* name) { return picture->isVisibleTo(&view) ? name : ""; };
    for (const auto& [track, choice, loaded, shown, labels] : cases) {
        state.Current_Track = track;
        state.Audio_Choice = Audio_Choice::From_Number(choice);
        state.Subtitles_Loaded = loaded;
        state.Subtitles_Shown = shown;
        time().Refresh_Display();
        EXPECT_EQ(QStringList({view.Lbl_Affichage_Rang()->text(), view.Title_Text(), lamp(view.Img_Temoin_ML(), "lamp"),
                               view.Lbl_Affichage_ML()->text(), lamp(view.Img_Temoin_ST(0), "st0"),
                               lamp(view.Img_Temoin_ST(1), "st1"), view.Lbl_Affichage_Sub()->text()})
                      .join(u'/'),
                  labels);
    }
}

} // namespace Orvane::Test

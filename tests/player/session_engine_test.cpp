// The session on the real GStreamer engine, with generated media.
#include "player_fixture.h"

#include "media/gst_media_graph.h"
#include "support/generated_media.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

namespace Orvane::Test {
namespace {

class Session_Engine_Test : public testing::Test {
protected:
    Track_Record Track_Of(const QString& path, int streams, bool video, const QString& kind, double duration)
    {
        Track_Record track = video ? Video_Track(QStringLiteral("T"), streams, kind, duration)
                                   : Audio_Track(QStringLiteral("T"), duration);
        track.Path = path;
        return track;
    }
    // Lets the pipeline play until the position passes seconds.
    bool Play_Until(double seconds)
    {
        QDeadlineTimer deadline(10000);
        while (graph.Current_Position() < seconds && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        return graph.Current_Position() >= seconds;
    }

    Call_Journal journal;
    Message_Box_Recorder boxes;
    Playback_State state;
    Settings settings;
    Gst_Media_Graph graph;
    Fake_Player_View view{&journal};
    Fake_Tracks tracks;
    Fake_Playlist_Window playlist_window{journal};
    Fake_Display display{journal};
    Fake_Subtitles subtitles{journal};
    Fake_Subtitle_Display subtitle_display{journal};
    Fake_Subtitle_Window subtitle_window{journal};
    Player_Context context{state,  settings,        Test_Texts(), graph,     view,
                           tracks, playlist_window, display,      subtitles, subtitle_display,
                           subtitle_window};
    Playback_Session session{context};
};

TEST_F(Session_Engine_Test, Streams_And_An_Associated_File_Are_Switched_While_Playing)
{
    Track_Record film = Track_Of(Media().Avi_Three_Streams, 3, true, QStringLiteral("AVI"), 4.0);
    Add_Associated(film, QStringLiteral("english"));
    film.Associated_Audio[0].Path = Media().Associated_Wav;
    tracks.records = {film};
    state.Current_Track = 1;
    session.Play_Track();
    ASSERT_TRUE(graph.Is_Open()) << boxes.Last_Text().toStdString();
    EXPECT_EQ(graph.Recorded_Streams(), (std::vector<int>{1, 2, 3}));
    EXPECT_TRUE(journal.Has(QStringLiteral("Video_Layout(320x240)")));

    ASSERT_TRUE(Play_Until(0.6));
    session.Tick();
    EXPECT_GT(view.Cursor_Left, 0);
    EXPECT_EQ(view.Time_Text().left(6), QStringLiteral("00:00:"));

    session.Menus().Choose_Stream(3);
    EXPECT_EQ(state.Audio_Choice, 3);
    ASSERT_TRUE(Play_Until(1.0));

    session.Menus().Choose_Associated(1);
    EXPECT_EQ(state.Audio_Choice, 4);
    EXPECT_TRUE(boxes.Boxes().empty()) << boxes.Last_Text().toStdString();
    ASSERT_TRUE(Play_Until(1.4));

    const double before_rebuild = graph.Current_Position();
    session.Menus().Choose_Stream(2);
    EXPECT_EQ(state.Audio_Choice, 2);
    ASSERT_TRUE(graph.Is_Open());
    EXPECT_NEAR(graph.Current_Position(), before_rebuild, 0.5) << "the rebuilt graph resumes where it was";
}

TEST_F(Session_Engine_Test, A_File_That_Is_No_Media_Is_Reported_And_Nothing_Is_Open)
{
    tracks.records = {Track_Of(Media().Not_Media, 1, true, QStringLiteral("AVI"), 4.0)};
    state.Current_Track = 1;
    session.Play_Track();
    EXPECT_FALSE(graph.Is_Open());
    ASSERT_EQ(boxes.Boxes().size(), 1u);
    EXPECT_FALSE(boxes.Last_Text().isEmpty());
    EXPECT_FALSE(session.Timer().isActive());
}

TEST_F(Session_Engine_Test, The_Stored_Duration_Ends_The_Last_Track)
{
    tracks.records = {Track_Of(Media().Wav, 1, false, QStringLiteral("WAV"), 1.0)};
    state.Current_Track = 1;
    session.Play_Track();
    ASSERT_TRUE(Play_Until(1.0));
    session.Tick();
    EXPECT_FALSE(state.Is_Playing);
    EXPECT_FALSE(session.Timer().isActive());
    EXPECT_EQ(view.Time_Text(), QStringLiteral("00:00:00"));
    EXPECT_NEAR(graph.Current_Position(), 0.0, 0.05);
}

} // namespace
} // namespace Orvane::Test

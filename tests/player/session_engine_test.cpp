// The session on the real GStreamer engine, with generated media.
#include "player_fixture.h"

#include "media/gst_media_graph.h"
#include "support/generated_media.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

namespace Orvane::Test {

class Session_Engine_Test : public Player_Base {
protected:
    bool Play_Until(double seconds)
    {
        QDeadlineTimer deadline(10000);
        while (graph.Current_Position() < seconds && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        return graph.Current_Position() >= seconds;
    }

    Gst_Media_Graph graph;
    Player_Context context = Context_With(graph);
    Playback_Session session{context};
};

TEST_F(Session_Engine_Test, AFileThatIsNoMediaIsRefusedAndStreamsAreSwitchedWhilePlaying)
{
    tracks = {Video_Track("Bad", 1)};
    tracks[0].Path = Media().Not_Media;
    state.Current_Track = 1;
    session.Play_Track();
    EXPECT_FALSE(graph.Is_Open());
    EXPECT_FALSE(session.Timer().isActive());
    EXPECT_EQ(boxes.Boxes().size(), 1u);

    Track_Record film = Video_Track("Film", 3, {"english"});
    film.Path = Media().Avi_Three_Streams;
    film.Associated_Audio[0].Path = Media().Associated_Wav;
    tracks = {film};
    session.Play_Track();
    ASSERT_TRUE(graph.Is_Open()) << boxes.Last_Text().toStdString();
    EXPECT_EQ(graph.Recorded_Streams(), (std::vector<int>{1, 2, 3}));
    EXPECT_TRUE(journal.calls.contains("Video_Layout(320,240)"));
    ASSERT_TRUE(Play_Until(0.6));
    session.Tick();
    EXPECT_GT(view.Cursor_Left(), 0);
    session.Menus().Choose_Stream(3);
    ASSERT_TRUE(Play_Until(1.0));
    session.Menus().Choose_Associated(1);
    ASSERT_TRUE(Play_Until(1.4));
    const double before_rebuild = graph.Current_Position();
    session.Menus().Choose_Stream(2);
    EXPECT_NEAR(graph.Current_Position(), before_rebuild, 0.5) << "the rebuilt graph resumes where it was";
    EXPECT_EQ(boxes.Boxes().size(), 1u) << boxes.Last_Text().toStdString();
}

} // namespace Orvane::Test

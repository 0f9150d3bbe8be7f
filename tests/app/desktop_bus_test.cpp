// The player on a private session bus, driven as the desktop's media
// controls drive it: MPRIS2 properties, methods and signals on generated
// media, and the screensaver kept away while a video plays.
#include "app/desktop_bus.h"
#include "bus_client.h"
#include "media/gst_media_graph.h"
#include "player/playback_session.h"
#include "player/player_controls.h"
#include "playlist/playlist_model.h"
#include "program_fixture.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QUrl>

namespace Orvane {
namespace {

using Orvane::Test::Bus_Client;
using Orvane::Test::M3u;
using Orvane::Test::Media;

const QString Player_Interface = QStringLiteral("org.mpris.MediaPlayer2.Player");
const QString Root_Interface = QStringLiteral("org.mpris.MediaPlayer2");

// A stand-in org.freedesktop.ScreenSaver recording what it is asked.
class Fake_Screensaver : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.ScreenSaver")
public:
    QList<uint> inhibited;
    QList<uint> released;
public slots:
    uint Inhibit(const QString&, const QString&)
    {
        inhibited << next_cookie;
        return next_cookie++;
    }
    void UnInhibit(uint cookie) { released << cookie; }

private:
    uint next_cookie = 41;
};

// Records PropertiesChanged of the player interface (the names changed) and Seeked.
class Change_Listener : public QObject {
    Q_OBJECT
public:
    QStringList changed;
    QList<qlonglong> seeked;
public slots:
    void On_Seeked(qlonglong position) { seeked << position; }
    void On_Changed(const QString& interface, const QVariantMap& properties, const QStringList&)
    {
        if (interface == Player_Interface)
            changed << properties.keys();
    }
};

class Desktop_Bus_Test : public Orvane::Test::Program_Fixture {
protected:
    void SetUp() override
    {
        if (!Orvane::Test::Private_Bus_Available()) {
            GTEST_SKIP() << "needs a private session bus: run under dbus-run-session with ORVANE_TEST_PRIVATE_BUS=1";
        }
        program = std::make_unique<Program>(folder.Path());
        desktop = std::make_unique<Desktop_Bus>(*program);
        ASSERT_FALSE(desktop->Mpris_Service_Name().isEmpty());
    }
    void TearDown() override
    {
        desktop.reset();
        program.reset();
    }

    void Start(const QStringList& arguments)
    {
        ASSERT_TRUE(program->Start(arguments));
        if (arguments.size() > 1) {
            ASSERT_TRUE(QTest::qWaitFor([&] { return program->State().Is_Playing; }, 8000));
        }
    }
    QVariant Get(const QString& property, const QString& interface = Player_Interface)
    {
        return client.Get(desktop->Mpris_Service_Name(), Desktop_Names::Mpris_Path, interface, property);
    }
    QDBusMessage Call(const QString& method, const QVariantList& arguments = {})
    {
        return client.Call(desktop->Mpris_Service_Name(), Desktop_Names::Mpris_Path, Player_Interface, method,
                           arguments);
    }
    void Set(const QString& property, const QVariant& value)
    {
        client.Set(desktop->Mpris_Service_Name(), Desktop_Names::Mpris_Path, Player_Interface, property, value);
    }
    // Connects a signal of the player's object on the bus to a slot of receiver.
    bool Listen(const QString& interface, const QString& signal, QObject* receiver, const char* slot)
    {
        return client.Connection().connect(desktop->Mpris_Service_Name(), Desktop_Names::Mpris_Path, interface,
                                           signal, receiver, slot);
    }
    QVariantMap Metadata() { return qdbus_cast<QVariantMap>(Get(QStringLiteral("Metadata")).value<QDBusArgument>()); }
    bool Status_Becomes(const QString& status)
    {
        return QTest::qWaitFor([&] { return Get(QStringLiteral("PlaybackStatus")).toString() == status; }, 5000);
    }

    Bus_Client client{QStringLiteral("media-controls")};
    std::unique_ptr<Program> program;
    std::unique_ptr<Desktop_Bus> desktop;
};

TEST_F(Desktop_Bus_Test, WithoutMediaTheTransportDoesNothing)
{
    Start({});
    Call(QStringLiteral("Play"));
    Call(QStringLiteral("Next"));
    EXPECT_EQ(Get(QStringLiteral("PlaybackStatus")).toString(), "Stopped");
    EXPECT_FALSE(Get(QStringLiteral("CanPlay")).toBool());
    EXPECT_FALSE(program->State().Is_Playing);
    EXPECT_EQ(Metadata().value("mpris:trackid").value<QDBusObjectPath>().path(),
              "/org/mpris/MediaPlayer2/TrackList/NoTrack");
}

TEST_F(Desktop_Bus_Test, PlayPauseAndStopAreTheButtonsAndAreAnnounced)
{
    Change_Listener listener;
    ASSERT_TRUE(Listen("org.freedesktop.DBus.Properties", "PropertiesChanged", &listener,
                       SLOT(On_Changed(QString, QVariantMap, QStringList))));
    Start({Media().Wav, QStringLiteral("/play")});
    EXPECT_TRUE(Status_Becomes("Playing"));

    Call(QStringLiteral("Pause"));
    EXPECT_FALSE(program->State().Is_Playing);
    EXPECT_TRUE(Status_Becomes("Paused"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return listener.changed.contains("PlaybackStatus"); }, 5000));

    Call(QStringLiteral("PlayPause"));
    EXPECT_TRUE(program->State().Is_Playing);
    Call(QStringLiteral("Stop"));
    EXPECT_FALSE(program->Session().Timer().isActive());
    EXPECT_TRUE(Status_Becomes("Stopped"));
}

TEST_F(Desktop_Bus_Test, NextChangesTheMetadataAndPreviousComesBack)
{
    Start({folder.Write("two.m3u", M3u({{"First", Media().Wav}, {"Second", Media().Mp3}})), QStringLiteral("/play")});
    EXPECT_EQ(Metadata().value("xesam:title").toString(), "First");
    EXPECT_TRUE(Get(QStringLiteral("CanGoNext")).toBool());
    EXPECT_FALSE(Get(QStringLiteral("CanGoPrevious")).toBool());

    Call(QStringLiteral("Next"));
    const QVariantMap metadata = Metadata();
    EXPECT_EQ(metadata.value("xesam:title").toString(), "Second");
    EXPECT_EQ(metadata.value("xesam:url").toString(), QUrl::fromLocalFile(Media().Mp3).toString());
    EXPECT_NEAR(metadata.value("mpris:length").toLongLong(), 3'000'000, 200'000);
    EXPECT_FALSE(Get(QStringLiteral("CanGoNext")).toBool());

    Call(QStringLiteral("Previous"));
    EXPECT_EQ(program->State().Current_Track, 1);
}

TEST_F(Desktop_Bus_Test, SeekAndSetPositionMoveThePositionAndSignalSeeked)
{
    Change_Listener listener;
    ASSERT_TRUE(Listen(Player_Interface, "Seeked", &listener, SLOT(On_Seeked(qlonglong))));
    Start({Media().Avi_Three_Streams, QStringLiteral("/play")});
    Call(QStringLiteral("Pause"));

    Call(QStringLiteral("Seek"), {qlonglong(2'000'000)});
    EXPECT_NEAR(Get(QStringLiteral("Position")).toLongLong(), 2'000'000, 300'000);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !listener.seeked.isEmpty(); }, 5000));
    EXPECT_NEAR(listener.seeked.first(), 2'000'000, 300'000);

    const QDBusObjectPath track = Metadata().value("mpris:trackid").value<QDBusObjectPath>();
    Call(QStringLiteral("SetPosition"), {QVariant::fromValue(track), qlonglong(1'000'000)});
    EXPECT_NEAR(program->Graph().Current_Position(), 1.0, 0.3);
    Call(QStringLiteral("SetPosition"), {QVariant::fromValue(QDBusObjectPath("/org/orvane/Orvane/Track/9")),
                                         qlonglong(3'000'000)});
    EXPECT_NEAR(program->Graph().Current_Position(), 1.0, 0.3) << "another track's position is ignored";
}

TEST_F(Desktop_Bus_Test, VolumeTakesTheNearestOfTheSevenLevels)
{
    Start({Media().Wav, QStringLiteral("/play")});
    const std::pair<double, int> cases[] = {{0.5, 3}, {1.0, 6}, {0.0, 0}, {0.4, 2}, {7.0, 6}};
    for (const auto& [volume, level] : cases) {
        Set(QStringLiteral("Volume"), volume);
        EXPECT_EQ(program->State().Volume_Level, level) << volume;
    }
    EXPECT_DOUBLE_EQ(Get(QStringLiteral("Volume")).toDouble(), 1.0);
}

TEST_F(Desktop_Bus_Test, LoopStatusIsThePlaylistRepeat)
{
    Start({});
    for (const auto& [status, repeat] : {std::pair{"Playlist", true}, {"Track", true}, {"None", false}}) {
        Set(QStringLiteral("LoopStatus"), QString::fromLatin1(status));
        EXPECT_EQ(program->Current_Settings().Playlist_Repeat, repeat) << status;
    }
    program->Current_Settings().Playlist_Repeat = true;
    EXPECT_EQ(Get(QStringLiteral("LoopStatus")).toString(), "Playlist");
}

TEST_F(Desktop_Bus_Test, OpenUriPlaysTheFileAsTheCommandLineSwitchWould)
{
    Start({});
    Call(QStringLiteral("OpenUri"), {QUrl::fromLocalFile(Media().Mp3).toString()});
    EXPECT_TRUE(QTest::qWaitFor([&] { return program->Model().Track_Count() == 1; }, 5000));
    EXPECT_TRUE(Status_Becomes("Playing"));
}

TEST_F(Desktop_Bus_Test, QuitWritesTheSettingsAsFermerDoes)
{
    Start({Media().Wav, QStringLiteral("/play")});
    program->Controls().Gestion_KeyPress('8');
    const QByteArray level = QByteArray::number(program->State().Volume_Level);
    client.Call(desktop->Mpris_Service_Name(), Desktop_Names::Mpris_Path, Root_Interface, QStringLiteral("Quit"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !program->Graph().Is_Open(); }, 5000));
    EXPECT_EQ(Saved_Volume_Line(), " " + level + " \r") << "the volume in use, written at quit";
}

class Screensaver_Test : public Desktop_Bus_Test {
protected:
    void SetUp() override
    {
        Desktop_Bus_Test::SetUp();
        if (IsSkipped())
            return;
        ASSERT_TRUE(screensaver_bus.Connection().registerObject("/org/freedesktop/ScreenSaver", &screensaver,
                                                                QDBusConnection::ExportAllSlots));
        ASSERT_TRUE(screensaver_bus.Connection().registerService("org.freedesktop.ScreenSaver"));
    }
    void TearDown() override
    {
        Desktop_Bus_Test::TearDown();
        screensaver_bus.Connection().unregisterService("org.freedesktop.ScreenSaver");
    }
    Bus_Client screensaver_bus{QStringLiteral("screensaver")};
    Fake_Screensaver screensaver;
};

TEST_F(Screensaver_Test, AVideoInhibitsUntilPausedAndAgainUntilQuit)
{
    Start({Media().Avi_One_Stream, QStringLiteral("/play")});
    ASSERT_TRUE(QTest::qWaitFor([&] { return screensaver.inhibited.size() == 1; }, 5000));
    program->Controls().Gestion_KeyPress(' ');
    ASSERT_TRUE(QTest::qWaitFor([&] { return screensaver.released.size() == 1; }, 5000));
    EXPECT_EQ(screensaver.released.first(), screensaver.inhibited.first());

    program->Controls().Gestion_KeyPress(' ');
    ASSERT_TRUE(QTest::qWaitFor([&] { return screensaver.inhibited.size() == 2; }, 5000));
    program->Controls().Quit();
    ASSERT_TRUE(QTest::qWaitFor([&] { return screensaver.released.size() == 2; }, 5000));
    EXPECT_EQ(screensaver.released.last(), screensaver.inhibited.last());
}

TEST_F(Screensaver_Test, SoundAloneNeverInhibits)
{
    Start({folder.Write("mixed.m3u", M3u({{"Song", Media().Mp3}, {"Film", Media().Avi_One_Stream}})),
           QStringLiteral("/play")});
    // The video that follows shows the watch has been looking all along.
    ASSERT_TRUE(QTest::qWaitFor([&] { return program->State().Current_Track == 2; }, 8000));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !screensaver.inhibited.isEmpty(); }, 5000));
    EXPECT_EQ(screensaver.inhibited.size(), 1);
    EXPECT_TRUE(screensaver.released.isEmpty());
}

} // namespace
} // namespace Orvane

#include "desktop_bus_test.moc"

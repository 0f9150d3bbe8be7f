// The player on a private session bus, as the desktop drives it: the media
// controls (MPRIS2 properties, methods and signals) on generated media, the
// screensaver kept away while a video plays, and a second launch handing its
// file to the running player.
#include "app/desktop_bus.h"
#include "player/playback_session.h"
#include "player/player_controls.h"
#include "playlist/playlist_model.h"
#include "program_fixture.h"

#include <QProcess>
#include <QtDBus>
#include <QUrl>

#include <list>

namespace Orvane {
namespace {

using Orvane::Test::M3u;
using Orvane::Test::Media;

const QString Player_Interface = QStringLiteral("org.mpris.MediaPlayer2.Player");
const QString Root_Interface = QStringLiteral("org.mpris.MediaPlayer2");
const QString Properties_Interface = QStringLiteral("org.freedesktop.DBus.Properties");

// The tests take the player's names and a screensaver's: they need a bus of
// their own (dbus-run-session), never the user's.
bool Private_Bus_Available()
{
    return qEnvironmentVariableIsSet("ORVANE_TEST_PRIVATE_BUS") && QDBusConnection::sessionBus().isConnected();
}
const char* const Needs_Private_Bus = "needs a private session bus: run dbus-run-session, ORVANE_TEST_PRIVATE_BUS=1";

// A second connection to the bus, standing for the desktop's media controls.
// Every call is made without blocking and waited for with a deadline, so a
// player on the test's own thread can answer.
class Bus_Client {
public:
    explicit Bus_Client(const QString& name)
        : connection(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name)) {}
    ~Bus_Client() { QDBusConnection::disconnectFromBus(connection.name()); }

    QDBusMessage Call(const QString& service, const QString& interface, const QString& method,
                      const QVariantList& arguments = {})
    {
        QDBusMessage message = QDBusMessage::createMethodCall(service, Desktop_Names::Mpris_Path, interface, method);
        message.setArguments(arguments);
        QDBusPendingCall pending = connection.asyncCall(message);
        if (!QTest::qWaitFor([&] { return pending.isFinished(); }, 10000))
            ADD_FAILURE() << "no answer to " << method.toStdString();
        return pending.reply();
    }
    QVariant Get(const QString& service, const QString& property)
    {
        const QVariantList reply = Call(service, Properties_Interface, "Get", {Player_Interface, property}).arguments();
        return reply.isEmpty() ? QVariant() : reply.first().value<QDBusVariant>().variant();
    }
    QVariantMap Metadata(const QString& service)
    {
        return qdbus_cast<QVariantMap>(Get(service, QStringLiteral("Metadata")).value<QDBusArgument>());
    }
    bool Has_Owner(const QString& service) { return connection.interface()->isServiceRegistered(service); }

    QDBusConnection connection;
};

// Records what the player announces: the properties changed and the Seeked positions.
class Listener : public QObject {
    Q_OBJECT
public:
    QStringList changed;
    QList<qlonglong> seeked;
public slots:
    void On_Seeked(qlonglong position) { seeked << position; }
    void On_Changed(const QString&, const QVariantMap& properties, const QStringList&) { changed << properties.keys(); }
};

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

class Desktop_Bus_Test : public Orvane::Test::Program_Fixture {
protected:
    void SetUp() override
    {
        if (!Private_Bus_Available())
            GTEST_SKIP() << Needs_Private_Bus;
        program = std::make_unique<Program>(folder.Path());
        desktop = std::make_unique<Desktop_Bus>(*program);
        service = desktop->Mpris_Service_Name();
        ASSERT_FALSE(service.isEmpty());
    }

    QVariant Get(const QString& property) { return client.Get(service, property); }
    void Call(const QString& method, const QVariantList& arguments = {})
    {
        client.Call(service, Player_Interface, method, arguments);
    }
    void Set(const QString& property, const QVariant& value)
    {
        client.Call(service, Properties_Interface, "Set",
                    {Player_Interface, property, QVariant::fromValue(QDBusVariant(value))});
    }
    QString Track_Id() { return client.Metadata(service).value("mpris:trackid").value<QDBusObjectPath>().path(); }
    bool Status_Becomes(const QString& status)
    {
        return QTest::qWaitFor([&] { return Get(QStringLiteral("PlaybackStatus")).toString() == status; }, 5000);
    }

    Bus_Client client{QStringLiteral("media-controls")};
    std::unique_ptr<Program> program;
    std::unique_ptr<Desktop_Bus> desktop;
    QString service;
};

// The media controls drive the player with the rules of its buttons, read
// its state and hear of every change; meanwhile only a playing video keeps
// the screensaver away.
TEST_F(Desktop_Bus_Test, TheControlsAreTheButtonsAndReadAndHearTheStateAsTheScreensaverIsKeptAway)
{
    Fake_Screensaver screensaver;
    Bus_Client screensaver_bus{QStringLiteral("screensaver")};
    ASSERT_TRUE(screensaver_bus.connection.registerObject("/org/freedesktop/ScreenSaver", &screensaver,
                                                          QDBusConnection::ExportAllSlots));
    ASSERT_TRUE(screensaver_bus.connection.registerService("org.freedesktop.ScreenSaver"));
    Listener listener;
    ASSERT_TRUE(client.connection.connect(service, Desktop_Names::Mpris_Path, Properties_Interface,
                                          "PropertiesChanged", &listener,
                                          SLOT(On_Changed(QString, QVariantMap, QStringList))));
    ASSERT_TRUE(client.connection.connect(service, Desktop_Names::Mpris_Path, Player_Interface, "Seeked",
                                          &listener, SLOT(On_Seeked(qlonglong))));
    Start_Unrolled(*program, {});
    Call(QStringLiteral("Play"));
    Call(QStringLiteral("Next"));
    EXPECT_EQ(Get(QStringLiteral("PlaybackStatus")).toString(), "Stopped") << "without media nothing plays";
    EXPECT_FALSE(Get(QStringLiteral("CanPlay")).toBool());
    EXPECT_EQ(Track_Id(), "/org/mpris/MediaPlayer2/TrackList/NoTrack");
    // The loop status is the playlist's repeat.
    for (const auto& [status, repeat] : {std::pair{"Playlist", true}, {"Track", true}, {"None", false}}) {
        Set(QStringLiteral("LoopStatus"), QString::fromLatin1(status));
        EXPECT_EQ(program->Current_Settings().Playlist_Repeat, repeat) << status;
    }
    program->Current_Settings().Playlist_Repeat = true;
    EXPECT_EQ(Get(QStringLiteral("LoopStatus")).toString(), "Playlist");

    // A file opened plays as with the command line's switch.
    const QString playlist = folder.Write("two.m3u", M3u({{"Film", Media().Avi_One_Stream}, {"Song", Media().Mp3}}));
    Call(QStringLiteral("OpenUri"), {QUrl::fromLocalFile(playlist).toString()});
    EXPECT_TRUE(Status_Becomes("Playing"));
    EXPECT_EQ(client.Metadata(service).value("xesam:title").toString(), "Film");
    EXPECT_TRUE(Get(QStringLiteral("CanGoNext")).toBool());
    EXPECT_FALSE(Get(QStringLiteral("CanGoPrevious")).toBool());
    ASSERT_TRUE(QTest::qWaitFor([&] { return screensaver.inhibited.size() == 1; }, 5000));

    Call(QStringLiteral("Pause"));
    EXPECT_TRUE(Status_Becomes("Paused"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return listener.changed.contains("PlaybackStatus"); }, 5000));
    ASSERT_TRUE(QTest::qWaitFor([&] { return screensaver.released.size() == 1; }, 5000));
    EXPECT_EQ(screensaver.released.first(), screensaver.inhibited.first());

    Call(QStringLiteral("Seek"), {qlonglong(2'000'000)});
    EXPECT_NEAR(Get(QStringLiteral("Position")).toLongLong(), 2'000'000, 300'000);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !listener.seeked.isEmpty(); }, 5000));
    EXPECT_NEAR(listener.seeked.first(), 2'000'000, 300'000);
    Call(QStringLiteral("SetPosition"), {QVariant::fromValue(QDBusObjectPath(Track_Id())), qlonglong(1'000'000)});
    EXPECT_NEAR(program->Graph().Current_Position(), 1.0, 0.3);
    Call(QStringLiteral("SetPosition"), {QVariant::fromValue(QDBusObjectPath("/org/orvane/Orvane/Track/9")),
                                         qlonglong(2'500'000)});
    EXPECT_NEAR(program->Graph().Current_Position(), 1.0, 0.3) << "another track's position is ignored";

    // The volume takes the nearest of the seven levels.
    for (const auto& [volume, level] : {std::pair{0.5, 3}, {0.0, 0}, {0.4, 2}, {1.0, 6}, {7.0, 6}}) {
        Set(QStringLiteral("Volume"), volume);
        EXPECT_EQ(program->State().Volume_Level, level) << volume;
    }
    EXPECT_DOUBLE_EQ(Get(QStringLiteral("Volume")).toDouble(), 1.0);

    Call(QStringLiteral("Stop"));
    EXPECT_TRUE(Status_Becomes("Stopped"));
    Call(QStringLiteral("PlayPause"));
    EXPECT_TRUE(program->State().Is_Playing);
    ASSERT_TRUE(QTest::qWaitFor([&] { return screensaver.inhibited.size() == 2; }, 5000));
    Call(QStringLiteral("Next"));
    const QVariantMap metadata = client.Metadata(service);
    EXPECT_EQ(metadata.value("xesam:title").toString(), "Song");
    EXPECT_EQ(metadata.value("xesam:url").toString(), QUrl::fromLocalFile(Media().Mp3).toString());
    EXPECT_NEAR(metadata.value("mpris:length").toLongLong(), 3'000'000, 200'000);
    EXPECT_FALSE(Get(QStringLiteral("CanGoNext")).toBool());
    // Sound alone lets the screensaver come back.
    ASSERT_TRUE(QTest::qWaitFor([&] { return screensaver.released.size() == 2; }, 5000));
    EXPECT_EQ(screensaver.inhibited.size(), 2);
    Call(QStringLiteral("Previous"));
    EXPECT_EQ(program->State().Current_Track, 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return screensaver.inhibited.size() == 3; }, 5000));

    // Quitting as "Fermer" quits lets the screensaver come back.
    client.Call(service, Root_Interface, QStringLiteral("Quit"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !program->Graph().Is_Open(); }, 5000));
    ASSERT_TRUE(QTest::qWaitFor([&] { return screensaver.released.size() == 3; }, 5000));
    EXPECT_EQ(screensaver.released.last(), screensaver.inhibited.last());
}

// Launches of the real program, a portable copy whose settings stay in the
// test's folder.
TEST(Single_Instance_Test, ALaunchHandsItsFileToTheRunningPlayerUnlessItAsksForANewWindow)
{
    if (!Private_Bus_Available())
        GTEST_SKIP() << Needs_Private_Bus;
    Orvane::Test::Temp_Folder folder;
    ASSERT_TRUE(QFile::copy(QStringLiteral(ORVANE_BINARY_DIR "/orvane"), folder.File("orvane")));
    Orvane::Test::Copy_Shipped_Files(folder);
    Bus_Client client{QStringLiteral("file-manager")};
    std::list<QProcess> launches;  // those still running are ended as they go
    const auto launch = [&](const QStringList& arguments) -> QProcess& {
        QProcess& process = launches.emplace_back();
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.start(folder.File("orvane"), arguments);
        EXPECT_TRUE(process.waitForStarted(5000));
        return process;
    };
    // The file the player of that name plays, empty when it plays none.
    const auto playing_url = [&](const QString& service) {
        if (client.Get(service, QStringLiteral("PlaybackStatus")).toString() != QLatin1String("Playing"))
            return QString();
        return client.Metadata(service).value(QStringLiteral("xesam:url")).toString();
    };
    const QString main_service = Desktop_Names::Mpris_Service;

    launch({});
    ASSERT_TRUE(QTest::qWaitFor([&] { return client.Has_Owner(main_service); }, 20000));
    QProcess& own = launch({QStringLiteral("--new-window"), Media().Mp3, QStringLiteral("/play")});
    const QString own_service = main_service + ".instance" + QString::number(own.processId());
    ASSERT_TRUE(QTest::qWaitFor([&] { return client.Has_Owner(own_service); }, 20000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !playing_url(own_service).isEmpty(); }, 10000));
    EXPECT_TRUE(playing_url(main_service).isEmpty()) << "the first player was left alone";

    QProcess& handing = launch({Media().Wav, QStringLiteral("/play")});
    ASSERT_TRUE(handing.waitForFinished(20000));
    EXPECT_EQ(handing.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(handing.exitCode(), 0);
    const QString wav = QUrl::fromLocalFile(Media().Wav).toString();
    EXPECT_TRUE(QTest::qWaitFor([&] { return playing_url(main_service) == wav; }, 10000));
}

} // namespace
} // namespace Orvane

#include "desktop_bus_test.moc"

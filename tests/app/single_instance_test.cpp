// Two launches of the program on one private session bus: the second hands
// its file to the first and ends; --new-window starts one of its own.
#include "app/desktop_bus.h"
#include "bus_client.h"
#include "shipped_files.h"
#include "support/generated_media.h"
#include "support/temp_folder.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QFile>
#include <QProcess>
#include <QUrl>

namespace Orvane {
namespace {

using Orvane::Test::Bus_Client;
using Orvane::Test::Media;

const QString Player_Interface = QStringLiteral("org.mpris.MediaPlayer2.Player");

class Single_Instance_Test : public testing::Test {
protected:
    void SetUp() override
    {
        if (!Orvane::Test::Private_Bus_Available()) {
            GTEST_SKIP() << "needs a private session bus: run under dbus-run-session with ORVANE_TEST_PRIVATE_BUS=1";
        }
        // A portable copy of the program: its settings stay in the test's folder.
        ASSERT_TRUE(QFile::copy(QStringLiteral(ORVANE_BINARY_DIR "/orvane"), folder.File("orvane")));
        Orvane::Test::Copy_Shipped_Files(folder);
    }
    void TearDown() override
    {
        for (QProcess* process : {&first, &other}) {
            if (process->state() != QProcess::NotRunning) {
                process->kill();
                process->waitForFinished(5000);
            }
        }
    }
    void Launch(QProcess& process, const QStringList& arguments)
    {
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.start(folder.File("orvane"), arguments);
        ASSERT_TRUE(process.waitForStarted(5000));
    }
    QVariant Get(const QString& service, const QString& property)
    {
        return client.Get(service, Desktop_Names::Mpris_Path, Player_Interface, property);
    }
    QString Playing_Url(const QString& service)
    {
        if (Get(service, QStringLiteral("PlaybackStatus")).toString() != QLatin1String("Playing"))
            return {};
        const auto metadata = qdbus_cast<QVariantMap>(Get(service, QStringLiteral("Metadata")).value<QDBusArgument>());
        return metadata.value(QStringLiteral("xesam:url")).toString();
    }
    void Quit(const QString& service, QProcess& process)
    {
        client.Call(service, Desktop_Names::Mpris_Path, QStringLiteral("org.mpris.MediaPlayer2"), QStringLiteral("Quit"));
        // A process that has ended already is not waited for: Qt answers false.
        ASSERT_TRUE(process.state() == QProcess::NotRunning || process.waitForFinished(10000));
        EXPECT_EQ(process.exitCode(), 0);
    }

    Orvane::Test::Temp_Folder folder;
    Bus_Client client{QStringLiteral("file-manager")};
    QProcess first;
    QProcess other;
};

TEST_F(Single_Instance_Test, ASecondLaunchHandsItsFileToTheRunningPlayerAndEnds)
{
    Launch(first, {Media().Wav});
    ASSERT_TRUE(QTest::qWaitFor([&] { return client.Has_Owner(Desktop_Names::Mpris_Service); }, 20000));

    Launch(other, {Media().Mp3, QStringLiteral("/play")});
    ASSERT_TRUE(other.waitForFinished(20000));
    EXPECT_EQ(other.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(other.exitCode(), 0);

    const QString mp3 = QUrl::fromLocalFile(Media().Mp3).toString();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Playing_Url(Desktop_Names::Mpris_Service) == mp3; }, 10000));
    Quit(Desktop_Names::Mpris_Service, first);
}

TEST_F(Single_Instance_Test, NewWindowStartsAPlayerOfItsOwn)
{
    Launch(first, {});
    ASSERT_TRUE(QTest::qWaitFor([&] { return client.Has_Owner(Desktop_Names::Mpris_Service); }, 20000));

    Launch(other, {QStringLiteral("--new-window"), Media().Mp3, QStringLiteral("/play")});
    const QString instance = Desktop_Names::Mpris_Service + QStringLiteral(".instance") + QString::number(other.processId());
    ASSERT_TRUE(QTest::qWaitFor([&] { return client.Has_Owner(instance); }, 20000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Playing_Url(instance).isEmpty(); }, 10000));
    EXPECT_TRUE(Playing_Url(Desktop_Names::Mpris_Service).isEmpty()) << "the first player was left alone";
    Quit(instance, other);
    Quit(Desktop_Names::Mpris_Service, first);
}

} // namespace
} // namespace Orvane

#pragma once

// A second connection to the test's private session bus, standing for the
// desktop's media controls. Every call is made without blocking and waited
// for with a deadline, so the player on the same thread can answer.
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QTest>
#include <gtest/gtest.h>

namespace Orvane::Test {

// The desktop tests need a bus of their own (dbus-run-session), never the
// user's: they take the player's names and a screensaver's.
inline bool Private_Bus_Available()
{
    return qEnvironmentVariableIsSet("ORVANE_TEST_PRIVATE_BUS") && QDBusConnection::sessionBus().isConnected();
}

class Bus_Client {
public:
    explicit Bus_Client(const QString& name)
        : connection_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name)), name_(name)
    {
    }
    ~Bus_Client() { QDBusConnection::disconnectFromBus(name_); }
    QDBusConnection& Connection() { return connection_; }

    QDBusMessage Call(const QString& service, const QString& path, const QString& interface, const QString& method,
                      const QVariantList& arguments = {})
    {
        QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
        message.setArguments(arguments);
        QDBusPendingCall pending = connection_.asyncCall(message);
        if (!QTest::qWaitFor([&] { return pending.isFinished(); }, 10000))
            ADD_FAILURE() << "no answer to " << method.toStdString();
        return pending.reply();
    }
    QVariant Get(const QString& service, const QString& path, const QString& interface, const QString& property)
    {
        const QDBusMessage reply = Call(service, path, QStringLiteral("org.freedesktop.DBus.Properties"),
                                        QStringLiteral("Get"), {interface, property});
        if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
            return {};
        return reply.arguments().first().value<QDBusVariant>().variant();
    }
    QDBusMessage Set(const QString& service, const QString& path, const QString& interface, const QString& property,
                     const QVariant& value)
    {
        return Call(service, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Set"),
                    {interface, property, QVariant::fromValue(QDBusVariant(value))});
    }
    bool Has_Owner(const QString& service) { return connection_.interface()->isServiceRegistered(service); }

private:
    QDBusConnection connection_;
    QString name_;
};

} // namespace Orvane::Test

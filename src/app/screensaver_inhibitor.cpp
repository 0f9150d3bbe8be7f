#include "app/screensaver_inhibitor.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

namespace Orvane {

namespace {
const QString Screensaver_Service = QStringLiteral("org.freedesktop.ScreenSaver");
const QString Screensaver_Path = QStringLiteral("/org/freedesktop/ScreenSaver");
const QString Portal_Service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString Reason = QStringLiteral("Playing a video");
// The portal's flag for "the session must not go idle".
constexpr uint Portal_Inhibit_Idle = 8;
constexpr int Release_Timeout_Ms = 1000;
} // namespace

Screensaver_Inhibitor::Screensaver_Inhibitor(const QDBusConnection& bus, QObject* parent)
    : QObject(parent), bus_(bus)
{
}

Screensaver_Inhibitor::~Screensaver_Inhibitor()
{
    wanted_ = false;
    // Waited for: the program may end right after, taking its connection along.
    Release(QDBus::Block);
}

void Screensaver_Inhibitor::Set_Wanted(bool wanted)
{
    if (wanted == wanted_)
        return;
    wanted_ = wanted;
    if (wanted)
        Inhibit();
    else
        Release();
}

void Screensaver_Inhibitor::Inhibit()
{
    if (pending_ || cookie_ || !portal_request_.isEmpty() || !bus_.isConnected())
        return;
    QDBusMessage call;
    const bool screensaver = bus_.interface() && bus_.interface()->isServiceRegistered(Screensaver_Service);
    if (screensaver) {
        call = QDBusMessage::createMethodCall(Screensaver_Service, Screensaver_Path, Screensaver_Service,
                                              QStringLiteral("Inhibit"));
        call << QStringLiteral("Orvane") << Reason;
    } else {
        call = QDBusMessage::createMethodCall(Portal_Service, QStringLiteral("/org/freedesktop/portal/desktop"),
                                              QStringLiteral("org.freedesktop.portal.Inhibit"),
                                              QStringLiteral("Inhibit"));
        call << QString() << Portal_Inhibit_Idle << QVariantMap{{QStringLiteral("reason"), Reason}};
    }
    pending_ = true;
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, screensaver](QDBusPendingCallWatcher* done) {
        done->deleteLater();
        pending_ = false;
        // A desktop with neither service simply keeps its screensaver.
        if (done->isError())
            return;
        if (screensaver)
            cookie_ = QDBusPendingReply<uint>(*done).value();
        else
            portal_request_ = QDBusPendingReply<QDBusObjectPath>(*done).value().path();
        if (!wanted_)
            Release();
    });
}

void Screensaver_Inhibitor::Release(QDBus::CallMode mode)
{
    if (!bus_.isConnected())
        return;
    if (cookie_) {
        QDBusMessage call = QDBusMessage::createMethodCall(Screensaver_Service, Screensaver_Path,
                                                           Screensaver_Service, QStringLiteral("UnInhibit"));
        call << *cookie_;
        bus_.call(call, mode, Release_Timeout_Ms);
        cookie_.reset();
    }
    if (!portal_request_.isEmpty()) {
        bus_.call(QDBusMessage::createMethodCall(Portal_Service, portal_request_,
                                                 QStringLiteral("org.freedesktop.portal.Request"),
                                                 QStringLiteral("Close")),
                  mode, Release_Timeout_Ms);
        portal_request_.clear();
    }
}

} // namespace Orvane

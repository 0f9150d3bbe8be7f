#include "app/desktop_bus.h"

#include "app/mpris_adaptors.h"
#include "app/program.h"
#include "media/gst_media_graph.h"
#include "player/frm_player.h"
#include "player/playback_session.h"
#include "player/player_controls.h"
#include "playlist/playback_state.h"
#include "playlist/track.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <cmath>

namespace Orvane {

namespace {
// A position further than this from where playing would have brought it
// was moved by a seek.
constexpr double Seek_Tolerance_Seconds = 1.0;
constexpr int Hand_Over_Timeout_Ms = 5000;
} // namespace

bool Claim_Player_Name(const QDBusConnection& bus)
{
    QDBusConnectionInterface* names = bus.isConnected() ? bus.interface() : nullptr;
    if (!names)
        return true;
    const QDBusReply<QDBusConnectionInterface::RegisterServiceReply> reply = names->registerService(
        Desktop_Names::Instance_Service, QDBusConnectionInterface::DontQueueService,
        QDBusConnectionInterface::DontAllowReplacement);
    // A bus that cannot answer is no reason not to start.
    return !reply.isValid() || reply.value() == QDBusConnectionInterface::ServiceRegistered;
}

bool Hand_Over(const QDBusConnection& bus, const QString& file, bool play)
{
    QDBusMessage call = QDBusMessage::createMethodCall(Desktop_Names::Instance_Service, Desktop_Names::Instance_Path,
                                                       Desktop_Names::Instance_Service, QStringLiteral("Open"));
    call << file << play;
    return bus.call(call, QDBus::Block, Hand_Over_Timeout_Ms).type() == QDBusMessage::ReplyMessage;
}

Desktop_Bus::Desktop_Bus(Program& program, const QDBusConnection& bus)
    : program_(program), bus_(bus),
      player_(program.Session().Context(), program.Session(), program.Controls(), program.Current_Settings(),
              Mpris_Actions{[&program] { program.Bring_Forward(); },
                            [&program](const QString& path, bool play) { program.Open_File(path, play); },
                            [&program] { program.Controls().Quit(); }}),
      inhibitor_(bus)
{
    if (!bus_.isConnected())
        return;
    Publish();
    connect(&watch_, &QTimer::timeout, this, &Desktop_Bus::Look_At_Player);
    watch_.start(Watch_Interval_Ms);
}

Desktop_Bus::~Desktop_Bus()
{
    if (!mpris_service_.isEmpty()) {
        bus_.unregisterObject(Desktop_Names::Mpris_Path);
        bus_.unregisterObject(Desktop_Names::Instance_Path);
        bus_.unregisterService(mpris_service_);
    }
}

void Desktop_Bus::Publish()
{
    new Mpris_Root_Adaptor(&mpris_object_, player_);
    player_adaptor_ = new Mpris_Player_Adaptor(&mpris_object_, player_, [this](bool seeked) { After_Call(seeked); });
    new Instance_Adaptor(&instance_object_, [this](const QString& file, bool play) {
        if (!file.isEmpty())
            program_.Open_File(file, play);
        program_.Bring_Forward();
    });
    if (!bus_.registerObject(Desktop_Names::Mpris_Path, &mpris_object_, QDBusConnection::ExportAdaptors)
        || !bus_.registerObject(Desktop_Names::Instance_Path, &instance_object_, QDBusConnection::ExportAdaptors))
        return;
    // A player started with --new-window beside another takes an instance
    // name, as MPRIS names a second instance of a player.
    for (const QString& name : {Desktop_Names::Mpris_Service,
                                Desktop_Names::Mpris_Service + QStringLiteral(".instance")
                                    + QString::number(QCoreApplication::applicationPid())}) {
        if (bus_.registerService(name)) {
            mpris_service_ = name;
            break;
        }
    }
    announced_ = player_.Player_Properties();
}

void Desktop_Bus::Look_At_Player()
{
    inhibitor_.Set_Wanted(Video_Playing());
    if (mpris_service_.isEmpty())
        return;
    const QVariantMap now = player_.Player_Properties();
    QVariantMap changed;
    for (auto it = now.cbegin(); it != now.cend(); ++it) {
        if (announced_.value(it.key()) != it.value())
            changed.insert(it.key(), it.value());
    }
    announced_ = now;
    if (!changed.isEmpty())
        Announce(changed);
    Watch_For_Seeks();
}

void Desktop_Bus::After_Call(bool seeked)
{
    if (seeked) {
        emit player_adaptor_->Seeked(player_.Position_Us());
        // The seek is announced; the watch starts again from there.
        Restart_Seek_Watch();
    }
    Look_At_Player();
}

void Desktop_Bus::Announce(const QVariantMap& changed)
{
    QDBusMessage signal = QDBusMessage::createSignal(Desktop_Names::Mpris_Path,
                                                     QStringLiteral("org.freedesktop.DBus.Properties"),
                                                     QStringLiteral("PropertiesChanged"));
    signal << QStringLiteral("org.mpris.MediaPlayer2.Player") << changed << QStringList();
    bus_.send(signal);
}

void Desktop_Bus::Watch_For_Seeks()
{
    if (player_.Track_Id() == watched_track_ && since_watched_.isValid() && program_.Graph().Is_Open()) {
        const double position = double(player_.Position_Us()) / 1e6;
        const double played = program_.State().Is_Playing ? since_watched_.elapsed() / 1000.0 : 0.0;
        if (std::abs(position - (watched_position_ + played)) > Seek_Tolerance_Seconds)
            emit player_adaptor_->Seeked(player_.Position_Us());
    }
    Restart_Seek_Watch();
}

void Desktop_Bus::Restart_Seek_Watch()
{
    watched_track_ = player_.Track_Id();
    watched_position_ = double(player_.Position_Us()) / 1e6;
    since_watched_.start();
}

bool Desktop_Bus::Video_Playing() const
{
    const Track_Record* track = Current_Track_Record(program_.Session().Context());
    return program_.Graph().Is_Open() && program_.State().Is_Playing && track && track->Has_Video;
}

} // namespace Orvane

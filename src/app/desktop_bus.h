#pragma once

#include "app/mpris_player.h"
#include "app/screensaver_inhibitor.h"

#include <QDBusConnection>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <QVariantMap>
#include <memory>

namespace Orvane {

class Mpris_Player_Adaptor;
class Program;

// The bus names and objects of the running player.
namespace Desktop_Names {
inline const QString Instance_Service = QStringLiteral("org.orvane.Orvane");
inline const QString Instance_Path = QStringLiteral("/org/orvane/Orvane");
inline const QString Mpris_Service = QStringLiteral("org.mpris.MediaPlayer2.orvane");
inline const QString Mpris_Path = QStringLiteral("/org/mpris/MediaPlayer2");
} // namespace Desktop_Names

// One running player per user session: true when this process holds the
// player's name now (or there is no bus to ask), false when another player
// holds it.
bool Claim_Player_Name(const QDBusConnection& bus);
// Hands a command line over to the player holding the name; true when it
// took it. file is absolute, empty when none was named.
bool Hand_Over(const QDBusConnection& bus, const QString& file, bool play);

// The player on the session bus: MPRIS2 for the desktop's media controls,
// the hand-over object for a second launch, and the screensaver kept away
// while a video plays. The player itself knows nothing of it: its state is
// looked at a few times a second and after every call, and what changed is
// announced. Without a bus nothing is published and nothing is reported.
class Desktop_Bus : public QObject {
    Q_OBJECT
public:
    static constexpr int Watch_Interval_Ms = 250;

    explicit Desktop_Bus(Program& program, const QDBusConnection& bus = QDBusConnection::sessionBus());
    ~Desktop_Bus() override;

    // The MPRIS name held, empty when nothing was published.
    QString Mpris_Service_Name() const { return mpris_service_; }
    // Compares the player's state with the last announced, and announces
    // what changed; also keeps or releases the screensaver inhibition.
    void Look_At_Player();

private:
    void Publish();
    void Announce(const QVariantMap& changed);
    void After_Call(bool seeked);
    void Watch_For_Seeks();
    void Restart_Seek_Watch();
    bool Video_Playing() const;

    Program& program_;
    QDBusConnection bus_;
    Mpris_Player player_;
    QObject mpris_object_;
    QObject instance_object_;
    Mpris_Player_Adaptor* player_adaptor_ = nullptr;
    Screensaver_Inhibitor inhibitor_;
    QString mpris_service_;
    QTimer watch_;
    QVariantMap announced_;
    // Where the position should stand by now, to tell a seek made on the
    // player's own progress track from playing.
    QString watched_track_;
    double watched_position_ = 0.0;
    QElapsedTimer since_watched_;
};

} // namespace Orvane

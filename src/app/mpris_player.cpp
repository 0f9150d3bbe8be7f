#include "app/mpris_player.h"

#include "config/settings.h"
#include "media/media_graph.h"
#include "player/playback_session.h"
#include "player/player_controls.h"
#include "player/track_source.h"
#include "playlist/playback_state.h"
#include "playlist/track.h"

#include <QDBusObjectPath>
#include <QUrl>
#include <algorithm>
#include <cmath>

namespace Orvane {

namespace {
constexpr double Microseconds = 1e6;
const QString No_Track = QStringLiteral("/org/mpris/MediaPlayer2/TrackList/NoTrack");
const QString Track_Path_Prefix = QStringLiteral("/org/orvane/Orvane/Track/");

void Call(const std::function<void()>& action)
{
    if (action)
        action();
}
} // namespace

Mpris_Player::Mpris_Player(Player_Context& context, Playback_Session& session, Player_Controls& controls,
                           Settings& settings, Mpris_Actions actions)
    : context_(context), session_(session), controls_(controls), settings_(settings),
      actions_(std::move(actions))
{
}

bool Mpris_Player::Has_Media() const { return context_.graph.Is_Open(); }

void Mpris_Player::Raise() { Call(actions_.Raise); }
void Mpris_Player::Quit() { Call(actions_.Quit); }

void Mpris_Player::Play() { controls_.Button_Click(Button_Play); }
void Mpris_Player::Pause() { controls_.Button_Click(Button_Pause); }
// The space bar's toggle.
void Mpris_Player::Play_Pause() { controls_.Gestion_KeyPress(' '); }
void Mpris_Player::Stop() { controls_.Button_Click(Button_Stop); }
void Mpris_Player::Next() { controls_.Button_Click(Button_Next); }
void Mpris_Player::Previous() { controls_.Button_Click(Button_Previous); }

bool Mpris_Player::Seek(qint64 offset_us)
{
    if (!Has_Media())
        return false;
    const double target = context_.graph.Current_Position() + double(offset_us) / Microseconds;
    return session_.Display().Seek_To_Seconds(target);
}

bool Mpris_Player::Set_Position(const QString& track_id, qint64 position_us)
{
    // A request for a track that is no longer current, or outside it, is
    // ignored, as MPRIS asks.
    if (!Has_Media() || track_id != Track_Id() || position_us < 0)
        return false;
    const double seconds = double(position_us) / Microseconds;
    if (seconds > context_.graph.Duration())
        return false;
    return session_.Display().Seek_To_Seconds(seconds);
}

void Mpris_Player::Open_Uri(const QString& uri)
{
    const QUrl url(uri);
    QString path;
    if (url.isLocalFile())
        path = url.toLocalFile();
    else if (url.scheme().isEmpty() && uri.startsWith(u'/'))
        path = uri;
    if (!path.isEmpty() && actions_.Open_File)
        actions_.Open_File(path, true);
}

QString Mpris_Player::Playback_Status() const
{
    if (!Has_Media())
        return QStringLiteral("Stopped");
    if (context_.state.Is_Playing)
        return QStringLiteral("Playing");
    // Pause leaves the tick running on the frozen position; Stop ends it.
    return session_.Timer().isActive() ? QStringLiteral("Paused") : QStringLiteral("Stopped");
}

QString Mpris_Player::Track_Id() const
{
    const int track = context_.state.Current_Track;
    if (!Current_Track_Record(context_))
        return No_Track;
    return Track_Path_Prefix + QString::number(track);
}

QVariantMap Mpris_Player::Metadata() const
{
    QVariantMap metadata;
    metadata.insert(QStringLiteral("mpris:trackid"), QVariant::fromValue(QDBusObjectPath(Track_Id())));
    const Track_Record* track = Current_Track_Record(context_);
    if (!track)
        return metadata;
    metadata.insert(QStringLiteral("mpris:length"), qint64(std::llround(track->Duration * Microseconds)));
    metadata.insert(QStringLiteral("xesam:title"), track->Title);
    metadata.insert(QStringLiteral("xesam:url"), QUrl::fromLocalFile(track->Path).toString());
    return metadata;
}

qint64 Mpris_Player::Position_Us() const
{
    if (!Has_Media())
        return 0;
    return qint64(std::llround(context_.graph.Current_Position() * Microseconds));
}

double Mpris_Player::Volume() const
{
    return double(context_.state.Volume_Level) / (Volume_Levels - 1);
}

void Mpris_Player::Set_Volume(double volume)
{
    if (!std::isfinite(volume))
        return;
    const int wanted = int(std::lround(std::clamp(volume, 0.0, 1.0) * (Volume_Levels - 1)));
    // One button click per step; a click the button's rules refuse ends it.
    while (context_.state.Volume_Level != wanted) {
        const int before = context_.state.Volume_Level;
        controls_.Button_Click(wanted > before ? Button_Volume_Up : Button_Volume_Down);
        if (context_.state.Volume_Level == before)
            return;
    }
}

QString Mpris_Player::Loop_Status() const
{
    return settings_.Playlist_Repeat ? QStringLiteral("Playlist") : QStringLiteral("None");
}

void Mpris_Player::Set_Loop_Status(const QString& status)
{
    // The player repeats the whole playlist or nothing; "Track" has no
    // equivalent and changes nothing.
    if (status == QLatin1String("Playlist"))
        settings_.Playlist_Repeat = true;
    else if (status == QLatin1String("None"))
        settings_.Playlist_Repeat = false;
}

QVariantMap Mpris_Player::Player_Properties() const
{
    const bool media = Has_Media();
    const int current = context_.state.Current_Track;
    return {
        {QStringLiteral("PlaybackStatus"), Playback_Status()},
        {QStringLiteral("LoopStatus"), Loop_Status()},
        {QStringLiteral("Volume"), Volume()},
        {QStringLiteral("Metadata"), Metadata()},
        {QStringLiteral("CanPlay"), media},
        {QStringLiteral("CanPause"), media},
        {QStringLiteral("CanSeek"), media},
        {QStringLiteral("CanGoNext"), media && current < context_.tracks.Track_Count()},
        {QStringLiteral("CanGoPrevious"), media && current >= 2},
    };
}

} // namespace Orvane

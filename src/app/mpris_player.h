#pragma once

#include "player/player_context.h"

#include <QString>
#include <QVariantMap>
#include <functional>

namespace Orvane {

class Playback_Session;
class Player_Controls;
struct Settings;

// What the desktop's media controls ask of the program beyond the player.
struct Mpris_Actions {
    std::function<void()> Raise;                                  // the player bar comes forward
    std::function<void(const QString& path, bool play)> Open_File;  // as the command line opens it
    std::function<void()> Quit;                                   // as "Fermer" quits
};

// The MPRIS2 media player, root and player, in the player's own terms: each
// method is the operation of a button, key or the progress track with its
// rules, and each property is read from the player's state. It knows
// nothing of the bus; the adaptors publish it.
class Mpris_Player {
public:
    static constexpr int Volume_Levels = 7;

    Mpris_Player(Player_Context& context, Playback_Session& session, Player_Controls& controls,
                 Settings& settings, Mpris_Actions actions);

    // org.mpris.MediaPlayer2
    void Raise();
    void Quit();
    // org.mpris.MediaPlayer2.Player methods; times in microseconds.
    void Play();
    void Pause();
    void Play_Pause();
    void Stop();
    void Next();
    void Previous();
    // True when the position moved (a Seeked signal is due).
    bool Seek(qint64 offset_us);
    bool Set_Position(const QString& track_id, qint64 position_us);
    void Open_Uri(const QString& uri);

    // Properties that change while the player runs, by their MPRIS names:
    // PlaybackStatus, LoopStatus, Volume, Metadata and the Can* flags.
    QVariantMap Player_Properties() const;
    QString Playback_Status() const;
    QVariantMap Metadata() const;
    qint64 Position_Us() const;
    double Volume() const;
    // The nearest of the seven levels, reached by stepping as the volume
    // buttons do (so with their rules: nothing without media or audio).
    void Set_Volume(double volume);
    QString Loop_Status() const;
    void Set_Loop_Status(const QString& status);
    // The object path naming the current track, or MPRIS's NoTrack.
    QString Track_Id() const;

private:
    bool Has_Media() const;

    Player_Context& context_;
    Playback_Session& session_;
    Player_Controls& controls_;
    Settings& settings_;
    Mpris_Actions actions_;
};

} // namespace Orvane

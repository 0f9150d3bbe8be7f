#pragma once

#include "playlist/player_hooks.h"

namespace Orvane {

class Playback_Session;

// What the playlist operations ask of the player, done by the session.
class Session_Player_Hooks : public Player_Hooks {
public:
    explicit Session_Player_Hooks(Playback_Session& session) : session_(session) {}

    void Reset_Player() override;
    void Open_First_Track(const QString& path) override;
    void Associated_Audio_Added(int track, int count) override;
    void Clear_Audio_Menus(int track) override;
    void Refresh_Display() override;
    void Associated_Audio_Removed(int track, bool was_heard) override;

private:
    Playback_Session& session_;
};

} // namespace Orvane

#pragma once

#include "playlist/player_hooks.h"

namespace Orvane {

// The playlist model is built before the session it calls; this relay is
// handed to it and pointed at the session's hooks once they exist.
class Player_Hooks_Relay : public Player_Hooks {
public:
    void Attach(Player_Hooks* target) { target_ = target ? target : &none_; }

    void Reset_Player() override { target_->Reset_Player(); }
    void Open_First_Track(const QString& path) override { target_->Open_First_Track(path); }
    void Associated_Audio_Added(int track, int count) override { target_->Associated_Audio_Added(track, count); }
    void Clear_Audio_Menus(int track) override { target_->Clear_Audio_Menus(track); }
    void Refresh_Display() override { target_->Refresh_Display(); }
    void Associated_Audio_Removed(int track, bool was_heard) override
    {
        target_->Associated_Audio_Removed(track, was_heard);
    }

private:
    No_Player_Hooks none_;
    Player_Hooks* target_ = &none_;
};

} // namespace Orvane

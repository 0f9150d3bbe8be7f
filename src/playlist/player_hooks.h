#pragma once

#include <QString>

namespace Orvane {

// What the playlist operations ask of the player. The playback session
// implements it; until one is attached, the playlist uses No_Player_Hooks.
class Player_Hooks {
public:
    virtual ~Player_Hooks() = default;
    // Loading a playlist replaces the old one: stop the timer, close the
    // graph, take the audio layout, refresh the labels, unload the subtitle window.
    virtual void Reset_Player() = 0;
    // The first track of an empty playlist: open it at position 0, not played.
    virtual void Open_First_Track(const QString& path) = 0;
    // The current track got associated audio file number count.
    virtual void Associated_Audio_Added(int track, int count) = 0;
    virtual void Clear_Audio_Menus(int track) = 0;
    virtual void Refresh_Display() = 0;
    // The current track lost an associated audio file (its menus were cleared
    // before, Audio_Choice is already adjusted): rebuild the menus; when the
    // file was the one heard it is still rendered, so reopen the track.
    virtual void Associated_Audio_Removed(int /*track*/, bool /*was_heard*/) {}
};

class No_Player_Hooks : public Player_Hooks {
public:
    void Reset_Player() override {}
    void Open_First_Track(const QString&) override {}
    void Associated_Audio_Added(int, int) override {}
    void Clear_Audio_Menus(int) override {}
    void Refresh_Display() override {}
};

} // namespace Orvane

#pragma once

#include <QString>

namespace Orvane {

// What the playlist operations ask of the player. The playback session
// implements it. A playlist with no player attached (before the session
// exists, in tests and benchmarks) asks nothing: every request does nothing
// unless overridden.
class Player_Link {
public:
    virtual ~Player_Link() = default;
    // Loading a playlist replaces the old one: stop the timer, close the
    // graph, take the audio layout, refresh the labels, unload the subtitle window.
    virtual void Reset_Player() {}
    // The first track of an empty playlist: open it at position 0, not played.
    virtual void Open_First_Track(const QString& /*path*/) {}
    // The current track got associated audio file number count.
    virtual void Associated_Audio_Added(int /*track*/, int /*count*/) {}
    virtual void Clear_Audio_Menus(int /*track*/) {}
    virtual void Refresh_Display() {}
    // The current track lost an associated audio file (its menus were cleared
    // before, Audio_Choice is already adjusted): rebuild the menus; when the
    // file was the one heard it is still rendered, so reopen the track.
    virtual void Associated_Audio_Removed(int /*track*/, bool /*was_heard*/) {}
};

} // namespace Orvane

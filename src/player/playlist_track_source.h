#pragma once

#include "player/track_source.h"
#include "playlist/playlist_model.h"

namespace Orvane {

// The playlist model as the player reads its tracks.
class Playlist_Track_Source : public Track_Source {
public:
    explicit Playlist_Track_Source(const Playlist_Model& model) : model_(model) {}
    int Track_Count() const override { return model_.Track_Count(); }
    const Track_Record& Track(int number) const override { return model_.Track(number); }

private:
    const Playlist_Model& model_;
};

} // namespace Orvane

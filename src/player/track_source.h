#pragma once

#include "playlist/track.h"

namespace Orvane {

// The tracks of the playlist as the player reads them. The playlist model
// implements it. Tracks are numbered from 1; the count is the number of
// entries of the playlist window's list.
class Track_Source {
public:
    virtual ~Track_Source() = default;
    virtual int Track_Count() const = 0;
    // number is 1..Track_Count().
    virtual const Track_Record& Track(int number) const = 0;
};

} // namespace Orvane

#include "player/player_context.h"

#include "playlist/playback_state.h"
#include "player/track_source.h"

namespace Orvane {

const Track_Record* Current_Track_Record(const Player_Context& context)
{
    const int number = context.state.Current_Track;
    if (number < 1 || number > context.tracks.Track_Count())
        return nullptr;
    return &context.tracks.Track(number);
}

const Associated_Audio_Entry* Associated_Entry(const Track_Record& track, int j)
{
    if (j < 1 || j > track.Associated_Count || j > int(track.Associated_Audio.size()))
        return nullptr;
    return &track.Associated_Audio[size_t(j - 1)];
}

} // namespace Orvane

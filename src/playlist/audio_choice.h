#pragma once

#include <cstdint>

namespace Orvane {

// The audio heard, as the one number the player keeps from track to track:
// 1..n is stream k of the file, n+1..n+m associated audio file j = number - n,
// 0 is none yet. n is the stream count of the track the number is read
// against; a count the analysis could not tell (below 0) counts as no
// streams, so the first associated file is still 1.
class Audio_Choice {
public:
    constexpr Audio_Choice() = default;

    static constexpr Audio_Choice None() { return Audio_Choice(0); }
    static constexpr Audio_Choice Stream(int k) { return Audio_Choice(k); }
    static constexpr Audio_Choice Associated(int j, int streams) { return Audio_Choice(Streams(streams) + j); }
    // The first source of a track: stream 1, or its first associated file
    // when it has no streams.
    static constexpr Audio_Choice First() { return Audio_Choice(1); }
    static constexpr Audio_Choice From_Number(int number) { return Audio_Choice(number); }

    constexpr int16_t Number() const { return number_; }
    constexpr bool Is_None() const { return number_ == 0; }
    constexpr bool Is_Stream(int streams) const { return number_ >= 1 && number_ <= Streams(streams); }
    constexpr bool Is_Associated(int streams) const { return number_ > Streams(streams); }
    constexpr int Stream_Number() const { return number_; }
    constexpr int Associated_Number(int streams) const { return number_ - Streams(streams); }

    // The choice carried onto a track whose streams can be switched: none
    // becomes stream 1, and so does a number above twice the stream count.
    // The bound is twice the streams, not streams plus associated files, so a
    // number up to 2n is kept even where it names no file of the track.
    constexpr Audio_Choice Kept_For(int streams) const
    {
        return number_ == 0 || number_ > 2 * Streams(streams) ? First() : *this;
    }

    // The same sound once associated file j of the track is gone: later files
    // move down one place. The file itself leaves nothing chosen.
    constexpr Audio_Choice Without_Associated(int j, int streams) const
    {
        const Audio_Choice removed = Associated(j, streams);
        if (*this == removed)
            return None();
        return number_ > removed.number_ ? Audio_Choice(number_ - 1) : *this;
    }

    friend constexpr bool operator==(Audio_Choice, Audio_Choice) = default;

private:
    constexpr explicit Audio_Choice(int number) : number_(int16_t(number)) {}
    static constexpr int Streams(int streams) { return streams < 0 ? 0 : streams; }

    int16_t number_ = 0;
};

} // namespace Orvane

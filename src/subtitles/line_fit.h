#pragma once

#include <functional>

namespace Orvane {

// The size and width a subtitle line is drawn at.
struct Fitted_Line {
    int size;
    int width;
};

// The shrinking rule of a subtitle line: starting at start_size, while the
// line is wider than available_width and the size is not below 8, the size
// goes down one point (so 7 is the smallest reached). This finds the same
// size in a handful of measurements instead of one per point: an estimate
// from the width ratio, then steps that double until the answer is bracketed,
// then halving. It relies on a line never getting narrower as its font grows.
Fitted_Line Fit_Line(int start_size, int available_width, const std::function<int(int size)>& width_at);

} // namespace Orvane

#include "subtitles/line_fit.h"

#include <algorithm>
#include <map>

namespace Orvane {

namespace {

constexpr int Smallest_Size_Lowered = 8;  // a line may shrink below this once: to 7

// Each size is measured once, however often the search looks at it.
class Measured {
public:
    explicit Measured(const std::function<int(int)>& width_at) : width_at_(width_at) {}

    int Width(int size)
    {
        const auto known = widths_.find(size);
        if (known != widths_.end())
            return known->second;
        return widths_[size] = width_at_(size);
    }

private:
    const std::function<int(int)>& width_at_;
    std::map<int, int> widths_;
};

} // namespace

Fitted_Line Fit_Line(int start_size, int available_width, const std::function<int(int size)>& width_at)
{
    Measured measured(width_at);
    const int start_width = measured.Width(start_size);
    if (start_width <= available_width || start_size < Smallest_Size_Lowered)
        return {start_size, start_width};

    // The answer is the largest size in [8, start_size - 1] that fits, or 7
    // when none does.
    const int lowest = Smallest_Size_Lowered;
    const int highest = start_size - 1;
    const auto fits = [&](int size) { return measured.Width(size) <= available_width; };
    const auto at = [&](int size) { return Fitted_Line{size, measured.Width(size)}; };
    if (highest < lowest)
        return at(lowest - 1);

    // Width grows about in proportion to the size.
    const long long estimate = (long long)start_size * std::max(available_width, 0) / start_width;
    int guess = int(std::clamp<long long>(estimate, lowest, highest));

    int fitting;  // a size known to fit
    int too_wide; // a larger size known not to
    if (fits(guess)) {
        fitting = guess;
        too_wide = start_size;
        for (int step = 1; fitting < highest; step *= 2) {
            const int next = std::min(fitting + step, highest);
            if (!fits(next)) {
                too_wide = next;
                break;
            }
            fitting = next;
        }
        if (fitting == highest)
            return at(highest);
    } else {
        too_wide = guess;
        fitting = lowest - 1;
        for (int step = 1; too_wide > lowest; step *= 2) {
            const int next = std::max(too_wide - step, lowest);
            if (fits(next)) {
                fitting = next;
                break;
            }
            too_wide = next;
        }
        if (fitting < lowest)
            return at(lowest - 1);
    }
    while (too_wide - fitting > 1) {
        const int middle = fitting + (too_wide - fitting) / 2;
        if (fits(middle))
            fitting = middle;
        else
            too_wide = middle;
    }
    return at(fitting);
}

} // namespace Orvane

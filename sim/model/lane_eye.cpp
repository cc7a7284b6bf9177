#include "model/lane_eye.hpp"

#include <algorithm>

int lane_eye::steps_outside() const {
    if (!window) {
        return 0;
    }
    const int at = delay() - moved;
    return std::max({0, window->from + narrowed - at, at - (window->to - narrowed)});
}

bool lane_eye::is_in_hole() const {
    const int at = delay() - moved;
    return std::any_of(holes.begin(), holes.end(),
                       [at](delay_range hole) { return hole.from <= at && at <= hole.to; });
}

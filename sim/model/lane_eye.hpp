#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "model/register_table.hpp"

/** The largest delay of a lane, in steps, and with a minus the smallest one. */
constexpr int most_steps = 63;

/** The delay in a lane's word: bit 6 is its sign, set for plus, and bits 5..0 are its steps. */
constexpr int delay_of(std::uint32_t word) {
    const int steps = static_cast<int>(word & 0x3f);
    return (word & 0x40) != 0 ? steps : -steps;
}

/** The word with another delay, from -63 to 63; bits 31..7 stay. 0 is written as +0. */
constexpr std::uint32_t with_delay(std::uint32_t word, int delay) {
    const auto steps = static_cast<std::uint32_t>(delay < 0 ? -delay : delay);
    return (word & ~0x7fU) | (delay < 0 ? steps : 0x40 | steps);
}

/** A run of delays, in steps, both ends inclusive. */
struct delay_range {
    int from;
    int to;
};

/** A lane, and which of its delays pass. All of them do unless something here says otherwise. */
struct lane_eye {
    register_key place;         ///< of its word
    const register_entry* word; ///< its name and its word, owned by the table
    std::optional<delay_range> window = std::nullopt;
    std::vector<delay_range> holes = {};
    int narrowed = 0; ///< steps taken from the window at each end
    int moved = 0;    ///< steps that the window and the holes lie higher

    int delay() const { return delay_of(word->word); }

    /** How far the delay lies outside the window, in steps; 0 inside. A closed window has no
     * inside. */
    int steps_outside() const;

    bool is_in_hole() const;
};

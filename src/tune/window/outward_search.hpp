#pragma once

#include <cstddef>
#include <optional>

#include "tune/window/verdict.hpp"

/**
 * The order in which the points of a row are tried: first the start, where the board works so far,
 * then the two sides in turn, a step at a time.
 *
 * After the first pass a side ends when so many points in a row did not pass, and at any time at a
 * hang, since each costs a reset. Where nothing within ten steps passes, the row is given up. Where
 * every point is tried, neither holds.
 */
class outward_search {
public:
    /**
     * @param size  how many points the row has, at least one
     * @param start where it begins
     * @param stop  how many points that do not pass end a side; 0: every point is tried
     */
    outward_search(std::size_t size, std::size_t start, std::size_t stop);

    /** The point to be tried now; nothing at the end. */
    std::optional<std::size_t> next() const;

    /** What became of the point that `next` gives. */
    void note(verdict kind);

private:
    struct side {
        std::size_t room;       ///< how many points there are
        std::size_t steps = 1;  ///< from the start to the next one
        std::size_t misses = 0; ///< in a row, since the first pass
        bool ended = false;
    };

    bool is_open(const side& s) const;
    std::size_t turn() const { return is_open(m_sides[m_turn]) ? m_turn : 1 - m_turn; }

    const std::size_t m_start;
    const std::size_t m_stop;
    side m_sides[2]; ///< upwards, downwards
    std::size_t m_turn = 0;
    bool m_begun = false;
    bool m_passed = false;
};

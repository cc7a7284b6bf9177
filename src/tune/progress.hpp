#pragma once

#include <chrono>
#include <cstddef>

#include "tune/sweep_grid.hpp"

/**
 * How far a sweep is: on a terminal a line that is written over at each point, and for each
 * finished row a line that stays.
 */
class progress {
public:
    progress();

    /** A point was tried. */
    void point_done(const sweep_grid& grid, std::size_t row);

    /** A row is finished: says its window. */
    void row_done(const sweep_grid& grid, std::size_t row) const;

private:
    const std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now();
    const bool m_has_terminal;
    std::size_t m_done = 0;
};

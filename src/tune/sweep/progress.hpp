#pragma once

#include <chrono>
#include <cstddef>

#include "tune/window/sweep_grid.hpp"

/**
 * How far a sweep is, on standard error. On a terminal the row as a picture, with what is known of
 * it: a line that is written over before each point, and stays when the row is finished. Elsewhere,
 * and where no line can be written over, a line for each finished row.
 */
class progress {
public:
    progress();

    /** @param points how many will be tried at most */
    void begin(std::size_t points) { m_left = points; }

    /** A point will be tried: nothing is said while it is. */
    void point_begins(const sweep_grid& grid, std::size_t row, std::size_t column) const;

    void point_done();

    /** A row is finished: says its window. */
    void row_done(const sweep_grid& grid, std::size_t row);

private:
    const std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now();
    const bool m_redraws;
    std::size_t m_done = 0;
    std::size_t m_left = 0; ///< points that may still be tried, in all rows
};

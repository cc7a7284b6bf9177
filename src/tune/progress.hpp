#pragma once

#include <chrono>
#include <cstddef>

#include "tune/canvas.hpp"
#include "tune/sweep_grid.hpp"

/**
 * How far a sweep is, on standard error. On a terminal the row as a picture, with what is known of
 * it: a line that is written over at each point, and stays when the row is finished. Elsewhere, and
 * where no line can be written over, a line for each finished row.
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
    const bool m_redraws;
    const canvas m_canvas;
    std::size_t m_done = 0;
};

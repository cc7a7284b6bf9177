#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "tune/window/sweep_grid.hpp"

/** The point of a grid that is farthest from what does not pass. */
struct best_point {
    std::size_t row = 0;
    std::size_t column = 0;
    window around; ///< in its row
};

/**
 * Of several the one in the widest window, then the one farthest from that window's ends, then the
 * one nearest to the present values; nothing where no point passes.
 */
std::optional<best_point> best_in(const sweep_grid& grid);

/** A best point's window and margins for a reader: "window d-5 to d+5, 11 points, margins 5 and 5".
 * Of two axes the second one's, too. */
std::string window_text(const sweep_grid& grid, const best_point& best);

/** What is odd about a best point's windows, each behind a semicolon: others beside it, and an end
 * that may not be one. */
std::string oddities(const sweep_grid& grid, const best_point& best);

/** Why a grid has no best point: "nothing passes", "not tried". */
std::string nothing_text(const sweep_grid& grid);

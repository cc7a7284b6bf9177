#pragma once

#include <string>
#include <vector>

#include "tune/plot/canvas.hpp"

namespace text_plots {

inline constexpr canvas ascii{80, false, false};
inline constexpr canvas utf8{80, true, false};

/** Logs, and how they are drawn. */
struct plot_case {
    std::string name;
    std::vector<std::string> logs;
    canvas on;
    std::string picture;
};

extern const std::vector<plot_case> row_plot_cases;  ///< of one axis: a row for each property
extern const std::vector<plot_case> grid_plot_cases; ///< of two

/** The log of a slice, eight lanes from d-4 upwards. */
std::string slice_log();

} // namespace text_plots

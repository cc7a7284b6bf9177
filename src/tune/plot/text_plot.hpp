#pragma once

#include <string>

#include "tune/plot/canvas.hpp"
#include "tune/window/sweep_results.hpp"

/**
 * A sweep as a picture of lines: of one axis a row for each property, with its window, middle and
 * margins; of two a grid, whose rows are the values of the second axis, the last one on top.
 *
 * Where there is no room for all points, a sign stands for so many of them, and the picture says
 * so.
 */
std::string plot_text(const sweep_results& results, const canvas& on);

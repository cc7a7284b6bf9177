#pragma once

#include <string>

#include "tune/window/sweep_results.hpp"

/** A page by itself: the picture of `plot_svg`, and a table of the windows. */
std::string plot_html(const sweep_results& results);

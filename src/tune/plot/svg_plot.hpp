#pragma once

#include <string>

#include "tune/window/sweep_results.hpp"

/**
 * A sweep as a picture in SVG that needs nothing else: what `plot_text` shows, with the properties'
 * help texts, and each point's verdict to be seen under the pointer.
 *
 * It is light or dark as its reader's screen is, and light on paper. A pass is the strongest of all
 * colors, and the others have signs, so that it can be read without colors, too.
 */
std::string plot_svg(const sweep_results& results);

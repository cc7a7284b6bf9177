#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tune/window/sweep_grid.hpp"

/**
 * What stands for a verdict in a picture. Each has a sign of its own, so that nothing rests on a
 * color.
 */
struct sign {
    std::string_view ascii; ///< one character; of a part nothing: see `digit_of`
    std::string_view utf8;  ///< likewise
    std::string_view color; ///< the parameters of the terminal's sequence for it
    std::string_view style; ///< its class in a style sheet
    std::string_view word;  ///< "passed", "timed out"
};

/** The sign of a point. */
const sign& sign_of(const point_result& result);

/** How many passed of a point that passed in part, from 1 to 9: of more than ten runs or logs in
 * tenths, rounded down, but at least 1. */
char digit_of(const point_result& result);

/** A point in words: "passed", "2 of 5 passed"; of several logs "1 of 2 passed, else hung". */
std::string words_for(const point_result& result);

/** The one of two points that is shown where there is room for one: the worse of what was tried. */
const point_result& worse(const point_result& a, const point_result& b);

/** The signs of all points of grids, each once, in the order of the verdicts. */
std::vector<const sign*> signs_in(const std::vector<sweep_grid>& grids);

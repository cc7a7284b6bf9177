#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tune/window/best_point.hpp"
#include "tune/window/sweep_results.hpp"

/*
 * What a picture of a sweep says in words, on a terminal as in a browser. All of it is printable
 * ASCII.
 */

/** The properties and the test: "orlin-ddra-read0::dq: memtester 64M 1". */
std::string title_of(const sweep_results& results);

/** Of each log the machine and the date, of several its name, and whether the sweep is not at its
 * end. */
std::vector<std::string> origins_of(const sweep_results& results);

/** "dq3" of "orlin-ddra-read0::dq3". */
std::string short_name(const sweep_grid& grid);

/** Of each axis the property, its help text and its unit. */
std::vector<std::string> words_for_axes(const sweep_results& results);

/** The best points of all grids. */
std::vector<std::optional<best_point>> bests_in(const std::vector<sweep_grid>& grids);

/** The point that is the present value; nothing where the axis has none. */
std::optional<std::size_t> present_in(const axis& a);

/** What `facts_of` has. */
inline const std::vector<std::string> fact_headings = {"window", "middle", "margins"};

/** The window, the middle and the margins of a grid's best point; the first alone says why there is
 * none. */
std::vector<std::string> facts_of(const sweep_grid& grid, const std::optional<best_point>& best);

/** The same for all grids as lines of a table; first its headings. */
std::vector<std::string> fact_lines(const std::vector<sweep_grid>& grids,
                                    const std::vector<std::optional<best_point>>& bests);

/** A whole sentence about the best point, with what is odd about it. */
std::string words_for(const sweep_grid& grid, const std::optional<best_point>& best);

/** Which digits there may be, and what they stand for: "1-4", "of 5 runs passed". */
std::pair<std::string, std::string> digits_in(const sweep_results& results);

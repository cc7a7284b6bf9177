#pragma once

#include <string>
#include <vector>

#include "tune/knob/knobs.hpp"
#include "tune/knob/tuning.hpp"
#include "tune/text/command_line.hpp"
#include "tune/window/sweep_grid.hpp"
#include "tune/window/sweep_log.hpp"

/**
 * What logs say of the same points: those of one board, or of several.
 *
 * Of several, a cell is a pass where all of them passed, and otherwise the worst of the others;
 * `passed` of `runs` logs passed. What the properties held before is that of the first log.
 */
struct sweep_results {
    std::vector<sweep_log> logs; ///< without their points and texts
    command_line words;          ///< of the first one; the operands are the axes
    std::vector<sweep_grid> grids;
};

/**
 * Reads logs and puts them together.
 * @param files at least one; "-" is standard input
 * @throw mistake for what is no log, and where a log's properties or points are not the first one's
 */
sweep_results read_results(const knobs& all, const std::vector<std::string>& files);

/** The same for one log. @param where the file's name, for messages */
sweep_results results_in(const knobs& all, std::string text, const std::string& where);

/** Takes in the results of another log. @throw mistake as above */
void merge(sweep_results& results, sweep_results other);

/** What the properties of a sweep held before a session. @throw mistake as `parse_tuning` */
std::vector<tuning_line> values_before(const knobs& all, const sweep_log& log,
                                       const sweep_session& session);

/** The command line of a log, without "sweep". @throw mistake with the line */
command_line words_of(const sweep_log& log);

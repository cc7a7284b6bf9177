#pragma once

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "cli/board.hpp"

/** Stands, among the words and in the texts of a row, for the path of its tuning file. */
inline const std::string tuning_file = "TUNING";

/** Of rows about something else than which registers are touched: other rows say that. */
inline const std::vector<std::string> any_accesses = {"any"};

/**
 * One run of brisel-tune on a simulated board, and everything that must come of it.
 *
 * A row of a table: what is left out is as at power-on, empty, and 0.
 */
struct tune_case {
    /** A sentence about behaviour, in CamelCase. */
    std::string name;
    std::vector<std::string> args = {};
    std::string tuning = {}; ///< what the tuning file holds
    board_setup board = {};

    std::string out = {}; ///< of a log, what varies from run to run as letters: see `run_tune`
    std::string err = {}; ///< without "brisel-tune: " in front of each line
    int status = 0;

    /** Every register access, in order; or `any_accesses`. */
    std::vector<std::string> accesses = {};

    /** Files of the board and their contents afterwards. */
    std::vector<std::pair<std::string, std::string>> files = {};
};

inline void PrintTo(const tune_case& c, std::ostream* out) {
    *out << "brisel-tune";
    for (const std::string& arg : c.args) {
        *out << " '" << arg << "'";
    }
}

/**
 * The run of a row on its board. In the log of a sweep "M" stands for the machine, "V" for the
 * version and "S" for a session's time and boot, and verdicts are without the time that they took.
 */
run_result run_tune(const board& on_board, const std::vector<std::string>& args,
                    const std::string& tuning = "");

extern const std::vector<tune_case> read_cases;
extern const std::vector<tune_case> write_cases;
extern const std::vector<tune_case> mistake_cases;
extern const std::vector<tune_case> sweep_cases;
extern const std::vector<tune_case> sweep_mistake_cases;
extern const std::vector<tune_case> fault_cases_of_tune;

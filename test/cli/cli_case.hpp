#pragma once

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "cli/board.hpp"

/**
 * One run of the real program on a simulated board, and everything that must come of it.
 *
 * A row of a table: what is left out is as at power-on, empty, and 0.
 */
struct cli_case {
    /** A sentence about behaviour, in CamelCase. */
    std::string name;
    std::vector<std::string> args = {};
    board_setup board = {};

    std::string out = "";
    std::string err = "";
    int status = 0;

    /** Every register access, in order. */
    std::vector<std::string> accesses = {};

    /** Files of the board and their contents afterwards. */
    std::vector<std::pair<std::string, std::string>> files = {};
};

inline void PrintTo(const cli_case& c, std::ostream* out) {
    *out << "brisel";
    for (const std::string& arg : c.args) {
        *out << " '" << arg << "'";
    }
}

// The tables, one per topic.
extern const std::vector<cli_case> driver_cases;
extern const std::vector<cli_case> number_cases;
extern const std::vector<cli_case> field_cases;
extern const std::vector<cli_case> dq_cases;
extern const std::vector<cli_case> set_cases;
extern const std::vector<cli_case> rdqs_cases;
extern const std::vector<cli_case> regulator_cases;
extern const std::vector<cli_case> fault_cases;

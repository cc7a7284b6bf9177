#pragma once

#include <cstdint>
#include <optional>
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

    std::string out = {};
    std::string err = {};
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

/** Where a word lies: its address, and behind a select register the selector. */
struct word_place {
    word_place(std::uint32_t at) : address(at) {}
    word_place(std::uint32_t at, std::uint32_t selected) : address(at), selector(selected) {}

    std::uint32_t address;
    std::optional<std::uint32_t> selector;
};

/*
 * The rows that there are most of. The last of `args` is the property, or the value with the
 * property before it; `messages` is what standard error shows before the status line.
 */

/** The property is read out of this word. */
cli_case reads(const std::string& name, const std::vector<std::string>& args,
               const word_place& place, std::uint32_t word, const std::string& shown);

/** The property is read on a board that was set up so. */
cli_case shows(const std::string& name, const std::vector<std::string>& args,
               const board_setup& setup, const std::string& shown);

/** The property is written into this word, which is read before and after. */
cli_case writes(const std::string& name, const std::vector<std::string>& args,
                const word_place& place, std::uint32_t before, std::uint32_t after,
                const std::string& messages = "");

/** The value is refused without an access. */
cli_case refuses(const std::string& name, const std::vector<std::string>& args,
                 const std::string& messages = "");

/** The value is refused after this word was read. */
cli_case reads_and_refuses(const std::string& name, const std::vector<std::string>& args,
                           const word_place& place, std::uint32_t word,
                           const std::string& messages = "");

// The tables, one per topic.
extern const std::vector<cli_case> driver_cases;
extern const std::vector<cli_case> number_cases;
extern const std::vector<cli_case> field_cases;
extern const std::vector<cli_case> dq_cases;
extern const std::vector<cli_case> set_cases;
extern const std::vector<cli_case> rdqs_cases;
extern const std::vector<cli_case> regulator_cases;
extern const std::vector<cli_case> fault_cases;

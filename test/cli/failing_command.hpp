#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "cli/board.hpp"

/** One of the commands that are run with failing calls, on a board as at power-on. */
struct failing_command {
    std::string name;
    std::vector<std::string> args;

    /** The file of the property, for one that is kept in a file. */
    std::string file = {};
};

inline void PrintTo(const failing_command& command, std::ostream* out) {
    *out << command.name;
}

/** One of each kind: a property of each kind read and written, and the list. */
extern const std::vector<failing_command> failing_commands;

/** A run of a command and what it left behind. */
struct failing_run {
    /** Runs the command on a board of its own with this fault. */
    failing_run(const failing_command& command, const std::string& fault);

    run_result result;
    std::vector<std::string> trace;
    std::vector<std::string> accesses;
    std::string file_before; ///< what the file of the property held
    std::string file;        ///< and what it holds now
    bool lock_is_free;

    /** The line of the trace for the first call that failed, or empty when none did. */
    std::string failed_line;
};

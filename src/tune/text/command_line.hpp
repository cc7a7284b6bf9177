#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/** How a sweep is done. Durations are seconds. */
struct sweep_settings {
    bool together = false;         ///< --together: a set is one axis
    bool control = true;           ///< without --no-control
    bool continued = false;        ///< --continue: the operand is a log
    bool retry_hangs = false;      ///< --retry-hangs
    std::size_t stop = 3;          ///< --stop N
    std::size_t repeat = 1;        ///< --repeat N
    std::optional<double> timeout; ///< --timeout S
    double settle = 0;             ///< --settle S
    double lead = 1;               ///< --lead S
};

/** What the words behind a command say. */
struct command_line {
    std::vector<std::string> operands;
    std::vector<std::string> test; ///< the words behind "--"
    sweep_settings sweep;
    bool all = false;                   ///< --all
    bool json = false;                  ///< --json
    bool dry_run = false;               ///< -n
    bool force = false;                 ///< --force
    std::optional<std::string> output;  ///< -o FILE
    std::optional<double> wait_seconds; ///< --wait SECONDS
};

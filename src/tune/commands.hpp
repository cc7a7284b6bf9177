#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tune/knobs.hpp"

/** The exit status of the program. */
enum class tune_status : int {
    done = 0,      ///< done; what changed is shown
    differs = 1,   ///< a difference was found, a value cannot be read, or all was put back
    no_result = 2, ///< a mistake, no lock, no node, no room; or not everything could be put back
};

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

/*
 * The commands. Each reads its input to the end, does its work under the lock, and shows its result
 * when the lock is released.
 * @throw mistake, for status 2
 */

tune_status list_knobs(const knobs& all, const command_line& words);
tune_status get_values(const knobs& all, const command_line& words);
tune_status save_values(const knobs& all, const command_line& words);
tune_status show_differences(const knobs& all, const command_line& words);
tune_status set_values(const knobs& all, const command_line& words);
tune_status sweep_axes(const knobs& all, const command_line& words);
tune_status restore_values(const knobs& all, const command_line& words);
tune_status find_best(const knobs& all, const command_line& words);
tune_status plot_sweep(const knobs& all, const command_line& words);
tune_status apply_tuning(const knobs& all, const command_line& words);

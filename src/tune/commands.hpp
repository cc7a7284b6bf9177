#pragma once

#include "tune/knob/knobs.hpp"
#include "tune/text/command_line.hpp"
#include "tune/text/tune_status.hpp"

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

#include "tune/commands.hpp"
#include "tune/knob/value_text.hpp"
#include "tune/text/console.hpp"
#include "tune/window/best_point.hpp"
#include "tune/window/sweep_results.hpp"

namespace {

/** The lines of a tuning for a grid's best point. */
std::string lines_for(const sweep_grid& grid, const best_point& best) {
    std::string lines;
    if (grid.rows) {
        const knob& k = grid.rows->target();
        lines += k.name() + " = " + to_text(k, grid.rows->code(best.row)) + "\n";
    }
    const knob& k = grid.columns.target();
    std::vector<std::uint32_t> codes;
    for (const setting& each : grid.columns.settings_at(best.column)) {
        codes.push_back(each.code);
    }
    lines += k.name() + " = " + to_text(k, codes) + " # ";
    if (is_delay(k)) {
        lines += grid.columns.text(best.column) + ", ";
    }
    return lines + window_text(grid, best) + oddities(grid, best) + "\n";
}

} // namespace

tune_status find_best(const knobs& all, const command_line& words) {
    std::string lines;
    tune_status status = tune_status::done;
    for (const sweep_grid& grid : read_results(all, words.operands).grids) {
        if (const auto best = best_in(grid)) {
            lines += lines_for(grid, *best);
        } else {
            lines += "# " + grid.columns.target().name() + ": " + nothing_text(grid) + "\n";
            status = tune_status::differs;
        }
    }
    show(lines);
    return status;
}

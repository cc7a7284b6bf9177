#include "tune/commands.hpp"
#include "tune/knob/value_text.hpp"
#include "tune/text/console.hpp"
#include "tune/window/best_point.hpp"
#include "tune/window/sweep_results.hpp"

namespace {

/** The lines of a tuning for a grid's best point, but for the last one's end. */
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
    return lines + window_text(grid, best) + oddities(grid, best);
}

} // namespace

tune_status find_best(const knobs& all, const command_line& words) {
    std::string lines;
    tune_status status = tune_status::done;
    const sweep_results results = read_results(all, words.operands);
    for (const sweep_grid& grid : results.grids) {
        if (const auto best = best_in(grid)) {
            lines += lines_for(grid, *best);
            if (results.logs.size() > 1 && grid.columns.target().kind == knob_kind::set) {
                // The offset is for all boards; the delays to which it is added are one board's.
                lines += "; for the delays in " + results.logs.front().name;
            }
            lines += "\n";
        } else {
            lines += "# " + grid.columns.target().name() + ": " + nothing_text(grid) + "\n";
            status = tune_status::differs;
        }
    }
    show(lines);
    return status;
}

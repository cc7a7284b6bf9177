#include <algorithm>
#include <tuple>

#include "tune/commands.hpp"
#include "tune/console.hpp"
#include "tune/mistake.hpp"
#include "tune/options.hpp"
#include "tune/read_text.hpp"
#include "tune/sweep_grid.hpp"
#include "tune/sweep_log.hpp"
#include "tune/text.hpp"
#include "tune/tuning.hpp"
#include "tune/value_text.hpp"

namespace {

/** The grids of a log, with all that it says in them. */
std::vector<sweep_grid> grids_of(const knobs& all, const std::string& file) {
    const sweep_log log = parse_log(read_text(file), file);
    const command_line words = parse_words(log.run).words;
    const std::vector<std::string> axes(words.operands.begin() + 1, words.operands.end());
    const std::vector<setting> before =
        settings_of(parse_tuning(all, log.sessions.front().before, file));
    std::vector<sweep_grid> grids = make_grids(all, axes, words.sweep.together, before);
    fill(grids, log.points);
    return grids;
}

/** Whether two axes have the same points. */
bool are_alike(const axis& a, const axis& b) {
    if (&a.target() != &b.target() || a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a.text(i) != b.text(i)) {
            return false;
        }
    }
    return true;
}

/** Of each point the worse of its results. */
void merge(std::vector<sweep_grid>& grids, const std::vector<sweep_grid>& others,
           const std::string& file) {
    bool alike = grids.size() == others.size();
    for (std::size_t i = 0; alike && i < grids.size(); ++i) {
        sweep_grid& grid = grids[i];
        alike = are_alike(grid.columns, others[i].columns) &&
                grid.rows.has_value() == others[i].rows.has_value() &&
                (!grid.rows || are_alike(*grid.rows, *others[i].rows));
        for (std::size_t cell = 0; alike && cell < grid.cells.size(); ++cell) {
            if (grid.cells[cell].kind == verdict::pass) {
                grid.cells[cell] = others[i].cells[cell];
            }
        }
    }
    if (!alike) {
        throw mistake(file + ": not the same properties and steps as in the first log");
    }
}

/** A point of a grid. */
struct grid_point {
    std::size_t row;
    std::size_t column;
};

/**
 * How many steps each point of a grid is away, in any direction, from the nearest one that does not
 * pass; beside the grid nothing does.
 */
std::vector<std::size_t> margins(const sweep_grid& grid) {
    const auto columns = static_cast<std::ptrdiff_t>(grid.columns.size());
    const auto rows = static_cast<std::ptrdiff_t>(grid.row_count());
    std::vector<std::size_t> found(grid.cells.size(), grid.cells.size());
    const auto at = [&](std::ptrdiff_t row, std::ptrdiff_t column) {
        const bool inside = row >= 0 && row < rows && column >= 0 && column < columns;
        return inside ? found[static_cast<std::size_t>(row * columns + column)] : 0;
    };
    // Once from the first point to the last one, looking back, and once the other way round.
    for (const std::ptrdiff_t way : {-1, 1}) {
        for (std::ptrdiff_t n = 0; n < rows * columns; ++n) {
            const std::ptrdiff_t i = way == -1 ? n : rows * columns - 1 - n;
            const std::ptrdiff_t row = i / columns;
            const std::ptrdiff_t column = i % columns;
            std::size_t& here = found[static_cast<std::size_t>(i)];
            std::size_t beside = at(row, column + way);
            if (grid.rows) {
                beside = std::min({beside, at(row + way, column - 1), at(row + way, column),
                                   at(row + way, column + 1)});
            }
            const bool passed = grid.cells[static_cast<std::size_t>(i)].kind == verdict::pass;
            here = passed ? std::min(here, beside + 1) : 0;
        }
    }
    return found;
}

/**
 * The point farthest from what does not pass. Of several the one in the widest window, then the one
 * farthest from that window's ends, then the one nearest to the present values.
 */
grid_point best_in(const sweep_grid& grid) {
    const std::vector<std::size_t> margin = margins(grid);
    grid_point best{0, 0};
    std::tuple<std::size_t, std::size_t, std::size_t, std::int64_t> most{0, 0, 0, 0};
    for (std::size_t row = 0; row < grid.row_count(); ++row) {
        for (const window& w : windows_in(grid, row)) {
            for (std::size_t column = w.first; column <= w.last(); ++column) {
                const std::size_t inside = std::min(column - w.first, w.last() - column);
                const std::int64_t away =
                    grid.columns.steps_away(column) + (grid.rows ? grid.rows->steps_away(row) : 0);
                const std::tuple score{margin[row * grid.columns.size() + column], w.size, inside,
                                       -away};
                if (score > most) {
                    most = score;
                    best = {row, column};
                }
            }
        }
    }
    return best;
}

/** What is odd about a window: others beside it, and an end that may not be one. */
std::string oddities(const sweep_grid& grid, std::size_t row, const window& w) {
    std::string text;
    for (const window& other : windows_in(grid, row)) {
        if (other.first != w.first) {
            text += "; also " + text_of(grid, other);
        }
    }
    const bool first = w.first == 0;
    const bool last = w.last() + 1 == grid.columns.size();
    if (first) {
        text += "; its first point is the range's";
    }
    if (last) {
        text += "; its last point is the range's";
    }
    for (const std::size_t beside : {w.first - 1, w.last() + 1}) {
        if (beside < grid.columns.size() && !is_settled(grid.cell(row, beside).kind)) {
            text += "; " + grid.columns.text(beside) + " was not tried";
        }
    }
    return text;
}

/** The lines of a tuning for a grid's best point. */
std::string lines_for(const sweep_grid& grid) {
    const grid_point best = best_in(grid);
    const std::string& name = grid.columns.target().name();
    if (std::all_of(grid.cells.begin(), grid.cells.end(),
                    [](const point_result& cell) { return cell.kind == verdict::untried; })) {
        return "# " + name + ": not tried\n";
    }
    if (grid.cell(best.row, best.column).kind != verdict::pass) {
        return "# " + name + ": nothing passes\n";
    }
    const auto windows = windows_in(grid, best.row);
    const window w = *std::find_if(windows.begin(), windows.end(),
                                   [&](const window& each) { return best.column <= each.last(); });
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
    return lines + "window " + text_of(grid, w) + ", " + counted(w.size, "point") + ", margins " +
           std::to_string(best.column - w.first) + " and " +
           std::to_string(w.last() - best.column) + oddities(grid, best.row, w) + "\n";
}

} // namespace

tune_status find_best(const knobs& all, const command_line& words) {
    std::vector<sweep_grid> grids = grids_of(all, words.operands.front());
    for (std::size_t i = 1; i < words.operands.size(); ++i) {
        merge(grids, grids_of(all, words.operands[i]), words.operands[i]);
    }
    std::string lines;
    tune_status status = tune_status::done;
    for (const sweep_grid& grid : grids) {
        const std::string its_lines = lines_for(grid);
        if (its_lines.starts_with('#')) {
            status = tune_status::differs;
        }
        lines += its_lines;
    }
    show(lines);
    return status;
}

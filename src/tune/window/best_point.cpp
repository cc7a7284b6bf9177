#include "tune/window/best_point.hpp"

#include <algorithm>
#include <tuple>

#include "tune/text/text.hpp"

namespace {

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

/** The points above and below one that pass as well. */
window rows_around(const sweep_grid& grid, const best_point& best) {
    const auto passes = [&](std::size_t row) {
        return grid.cell(row, best.column).kind == verdict::pass;
    };
    std::size_t first = best.row;
    while (first > 0 && passes(first - 1)) {
        --first;
    }
    std::size_t end = best.row + 1;
    while (end < grid.row_count() && passes(end)) {
        ++end;
    }
    return {first, end - first};
}

std::string extent(const axis& a, const window& w, std::size_t best, const char* noun) {
    return text_of(a, w) + ", " + counted(w.size, noun) + ", margins " +
           std::to_string(best - w.first) + " and " + std::to_string(w.last() - best);
}

/** What the point beside a window says of it. */
std::string oddity(verdict beside, const std::string& name) {
    if (beside == verdict::hang) {
        return "; " + name + " hung";
    }
    if (beside == verdict::unsound) {
        return "; " + name + " was unsound";
    }
    if (!is_settled(beside)) {
        return "; " + name + " was not tried";
    }
    return "";
}

/** What is odd about the two ends of a window. @param verdict_at of a point of the axis */
template <class Verdicts>
std::string ends(const axis& a, const window& w, const std::string& name, const char* begin,
                 const char* end, const Verdicts& verdict_at) {
    std::string text;
    if (w.first == 0) {
        text.append("; ").append(begin).append(" with the range");
    } else {
        text += oddity(verdict_at(w.first - 1), name + a.text(w.first - 1));
    }
    if (w.last() + 1 == a.size()) {
        text.append("; ").append(end).append(" with the range");
    } else {
        text += oddity(verdict_at(w.last() + 1), name + a.text(w.last() + 1));
    }
    return text;
}

} // namespace

std::optional<best_point> best_in(const sweep_grid& grid) {
    const std::vector<std::size_t> margin = margins(grid);
    std::optional<best_point> best;
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
                    best = {row, column, w};
                }
            }
        }
    }
    return best;
}

std::string window_text(const sweep_grid& grid, const best_point& best) {
    std::string text = "window " + extent(grid.columns, best.around, best.column, "point");
    if (grid.rows) {
        const window rows = rows_around(grid, best);
        text +=
            "; of " + grid.rows->target().name() + " " + extent(*grid.rows, rows, best.row, "row");
    }
    return text;
}

std::string oddities(const sweep_grid& grid, const best_point& best) {
    const window& w = best.around;
    std::string text;
    for (const window& other : windows_in(grid, best.row)) {
        if (other.first != w.first) {
            text += "; also " + text_of(grid.columns, other);
        }
    }
    text += ends(grid.columns, w, "", "begins", "ends",
                 [&](std::size_t column) { return grid.cell(best.row, column).kind; });
    if (grid.rows) {
        text += ends(*grid.rows, rows_around(grid, best), grid.rows->target().name() + "=",
                     "its rows begin", "its rows end",
                     [&](std::size_t row) { return grid.cell(row, best.column).kind; });
    }
    return text;
}

std::string nothing_text(const sweep_grid& grid) {
    const bool tried = std::any_of(grid.cells.begin(), grid.cells.end(),
                                   [](const auto& cell) { return cell.kind != verdict::untried; });
    return tried ? "nothing passes" : "not tried";
}

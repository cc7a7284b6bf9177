#include "tune/plot/plot_words.hpp"

#include <algorithm>

#include "tune/knob/facts.hpp"
#include "tune/text/shell_words.hpp"
#include "tune/text/table.hpp"
#include "tune/text/text.hpp"

namespace {

/** The names of the axes, as they were given. */
std::vector<std::string> axis_names(const sweep_results& results) {
    std::vector<std::string> names;
    for (const std::string& text : results.words.operands) {
        names.push_back(name_of_axis(text));
    }
    return names;
}

/** A property's help text and its unit. */
std::string help_for(const axis& a) {
    if (a.target().kind == knob_kind::set) {
        return "offset to the delay of each lane, in steps";
    }
    const knob_facts facts = facts_of(a.target());
    std::string text = facts.help;
    if (is_delay(a.target())) {
        text += ", in steps";
    } else if (facts.unit != "-") {
        text += ", in " + facts.unit;
    }
    return text;
}

} // namespace

std::string title_of(const sweep_results& results) {
    return printable(joined(axis_names(results), " and ") + ": " + to_shell(results.words.test));
}

std::vector<std::string> origins_of(const sweep_results& results) {
    std::vector<std::string> origins;
    for (const sweep_log& log : results.logs) {
        std::string text = log.sessions.front().date;
        if (!log.machine.empty()) {
            text = log.machine + ", " + text;
        }
        if (results.logs.size() > 1) {
            text = log.name + ": " + text;
        }
        if (!log.complete) {
            text += ", not complete";
        }
        origins.push_back(printable(text));
    }
    return origins;
}

std::string short_name(const sweep_grid& grid) {
    const std::string& name = grid.columns.target().name();
    return name.substr(name.rfind(':') + 1);
}

std::vector<std::string> words_for_axes(const sweep_results& results) {
    const std::vector<std::string> names = axis_names(results);
    const sweep_grid& grid = results.grids.front();
    std::vector<std::string> lines;
    lines.push_back("columns: " + names.front() + ", " + help_for(grid.columns));
    if (grid.rows) {
        lines.push_back("rows: " + names.back() + ", " + help_for(*grid.rows));
    }
    return lines;
}

std::optional<std::size_t> present_in(const axis& a) {
    return a.has_present() ? std::optional(a.nearest()) : std::nullopt;
}

std::vector<std::string> facts_of(const sweep_grid& grid, const std::optional<best_point>& best) {
    std::vector<std::string> facts(3);
    if (best) {
        const window& w = best->around;
        facts[0] = text_of(grid.columns, w);
        facts[1] = grid.columns.text(best->column);
        facts[2] = std::to_string(best->column - w.first) + " and " +
                   std::to_string(w.last() - best->column);
    } else {
        facts[0] = nothing_text(grid);
    }
    return facts;
}

std::vector<std::optional<best_point>> bests_in(const std::vector<sweep_grid>& grids) {
    std::vector<std::optional<best_point>> bests;
    bests.reserve(grids.size());
    for (const sweep_grid& grid : grids) {
        bests.push_back(best_in(grid));
    }
    return bests;
}

std::vector<std::string> fact_lines(const std::vector<sweep_grid>& grids,
                                    const std::vector<std::optional<best_point>>& bests) {
    std::vector<std::vector<std::string>> rows(1, fact_headings);
    for (std::size_t i = 0; i < grids.size(); ++i) {
        rows.push_back(facts_of(grids[i], bests[i]));
    }
    const std::string table = as_table(rows);
    const std::vector<std::string_view> lines = lines_of(table);
    return {lines.begin(), lines.end()};
}

std::string words_for(const sweep_grid& grid, const std::optional<best_point>& best) {
    if (!best) {
        return grid.columns.target().name() + ": " + nothing_text(grid);
    }
    return "best: " + joined(grid.place(best->row, best->column), " ") + "; " +
           window_text(grid, *best) + oddities(grid, *best);
}

std::pair<std::string, std::string> digits_in(const sweep_results& results) {
    std::size_t count = 0;
    for (const sweep_grid& grid : results.grids) {
        for (const point_result& cell : grid.cells) {
            count = std::max<std::size_t>(count, cell.runs);
        }
    }
    const char* const noun = results.logs.size() == 1 ? " runs passed" : " logs passed";
    const std::string all = std::to_string(count) + noun;
    if (count > 10) {
        return {"1-9", "tenths of " + all};
    }
    std::string digits = "1";
    if (count > 2) {
        digits.append("-").append(std::to_string(count - 1));
    }
    return {digits, "of " + all};
}

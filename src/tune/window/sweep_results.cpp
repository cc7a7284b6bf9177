#include "tune/window/sweep_results.hpp"

#include <utility>

#include "tune/text/mistake.hpp"
#include "tune/text/options.hpp"
#include "tune/text/read_text.hpp"

namespace {

/** Whether two axes have the same points. */
bool are_alike(const axis& a, const axis& b) {
    if (&a.target() != &b.target() || a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (!a.has_same(i, b)) {
            return false;
        }
    }
    return true;
}

bool are_alike(const sweep_grid& a, const sweep_grid& b) {
    return are_alike(a.columns, b.columns) && a.rows.has_value() == b.rows.has_value() &&
           (!a.rows || are_alike(*a.rows, *b.rows));
}

/** Counts a pass among those of several logs. */
void take_in(point_result& sum, const point_result& other) {
    if (other.kind == verdict::pass) {
        ++sum.passed;
    } else if (sum.kind == verdict::pass || sum.kind < other.kind) {
        sum.kind = other.kind;
    }
    ++sum.runs;
}

} // namespace

std::vector<tuning_line> values_before(const knobs& all, const sweep_log& log,
                                       const sweep_session& session) {
    // The lines before them are left out as empty ones, so that a mistake is told with its line.
    return parse_tuning(all, std::string(session.line, '\n') + session.before, log.name);
}

command_line words_of(const sweep_log& log) {
    try {
        command_line words = parse_words(log.run).words;
        words.operands.erase(words.operands.begin());
        return words;
    } catch (const mistake& problem) {
        throw mistake(log.where_run + ": " + problem.what());
    }
}

sweep_results results_in(const knobs& all, std::string_view text, const std::string& where) {
    sweep_results results;
    sweep_log& log = results.logs.emplace_back(parse_log(text, where));
    results.words = words_of(log);
    const auto before = settings_of(values_before(all, log, last_begun(log)));
    try {
        results.grids =
            make_grids(all, results.words.operands, results.words.sweep.together, before);
    } catch (const mistake& problem) {
        throw mistake(log.where_run + ": " + problem.what());
    }
    fill(results.grids, log.points);
    log.points = {};
    return results;
}

void merge(sweep_results& results, sweep_results other) {
    const sweep_log& log = other.logs.front();
    bool alike = results.grids.size() == other.grids.size();
    for (std::size_t i = 0; alike && i < results.grids.size(); ++i) {
        alike = are_alike(results.grids[i], other.grids[i]);
    }
    if (!alike) {
        throw mistake(log.where_run + ": not the same properties and values as in " +
                      results.logs.front().name);
    }
    for (std::size_t i = 0; i < results.grids.size(); ++i) {
        std::vector<point_result>& cells = results.grids[i].cells;
        for (std::size_t cell = 0; cell < cells.size(); ++cell) {
            if (results.logs.size() == 1) {
                cells[cell] = {cells[cell].kind, cells[cell].kind == verdict::pass, 1};
            }
            take_in(cells[cell], other.grids[i].cells[cell]);
        }
    }
    results.logs.push_back(log);
}

sweep_results read_results(const knobs& all, const std::vector<std::string>& files) {
    sweep_results results = results_in(all, read_text(files.front()), files.front());
    for (std::size_t i = 1; i < files.size(); ++i) {
        merge(results, results_in(all, read_text(files[i]), files[i]));
    }
    return results;
}

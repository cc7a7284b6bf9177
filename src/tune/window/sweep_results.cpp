#include "tune/window/sweep_results.hpp"

#include <algorithm>
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

/** Whether results are of the same properties and values. */
bool are_alike(const sweep_results& a, const sweep_results& b) {
    // Offsets of a set end where one of its lanes passes 63, on one board earlier than on the next.
    if (a.words.sweep.together && b.words.sweep.together && a.words.operands == b.words.operands) {
        return true;
    }
    return std::equal(
        a.grids.begin(), a.grids.end(), b.grids.begin(), b.grids.end(),
        [](const sweep_grid& one, const sweep_grid& other) { return are_alike(one, other); });
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

sweep_results results_in(const knobs& all, std::string text, const std::string& where) {
    sweep_results results;
    sweep_log& log = results.logs.emplace_back(parse_log(std::move(text), where));
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
    log.text.reset();
    return results;
}

void merge(sweep_results& results, sweep_results other) {
    const sweep_log& log = other.logs.front();
    if (!are_alike(results, other)) {
        throw mistake(log.where_run + ": not the same properties and values as in " +
                      results.logs.front().name);
    }
    for (std::size_t i = 0; i < results.grids.size(); ++i) {
        sweep_grid& sum = results.grids[i];
        const sweep_grid& grid = other.grids[i];
        for (std::size_t place = 0; place < sum.cells.size(); ++place) {
            point_result& cell = sum.cells[place];
            if (results.logs.size() == 1) {
                cell = {cell.kind, cell.kind == verdict::pass, 1};
            }
            const std::size_t columns = sum.columns.size();
            const auto same = grid.find(sum.place(place / columns, place % columns));
            take_in(cell, same ? grid.cells[*same] : point_result());
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

#include "tune/sweep/sweep.hpp"

#include <algorithm>
#include <chrono>
#include <cstdio>

#include "tune/board/board_hold.hpp"
#include "tune/knob/lane_delay.hpp"
#include "tune/knob/value_text.hpp"
#include "tune/sweep/user_signals.hpp"
#include "tune/text/console.hpp"
#include "tune/text/mistake.hpp"
#include "tune/text/shell_words.hpp"
#include "tune/text/text.hpp"
#include "tune/window/outward_search.hpp"
#include "tune/window/sweep_log.hpp"

namespace {

std::uint32_t code_in(const std::vector<setting>& settings, const knob* k) {
    return std::find_if(settings.begin(), settings.end(),
                        [k](const setting& each) { return each.target == k; })
        ->code;
}

/** The codes of a property's parts, of settings for all of them. */
std::vector<std::uint32_t> codes_in(const std::vector<setting>& settings, const knob& k) {
    std::vector<std::uint32_t> codes;
    for (const knob* part : k.parts()) {
        codes.push_back(code_in(settings, part));
    }
    return codes;
}

using variables = std::vector<std::pair<std::string, std::string>>;

/** What a test is told of an axis. */
void add_variables(variables& result, const axis& a, const std::vector<setting>& tried,
                   const std::string& end) {
    const std::vector<std::uint32_t> codes = codes_in(tried, a.target());
    result.emplace_back("BRISEL_NAME" + end, a.target().name());
    result.emplace_back("BRISEL_VALUE" + end, to_text(a.target(), codes));
    if (is_delay(a.target())) {
        // Of a set the offset, which is the same for all of its lanes.
        const std::int32_t origin =
            a.target().kind == knob_kind::set ? to_signed_delay(a.present().front()) : 0;
        result.emplace_back("BRISEL_DELAY" + end,
                            std::to_string(to_signed_delay(codes.front()) - origin));
    }
}

/** What undoing changes left behind; empty for nothing. */
std::string what_is_not_back(const change_report& report) {
    if (report.is_back) {
        return "";
    }
    return "not everything could be put back:\n" + joined(report.holds, "\n");
}

using steady = std::chrono::steady_clock;

/** The line of the log for a verdict, with the time that it took. */
std::string verdict_line(const point_result& result, steady::time_point begin) {
    char text[32];
    const std::chrono::duration<double> took = steady::now() - begin;
    std::snprintf(text, sizeof text, " %.3f s\n", took.count());
    return to_word(result) + text;
}

} // namespace

sweep::sweep(const knobs& all, const std::vector<setting>& before, const command_line& words,
             log_writer& log)
    : m_before(before), m_targets(targets_of(before)), m_words(words), m_log(log),
      m_lanes(all, m_targets) {
    m_output.reserve(trial::most_output); // memory is not to end while a value is tried
    const board_hold hold(m_targets, words.wait_seconds);
    m_lanes.look();
}

bool sweep::is_to_be_tried(const point_result& cell) const {
    return !is_settled(cell.kind) || (cell.kind == verdict::hang && m_words.sweep.retry_hangs);
}

void sweep::go_through(std::vector<sweep_grid>& grids) {
    std::ptrdiff_t points = 0;
    for (const sweep_grid& grid : grids) {
        points += std::count_if(grid.cells.begin(), grid.cells.end(),
                                [this](const auto& cell) { return is_to_be_tried(cell); });
    }
    m_progress.begin(static_cast<std::size_t>(points));
    for (sweep_grid& grid : grids) {
        go_through(grid);
    }
}

void sweep::go_through(sweep_grid& grid) {
    std::size_t column = grid.columns.nearest();
    if (!grid.rows) {
        go_through_row(grid, 0, column);
        return;
    }
    const std::size_t middle = grid.rows->nearest();
    std::vector<std::size_t> begun(grid.row_count(), column);
    outward_search search(grid.row_count(), middle, m_words.all ? 0 : m_words.sweep.stop);
    while (const auto row = search.next()) {
        if (*row != middle) {
            const std::size_t neighbour = *row > middle ? *row - 1 : *row + 1;
            const window beside = widest_in(grid, neighbour);
            begun[*row] = beside.size == 0 ? begun[neighbour] : middle_of(grid, beside);
        }
        search.note(go_through_row(grid, *row, begun[*row]) ? verdict::pass : verdict::fail);
    }
}

bool sweep::go_through_row(sweep_grid& grid, std::size_t row, std::size_t column) {
    bool passed = false;
    bool tried = false;
    outward_search search(grid.columns.size(), column, m_words.all ? 0 : m_words.sweep.stop);
    while (const auto point = search.next()) {
        point_result& cell = grid.cell(row, *point);
        if (is_to_be_tried(cell)) {
            m_progress.point_begins(grid, row, *point);
            cell = try_point(grid, row, *point);
            m_progress.point_done();
            tried = true;
        }
        passed = passed || cell.kind == verdict::pass;
        search.note(cell.kind);
    }
    if (tried) {
        look_at_lanes();
    }
    m_progress.row_done(grid, row);
    return passed;
}

point_result sweep::try_point(const sweep_grid& grid, std::size_t row, std::size_t column) {
    user_signals::let_come();
    if (user_signals::noted() != 0) {
        throw sweep_end{"interrupted", tune_status::differs};
    }
    const std::vector<setting> tried = grid.settings_at(row, column);
    std::vector<change> changes;
    for (const auto& [k, code] : tried) {
        if (const std::uint32_t before = code_in(m_before, k); before != code) {
            changes.push_back({k, before, code});
        }
    }
    const auto trials = prepare(grid, tried);
    m_output.clear();
    const steady::time_point announced = steady::now();
    m_log.write_before_a_risk("try " + to_shell(grid.place(row, column)) + "\n");
    if (user_signals::noted() != 0) { // meanwhile, and the line may not have left the board yet
        throw sweep_end{"interrupted", tune_status::differs,
                        verdict_line({verdict::interrupted, 0, 0}, announced)};
    }
    const steady::time_point begin = steady::now();
    point_result result{verdict::no_stick, 0, 0};
    std::string problem = set(changes);
    if (problem.empty() && m_output.empty()) {
        result = run(trials);
        problem = put_back(tried, changes);
    }
    if (!problem.empty()) {
        result.kind = verdict::interrupted;
    }
    const std::string lines = verdict_line(result, begin) + log_lines_of(m_output);
    if (!problem.empty()) {
        throw sweep_end{problem, tune_status::no_result, lines};
    }
    m_log.write(lines);
    if (!m_trouble.empty()) {
        throw sweep_end{m_trouble, tune_status::no_result};
    }
    if (result.kind == verdict::interrupted) {
        throw sweep_end{"interrupted", tune_status::differs};
    }
    if (result.kind != verdict::pass && m_words.sweep.control) {
        check_memory(grid);
    }
    return result;
}

std::string sweep::set(const std::vector<change>& changes) {
    try {
        const board_hold hold(m_targets, m_words.wait_seconds);
        const change_report report = change_in_order(changes);
        m_output = report.failure;
        return what_is_not_back(report);
    } catch (const std::exception& problem) {
        return problem.what();
    }
}

std::vector<std::unique_ptr<trial>> sweep::prepare(const sweep_grid& grid,
                                                   const std::vector<setting>& tried) const {
    variables environment;
    add_variables(environment, grid.columns, tried, "");
    if (grid.rows) {
        add_variables(environment, *grid.rows, tried, "_2");
    }
    std::vector<std::unique_ptr<trial>> trials(m_words.sweep.repeat);
    for (std::unique_ptr<trial>& each : trials) {
        each = std::make_unique<trial>(m_words.test, environment);
    }
    return trials;
}

point_result sweep::run(const std::vector<std::unique_ptr<trial>>& trials) {
    point_result result{verdict::fail, 0, static_cast<std::uint8_t>(trials.size())};
    user_signals::wait_for(m_words.sweep.settle);
    for (const std::unique_ptr<trial>& each : trials) {
        const run_end end = each->run(m_words.sweep.timeout);
        if (end == run_end::passed) {
            ++result.passed;
            continue;
        }
        m_output = each->output();
        if (end == run_end::timed_out) {
            result.kind = verdict::timeout;
        } else if (end != run_end::failed) {
            result.kind = verdict::interrupted;
            if (end == run_end::not_executed) {
                m_trouble = m_output;
            }
            return result;
        }
    }
    if (result.passed == result.runs) {
        result.kind = verdict::pass;
    } else if (result.passed > 0) {
        result.kind = verdict::part;
    }
    return result;
}

std::string sweep::put_back(const std::vector<setting>& tried, std::vector<change> changes) {
    try {
        const board_hold hold = board_hold::quietly(m_targets);
        const std::vector<reading> now = read_all(targets_of(tried));
        std::vector<std::string> problems;
        for (std::size_t i = 0; i < now.size(); ++i) {
            if (now[i].code.value_or(tried[i].code) != tried[i].code) {
                const knob* const k = now[i].source;
                problems.push_back("somebody else has set " + k->name() + ": " +
                                   to_reading(*k, tried[i].code) + " was tried, and it holds " +
                                   to_reading(*k, *now[i].code) + ", which is left there");
                std::erase_if(changes, [k](const change& each) { return each.target == k; });
            }
        }
        const std::string left = what_is_not_back(undo(changes));
        if (!left.empty()) {
            problems.push_back(left);
        }
        return joined(problems, "\n");
    } catch (const std::exception& problem) {
        return std::string("nothing could be put back: ") + problem.what();
    }
}

void sweep::check_memory(const sweep_grid& grid) {
    const auto trials = prepare(grid, m_before);
    const steady::time_point begin = steady::now();
    const point_result result = run(trials);
    if (!m_trouble.empty()) {
        throw sweep_end{m_trouble, tune_status::no_result, verdict_line(result, begin)};
    }
    if (result.kind == verdict::interrupted) { // and so the point is tried again
        throw sweep_end{"interrupted", tune_status::differs, verdict_line(result, begin)};
    }
    if (result.kind != verdict::pass) {
        m_log.write(verdict_line({verdict::unsound, 0, 0}, begin) + log_lines_of(m_output));
        throw sweep_end{"unsound: the test does not pass with the values before, either; check the "
                        "test, or reset the board and go on with --continue",
                        tune_status::differs};
    }
}

void sweep::look_at_lanes() {
    std::vector<std::string> changed;
    {
        const board_hold hold(m_targets, m_words.wait_seconds);
        changed = m_lanes.changed({});
    }
    for (const std::string& line : changed) {
        m_log.write("note " + line + "\n");
        say(line);
    }
}

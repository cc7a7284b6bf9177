#include <algorithm>
#include <cstdio>

#include "tune/board/board_hold.hpp"
#include "tune/board/change.hpp"
#include "tune/commands.hpp"
#include "tune/knob/value_text.hpp"
#include "tune/sweep/announcement.hpp"
#include "tune/sweep/log_writer.hpp"
#include "tune/sweep/precautions.hpp"
#include "tune/sweep/sweep.hpp"
#include "tune/sweep/user_signals.hpp"
#include "tune/text/console.hpp"
#include "tune/text/machine.hpp"
#include "tune/text/mistake.hpp"
#include "tune/text/read_text.hpp"
#include "tune/text/shell_words.hpp"
#include "tune/text/text.hpp"
#include "tune/window/sweep_grid.hpp"
#include "tune/window/sweep_log.hpp"
#include "tune/window/sweep_results.hpp"

namespace {

/** What is done, from a command line or from the log that one goes on with. */
struct sweep_task {
    command_line words; ///< its operands are the axes
    std::optional<sweep_log> log;
};

/** A number of seconds as an option takes it. */
std::string option_text(double seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%.9g", seconds);
    return text;
}

/** The command line without what is for one run of the program alone. */
std::vector<std::string> run_words(const command_line& words) {
    const sweep_settings& s = words.sweep;
    std::vector<std::string> result(1, "sweep");
    const auto add = [&result](const std::string& option, bool given) {
        if (given) {
            result.push_back(option);
        }
    };
    add("--together", s.together);
    add("--all", words.all);
    add("--no-control", !s.control);
    add("--stop=" + std::to_string(s.stop), s.stop != sweep_settings().stop);
    add("--repeat=" + std::to_string(s.repeat), s.repeat != 1);
    add("--timeout=" + option_text(s.timeout.value_or(0)), s.timeout.has_value());
    add("--settle=" + option_text(s.settle), s.settle != 0);
    result.insert(result.end(), words.operands.begin(), words.operands.end());
    result.emplace_back("--");
    result.insert(result.end(), words.test.begin(), words.test.end());
    return result;
}

sweep_task task_of(const command_line& words) {
    sweep_task task{words, std::nullopt};
    if (words.sweep.continued) {
        const std::string& file = words.operands.front();
        command_line rest = words;
        rest.operands.erase(rest.operands.begin());
        const bool has_more = run_words(rest).size() > 2; // than "sweep" and "--"
        if (has_more || words.output) {
            throw mistake("--continue takes a log, and axes, COMMAND, -o and the other options "
                          "from it");
        }
        task.log = parse_log(read_text(file), file);
        task.words = words_of(*task.log);
        task.words.wait_seconds = words.wait_seconds;
        task.words.sweep.lead = words.sweep.lead;
        task.words.sweep.retry_hangs = words.sweep.retry_hangs;
        task.words.output = file;
    }
    if (task.words.test.empty()) {
        throw mistake("usage: brisel-tune sweep AXIS [AXIS] -- COMMAND...");
    }
    check_command(task.words.test.front());
    return task;
}

/**
 * What the parts of the axes hold, to be put back after each point. In the boot in which the log
 * was begun, what it says is put back first: a value that was tried may be there still.
 */
std::vector<setting> put_back_first(const knobs& all, const std::vector<const knob*>& targets,
                                    const sweep_task& task) {
    const std::vector<const knob*> parts = parts_of(targets);
    const board_hold hold(parts, task.words.wait_seconds);
    const std::vector<reading> now = read_all(parts);
    std::vector<setting> before;
    for (const reading& each : now) {
        if (!each.code) {
            throw mistake(each.source->name() + ": " + each.reason);
        }
        before.push_back({each.source, *each.code});
    }
    const sweep_session* session = nullptr;
    if (task.log) {
        session = session_of(*task.log, boot_id());
    }
    if (session != nullptr) {
        std::vector<setting> wanted = settings_of(values_before(all, *task.log, *session));
        if (targets_of(wanted) != parts) {
            throw mistake(task.log->name + ":" + std::to_string(session->line) +
                          ": the values before are not those of the axes");
        }
        const std::vector<change> changes = changes_to(wanted, now);
        for (const change& each : changes) {
            if (const std::string problem = voltage_mistake(each); !problem.empty()) {
                throw mistake(problem);
            }
        }
        const change_report report = change_board(changes);
        if (!report.failure.empty()) {
            throw mistake(report.failure + "\n" + joined(report.holds, "\n"));
        }
        return wanted;
    }
    return before;
}

/** Says what the board held when a point was last tried, and does not hold now. */
void say_differences(const knobs& all, const sweep_log& log, const std::vector<setting>& before) {
    if (log.points.empty()) {
        return;
    }
    for (const setting& then : settings_of(values_before(all, log, last_begun(log)))) {
        for (const setting& now : before) {
            if (now.target == then.target && now.code != then.code) {
                say(now.target->name() + " is " + to_reading(*now.target, now.code) +
                    " in this boot; it was " + to_reading(*now.target, then.code));
            }
        }
    }
}

/** @throw mistake for voltages outside the regulator's limits */
void check_voltages(const axis& a) {
    if (a.target().kind != knob_kind::regulator) {
        return;
    }
    for (const std::size_t i : {std::size_t{0}, a.size() - 1}) { // the lowest and the highest one
        const std::string problem = voltage_mistake({&a.target(), a.code(i), a.code(i)});
        if (!problem.empty()) {
            throw mistake(problem);
        }
    }
}

std::string head_of(const sweep_task& task) {
    if (task.log) {
        std::string mark;
        if (task.log->is_cut) {
            mark.append(cut_mark).append("\n");
        }
        return mark;
    }
    return std::string(log_title) + "\nmachine " + machine() +
           "\nversion " BRISEL_VERSION "\nrun " + to_shell(run_words(task.words)) + "\n";
}

/** How a sweep that is complete has ended: each property has a point that passes, or not. */
tune_status status_of(const std::vector<sweep_grid>& grids) {
    const bool all_passed = std::all_of(grids.begin(), grids.end(), [](const sweep_grid& grid) {
        return std::any_of(grid.cells.begin(), grid.cells.end(),
                           [](const point_result& cell) { return cell.kind == verdict::pass; });
    });
    return all_passed ? tune_status::done : tune_status::differs;
}

/** Goes through all grids, and logs how that ends. */
tune_status go_through(sweep& work, std::vector<sweep_grid>& grids, log_writer& log) {
    try {
        work.go_through(grids);
    } catch (const sweep_end& end) {
        say(end.why); // before the log, which may be lost
        const std::size_t size = std::min(end.why.find('\n'), end.why.size()); // of its first line
        std::string_view rest = end.why;
        rest.remove_prefix(std::min(size + 1, rest.size()));
        log.write(end.verdict + "end " + printable(end.why.substr(0, size)) + "\n" +
                  log_lines_of(rest));
        return end.status;
    }
    log.write("end complete\n");
    return status_of(grids);
}

} // namespace

tune_status sweep_axes(const knobs& all, const command_line& given) {
    sweep_task task = task_of(given);
    const command_line& words = task.words;
    if (task.log && task.log->complete && !words.sweep.retry_hangs) {
        std::vector<sweep_grid> grids =
            make_grids(all, words.operands, words.sweep.together,
                       settings_of(values_before(all, *task.log, last_begun(*task.log))));
        fill(grids, task.log->points);
        say("the sweep is complete: there is nothing left to be tried");
        return status_of(grids);
    }
    const std::vector<const knob*> targets = axis_targets(all, words.operands);
    std::vector<setting> before;
    for (const knob* part : parts_of(targets)) {
        before.push_back({part, part->least()});
    }
    make_grids(all, words.operands, words.sweep.together, before); // mistakes come before all else
    std::optional<log_writer> log;
    if (task.log) { // it can be written to, or nothing is touched
        log.emplace(words.output.value_or("-"), true, words.sweep.lead);
    }
    before = put_back_first(all, targets, task);
    std::vector<sweep_grid> grids = make_grids(all, words.operands, words.sweep.together, before);
    check_voltages(grids.front().columns);
    if (grids.front().rows) {
        check_voltages(*grids.front().rows);
    }
    const std::vector<std::string> orders = orders_of(grids, words.all);
    const std::string head = head_of(task) + session_lines(before, orders);
    if (task.log) {
        say_differences(all, *task.log, before);
        fill(grids, task.log->points);
        task.log.reset(); // its memory is not to be locked
    } else {
        log.emplace(words.output.value_or("-"), false, words.sweep.lead);
    }
    announce(grids, orders);
    const user_signals signals;
    sweep work(all, before, words, *log);
    take_precautions();
    log->write(head);
    return go_through(work, grids, *log);
}

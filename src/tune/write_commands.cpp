#include <algorithm>
#include <functional>

#include "tune/board/board_hold.hpp"
#include "tune/board/change.hpp"
#include "tune/board/lane_watch.hpp"
#include "tune/commands.hpp"
#include "tune/knob/tuning.hpp"
#include "tune/knob/value_text.hpp"
#include "tune/text/console.hpp"
#include "tune/text/machine.hpp"
#include "tune/text/mistake.hpp"
#include "tune/text/read_text.hpp"
#include "tune/text/text.hpp"
#include "tune/window/sweep_log.hpp"
#include "tune/window/sweep_results.hpp"

namespace {

/** What changes, a line each, as a tuning. */
std::string shown(const std::vector<change>& changes, const char* verb) {
    std::string lines;
    for (const change& each : changes) {
        const knob& k = *each.target;
        lines += k.name() + " = " + to_text(k, each.after) + " # ";
        if (k.kind == knob_kind::lane) {
            lines += to_delay(each.after) + ", ";
        }
        lines += verb + to_reading(k, each.before) + "\n";
    }
    return lines;
}

void check_writable(const std::vector<tuning_line>& lines) {
    std::vector<std::string> mistakes;
    for (const tuning_line& line : lines) {
        if (line.target->kind == knob_kind::read_only) {
            mistakes.push_back(line.where + ": " + line.target->name() + " is read-only");
        }
    }
    refuse(mistakes);
}

void check_voltages(const std::vector<tuning_line>& lines, const std::vector<change>& changes) {
    std::vector<std::string> mistakes;
    for (const change& each : changes) {
        const std::string problem = voltage_mistake(each);
        const auto line = std::find_if(lines.begin(), lines.end(), [&](const tuning_line& l) {
            return l.target == each.target;
        });
        if (!problem.empty()) {
            mistakes.push_back(line->where + ": " + problem);
        }
    }
    refuse(mistakes);
}

/** What became of a tuning. */
struct outcome {
    std::vector<reading> before;
    std::vector<change> changes;
    change_report report;
    std::vector<std::string> strangers; ///< lanes that nobody set and that changed
};

/** Which lanes are watched while a board is changed. */
enum class watch { none, its_phys };

/** The knobs that change, or none of them. */
std::vector<const knob*> watched(const std::vector<change>& changes, watch which) {
    std::vector<const knob*> knobs;
    for (const change& each : changes) {
        if (which == watch::its_phys) {
            knobs.push_back(each.target);
        }
    }
    return knobs;
}

/**
 * @param held signals that are kept away once something is written
 * @throw mistake as long as nothing is written
 */
outcome carry_out(const knobs& all, const std::vector<tuning_line>& lines,
                  const command_line& words, watch which, std::optional<held_signals>& held) {
    check_writable(lines);
    const std::vector<setting> wanted = settings_of(lines);
    const std::vector<const knob*> targets = targets_of(wanted);
    outcome result;
    const board_hold hold(targets, words.wait_seconds);
    result.before = read_all(targets);
    if (std::all_of(result.before.begin(), result.before.end(),
                    [](const reading& each) { return each.code; })) {
        result.changes = changes_to(wanted, result.before);
        check_voltages(lines, result.changes);
        if (!words.dry_run) {
            lane_watch lanes(all, watched(result.changes, which));
            lanes.look();
            held.emplace(user_signal_numbers);
            result.report = change_board(result.changes);
            result.strangers = lanes.changed(targets);
        }
    }
    return result;
}

/** Makes the board what the lines say, or leaves it as it is. */
tune_status bring_about(const knobs& all,
                        const std::function<std::vector<tuning_line>()>& read_lines,
                        const command_line& words, watch which) {
    outcome result;
    std::optional<held_signals> held;
    try {
        const std::vector<tuning_line> lines = read_lines();
        if (lines.empty()) {
            say("there is no line that sets anything");
        }
        result = carry_out(all, lines, words, which, held);
    } catch (const mistake& problem) {
        throw mistake(std::string(problem.what()) + "\nnothing was written");
    }
    if (report_unreadable(result.before)) {
        say("nothing was written");
        return tune_status::differs;
    }
    const change_report& report = result.report;
    if (report.failure.empty()) {
        held.reset();
    } else {
        held->keep(); // who interrupts is to be told, too, what the board holds
    }
    say(joined(result.strangers, "\n"));
    if (report.failure.empty()) {
        try {
            show(shown(result.changes, words.dry_run ? "is " : "was "));
        } catch (const mistake& problem) {
            std::string what = problem.what();
            if (!words.dry_run) {
                what += "; all was set";
            }
            throw mistake(what);
        }
        return words.dry_run && !result.changes.empty() ? tune_status::differs : tune_status::done;
    }
    say(report.failure);
    say(report.is_back ? "all was put back:" : "not everything could be put back:");
    for (const std::string& line : report.holds) {
        say(line);
    }
    return report.is_back ? tune_status::differs : tune_status::no_result;
}

} // namespace

tune_status set_values(const knobs& all, const command_line& words) {
    const auto read_lines = [&] {
        std::string text;
        for (const std::string& word : words.operands) {
            if (word.find('\n') != std::string::npos) {
                throw mistake("a line break in " + in_quotes(word.substr(0, word.find('\n'))));
            }
            text += word + "\n";
        }
        return parse_tuning(all, text, "argument");
    };
    return bring_about(all, read_lines, words, watch::none);
}

tune_status apply_tuning(const knobs& all, const command_line& words) {
    const std::string& file = words.operands.front();
    const auto read_lines = [&] { return parse_tuning(all, read_text(file), file); };
    return bring_about(all, read_lines, words, watch::its_phys);
}

tune_status restore_values(const knobs& all, const command_line& words) {
    const std::string& file = words.operands.front();
    const auto read_lines = [&] {
        const sweep_log log = parse_log(read_text(file), file);
        const sweep_session* session = session_of(log, boot_id());
        if (words.force) {
            session = &first_session(log);
        }
        if (session == nullptr) {
            throw mistake(file +
                          ": nothing was swept in this boot; --force takes the first one's values");
        }
        return values_before(all, log, *session);
    };
    return bring_about(all, read_lines, words, watch::its_phys);
}

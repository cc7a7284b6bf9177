#include <algorithm>

#include "tune/board_hold.hpp"
#include "tune/change.hpp"
#include "tune/commands.hpp"
#include "tune/console.hpp"
#include "tune/mistake.hpp"
#include "tune/read_text.hpp"
#include "tune/text.hpp"
#include "tune/tuning.hpp"
#include "tune/value_text.hpp"

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
};

/** @throw mistake as long as nothing is written */
outcome carry_out(const std::vector<tuning_line>& lines, const command_line& words) {
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
            result.report = change_board(result.changes);
        }
    }
    return result;
}

/** Makes the board what the lines say, or leaves it as it is. */
template <class Lines>
tune_status bring_about(const Lines& read_lines, const command_line& words) {
    outcome result;
    try {
        const std::vector<tuning_line> lines = read_lines();
        if (lines.empty()) {
            say("there is no line that sets anything");
        }
        result = carry_out(lines, words);
    } catch (const mistake& problem) {
        throw mistake(std::string(problem.what()) + "\nnothing was written");
    }
    if (report_unreadable(result.before)) {
        say("nothing was written");
        return tune_status::differs;
    }
    const change_report& report = result.report;
    if (report.failure.empty()) {
        try {
            show(shown(result.changes, words.dry_run ? "is " : "was "));
        } catch (const mistake& problem) {
            throw mistake(std::string(problem.what()) + (words.dry_run ? "" : "; all was set"));
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
    return bring_about(read_lines, words);
}

tune_status apply_tuning(const knobs& all, const command_line& words) {
    const std::string& file = words.operands.front();
    return bring_about([&] { return parse_tuning(all, read_text(file), file); }, words);
}

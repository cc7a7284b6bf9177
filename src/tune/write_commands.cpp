#include <algorithm>

#include "tune/board_hold.hpp"
#include "tune/change.hpp"
#include "tune/commands.hpp"
#include "tune/console.hpp"
#include "tune/mistake.hpp"
#include "tune/tuning.hpp"
#include "tune/value_text.hpp"

namespace {

/** What changes, a line each, as a tuning. */
std::string shown(const std::vector<change>& changes) {
    std::string lines;
    for (const change& each : changes) {
        lines += each.target->name() + " = " + to_text(*each.target, each.after) + " # was " +
                 to_text(*each.target, each.before) + "\n";
    }
    return lines;
}

void check_writable(const std::vector<tuning_line>& lines) {
    for (const tuning_line& line : lines) {
        if (line.target->kind == knob_kind::read_only) {
            throw mistake(line.where + ": " + line.target->name() + " is read-only");
        }
    }
}

tune_status bring_about(const std::vector<tuning_line>& lines, const command_line& words) {
    check_writable(lines);
    const std::vector<setting> wanted = settings_of(lines);
    const std::vector<const knob*> targets = targets_of(wanted);
    std::vector<reading> now;
    std::vector<change> changes;
    change_report report;
    {
        const board_hold hold(targets, words.wait_seconds);
        now = read_all(targets);
        const bool readable =
            std::all_of(now.begin(), now.end(), [](const reading& each) { return each.code; });
        if (readable) {
            changes = changes_to(wanted, now);
            check_voltages(changes);
            if (!words.dry_run) {
                report = change_board(changes);
            }
        }
    }
    if (report_unreadable(now)) {
        say("nothing was written");
        return tune_status::differs;
    }
    if (report.failure.empty()) {
        try {
            show(shown(changes));
        } catch (const mistake& problem) {
            throw mistake(std::string(problem.what()) + (words.dry_run ? "" : "; all was set"));
        }
        return words.dry_run && !changes.empty() ? tune_status::differs : tune_status::done;
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
    std::string text;
    for (const std::string& word : words.operands) {
        if (word.find('\n') != std::string::npos) {
            throw mistake("a line break in '" + word.substr(0, word.find('\n')) + "'");
        }
        text += word + "\n";
    }
    return bring_about(parse_tuning(all, text, "argument"), words);
}

tune_status apply_tuning(const knobs& all, const command_line& words) {
    const std::string& file = words.operands.front();
    return bring_about(parse_tuning(all, read_text(file), file), words);
}

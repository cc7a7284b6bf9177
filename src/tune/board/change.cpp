#include "tune/board/change.hpp"

#include <algorithm>
#include <iterator>
#include <optional>

#include "tune/board/child.hpp"
#include "tune/board/held_signals.hpp"
#include "tune/knob/value_text.hpp"

namespace {

/** What is written at once: fields of a register, or one file. */
using step = std::vector<change>;

/** Where a change stands among the others. */
enum class stage { rising, registers, falling };

stage stage_of(const change& each) {
    if (each.target->kind != knob_kind::regulator) {
        return stage::registers;
    }
    return each.after > each.before ? stage::rising : stage::falling;
}

/** Adds a change to steps; those of one register are one step. */
void add_step(std::vector<step>& steps, const change& each) {
    const reg_info* const reg = each.target->reg;
    const auto same = std::find_if(steps.begin(), steps.end(), [reg](const step& s) {
        return reg != nullptr && s.front().target->reg == reg;
    });
    (same == steps.end() ? steps.emplace_back() : *same).push_back(each);
}

std::vector<step> steps_in_order(const std::vector<change>& changes) {
    std::vector<step> steps;
    for (const change& each : changes) {
        add_step(steps, each);
    }
    return steps;
}

std::vector<step> steps_by_stage(const std::vector<change>& changes) {
    std::vector<step> steps;
    for (const stage now : {stage::rising, stage::registers, stage::falling}) {
        for (const change& each : changes) {
            if (stage_of(each) == now) {
                add_step(steps, each);
            }
        }
    }
    return steps;
}

/** One side of a step. */
std::vector<setting> settings(const step& s, std::uint32_t change::*side) {
    std::vector<setting> result;
    for (const change& each : s) {
        result.push_back({each.target, each.*side});
    }
    return result;
}

/** Puts a step back, and reports what its properties hold then. */
void put_back(const step& s, change_report& report) {
    const std::vector<setting> before = settings(s, &change::before);
    const auto write = [&] { write_codes(before); };
    run_in_child(
        write); // whether it did is seen from what they hold: they may have had it all along
    const std::vector<reading> now = read_all(targets_of(before));
    for (std::size_t i = 0; i < now.size(); ++i) {
        const knob& k = *now[i].source;
        const bool is_back = now[i].code == before[i].code;
        report.is_back = report.is_back && is_back;
        std::string line = k.name();
        if (now[i].code) {
            line += " = " + to_text(k, *now[i].code);
        } else {
            line += " cannot be read: " + now[i].reason;
        }
        if (is_back) {
            line += " # as before";
        } else {
            line += " # not put back to " + to_text(k, before[i].code);
        }
        report.holds.push_back(line);
    }
}

using backwards = std::vector<step>::const_reverse_iterator;

void put_back(const backwards& begin, const backwards& end, change_report& report) {
    for (auto each = begin; each != end; ++each) {
        put_back(*each, report);
    }
}

/** Takes one step after the other, or puts all back. */
change_report take(const std::vector<step>& steps) {
    change_report report;
    const held_signals held(user_signal_numbers);
    for (auto done = steps.begin(); done != steps.end(); ++done) {
        if (const auto why = write_and_check(settings(*done, &change::after))) {
            report.failure = *why;
            put_back(std::make_reverse_iterator(done + 1), steps.rend(), report);
            break;
        }
    }
    return report;
}

} // namespace

std::vector<change> changes_to(const std::vector<setting>& wanted,
                               const std::vector<reading>& now) {
    std::vector<change> changes;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        if (*now[i].code != wanted[i].code) {
            changes.push_back({wanted[i].target, *now[i].code, wanted[i].code});
        }
    }
    return changes;
}

std::string voltage_mistake(const change& wanted) {
    if (wanted.target->kind != knob_kind::regulator) {
        return "";
    }
    const auto [least, most] = voltage_limits(*wanted.target);
    if (least <= wanted.after && wanted.after <= most) {
        return "";
    }
    return std::to_string(wanted.after) + " is outside the limits of " + wanted.target->name() +
           ", " + std::to_string(least) + " to " + std::to_string(most);
}

change_report change_board(const std::vector<change>& changes) {
    return take(steps_by_stage(changes));
}

change_report change_in_order(const std::vector<change>& changes) {
    return take(steps_in_order(changes));
}

change_report undo(const std::vector<change>& changes) {
    change_report report;
    const std::vector<step> steps = steps_in_order(changes);
    const held_signals held(user_signal_numbers);
    put_back(steps.rbegin(), steps.rend(), report);
    return report;
}

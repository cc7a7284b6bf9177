#include <algorithm>
#include <optional>

#include "tune/board/board_hold.hpp"
#include "tune/commands.hpp"
#include "tune/knob/tuning.hpp"
#include "tune/knob/value_text.hpp"
#include "tune/text/console.hpp"
#include "tune/text/read_text.hpp"
#include "tune/text/table.hpp"

namespace {

/** A knob's code on both sides of a comparison; nothing where a side does not name it. */
struct difference {
    const knob* target;
    std::optional<std::uint32_t> first;
    std::optional<std::uint32_t> second;
};

std::vector<difference> differences(const std::vector<setting>& first,
                                    const std::vector<setting>& second) {
    const auto in = [](const std::vector<setting>& side, const knob* k) {
        const auto entry = std::find_if(side.begin(), side.end(),
                                        [k](const setting& each) { return each.target == k; });
        return entry == side.end() ? std::nullopt : std::optional(entry->code);
    };
    std::vector<difference> found;
    for (const setting& each : first) {
        const std::optional<std::uint32_t> other = in(second, each.target);
        if (other != each.code) {
            found.push_back({each.target, each.code, other});
        }
    }
    for (const setting& each : second) {
        if (!in(first, each.target)) {
            found.push_back({each.target, std::nullopt, each.code});
        }
    }
    return found;
}

std::string with_delay(const knob& k, const std::optional<std::uint32_t>& code) {
    if (!code) {
        return "-";
    }
    std::string text = to_text(k, *code);
    if (k.kind == knob_kind::lane) {
        text += " (" + to_delay(*code) + ")";
    }
    return text;
}

} // namespace

tune_status show_differences(const knobs& all, const command_line& words) {
    const std::string& file = words.operands.front();
    std::vector<setting> first = settings_of(parse_tuning(all, read_text(file), file));
    std::vector<setting> second;
    bool unreadable = false;
    if (words.operands.size() == 2) {
        const std::string& other = words.operands[1];
        second = settings_of(parse_tuning(all, read_text(other), other));
    } else {
        const std::vector<const knob*> targets = targets_of(first);
        std::vector<reading> now;
        {
            const board_hold hold(targets, words.wait_seconds);
            now = read_all(targets);
        }
        unreadable = report_unreadable(now);
        // What cannot be read is compared with nothing.
        std::vector<setting> comparable;
        for (std::size_t i = 0; i < now.size(); ++i) {
            if (now[i].code) {
                comparable.push_back(first[i]);
                second.push_back({now[i].source, *now[i].code});
            }
        }
        first = comparable;
    }
    const std::vector<difference> found = differences(first, second);
    std::vector<std::vector<std::string>> rows;
    for (const difference& each : found) {
        std::vector<std::string>& row = rows.emplace_back();
        row.push_back(each.target->name());
        row.push_back(with_delay(*each.target, each.first));
        row.push_back(with_delay(*each.target, each.second));
    }
    show(as_table(rows));
    return found.empty() && !unreadable ? tune_status::done : tune_status::differs;
}

#include <algorithm>

#include "tune/board/board_hold.hpp"
#include "tune/commands.hpp"
#include "tune/knob/value_text.hpp"
#include "tune/text/console.hpp"
#include "tune/text/machine.hpp"
#include "tune/text/mistake.hpp"
#include "tune/text/text.hpp"
#include "tune/text/whole_file.hpp"

namespace {

/** The lines for knobs, and what could not be read. */
struct listing {
    std::string lines;
    std::vector<std::string> missing; ///< "NAME: reason"
    std::vector<std::string> to_say;  ///< of these one for each register
};

/** Adds the lines of knobs whose parts were read. */
void add_lines(const std::vector<const knob*>& wanted, const std::vector<reading>& readings,
               listing& found) {
    auto next = readings.begin();
    for (const knob* k : wanted) {
        std::vector<std::uint32_t> codes;
        const reading* failed = nullptr;
        const std::size_t count = k->parts().size();
        for (std::size_t part = 0; part < count; ++part, ++next) {
            codes.push_back(next->code.value_or(0));
            failed = failed == nullptr && !next->code ? &*next : failed;
        }
        if (failed == nullptr) {
            found.lines += to_line(*k, codes) + "\n";
        } else {
            found.missing.push_back(k->name() + ": " + failed->reason);
            if (!failed->repeated) {
                found.to_say.push_back(found.missing.back());
            }
        }
    }
}

} // namespace

tune_status get_values(const knobs& all, const command_line& words) {
    const std::vector<const knob*> wanted = all.chosen(words.operands);
    const std::vector<const knob*> parts = parts_of(wanted);
    listing found;
    {
        const board_hold hold(parts, words.wait_seconds);
        add_lines(wanted, read_all(parts), found);
    }
    say(joined(found.to_say, "\n"));
    show(found.lines);
    return found.missing.empty() ? tune_status::done : tune_status::differs;
}

tune_status save_values(const knobs& all, const command_line& words) {
    if (words.all == !words.operands.empty()) {
        throw mistake("save takes either --all or names");
    }
    std::vector<const knob*> wanted = all.all_but_lanes_of_sets();
    if (!words.all) {
        wanted = all.chosen(words.operands);
    }
    std::vector<const knob*> writable;
    std::string head = "# brisel-tune " BRISEL_VERSION ", " + machine() + ", " + utc_time() + "\n";
    for (const knob* k : wanted) {
        if (k->kind == knob_kind::read_only) {
            head += "# " + k->name() + ": read-only\n";
        } else {
            writable.push_back(k);
        }
    }
    listing found;
    {
        const board_hold hold(parts_of(writable), words.wait_seconds);
        for (auto begin = writable.begin(); begin != writable.end();) {
            auto end = writable.end();
            if (words.all) {
                // A register that this board does not have may hang it: then this is the last word.
                say("reading " + (*begin)->group);
                end = std::find_if(begin, end,
                                   [&](const knob* k) { return k->group != (*begin)->group; });
            }
            const std::vector<const knob*> group(begin, end);
            add_lines(group, read_all(parts_of(group)), found);
            begin = end;
        }
    }
    say(joined(found.to_say, "\n"));
    for (const std::string& each : found.missing) {
        head += "# " + each + "\n";
    }
    if (words.output.value_or("-") != "-") {
        write_whole(*words.output, head + found.lines);
    } else {
        show(head + found.lines);
    }
    return found.missing.empty() ? tune_status::done : tune_status::differs;
}

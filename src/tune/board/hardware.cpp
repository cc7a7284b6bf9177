#include "tune/board/hardware.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>
#include <memory>

#include <fcntl.h>
#include <unistd.h>

#include "reg/mmap_access.hpp"
#include "tune/board/child.hpp"
#include "tune/board/shared_array.hpp"
#include "tune/knob/value_text.hpp"
#include "tune/text/console.hpp"
#include "tune/text/mistake.hpp"

void check_node(const std::vector<const knob*>& knobs) {
    if (std::none_of(knobs.begin(), knobs.end(), [](const knob* k) { return k->in_register(); })) {
        return;
    }
    const int fd = open(fname, O_RDWR | O_SYNC | O_CLOEXEC);
    if (fd == -1) {
        throw mistake(std::string("cannot open ") + fname + ": " + std::strerror(errno));
    }
    close(fd);
}

namespace {

struct shared_reading {
    std::uint32_t code;
    bool done;
};

/**
 * Room for so many readings, none done. A command begins with the reading of all that it asks for;
 * what it reads later takes no memory, and so cannot fail for want of it between two writes.
 * @throw mistake when there is not so much memory
 */
const shared_array<shared_reading>& room_for(std::size_t count) {
    static auto room = std::unique_ptr<shared_array<shared_reading>>();
    static std::size_t size = 0;
    if (!room || size < count) {
        room = std::make_unique<shared_array<shared_reading>>(count);
        size = count;
    }
    for (std::size_t i = 0; i < count; ++i) {
        (*room)[i].done = false;
    }
    return *room;
}

/** What a file holds: it keeps nothing for this process, and cannot end it. */
reading read_file(const knob& k) {
    reading one{&k, std::nullopt, "", false};
    try {
        one.code = read_code(k);
    } catch (const mistake& problem) {
        one.reason = problem.what();
    }
    return one;
}

} // namespace

std::vector<reading> read_all(const std::vector<const knob*>& knobs) {
    const shared_array<shared_reading>& shared = room_for(knobs.size());
    std::vector<reading> readings;
    readings.reserve(knobs.size());
    std::map<const reg_info*, std::string> dead; // and why
    while (readings.size() < knobs.size()) {
        const std::size_t begin = readings.size();
        if (!knobs[begin]->in_register()) {
            readings.push_back(read_file(*knobs[begin]));
            continue;
        }
        // One child for as many registers as it gets through.
        const auto first = knobs.begin() + static_cast<std::ptrdiff_t>(begin);
        const auto last =
            std::find_if(first, knobs.end(), [](const knob* k) { return !k->in_register(); });
        const auto end = static_cast<std::size_t>(last - knobs.begin());
        const auto read_them = [&] {
            for (std::size_t i = begin; i < end; ++i) {
                if (!dead.contains(knobs[i]->reg)) {
                    shared[i].code = read_code(*knobs[i]);
                    shared[i].done = true;
                }
            }
        };
        const std::optional<std::string> why = run_in_child(read_them);
        for (std::size_t i = begin; i < end; ++i) {
            reading& one = readings.emplace_back(reading{knobs[i], std::nullopt, "", false});
            if (shared[i].done) {
                one.code = shared[i].code;
                continue;
            }
            const auto [cause, is_new] = dead.emplace(knobs[i]->reg, why.value_or(""));
            one.reason = cause->second;
            one.repeated = !is_new;
            if (is_new) {
                break; // the next child begins behind it
            }
        }
    }
    return readings;
}

std::vector<const knob*> targets_of(const std::vector<setting>& settings) {
    std::vector<const knob*> targets(settings.size());
    std::transform(settings.begin(), settings.end(), targets.begin(),
                   [](const setting& each) { return each.target; });
    return targets;
}

bool report_unreadable(const std::vector<reading>& readings) {
    bool found = false;
    for (const reading& each : readings) {
        if (!each.code) {
            found = true;
            if (!each.repeated) {
                say(each.source->name() + ": " + each.reason);
            }
        }
    }
    return found;
}

std::optional<std::string> write_and_check(const std::vector<setting>& settings) {
    if (const auto why = run_in_child([&] { write_codes(settings); })) {
        return settings.front().target->name() + ": " + *why;
    }
    const std::vector<const knob*> written = targets_of(settings);
    const std::vector<reading> now = read_all(written);
    for (std::size_t i = 0; i < settings.size(); ++i) {
        if (!now[i].code) {
            return written[i]->name() + ": " + now[i].reason;
        }
        if (*now[i].code != settings[i].code) {
            return written[i]->name() + " was set to " + to_text(*written[i], settings[i].code) +
                   " and holds " + to_text(*written[i], *now[i].code);
        }
    }
    return std::nullopt;
}

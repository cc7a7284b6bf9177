#include "tune/knob/tuning.hpp"

#include <algorithm>
#include <map>
#include <string_view>

#include "tune/knob/value_text.hpp"
#include "tune/text/mistake.hpp"
#include "tune/text/text.hpp"

namespace {

/** The register and the bits, or the file, in which two lines may meet. */
struct claimed_bits {
    const knob* part;
    const tuning_line* line;
};

/** Adds a mistake for each line that names bits which a line above it names, too. */
void check_bits(const std::vector<tuning_line>& lines, std::vector<std::string>& mistakes) {
    std::multimap<const void*, claimed_bits> claimed;
    for (const tuning_line& line : lines) {
        for (const knob* part : line.target->parts()) {
            if (part->kind == knob_kind::read_only) {
                continue; // to be looked at: these may overlap
            }
            const void* const place =
                part->in_register() ? static_cast<const void*>(part->reg) : part;
            const auto [begin, end] = claimed.equal_range(place);
            const auto other = std::find_if(begin, end, [part](const auto& entry) {
                return share_bits(*part, *entry.second.part);
            });
            if (other != end) {
                const tuning_line& above = *other->second.line;
                std::string what = " is named";
                if (line.target != above.target) {
                    what = " shares bits with " + above.target->name();
                }
                mistakes.push_back(line.where + ": " + line.target->name() + what + " at " +
                                   above.where);
                break;
            }
            claimed.insert({place, {part, &line}});
        }
    }
}

tuning_line parse_line(const knobs& all, std::string_view text) {
    if (text.find('\0') != std::string_view::npos) {
        throw mistake("a NUL character");
    }
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) {
        throw mistake(in_quotes(text) + " is not NAME = VALUE");
    }
    const knob& target = all.named(std::string(without_blanks(text.substr(0, equals))));
    return {&target, parse_value(target, without_blanks(text.substr(equals + 1))), ""};
}

} // namespace

bool share_bits(const knob& a, const knob& b) {
    return &a == &b ||
           (a.in_register() && a.reg == b.reg && a.kind != knob_kind::lane &&
            ((a.field->mask() << a.field->shift()) & (b.field->mask() << b.field->shift())) != 0);
}

std::vector<tuning_line> parse_tuning(const knobs& all, const std::string& text,
                                      const std::string& where) {
    std::vector<tuning_line> lines;
    std::vector<std::string> mistakes;
    std::string_view rest = text;
    for (int number = 1; !rest.empty(); ++number) {
        const std::string_view whole = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(whole.size() + 1, rest.size()));
        const std::string_view line = without_blanks(whole.substr(0, whole.find('#')));
        if (line.empty()) {
            continue;
        }
        const std::string place = where + ":" + std::to_string(number);
        try {
            lines.push_back(parse_line(all, line));
            lines.back().where = place;
        } catch (const mistake& problem) {
            mistakes.push_back(place + ": " + problem.what());
        }
    }
    check_bits(lines, mistakes);
    refuse(mistakes);
    return lines;
}

void refuse(std::vector<std::string> mistakes) {
    if (mistakes.empty()) {
        return;
    }
    constexpr std::size_t most = 10;
    if (mistakes.size() > most) {
        const std::size_t left = mistakes.size() - most;
        mistakes.resize(most);
        mistakes.push_back("and " + std::to_string(left) + " more");
    }
    throw mistake(joined(mistakes, "\n"));
}

std::vector<setting> settings_of(const std::vector<tuning_line>& lines) {
    std::vector<setting> settings;
    for (const tuning_line& line : lines) {
        const std::vector<const knob*> parts = line.target->parts();
        for (std::size_t i = 0; i < parts.size(); ++i) {
            settings.push_back({parts[i], line.codes[i]});
        }
    }
    return settings;
}

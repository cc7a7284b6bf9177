#include "model/eyes.hpp"

#include <algorithm>
#include <istream>
#include <utility>

#include <fnmatch.h>

#include "model/board_paths.hpp"
#include "model/text.hpp"

namespace {

/** How many times `part` fits between two numbers; many times is enough for any lane. */
int parts_between(std::uint32_t a, std::uint32_t b, std::uint32_t part) {
    constexpr std::uint32_t many = 0xff;
    return static_cast<int>(std::min(many, (a < b ? b - a : a - b) / part));
}

} // namespace

/** Takes the words of one line, from left to right. */
class eyes::line_parser {
public:
    line_parser(std::string_view line, const std::string& where, eyes& all)
        : m_rest(line), m_where(where), m_eyes(all) {}

    std::string_view kind() { return take_word(m_rest); }

    /** The lanes that fit the next word; at least one does. */
    std::vector<lane_eye*> lanes() {
        const std::string pattern(take_word(m_rest));
        std::vector<lane_eye*> found;
        for (lane_eye& lane : m_eyes.m_lanes) {
            if (fnmatch(pattern.c_str(), lane.word->name.c_str(), 0) == 0) {
                found.push_back(&lane);
            }
        }
        if (found.empty()) {
            refuse(pattern.empty() ? "the lanes are missing" : "no lane fits " + quoted(pattern));
        }
        return found;
    }

    delay_range last_range() {
        const int from = delay();
        const int to = delay();
        if (from > to) {
            refuse("the delays end before they begin");
        }
        end();
        return {from, to};
    }

    /** The last word: from 0 to 63. */
    int last_steps() {
        const std::string_view word = take_word(m_rest);
        const std::uint32_t steps = number(word, "number of steps");
        if (steps > static_cast<std::uint32_t>(most_steps)) {
            refuse(quoted(word) + " is more than 63 steps");
        }
        end();
        return static_cast<int>(steps);
    }

    /** By how much a field that is not what it should be narrows windows. */
    int last_narrowing() {
        const std::string property(take_word(m_rest));
        const auto bits = m_eyes.m_registers.find_property(property);
        const register_entry* const entry = bits ? m_eyes.m_registers.find(bits->place) : nullptr;
        if (entry == nullptr || bits->limit() > 0xff) {
            refuse("no property with a code of at most 8 bits: " + quoted(property));
        }
        const std::uint32_t right = number(take_word(m_rest), "code");
        if (right > bits->limit()) {
            refuse("the code has more bits than the field");
        }
        return parts_between(entry->word >> bits->low & bits->limit(), right, 1) * last_steps();
    }

    /** By how much a voltage moves windows. */
    int last_shift() {
        const std::string path(take_word(m_rest));
        if (!is_board_path(path)) {
            refuse(quoted(path) + " is no file of the board");
        }
        const std::uint32_t nominal = number(take_word(m_rest), "nominal voltage");
        const std::uint32_t per_step = number(take_word(m_rest), "voltage of a step");
        if (per_step == 0) {
            refuse("a step of 0 microvolts");
        }
        end();
        const std::string text = m_eyes.m_read_file(path);
        const std::uint32_t now =
            number(trimmed(text.substr(0, text.find('\n'))), "number of microvolts in " + path);
        const int steps = parts_between(now, nominal, per_step);
        return now < nominal ? -steps : steps;
    }

    [[noreturn]] void refuse(const std::string& message) const {
        throw input_error(m_where, message);
    }

private:
    std::uint32_t number(std::string_view word, const std::string& what) const {
        const std::optional<std::uint32_t> value = parse_number(word);
        if (!value) {
            refuse(not_a_number(word, what));
        }
        return *value;
    }

    int delay() {
        const std::string_view word = take_word(m_rest);
        const bool minus = word.starts_with('-');
        const auto steps = parse_number(word.substr(minus || word.starts_with('+') ? 1 : 0));
        if (!steps || *steps > static_cast<std::uint32_t>(most_steps)) {
            refuse(not_a_number(word, "delay from -63 to +63"));
        }
        return minus ? -static_cast<int>(*steps) : static_cast<int>(*steps);
    }

    void end() const {
        if (!trimmed(m_rest).empty()) {
            refuse(quoted(trimmed(m_rest)) + " is too much");
        }
    }

    std::string_view m_rest;
    const std::string& m_where;
    eyes& m_eyes;
};

eyes::eyes(const register_table& registers, file_reader read_file)
    : m_registers(registers), m_read_file(std::move(read_file)) {
    registers.for_each([this](const register_key& place, const register_entry& entry) {
        if (fnmatch("*::dq[0-9]", entry.name.c_str(), 0) == 0) {
            m_lanes.push_back({place, &entry});
        }
    });
}

void eyes::add_all(std::istream& text, const std::string& file) {
    std::string line;
    for (std::size_t number = 1; std::getline(text, line); ++number) {
        add(line, file + ":" + std::to_string(number));
    }
}

void eyes::add(std::string_view line, const std::string& where) {
    line_parser parser(line, where, *this);
    const std::string_view kind = parser.kind();
    if (kind.empty() || kind.front() == '#') {
        return;
    }
    if (kind == "eye") {
        const std::vector<lane_eye*> lanes = parser.lanes();
        const delay_range window = parser.last_range();
        for (lane_eye* const lane : lanes) {
            lane->window = window;
        }
    } else if (kind == "hole") {
        const std::vector<lane_eye*> lanes = parser.lanes();
        const delay_range hole = parser.last_range();
        for (lane_eye* const lane : lanes) {
            lane->holes.push_back(hole);
        }
    } else if (kind == "narrow") {
        const std::vector<lane_eye*> lanes = parser.lanes();
        const int steps = parser.last_narrowing();
        for (lane_eye* const lane : lanes) {
            lane->narrowed += steps;
        }
    } else if (kind == "shift") {
        const std::vector<lane_eye*> lanes = parser.lanes();
        const int steps = parser.last_shift();
        for (lane_eye* const lane : lanes) {
            lane->moved += steps;
        }
    } else if (kind == "edge") {
        m_edge = parser.last_steps();
    } else if (kind == "retrain") {
        m_retrain = parser.last_steps();
    } else {
        parser.refuse(quoted(kind) + " is no kind of line");
    }
}

test_end eyes::end_of(const lane_eye& lane) const {
    const int outside = lane.steps_outside();
    if (outside > m_edge) {
        return test_end::board_dies;
    }
    return outside > 0 || lane.is_in_hole() ? test_end::fails : test_end::passes;
}

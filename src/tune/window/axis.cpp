#include "tune/window/axis.hpp"

#include <algorithm>
#include <charconv>

#include "tune/knob/lane_delay.hpp"
#include "tune/knob/value_text.hpp"
#include "tune/text/mistake.hpp"
#include "tune/text/text.hpp"

namespace {

/** The codes of a mapped field by its keys, 0 last. */
std::vector<std::uint32_t> codes_by_key(const knob& k) {
    std::vector<std::uint32_t> codes;
    if (k.kind == knob_kind::mapped) {
        for (const auto& [key, code] : key_map(k)) {
            codes.push_back(code);
        }
        // A key 0 comes first in the map.
        const auto off = static_cast<std::ptrdiff_t>(key_map(k).count(0));
        std::rotate(codes.begin(), codes.begin() + off, codes.end());
    }
    return codes;
}

std::int64_t parse_step(std::string_view text) {
    std::int64_t step = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), step);
    if (error != std::errc() || end != text.data() + text.size() || step < 1) {
        throw mistake(in_quotes(text) + " is no step: it takes a number from 1");
    }
    return step;
}

} // namespace

bool is_delay(const knob& k) {
    return k.kind == knob_kind::lane || k.kind == knob_kind::set;
}

axis::axis(const knob& target, std::string_view values, const std::vector<std::uint32_t>& present)
    : m_target(&target), m_present(present), m_keyed(codes_by_key(target)) {
    if (target.kind == knob_kind::read_only) {
        throw mistake(target.name() + " is read-only");
    }
    if (values.empty()) {
        take_all();
    } else {
        take_values(values);
    }
    m_here = target.kind == knob_kind::set ? 0 : position(present.front());
    for (std::size_t i = 1; i < size(); ++i) {
        const bool is_it = target.kind != knob_kind::set && code(i) == present.front();
        m_nearest = is_it || steps_away(i) < steps_away(m_nearest) ? i : m_nearest;
    }
}

const knob& axis::unit() const {
    return m_target->kind == knob_kind::set ? *m_target->lanes.front() : *m_target;
}

std::int64_t axis::position(std::uint32_t code) const {
    if (is_delay(*m_target)) {
        return to_signed_delay(code);
    }
    if (m_target->kind == knob_kind::mapped) {
        const auto entry = std::find(m_keyed.begin(), m_keyed.end(), code);
        return entry == m_keyed.end() ? -1 : entry - m_keyed.begin(); // raw codes come before
    }
    return code;
}

bool axis::is_same(std::uint32_t a, std::uint32_t b) const {
    return a == b || (is_delay(*m_target) && position(a) == position(b));
}

bool axis::is_before(std::uint32_t a, std::uint32_t b) const {
    const std::int64_t first = position(a);
    const std::int64_t second = position(b);
    return first < second ||
           (first == second && !is_same(a, b) && a < b); // raw codes have one place
}

std::uint32_t axis::code_at(std::int64_t position) const {
    if (is_delay(*m_target)) {
        const bool is_present = m_target->kind == knob_kind::lane && position == 0;
        return is_present && m_present.front() == 0
                   ? 0
                   : to_lane_code(static_cast<std::int32_t>(position));
    }
    if (m_target->kind == knob_kind::mapped) {
        return m_keyed[static_cast<std::size_t>(position)];
    }
    return static_cast<std::uint32_t>(position);
}

std::pair<std::int64_t, std::int64_t> axis::possible_offsets() const {
    std::int64_t least = -most_delay;
    std::int64_t most = most_delay;
    for (const std::uint32_t code : m_present) {
        least = std::max<std::int64_t>(least, -most_delay - to_signed_delay(code));
        most = std::min<std::int64_t>(most, most_delay - to_signed_delay(code));
    }
    return {least, most};
}

void axis::refuse_offsets() const {
    throw mistake("with each of these offsets a lane of " + m_target->name() + " would pass 63");
}

void axis::take_range(std::int64_t from, std::int64_t to, std::int64_t step) {
    constexpr auto most = static_cast<std::int64_t>(most_points);
    if (from > to) {
        throw mistake("the range of " + m_target->name() + " ends before it begins");
    }
    if (m_target->kind == knob_kind::set) {
        const auto [least, most_offset] = possible_offsets();
        if (from < least) { // the first step from there that is not below
            const std::int64_t below = least - from;
            from += (below / step + (below % step == 0 ? 0 : 1)) * step;
        }
        to = std::min(to, most_offset);
        if (from > to) {
            refuse_offsets();
        }
    }
    if ((to - from) / step >= most) {
        throw mistake("the range of " + m_target->name() + " has more than " +
                      std::to_string(most) + " points: it needs FROM..TO/STEP");
    }
    m_from = from;
    m_step = step;
    m_count = static_cast<std::size_t>((to - from) / step) + 1;
}

void axis::take_all() {
    std::int64_t from = 0;
    std::int64_t to = 0;
    if (is_delay(*m_target)) {
        from = -most_delay;
        to = most_delay;
    } else if (m_target->kind == knob_kind::mapped) {
        to = static_cast<std::int64_t>(m_keyed.size()) - 1;
    } else {
        from = m_target->least();
        to = m_target->most();
    }
    take_range(from, to, 1);
}

void axis::take_values(std::string_view values) {
    const auto place = [this](std::string_view text) {
        const std::int64_t found = position(parse_value(unit(), text).front());
        if (found < 0 && !is_delay(*m_target)) {
            throw mistake(in_quotes(text) + " stands in no range: its order is not known");
        }
        return found;
    };
    if (const std::size_t dots = values.find(".."); dots != std::string_view::npos) {
        const std::size_t slash = std::min(values.find('/'), values.size());
        const std::int64_t step = slash == values.size() ? 1 : parse_step(values.substr(slash + 1));
        const std::string_view from = values.substr(0, dots);
        const std::string_view to = values.substr(0, slash).substr(dots + 2);
        take_range(place(from), place(to), step);
    } else {
        take_list(values);
    }
}

void axis::take_list(std::string_view values) {
    for (std::string_view rest = values;;) {
        const std::size_t comma = std::min(rest.find(','), rest.size());
        m_listed.push_back(parse_value(unit(), rest.substr(0, comma)).front());
        if (comma == rest.size()) {
            break;
        }
        rest.remove_prefix(comma + 1);
    }
    std::sort(m_listed.begin(), m_listed.end(),
              [this](std::uint32_t a, std::uint32_t b) { return is_before(a, b); });
    const auto twice =
        std::adjacent_find(m_listed.begin(), m_listed.end(),
                           [this](std::uint32_t a, std::uint32_t b) { return is_same(a, b); });
    if (twice != m_listed.end()) {
        throw mistake(text(static_cast<std::size_t>(twice - m_listed.begin())) + " is there twice");
    }
    if (m_target->kind == knob_kind::set) {
        std::erase_if(m_listed, [this](std::uint32_t code) {
            const auto [least, most] = possible_offsets();
            return position(code) < least || most < position(code);
        });
        if (m_listed.empty()) {
            refuse_offsets();
        }
    }
}

std::uint32_t axis::code(std::size_t i) const {
    return m_listed.empty() ? code_at(m_from + static_cast<std::int64_t>(i) * m_step) : m_listed[i];
}

std::vector<setting> axis::settings_at(std::size_t i) const {
    if (m_target->kind != knob_kind::set) {
        return {{m_target, code(i)}};
    }
    std::vector<setting> settings;
    for (std::size_t lane = 0; lane < m_present.size(); ++lane) {
        const std::int32_t offset = to_signed_delay(code(i));
        const std::uint32_t before = m_present[lane];
        settings.push_back({m_target->lanes[lane],
                            offset == 0 ? before : to_lane_code(to_signed_delay(before) + offset)});
    }
    return settings;
}

std::string axis::text(std::size_t i) const {
    return is_delay(*m_target) ? to_delay(code(i)) : to_text(*m_target, code(i));
}

bool axis::has_present() const {
    if (m_target->kind == knob_kind::set) {
        return steps_away(m_nearest) == 0;
    }
    return is_same(code(m_nearest), m_present.front());
}

std::size_t axis::longest_text() const {
    std::size_t longest = 0;
    for (std::size_t i = 0; i < size(); ++i) {
        longest = std::max(longest, text(i).size());
    }
    return longest;
}

std::string axis::description() const {
    std::string all = counted(size(), "point");
    if (m_listed.empty() && size() > 1) {
        return all + ", " + text(0) + " to " + text(size() - 1);
    }
    for (std::size_t i = 0; i < size(); ++i) {
        all += ", " + text(i);
    }
    return all;
}

std::size_t axis::find(std::string_view text) const {
    std::uint32_t wanted = 0;
    try {
        wanted = parse_value(unit(), text).front();
    } catch (const mistake&) {
        return size();
    }
    if (m_listed.empty()) {
        const std::int64_t away = position(wanted) - m_from;
        const std::int64_t found = away / m_step;
        const bool is_point = away >= 0 && away % m_step == 0;
        return is_point ? std::min(static_cast<std::size_t>(found), size()) : size();
    }
    const auto found =
        std::lower_bound(m_listed.begin(), m_listed.end(), wanted,
                         [this](std::uint32_t a, std::uint32_t b) { return is_before(a, b); });
    if (found == m_listed.end() || !is_same(*found, wanted)) {
        return size();
    }
    return static_cast<std::size_t>(found - m_listed.begin());
}

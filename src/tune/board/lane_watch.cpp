#include "tune/board/lane_watch.hpp"

#include <algorithm>

#include "tune/knob/value_text.hpp"

namespace {

std::string delay_in(const reading& r) {
    if (!r.code) {
        return "nothing that can be read";
    }
    return to_delay(*r.code);
}

} // namespace

lane_watch::lane_watch(const knobs& all, const std::vector<const knob*>& targets) {
    for (const knob& k : all.all()) {
        const bool is_near = std::any_of(targets.begin(), targets.end(), [&](const knob* target) {
            return target->select_address() == k.select_address();
        });
        if (k.kind == knob_kind::lane && is_near) {
            m_lanes.push_back(&k);
        }
    }
}

void lane_watch::look() {
    m_readings = read_all(m_lanes);
}

std::vector<std::string> lane_watch::changed(const std::vector<const knob*>& but) {
    const std::vector<reading> before = m_readings;
    look();
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < m_lanes.size(); ++i) {
        const bool was_set = std::find(but.begin(), but.end(), m_lanes[i]) != but.end();
        if (!was_set && before[i].code != m_readings[i].code) {
            lines.push_back(m_lanes[i]->name() + " held " + delay_in(before[i]) +
                            " and now holds " + delay_in(m_readings[i]) + ", though nobody set it");
        }
    }
    return lines;
}

#include "tune/board/lane_watch.hpp"

#include <algorithm>

#include "tune/knob/value_text.hpp"

lane_watch::lane_watch(const knobs& all, const std::vector<const knob*>& targets) {
    for (const knob& k : all.all()) {
        const bool is_near = std::any_of(targets.begin(), targets.end(), [&](const knob* target) {
            return target->page() == k.page();
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
        const reading& now = m_readings[i];
        if (was_set || !before[i].code || before[i].code == now.code) {
            continue;
        }
        if (now.code) {
            lines.push_back(now.source->name() + " held " + to_delay(*before[i].code) +
                            " and now holds " + to_delay(*now.code) + ", though nobody set it");
        } else if (!now.repeated) {
            lines.push_back(now.source->name() + " can no longer be read: " + now.reason);
        }
    }
    return lines;
}

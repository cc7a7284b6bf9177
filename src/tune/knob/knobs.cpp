#include "tune/knob/knobs.hpp"

#include <algorithm>
#include <cctype>
#include <numeric>
#include <set>

#include <fnmatch.h>

#include "property/property.hpp"
#include "property/property_group.hpp"
#include "property/property_set.hpp"
#include "tune/text/mistake.hpp"
#include "tune/text/text.hpp"

namespace {

std::string lower_case(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

/**
 * How many characters of one text have to be added, dropped or replaced to make it the beginning of
 * the other one; and then, to make it the whole of it.
 */
std::pair<std::size_t, std::size_t> distance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
            diagonal = row[j];
            row[j] = std::min(std::min(row[j], row[j - 1]) + 1, replaced);
        }
    }
    return {*std::min_element(row.begin(), row.end()), row.back()};
}

} // namespace

knobs::knobs() {
    for (const auto& [group_name, group] : property_group::get_groups()) {
        for (const auto& [name, p] : group->m_properties) {
            m_by_name[name] = &m_all.emplace_back(*p, group_name);
        }
    }
    for (knob& k : m_all) {
        if (k.kind == knob_kind::set) {
            for (const std::string& lane : dynamic_cast<property_set&>(*k.property_of).m_members) {
                knob& its_lane = *m_by_name.at(lane);
                its_lane.is_in_set = true;
                k.lanes.push_back(&its_lane);
            }
        }
    }
}

const knob& knobs::named(const std::string& name) const {
    const auto entry = m_by_name.find(name);
    if (entry != m_by_name.end()) {
        return *entry->second;
    }
    if (property_group::get_groups().contains(name)) {
        throw mistake(in_quotes(name) + " is a group: name one of its properties");
    }
    fail("property", name);
}

std::vector<const knob*> knobs::all_but_lanes_of_sets() const {
    std::vector<const knob*> found;
    for (const knob& k : m_all) {
        if (!k.is_in_set) {
            found.push_back(&k);
        }
    }
    return found;
}

std::vector<const knob*> knobs::chosen(const std::vector<std::string>& names) const {
    std::set<const knob*> wanted;
    for (const std::string& name : names) {
        const auto add = [&](const auto& fits) {
            bool found = false;
            for (const knob& k : m_all) {
                if (fits(k)) {
                    wanted.insert(&k);
                    found = true;
                }
            }
            return found;
        };
        if (!add([&](const knob& k) { return k.name() == name; }) &&
            !add([&](const knob& k) { return k.group == name; }) &&
            !add([&](const knob& k) { return fnmatch(name.c_str(), k.name().c_str(), 0) == 0; })) {
            fail("property, group or pattern", name);
        }
    }
    std::set<const knob*> in_sets;
    for (const knob* k : wanted) {
        in_sets.insert(k->lanes.begin(), k->lanes.end());
    }
    std::vector<const knob*> result;
    for (const knob& k : m_all) {
        if (wanted.contains(&k) && !in_sets.contains(&k)) {
            result.push_back(&k);
        }
    }
    return result;
}

void knobs::fail(const std::string& what, const std::string& name) const {
    std::vector<std::pair<std::pair<std::size_t, std::size_t>, std::string>> near;
    const std::string wanted = lower_case(name.substr(0, 40)); // the longest name has 32
    const auto add = [&](const std::string& other) {
        near.emplace_back(distance(wanted, lower_case(other)), other);
    };
    for (const knob& k : m_all) {
        add(k.name());
    }
    for (const auto& [group_name, group] : property_group::get_groups()) {
        add(group_name);
    }
    std::partial_sort(near.begin(), near.begin() + 3, near.end());
    throw mistake("no " + what + ": " + in_quotes(name) + "; near are " + near[0].second + ", " +
                  near[1].second + " and " + near[2].second);
}

std::vector<const knob*> parts_of(const std::vector<const knob*>& chosen) {
    std::vector<const knob*> parts;
    for (const knob* k : chosen) {
        const std::vector<const knob*> its_parts = k->parts();
        parts.insert(parts.end(), its_parts.begin(), its_parts.end());
    }
    return parts;
}

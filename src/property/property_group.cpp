#include "property/property_group.hpp"

#include <utility>

#include "base/put.hpp"

property_group::property_group(std::string group_name) : name(std::move(group_name)) {}

property* property_group::add_property(property* p) {
    return put(m_properties, m_place, p->name, p) = p;
}

property_group* property_group::register_property_group(const std::string& name) {
    property_group*& entry = property_groups[name];
    if (entry == nullptr) {
        entry = new property_group(name);
    }
    return entry;
}

property_group* property_group::get_property_group(const std::string& name) {
    property_group* found = nullptr;
    try {
        found = property_groups[name];
    } catch (...) { // no memory for the entry
    }
    return found;
}

std::map<std::string, property_group*> property_group::get_groups() {
    return property_groups;
}

void property_group::free_all() {
    for (const auto& [name, group] : property_groups) {
        delete group;
    }
    property_groups.clear();
}

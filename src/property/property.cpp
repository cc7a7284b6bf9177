#include "property/property.hpp"

#include "property/property_group.hpp"

property::property(const std::string& property_name) : name(property_name) {}

void property::get_help(std::string& help) {
    help = "no help.";
}

void property::on_unregister() {
    if (m_auto_delete) {
        delete this;
    }
}

property* property::get_property(const std::string& name) {
    const auto entry = properties.find(name);
    return entry == properties.end() ? nullptr : entry->second;
}

property* property::register_property(property_group* group, property* p) {
    // A registration would look behind the last name first, where a single property seldom belongs.
    const auto [entry, is_new] = properties.emplace(p->name, p);
    if (!is_new) {
        return nullptr;
    }
    try {
        return group->add_property(p);
    } catch (...) {
        properties.erase(entry); // no memory for the member: p stays with its caller
        throw;
    }
}

property* property::register_property(const std::string& group_name, property* p) {
    return register_property(property_group::register_property_group(group_name), p);
}

void property::free_all() {
    for (const auto& [name, p] : properties) {
        p->on_unregister();
    }
    properties.clear();
}

#include "property/property.hpp"

#include "base/put.hpp"
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
    static auto place = properties.end(); // after the one registered last
    property*& entry = put(properties, place, p->name, nullptr);
    if (entry != nullptr) {
        return nullptr;
    }
    group->add_property(p); // if that throws, the entry stays null and the caller keeps p
    entry = p;
    return p;
}

property* property::register_property(const std::string& group_name, property* p) {
    return register_property(property_group::register_property_group(group_name), p);
}

void property::free_all() {
    for (const auto& [name, p] : properties) {
        if (p != nullptr) {
            p->on_unregister();
        }
    }
    properties.clear();
}

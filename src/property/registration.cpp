#include "property/registration.hpp"

#include <cstddef>
#include <iterator>

registration::registration(property_group* group)
    : m_group(*group), m_in_registry(property::properties.end()),
      m_in_group(group->m_properties.end()) {}

property* registration::add(property* p) {
    const std::size_t before = property::properties.size();
    const place entry = property::properties.emplace_hint(m_in_registry, p->name, p);
    if (property::properties.size() == before) {
        return nullptr;
    }
    try {
        m_in_group = m_group.m_properties.emplace_hint(m_in_group, p->name, p);
        m_in_group->second = p; // also in place of a member of that name
    } catch (...) {
        property::properties.erase(entry); // no memory for the member: p stays with its caller
        throw;
    }
    m_in_registry = std::next(entry);
    ++m_in_group;
    return p;
}

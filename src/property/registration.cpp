#include "property/registration.hpp"

#include <cstddef>
#include <iterator>

registration::registration(property_group* group)
    : m_group(*group), m_in_registry(property::properties.end()),
      m_in_group(group->m_properties.end()) {}

registration::place registration::behind(place entry, place expected) {
    return std::prev(expected) == entry ? expected : std::next(entry);
}

property* registration::add(property* p) {
    const std::size_t before = property::properties.size();
    const place entry = property::properties.emplace_hint(m_in_registry, p->name, p);
    if (property::properties.size() == before) {
        return nullptr;
    }
    try {
        const place member = m_group.m_properties.emplace_hint(m_in_group, p->name, p);
        member->second = p; // also in place of a member of that name
        m_in_group = behind(member, m_in_group);
    } catch (...) {
        property::properties.erase(entry); // no memory for the member: p stays with its caller
        throw;
    }
    m_in_registry = behind(entry, m_in_registry);
    return p;
}

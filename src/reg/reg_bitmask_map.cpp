#include "reg/reg_bitmask_map.hpp"

reg_bitmask_map::reg_bitmask_map(int msb, int lsb, const std::string& name, const std::string& desc,
                                 const value_map* map)
    : reg_bitmask(msb, lsb, name, desc), m_map(map) {}

bool reg_bitmask_map::check_subval(unsigned int value) {
    return m_map->contains(value);
}

bool reg_bitmask_map::_before_set(unsigned int& value) {
    const auto entry = m_map->find(value);
    if (entry == m_map->end()) {
        return false;
    }
    value = entry->second;
    return true;
}

bool reg_bitmask_map::_after_read(unsigned int& value) {
    for (const auto& [key, raw] : *m_map) {
        if (raw == value) {
            value = key;
            return true;
        }
    }
    return false;
}

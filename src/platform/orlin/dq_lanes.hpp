#pragma once

#include <initializer_list>
#include <map>
#include <string>

#include "base/put.hpp"
#include "platform/orlin/reg_bitmask_dq.hpp"

namespace orlin {

/**
 * The lanes of a DQ register that has not been used. Registers with the same lanes begin as copies
 * of this: copying a map takes a third of the time of filling one, and DQ registers hold most of
 * the fields of a chip.
 */
struct dq_lanes {
    /** @param fields not owned; implicit, so that a plain list of fields can be passed as lanes */
    dq_lanes(std::initializer_list<reg_bitmask_dq*> fields) {
        auto place = m_by_name.end();
        for (reg_bitmask_dq* field : fields) {
            put(m_by_name, place, field->get_name(), field) = field;
            m_words[field] = 0;
            m_flags[field] = false;
        }
    }

    std::map<std::string, reg_subval*> m_by_name;
    std::map<reg_subval*, unsigned int> m_words;
    std::map<reg_subval*, bool> m_flags;
};

} // namespace orlin

#pragma once

#include <initializer_list>
#include <map>

#include "platform/orlin/reg_bitmask_dq.hpp"
#include "reg/field_map.hpp"

namespace orlin {

/**
 * The lanes of a DQ register, as they are before it is used. Registers with the same lanes start
 * as copies of this: copying a map takes a third of the time of filling one, and DQ registers
 * hold most of the fields of a chip.
 */
struct dq_lanes {
    /** @param fields not owned; implicit, since a list of lanes is what a register asks for */
    dq_lanes(std::initializer_list<reg_bitmask_dq*> fields);

    field_map by_name;
    /** The words: 0. */
    std::map<reg_subval*, unsigned int> words;
    /** A flag for each: false. */
    std::map<reg_subval*, bool> flags;
};

} // namespace orlin

#pragma once

#include <initializer_list>

#include "platform/orlin/reg_bitmask_dq.hpp"
#include "reg/field_map.hpp"

namespace orlin {

/**
 * The lanes of a DQ register, by name. Registers with the same lanes start with copies of this:
 * copying a map takes a third of the time of filling one, and DQ registers hold most of the fields
 * of a chip.
 */
struct dq_lanes {
    /** @param fields not owned; implicit, since a list of lanes is what a register asks for */
    dq_lanes(std::initializer_list<reg_bitmask_dq*> fields) : by_name(fields_by_name(fields)) {}

    field_map by_name;
};

} // namespace orlin

#pragma once

#include <initializer_list>
#include <string>

#include "property/property.hpp"
#include "property/property_group.hpp"
#include "property/property_register.hpp"
#include "reg/reg_bitmask.hpp"
#include "reg/reg_bitmask_map.hpp"
#include "reg/reg_bitmask_ro.hpp"
#include "reg/reg_info.hpp"
#include "support/fake_memory.hpp"
#include "support/hardware_test.hpp"

/**
 * A test with the fields of three registers registered as properties:
 *
 *     "r::a" bits 7 to 4, "r::b" bits 12 to 8   "r" holds 0x12345678: a is 7, b is 22
 *     "wide::all" bits 31 to 0                  "wide" holds 100
 *     "mixed::map" bits 3 to 0, "mixed::ro" 7 to 4    "mixed" holds 0x53: map none, ro 5
 *
 * The map of "mixed::map" gives 40 the code 1, and 2 the code 2.
 */
class field_properties : public hardware_test {
protected:
    static constexpr unsigned int r = 0x10000000;
    static constexpr unsigned int wide = 0x10000004;
    static constexpr unsigned int mixed = 0x10000008;

    field_properties() {
        fake_memory::words = {{r, 0x12345678}, {wide, 100}, {mixed, 0x53}};
        for (reg_info* reg : {&m_r, &m_wide, &m_mixed}) {
            property_register::register_as_property(
                property_group::register_property_group("registers"), reg);
        }
    }

    static bool set(const std::string& name, const std::string& value) {
        return property::get_property(name)->set(value);
    }

    const reg_bitmask_map::value_map m_map = {{40, 1}, {2, 2}};
    reg_info m_r{
        "r",
        r,
        {new reg_bitmask(12, 8, "b", "five bits"), new reg_bitmask(7, 4, "a", "four bits")},
        false};
    reg_info m_wide{"wide", wide, {new reg_bitmask(31, 0, "all", "every bit")}, false};
    reg_info m_mixed{"mixed", mixed,
                     std::initializer_list<reg_bitmask*>{
                         new reg_bitmask_map(3, 0, "map", "a few values", &m_map),
                         new reg_bitmask_ro(7, 4, "ro", "seen only")},
                     false};
};

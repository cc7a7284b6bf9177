#pragma once

#include <map>
#include <string>

#include "reg/reg_bitmask.hpp"

/**
 * A bit range whose raw codes stand for other numbers, such as ohms, given by a table.
 *
 * Only the table's keys can be set; a raw code that no key maps to cannot be read. When several
 * keys map to one code, reading gives the smallest. The limits stay those of the raw bit range,
 * so a step is clamped against raw codes first and then refused unless it hits a key.
 */
class reg_bitmask_map : public reg_bitmask {
public:
    /** From user value to raw field code, both unsigned 32-bit. */
    using value_map = std::map<unsigned int, unsigned int>;

    /** @param map not owned, and used as long as the field lives; its codes fit the bit range */
    reg_bitmask_map(int msb, int lsb, const std::string& name, const std::string& desc,
                    const value_map* map);

    /** True when the value is a key of the table; the width of the field does not matter. */
    bool check_subval(unsigned int value) override;
    bool _before_set(unsigned int& value) override;
    bool _after_read(unsigned int& value) override;

    const value_map& map() const { return *m_map; }

protected:
    const value_map* m_map;
};

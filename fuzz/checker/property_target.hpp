#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "model/register_table.hpp"

/** Where a field lies and what it may hold. */
struct field_place {
    enum class kind { plain, mapped, read_only, dq };
    kind what;
    register_key place;
    unsigned int high; ///< highest bit, inclusive
    unsigned int low;  ///< lowest bit, inclusive
    /** User value to raw code; for `mapped` only. */
    std::map<std::uint32_t, std::uint32_t> codes;

    /** The largest raw code. */
    std::uint32_t limit() const { return ~std::uint32_t{0} >> (31 - (high - low)); }

    std::uint32_t raw(std::uint32_t word) const { return (word >> low) & limit(); }

    /** The bits that every write of the field sets: for a DQ delay the one above it. */
    std::uint32_t set_bits() const { return what == kind::dq ? (limit() + 1) << low : 0; }

    /** The bits that a write of the field may change. */
    std::uint32_t writable_bits() const {
        return what == kind::read_only ? 0 : limit() << low | set_bits();
    }
};

/** What a property may reach when it is read or set. */
struct property_target {
    enum class kind { field, set, file, regulator };
    kind what = kind::field;
    /** `field`: the one; `set`: those of its members, in their order. */
    std::vector<field_place> fields;
    /** `file`: the file; `regulator`: its folder. By the path on the board. */
    std::string path;
    /** `file`: the smallest and the largest value. */
    int min = 0;
    int max = 0;

    bool is_in_registers() const { return what == kind::field || what == kind::set; }

    /** The one file that may change, or an empty text. */
    std::string writable_file() const {
        return what == kind::regulator ? path + "/microvolts" : path;
    }
};

#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "reg/reg_bitmask.hpp"
#include "reg/reg_info.hpp"

class property;

/** The kinds of properties, by what may be done with their values. */
enum class knob_kind { field, mapped, read_only, lane, set, file, regulator };

/**
 * A property as a thing to be tuned: where its value lies, and what it may be.
 *
 * The one place that asks a property or a field for its kind. Values are unsigned
 * 32-bit codes: for a register's field the bits as they stand in the word, shifted down; for a file
 * or a regulator the number itself. A set has no code of its own, but those of its lanes.
 */
struct knob {
    /**
     * @param p not owned, and registered
     * @throw std::logic_error for a kind of property, field or register that it does not know
     */
    knob(property& p, std::string group_name);

    const std::string& name() const;

    /** Whether it is a range of bits of a register. */
    bool in_register() const { return field != nullptr; }

    /** The smallest and the largest code: 0 and the field's mask, or what a file may hold. */
    std::uint32_t least() const;
    std::uint32_t most() const;

    property* property_of;
    std::string group;
    knob_kind kind;

    reg_info* reg = nullptr;      ///< of a register's field
    reg_bitmask* field = nullptr; ///< likewise

    /** The address of its register's page, 4 KiB; a DDR PHY has one to itself. 0 for a file's. */
    std::uint32_t page() const;

    /** Of a set, in its order; filled by `knobs`. */
    std::vector<const knob*> lanes;
    bool is_in_set = false; ///< it is such a lane

    /** The knobs that have codes: its lanes, or the knob itself. */
    std::vector<const knob*> parts() const;
};

/** The table of a mapped field: key to code. */
const std::map<unsigned int, unsigned int>& key_map(const knob& mapped);

/** The path of a file, or of a regulator's folder. */
const std::string& file_name(const knob& k);

/**
 * The present code, from the hardware: in a child process (see tune/board/child.hpp), since a
 * register keeps its word for the life of the process.
 * @throw std::runtime_error with the reason why there is none
 */
std::uint32_t read_code(const knob& k);

/**
 * The lowest and the highest voltage that a regulator takes, in microvolts.
 * @throw mistake with the file and the reason
 */
std::pair<std::uint32_t, std::uint32_t> voltage_limits(const knob& regulator);

/** A code for a knob. */
struct setting {
    const knob* target;
    std::uint32_t code;
};

/**
 * Writes codes to the hardware, and does not look whether it took them: fields of one register, in
 * one write each word, or a single file. In a child process, as `read_code`.
 */
void write_codes(const std::vector<setting>& settings);

#pragma once

#include <string>

#include "property/property.hpp"

class property_group;
class reg_info;
class reg_subval;

/**
 * One field of one hardware register as a property.
 *
 * It only turns text into calls on the field and the register, and results back into text; it
 * honours the number mode. It keeps no state: every `get` asks the field, every successful `set`
 * ends with a commit of the whole register.
 */
class property_register : public property {
public:
    /**
     * Creates and registers one property per field of a register, in ascending order of the
     * field names, each named register name + "::" + field name. A name that is taken is
     * reported on standard error and skipped.
     * @param group not null
     * @param reg   not owned; it and its fields outlive the properties
     */
    static void register_as_property(property_group* group, reg_info* reg);

    /**
     * Writes the field: by a signed 64-bit step when the text begins with "+" or "-", otherwise
     * absolutely, with the low 32 bits of the number. What follows the number is ignored. A text
     * without a number is reported on standard error and refused; an empty one silently.
     * @return true when the field accepted the value and the register was committed; otherwise
     *         nothing was written
     * @throw std::out_of_range "stoll" or "stoull" for a number beyond 64 bits
     */
    bool set(const std::string& value) override;

    /** The field's value in the number mode; hexadecimal is "0x" and lower-case digits, unpadded.
     */
    bool get(std::string& value) override;

    /** The field's description. */
    void get_help(std::string& help) override;

    reg_info* const m_reg;
    reg_subval* const m_subval;

private:
    property_register(const std::string& property_name, reg_info* reg, reg_subval* subval);
};

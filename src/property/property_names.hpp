#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/**
 * Builds the names of registers' properties: register name + "::" + field name.
 *
 * All are built in one place, one after another.
 */
class property_names {
public:
    /** The register that the names asked for from now on belong to. */
    void begin(std::string_view register_name) {
        m_name.assign(register_name).append("::");
        m_stem = m_name.size();
    }

    /** The name for a field, in the place of the one before. */
    const std::string& of(std::string_view field_name) {
        m_name.resize(m_stem);
        return m_name.append(field_name);
    }

private:
    std::string m_name;
    /** Length of the part that a register's names have in common. */
    std::size_t m_stem = 0;
};

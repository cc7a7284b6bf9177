#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/** The names of one register's properties: register name + "::" + field name. */
class property_names {
public:
    explicit property_names(std::string_view register_name) {
        m_name.reserve(usual_length);
        m_name.append(register_name).append("::");
        m_stem = m_name.size();
    }

    /** The name for a field, built in the place of the one before. */
    const std::string& of(std::string_view field_name) {
        m_name.resize(m_stem);
        return m_name.append(field_name);
    }

private:
    static constexpr std::size_t usual_length = 48;

    std::string m_name;
    std::size_t m_stem;
};

#pragma once

#include <string>
#include <string_view>

/** The name of a register's property: register name + "::" + field name, in one allocation. */
inline std::string property_name(std::string_view register_name, std::string_view field_name) {
    constexpr std::string_view separator = "::";
    std::string name;
    name.reserve(register_name.size() + separator.size() + field_name.size());
    return name.append(register_name).append(separator).append(field_name);
}

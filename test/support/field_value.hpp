#pragma once

#include <optional>

#include "reg/reg_info.hpp"
#include "reg/reg_subval.hpp"

/** What a field reads from a register, or nothing when it has no user value. */
inline std::optional<unsigned int> value_of(reg_subval* field, reg_info& reg) {
    unsigned int value = 0;
    if (!field->get(&reg, &value)) {
        return std::nullopt;
    }
    return value;
}

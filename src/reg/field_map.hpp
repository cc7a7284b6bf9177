#pragma once

#include <initializer_list>
#include <map>
#include <string>

#include "reg/reg_subval.hpp"

/** Fields by name; not owned. */
using field_map = std::map<std::string, reg_subval*>;

/** The fields of a list by their names; of two that share one, the later. */
template <class T>
field_map fields_by_name(std::initializer_list<T*> fields) {
    field_map by_name;
    for (T* field : fields) {
        // Lists mostly ascend: at the end is where the field belongs.
        by_name.emplace_hint(by_name.end(), field->get_name(), field)->second = field;
    }
    return by_name;
}

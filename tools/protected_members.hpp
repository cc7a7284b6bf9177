#pragma once

#include <string>

#include "property/property_file.hpp"
#include "property/property_regulator_voltage.hpp"
#include "reg/reg_bitmask.hpp"
#include "reg/reg_bitmask_map.hpp"

/*
 * Read access to protected members of the catalogue's objects, for tests and generators. A subclass
 * may name a protected member as a member of its base, and so reach it in every object of the base;
 * these subclasses are never built.
 */

struct bitmask_members : reg_bitmask {
    static unsigned int mask(const reg_bitmask& field) { return field.*(&bitmask_members::m_mask); }
    static int shift(const reg_bitmask& field) { return field.*(&bitmask_members::m_shift); }
};

struct bitmask_map_members : reg_bitmask_map {
    static const value_map* map(const reg_bitmask_map& field) {
        return field.*(&bitmask_map_members::m_map);
    }
};

struct regulator_members : property_regulator_voltage {
    static const std::string& path(const property_regulator_voltage& p) {
        return p.*(&regulator_members::m_path);
    }
    static double min_percent(const property_regulator_voltage& p) {
        return p.*(&regulator_members::m_min_percent);
    }
    static double max_percent(const property_regulator_voltage& p) {
        return p.*(&regulator_members::m_max_percent);
    }
};

struct file_members : property_file<int> {
    static const std::string& path(const property_file<int>& p) {
        return p.*(&file_members::m_path);
    }
    static int min(const property_file<int>& p) { return p.*(&file_members::m_min); }
    static int max(const property_file<int>& p) { return p.*(&file_members::m_max); }
};

#include "reg/reg_bitmask_ro.hpp"

bool reg_bitmask_ro::set(reg_info*, unsigned int) {
    return false;
}

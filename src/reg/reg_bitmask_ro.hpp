#pragma once

#include "reg/reg_bitmask.hpp"

/** A bit range that the hardware reports and that cannot be written. */
class reg_bitmask_ro : public reg_bitmask {
public:
    using reg_bitmask::reg_bitmask;

    /** Always false: no message, no access to the register. */
    bool set(reg_info* reg, unsigned int value) override;
};

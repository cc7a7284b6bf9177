#pragma once

#include <string>

#include "reg/reg_bitmask.hpp"

namespace orlin {

/**
 * The delay of one DQ lane: sign and magnitude in one bit range.
 *
 * The range's highest bit is the sign. Let half be the value of that bit (0x40 in the 7-bit delay
 * of the PHY): a value v >= half is the delay +(v - half), a smaller one the delay -v; 0 and half
 * both mean no delay. Every write also sets the bit just above the range (bit 7), which a read
 * never shows.
 */
class reg_bitmask_dq : public reg_bitmask {
public:
    /**
     * @param sel the lane's part of the selector: its DQ index shifted left by 8
     * The other parameters are those of `reg_bitmask`.
     */
    reg_bitmask_dq(int msb, int lsb, const std::string& name, const std::string& desc,
                   unsigned int sel);

    /**
     * Moves the delay, not the raw value, by a step; it may cross zero in either direction.
     * At the ends: a positive delay moved above the top is clamped with the warning of `clamp`; a
     * negative one moved below the bottom becomes the largest positive one, without a warning; one
     * that crosses zero and passes the other end runs on into the sign bit, and is clamped with
     * the warning beyond 127.
     */
    bool adjust(reg_info* reg, long long delta) override;

    bool _before_set(unsigned int& value) override;

    const unsigned int m_sel;

private:
    /** The raw value whose delay is that of `current` moved by `delta`; may pass the top. */
    long long moved(unsigned int current, long long delta) const;
};

} // namespace orlin

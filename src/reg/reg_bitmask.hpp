#pragma once

#include <string>

#include "reg/reg_subval.hpp"

/**
 * A field that is a contiguous range of bits of the register word, shown as it is.
 *
 * Legal values are 0 to the range's mask. Two hooks, `_before_set` and `_after_read`, let a
 * subclass translate between user values and raw field codes.
 *
 * Bit-fields are always built with `new`: `subval_garbages` owns every one of them.
 */
class reg_bitmask : public reg_subval {
public:
    /** @param msb highest bit, @param lsb lowest bit: both inclusive, 31 >= msb >= lsb >= 0 */
    reg_bitmask(int msb, int lsb, const std::string& name, const std::string& desc);

    /** Refuses, silently, a value that fails `check_subval`. */
    bool set(reg_info* reg, unsigned int value) override;

    /** On false `*value` holds the raw code, which has no user value. */
    bool get(reg_info* reg, unsigned int* value) override;

    /** 0 and the mask of the bit range. */
    void get_limits(unsigned int* min, unsigned int* max) override;

    /** Sets name, description and bit range; the bit numbers are those of the constructor. */
    virtual void init(const std::string& name, const std::string& desc, int msb, int lsb);

    /** True when a user value may be set: here, when it has no bit above the field's width. */
    virtual bool check_subval(unsigned int value);

    /**
     * The word with the field's bits replaced by a raw code. The code is trusted to fit: bits
     * above the field's width reach the word as they are.
     */
    virtual unsigned int apply_subval(unsigned int word, unsigned int raw);

    /** Turns a user value into the raw code, in place. False refuses the value. */
    virtual bool _before_set(unsigned int& value);

    /** Turns a raw code into the user value, in place. False: the code has no user value. */
    virtual bool _after_read(unsigned int& value);

    /** 2 to the power of the width, minus 1: the largest raw code. */
    unsigned int mask() const { return m_mask; }
    /** Number of the lowest bit. */
    int shift() const { return m_shift; }

protected:
    /** 2 to the power of the width, minus 1: not yet shifted. */
    unsigned int m_mask = 0;
    /** Number of the lowest bit. */
    int m_shift = 0;
};

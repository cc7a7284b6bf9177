#pragma once

#include <string>

#include "reg/regctl_garbages.hpp"

class reg_info;

/**
 * A named field of a register: an abstract user value with legal limits and a description.
 *
 * A field describes where in a word its value lies and what may be put there; it holds no value
 * of its own and is shared by every register that lists it. It never touches the hardware: it
 * reads and changes the register's cached word through `reg_info::load` and `reg_info::store`,
 * and its caller puts a change into effect with `reg_info::commit`.
 *
 * User values are unsigned 32-bit; steps and intermediate sums are signed 64-bit and wrap.
 */
class reg_subval {
public:
    /**
     * @param name    key of the field in its register, second half of its property's name
     * @param desc    one line, shown as the property's help
     * @param garbage true hands the object to `subval_garbages`, which then owns it; with false
     *                it belongs to its creator
     */
    reg_subval(const std::string& name, const std::string& desc, bool garbage);
    reg_subval(const reg_subval&) = delete;
    reg_subval& operator=(const reg_subval&) = delete;

    virtual ~reg_subval() = default;

    /**
     * Puts a user value into the field, in the register's cached word.
     * @return false when the field refuses the value; the register is then unchanged
     */
    virtual bool set(reg_info* reg, unsigned int value) = 0;

    /**
     * Reads the field's user value from the register's cached word.
     * @return false when the word holds no legal user value; `*value` is then not legal either
     */
    virtual bool get(reg_info* reg, unsigned int* value) = 0;

    /** Stores the smallest and the largest legal user value, both inclusive. */
    virtual void get_limits(unsigned int* min, unsigned int* max) = 0;

    /**
     * Moves a wanted value into the field's limits. A value outside them is reported in one line
     * on standard error ("warning! applying ...").
     * @param value   the wanted new user value
     * @param current the present user value, for the message only
     * @param request the requested change, for the message only
     * @return the value, or the limit nearest to it
     */
    virtual unsigned int clamp(long long value, unsigned int current, long long request);

    /**
     * Changes the field by a signed step, within its limits (see `clamp`). Does not commit.
     * @return false when the field cannot be read or refuses the clamped value; the register is
     *         then unchanged
     */
    virtual bool adjust(reg_info* reg, long long delta);

    virtual const std::string& get_name() { return m_name; }
    virtual const std::string& get_desc() { return m_desc; }

protected:
    std::string m_name;
    std::string m_desc;
};

/**
 * Owns every field that was built with the garbage flag.
 *
 * An inline variable, so that whatever is built by a source file that includes this header is built
 * after it, and destroyed before it, whatever the link order.
 */
inline regctl_garbages<reg_subval*> subval_garbages;

#include "reg/reg_bitmask.hpp"

#include <algorithm>

#include "reg/reg_info.hpp"

reg_bitmask::reg_bitmask(int msb, int lsb, const std::string& name, const std::string& desc)
    : reg_subval("value", "no desc", true) {
    reg_bitmask::init(name, desc, msb, lsb);
}

void reg_bitmask::init(const std::string& name, const std::string& desc, int msb, int lsb) {
    m_name = name;
    m_desc = desc;
    m_shift = lsb;
    const int width = std::max(msb - lsb + 1, 0);
    m_mask = width < 32 ? (1U << width) - 1 : ~0U; // shifting by 32 is undefined
}

bool reg_bitmask::set(reg_info* reg, unsigned int value) {
    if (!check_subval(value)) {
        return false;
    }
    unsigned int raw = value;
    if (!_before_set(raw)) {
        return false;
    }
    const unsigned int word = reg->load(this);
    reg->store(this, apply_subval(word, raw));
    return true;
}

bool reg_bitmask::get(reg_info* reg, unsigned int* value) {
    const unsigned int word = reg->load(this);
    *value = (word >> m_shift) & m_mask;
    return _after_read(*value);
}

void reg_bitmask::get_limits(unsigned int* min, unsigned int* max) {
    *min = 0;
    *max = m_mask;
}

bool reg_bitmask::check_subval(unsigned int value) {
    return (value & m_mask) == value;
}

unsigned int reg_bitmask::apply_subval(unsigned int word, unsigned int raw) {
    return (raw << m_shift) | (word & ~(m_mask << m_shift));
}

bool reg_bitmask::_before_set(unsigned int&) {
    return true;
}

bool reg_bitmask::_after_read(unsigned int&) {
    return true;
}

#include "platform/orlin/reg_bitmask_dq.hpp"

#include "base/wrapping.hpp"

namespace orlin {

reg_bitmask_dq::reg_bitmask_dq(int msb, int lsb, const std::string& name, const std::string& desc,
                               unsigned int sel)
    : reg_bitmask(msb, lsb, name, desc), m_sel(sel) {}

bool reg_bitmask_dq::adjust(reg_info* reg, long long delta) {
    unsigned int current = 0;
    if (!get(reg, &current)) {
        return false;
    }
    return set(reg, clamp(moved(current, delta), current, delta));
}

long long reg_bitmask_dq::moved(unsigned int current, long long delta) const {
    const unsigned int half = (m_mask + 1) / 2;
    if ((current & half) != 0) {
        const long long sum = wrapping_add<long long>(current, delta);
        return sum <= half ? wrapping_subtract<long long>(half, sum) : sum;
    }
    const long long magnitude = wrapping_subtract<long long>(current, delta);
    if (magnitude >= half) {
        return m_mask;
    }
    return magnitude >= 0 ? magnitude : wrapping_subtract<long long>(half, magnitude);
}

bool reg_bitmask_dq::_before_set(unsigned int& value) {
    value |= m_mask + 1;
    return true;
}

} // namespace orlin

#include "reg/reg_subval.hpp"

#include "base/output_stream.hpp"
#include "base/wrapping.hpp"

reg_subval::reg_subval(const std::string& name, const std::string& desc, bool garbage)
    : m_name(name), m_desc(desc) {
    if (garbage) {
        subval_garbages.m_list.push_back(this);
    }
}

unsigned int reg_subval::clamp(long long value, unsigned int current, long long request) {
    unsigned int min = 0;
    unsigned int max = 0;
    get_limits(&min, &max);
    if (value >= min && value <= max) {
        return static_cast<unsigned int>(value);
    }
    const unsigned int limit = value < min ? min : max;
    standard_error.print_line("warning! applying " + std::to_string(request) +
                              " to current value " + std::to_string(current) +
                              " is out of range (" + std::to_string(min) + " ~ " +
                              std::to_string(max) + "). adjusted to " + std::to_string(limit));
    return limit;
}

bool reg_subval::adjust(reg_info* reg, long long delta) {
    unsigned int current = 0;
    if (!get(reg, &current)) {
        return false;
    }
    const long long wanted = wrapping_add<long long>(current, delta);
    return set(reg, clamp(wanted, current, delta));
}

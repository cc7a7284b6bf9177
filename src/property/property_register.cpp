#include "property/property_register.hpp"

#include <cstddef>
#include <memory>
#include <stdexcept>

#include "base/hexadecimal.hpp"
#include "base/output_stream.hpp"
#include "reg/reg_info.hpp"
#include "reg/reg_subval.hpp"

namespace {

bool hexadecimal_mode() {
    return property::m_number_mode == 1;
}

bool has_hexadecimal_prefix(const std::string& text) {
    return text.starts_with("0x") || text.starts_with("0X");
}

/** A hexadecimal number may have 64 bits and wraps into the signed range; a decimal one has 63. */
long long parse(const std::string& text, bool base_16) {
    return base_16 ? static_cast<long long>(std::stoull(text, nullptr, 16))
                   : std::stoll(text, nullptr, 10);
}

std::string format(unsigned int value) {
    return hexadecimal_mode() ? hexadecimal(value) : std::to_string(value);
}

} // namespace

property_register::property_register(const std::string& property_name, reg_info* reg,
                                     reg_subval* subval)
    : property(property_name), m_reg(reg), m_subval(subval) {}

void property_register::register_as_property(property_group* group, reg_info* reg) {
    std::string full_name; // reused for one property after another
    full_name.reserve(2 * reg->m_name.size());
    const std::size_t stem = full_name.append(reg->m_name).append("::").size();
    for (const auto& [field_name, field] : reg->m_subvals) {
        full_name.replace(stem, std::string::npos, field_name);
        std::unique_ptr<property_register> p(new property_register(full_name, reg, field));
        if (register_property(group, p.get()) == nullptr) {
            standard_error.print_line("property " + full_name + " is already registered.");
            continue;
        }
        static_cast<void>(p.release()); // the registry owns it now
    }
}

bool property_register::set(const std::string& value) {
    if (value.empty()) {
        return false;
    }
    const bool relative = value.front() == '+' || value.front() == '-';
    // A prefix after a sign is not looked for: in decimal mode "+0x10" is a step of 0.
    const bool base_16 = hexadecimal_mode() || (!relative && has_hexadecimal_prefix(value));
    long long number = 0;
    try {
        number = parse(value, base_16);
    } catch (const std::invalid_argument&) {
        standard_error.print_line("failed to parse value " + value);
        return false;
    }
    const bool accepted = relative ? m_subval->adjust(m_reg, number)
                                   : m_subval->set(m_reg, static_cast<unsigned int>(number));
    if (accepted) {
        m_reg->commit();
    }
    return accepted;
}

bool property_register::get(std::string& value) {
    unsigned int number = 0;
    if (!m_subval->get(m_reg, &number)) {
        return false;
    }
    value = format(number);
    return true;
}

void property_register::get_help(std::string& help) {
    help = m_subval->get_desc();
}

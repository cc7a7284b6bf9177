#include "property/property_register.hpp"

#include <charconv>
#include <iterator>
#include <memory>
#include <stdexcept>

#include "output/output_stream.hpp"
#include "property/property_names.hpp"
#include "property/registration.hpp"
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
long long parse(const std::string& text, bool hexadecimal) {
    return hexadecimal ? static_cast<long long>(std::stoull(text, nullptr, 16))
                       : std::stoll(text, nullptr, 10);
}

std::string format(unsigned int value) {
    if (!hexadecimal_mode()) {
        return std::to_string(value);
    }
    char digits[8]; // 32 bits
    const auto end = std::to_chars(std::begin(digits), std::end(digits), value, 16).ptr;
    return "0x" + std::string(std::begin(digits), end);
}

} // namespace

property_register::property_register(const std::string& property_name, reg_info* reg,
                                     reg_subval* subval)
    : property(property_name), m_reg(reg), m_subval(subval) {}

void property_register::register_as_property(property_group* group, reg_info* reg) {
    register_as_property(group, std::span(&reg, 1));
}

void property_register::register_as_property(property_group* group,
                                             std::span<reg_info* const> registers) {
    registration run(group);
    property_names names;
    for (reg_info* reg : registers) {
        names.begin(reg->m_name);
        for (const auto& [field_name, field] : reg->m_subvals) {
            std::unique_ptr<property_register> p(
                new property_register(names.of(field_name), reg, field));
            if (run.add(p.get()) == nullptr) {
                standard_error.print_line("property " + p->name + " is already registered.");
                continue;
            }
            static_cast<void>(p.release()); // the registry owns it now
        }
    }
}

bool property_register::set(const std::string& value) {
    if (value.empty()) {
        return false;
    }
    const bool relative = value.front() == '+' || value.front() == '-';
    // A prefix behind a sign is not looked for: in decimal mode "+0x10" is a step of 0.
    const bool hexadecimal = hexadecimal_mode() || (!relative && has_hexadecimal_prefix(value));
    long long number = 0;
    try {
        number = parse(value, hexadecimal);
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

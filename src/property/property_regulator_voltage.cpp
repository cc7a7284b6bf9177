#include "property/property_regulator_voltage.hpp"

#include <cstdio>
#include <limits>
#include <optional>
#include <stdexcept>
#include <utility>

#include "base/output_stream.hpp"
#include "base/text_file.hpp"

namespace {

constexpr const char* microvolts_file = "/microvolts";
constexpr const char* min_microvolts_file = "/min_microvolts";
constexpr const char* max_microvolts_file = "/max_microvolts";

constexpr std::uint32_t voltage_step = 10000; // microvolts

/** Raises a voltage to a whole multiple of the step: unsigned 32-bit, saturating. */
std::uint32_t whole_steps(double microvolts) {
    constexpr std::uint32_t most = std::numeric_limits<std::uint32_t>::max();
    constexpr std::uint32_t most_steps = most / voltage_step;
    const double steps = microvolts / voltage_step;
    if (!(steps > 0)) { // also for not-a-number
        return 0;
    }
    if (steps > most_steps) {
        return most;
    }
    const auto whole = static_cast<std::uint32_t>(steps);
    return (whole < steps ? whole + 1 : whole) * voltage_step;
}

/** `std::stol` as it behaves where a `long` has 32 bits, on every host. */
std::int32_t to_int32(const std::string& word) {
    const long number = std::stol(word);
    if (!std::in_range<std::int32_t>(number)) {
        throw std::out_of_range("stol");
    }
    return static_cast<std::int32_t>(number);
}

/** At most six significant digits, and no trailing zeros. */
std::string format_general(double number) {
    char text[16]; // -1.23457e+308
    std::snprintf(text, sizeof text, "%g", number);
    return text;
}

} // namespace

property_regulator_voltage::property_regulator_voltage(const std::string& property_name,
                                                       std::string path, double min_percent,
                                                       double max_percent)
    : property(property_name), m_path(std::move(path)), m_min_percent(min_percent),
      m_max_percent(max_percent) {}

bool property_regulator_voltage::set(const std::string& value) {
    if (!load_limits()) {
        return false;
    }
    double target = 0;
    if (value.size() >= 2 && value.back() == '%') {
        const double percent = std::stod(value);
        if (percent > m_max_percent || percent < m_min_percent) {
            standard_error.print_line("percentage " + format_general(percent) + "%: out of range");
            return false;
        }
        // Multiply first: if divided first, 103.75% of 800000 would come out above 830000.
        target = m_base_uv * percent / 100;
    } else {
        target = std::stod(value);
    }
    const std::uint32_t microvolts = whole_steps(target);
    if (microvolts < m_min_uv || microvolts > m_max_uv) {
        standard_error.print_line(std::to_string(microvolts) + "mv: out of range(" +
                                  std::to_string(m_min_uv) + "-" + std::to_string(m_max_uv) + ")");
        return false;
    }
    _fileintwrite(m_path + microvolts_file, static_cast<std::int32_t>(microvolts));
    return true;
}

bool property_regulator_voltage::get(std::string& value) {
    std::uint32_t microvolts = 0;
    if (!load_limits() || !read_voltage(microvolts)) {
        return false;
    }
    value = std::to_string(microvolts);
    return true;
}

bool property_regulator_voltage::load_limits() {
    if (!m_limits_loaded) {
        m_limits_loaded = read_voltage(m_base_uv) && read_limit(min_microvolts_file, m_min_uv) &&
                          read_limit(max_microvolts_file, m_max_uv);
    }
    return m_limits_loaded;
}

bool property_regulator_voltage::read_voltage(std::uint32_t& microvolts) {
    std::int32_t number = 0;
    if (!read_number(microvolts_file, number) || number < 0) {
        return false;
    }
    microvolts = static_cast<std::uint32_t>(number);
    return true;
}

bool property_regulator_voltage::read_limit(const char* file, std::uint32_t& microvolts) {
    std::int32_t number = 0;
    if (!read_number(file, number)) {
        return false;
    }
    microvolts = static_cast<std::uint32_t>(number);
    return true;
}

bool property_regulator_voltage::read_number(const char* file, std::int32_t& number) {
    return _fileintread(m_path + file, number);
}

bool property_regulator_voltage::_fileintread(const std::string& path, std::int32_t& value) {
    const std::optional<std::string> word = first_word(path);
    if (!word) {
        return false;
    }
    value = to_int32(*word);
    return true;
}

bool property_regulator_voltage::_fileintwrite(const std::string& path, std::int32_t value) {
    return replace_contents(path, std::to_string(value));
}

#include "property/property_file.hpp"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>
#include <type_traits>
#include <utility>

#include "base/output_stream.hpp"
#include "base/text_file.hpp"
#include "base/wrapping.hpp"

namespace {

/** The decimal number at the start of a text, limited to T's range; 0 when there is none. */
template <class T>
T extract(const std::string& text) {
    using limits = std::numeric_limits<T>;
    static_assert(std::is_signed_v<T> && sizeof(T) <= sizeof(long)); // it is read as a long
    return static_cast<T>(
        std::clamp<long>(std::strtol(text.c_str(), nullptr, 10), limits::min(), limits::max()));
}

void report_open_failure(const std::string& path) {
    standard_error.print_line("open " + path + " failed.");
}

} // namespace

template <class T>
property_file<T>::property_file(const std::string& property_name, std::string path, T min, T max)
    : property(property_name), m_path(std::move(path)), m_min(min), m_max(max) {
    property_file::read_update();
}

template <class T>
bool property_file<T>::set(const std::string& value) {
    if (!m_valid) {
        return false;
    }
    m_value = requested_value(value);
    return commit();
}

template <class T>
bool property_file<T>::get(std::string& value) {
    if (!m_valid) {
        return false;
    }
    value = std::to_string(m_value);
    return true;
}

template <class T>
bool property_file<T>::read_update() {
    m_valid = false;
    const std::optional<std::string> word = first_word(m_path);
    if (!word) {
        report_open_failure(m_path);
        return false;
    }
    m_value = extract<T>(*word);
    m_valid = m_min <= m_value && m_value <= m_max;
    if (!m_valid) {
        standard_error.print_line("current value " + std::to_string(m_value) +
                                  " is not valid, valid range = " + std::to_string(m_min) + " ~ " +
                                  std::to_string(m_max));
    }
    return m_valid;
}

template <class T>
bool property_file<T>::commit() {
    if (!m_valid) {
        return false;
    }
    if (!replace_contents(m_path, std::to_string(m_value))) {
        report_open_failure(m_path);
        return false;
    }
    return true;
}

template <class T>
void property_file<T>::warn_about_range(const std::string& requested, T limit) {
    standard_error.print_line("apply current value " + std::to_string(m_value) + " to " +
                              requested + "is limited to " + std::to_string(limit));
}

template <class T>
T property_file<T>::requested_value(const std::string& text) {
    if (text.size() > 1 && text.front() == '-') {
        const T delta = extract<T>(text.substr(1));
        return wrapping_subtract(m_value, m_min) < delta ? limited(text, m_min)
                                                         : wrapping_subtract(m_value, delta);
    }
    if (text.size() > 1 && text.front() == '+') {
        const T delta = extract<T>(text.substr(1));
        return wrapping_subtract(m_max, m_value) < delta ? limited(text, m_max)
                                                         : wrapping_add(m_value, delta);
    }
    const T number = extract<T>(text);
    if (m_min > number) {
        return limited(text, std::min(m_min, m_max));
    }
    return number > m_max ? limited(text, m_max) : number;
}

template <class T>
T property_file<T>::limited(const std::string& text, T limit) {
    warn_about_range(text, limit);
    return limit;
}

template class property_file<int>;

// What invariant_checker looks at in the files of the board.

#include <cstdint>
#include <limits>
#include <sstream>

#include "checker/invariant_checker.hpp"

namespace {

/** The number of a text that is what a 32-bit number prints as, and nothing else. */
std::optional<std::int32_t> plain_number(const std::string& text) {
    std::int32_t number = 0;
    std::istringstream(text) >> number;
    return std::to_string(number) == text ? std::optional(number) : std::nullopt;
}

/** A limit as the regulator takes it: the first word, a negative number wrapping around. */
std::uint32_t limit_in(const std::string& content) {
    std::int32_t number = 0;
    std::istringstream(content) >> number;
    return static_cast<std::uint32_t>(number);
}

/**
 * Only the limit that a step's first sign points to is looked at, so one with a minus sign of its
 * own ("+-50") passes the other one. From there, a step may lead on outside.
 */
bool may_pass_limits(const std::string& text) {
    return (text.starts_with('+') || text.starts_with('-')) &&
           text.find('-', 1) != std::string::npos;
}

bool is_between(std::int64_t min, std::int64_t number, std::int64_t max) {
    return min <= number && number <= max;
}

} // namespace

void invariant_checker::check_files(const property_target& target, bool may_change,
                                    const std::string& text) {
    const file_contents now = m_files.contents();
    const std::string writable = may_change ? target.writable_file() : "";
    for (const auto& [path, content] : now) {
        if (path == writable) {
            check_new_content(target, content.value_or("(no file)"), text);
        } else if (content != m_contents[path]) {
            report("changed: " + path);
        }
    }
    m_contents = now;
}

void invariant_checker::check_new_content(const property_target& target, const std::string& content,
                                          const std::string& text) {
    const std::optional<std::int32_t> number = plain_number(content);
    if (!number) {
        report("not a plain number was written: " + content);
        return;
    }
    if (target.what == property_target::kind::file) {
        const auto limited = [&](std::int32_t value) {
            return is_between(target.min, value, target.max);
        };
        const auto before = plain_number(m_contents[target.path].value_or(""));
        if (!limited(*number) && limited(before.value_or(target.min)) && !may_pass_limits(text)) {
            report("beyond the limits of the file: " + content);
        }
        return;
    }
    const auto microvolts = static_cast<std::uint32_t>(*number);
    const auto limit = [&](const char* file) {
        return limit_in(m_contents[target.path + file].value_or(""));
    };
    if (!is_between(limit("/min_microvolts"), microvolts, limit("/max_microvolts"))) {
        report("beyond the limits of the regulator: " + content);
    }
    if (microvolts % 10000 != 0 && microvolts != std::numeric_limits<std::uint32_t>::max()) {
        report("no multiple of 10000 microvolts: " + content);
    }
}

void invariant_checker::check_shown_number(const property_target& target,
                                           const std::string& shown) {
    const std::string content = m_contents[target.writable_file()].value_or("");
    if (!plain_number(shown)) {
        report("shown is no plain number: " + shown);
    }
    if (plain_number(content) && content != shown) {
        report("shown: " + shown + ", held: " + content);
    }
}

#include "property/property_set.hpp"

#include <cstddef>
#include <utility>

#include "base/output_stream.hpp"

namespace {

bool is_braced(const std::string& text) {
    return text.starts_with('{') && text.ends_with('}');
}

/** The runs of characters between the commas of a braced text: one more than there are commas. */
std::vector<std::string> split(const std::string& braced) {
    std::vector<std::string> pieces(1);
    for (const char c : braced.substr(1, braced.size() - 2)) {
        if (c == ',') {
            pieces.emplace_back();
        } else {
            pieces.back() += c;
        }
    }
    return pieces;
}

/** One value per member from a braced text; any other text goes to all `count` members. */
std::vector<std::string> member_values(const std::string& text, std::size_t count) {
    if (is_braced(text)) {
        return split(text);
    }
    return std::vector<std::string>(count, text);
}

} // namespace

property_set::property_set(const std::string& property_name, std::vector<std::string> members)
    : property(property_name), m_members(std::move(members)) {}

bool property_set::set(const std::string& value) {
    const std::vector<std::string> values = member_values(value, m_members.size());
    if (values.size() != m_members.size()) {
        standard_error.print_line(std::to_string(values.size()) +
                                  " != " + std::to_string(m_members.size()));
        return false;
    }
    for (std::size_t i = 0; i < m_members.size(); ++i) {
        property* member = get_property(m_members[i]);
        if (member == nullptr || !member->set(values[i])) {
            standard_error.print_line("set failed");
            return false;
        }
    }
    return true;
}

bool property_set::get(std::string& value) {
    std::string list = "{";
    const char* separator = "";
    for (const std::string& member_name : m_members) {
        property* member = get_property(member_name);
        std::string text;
        if (member == nullptr || !member->get(text)) {
            return false;
        }
        list += separator + text;
        separator = ",";
    }
    value = list + "}";
    return true;
}

#include "model/register_table.hpp"

#include <istream>
#include <ostream>

#include <fnmatch.h>

#include "model/ddr_phy.hpp"
#include "model/text.hpp"

namespace {

std::uint32_t number_in(std::string_view word, const char* column, const std::string& where) {
    const std::optional<std::uint32_t> number = parse_number(word);
    if (!number) {
        throw input_error(where, not_a_number(word, column));
    }
    return *number;
}

register_key key_in(std::string_view& rest, const std::string& where) {
    const std::uint32_t address = number_in(take_word(rest), "address", where);
    if (address % 4 != 0) {
        throw input_error(where, "address " + hex_text(address) + " is not a multiple of 4");
    }
    const bool banked = find_banked_register(address).has_value();
    const std::string_view selector = take_word(rest);
    if (banked == (selector == "-")) {
        throw input_error(where, "the register at " + hex_text(address) +
                                     (banked ? " is banked: its selector is missing"
                                             : " is not banked: its selector must be -"));
    }
    return {address, banked ? std::optional(number_in(selector, "selector", where)) : std::nullopt};
}

/** Whether a field of a word is the property `name`. */
bool is_name_of_field(std::string_view name, std::string_view word, std::string_view field) {
    if (field.find("::") != std::string_view::npos) {
        return name == field;
    }
    if (!name.starts_with(word)) {
        return false;
    }
    name.remove_prefix(word.size());
    return field.empty() ? name.empty() : name.starts_with("::") && name.substr(2) == field;
}

} // namespace

register_table register_table::parse(std::istream& text, const std::string& file) {
    register_table table;
    std::string line;
    for (std::size_t number = 1; std::getline(text, line); ++number) {
        table.parse_line(line, file + ":" + std::to_string(number));
    }
    return table;
}

void register_table::parse_line(const std::string& line, const std::string& where) {
    m_lines.push_back(line);
    std::string_view rest = trimmed(line);
    if (rest.empty() || rest.front() == '#') {
        return;
    }
    if (rest.starts_with("fields ")) {
        take_word(rest);
        parse_fields(rest, where);
        return;
    }
    const register_key key = key_in(rest, where);
    const std::string_view word = take_word(rest);
    const std::string_view access = take_word(rest);
    const register_entry entry{number_in(word, "word", where), access == "ro",
                               std::string(trimmed(rest))};
    if (access != "ro" && access != "rw") {
        throw input_error(where, quoted(access) + " is no access: rw or ro");
    }
    if (entry.name.empty()) {
        throw input_error(where, "the name is missing");
    }
    const auto column = static_cast<std::size_t>(word.data() - line.data());
    if (!m_rows.try_emplace(key, row{entry, m_lines.size() - 1, column, word.size()}).second) {
        throw input_error(where, "this word is listed already");
    }
}

void register_table::parse_fields(std::string_view rest, const std::string& where) {
    const std::string pattern(take_word(rest));
    for (std::string_view item = take_word(rest); !item.empty(); item = take_word(rest)) {
        const std::size_t equals = item.find('=');
        const bool named = equals != std::string_view::npos;
        const std::string_view bits = named ? item.substr(equals + 1) : item;
        const std::size_t dots = bits.find("..");
        const auto high = parse_number(bits.substr(0, dots));
        const auto low =
            dots == std::string_view::npos ? std::nullopt : parse_number(bits.substr(dots + 2));
        if (!high || !low || *high > 31 || *low > *high) {
            throw input_error(where, quoted(bits) + " are no bits: HIGH..LOW");
        }
        m_fields.push_back({pattern, std::string(item.substr(0, named ? equals : 0)), *high, *low});
    }
}

std::optional<register_bits> register_table::find_property(const std::string& name) const {
    for (const auto& [key, listed] : m_rows) {
        for (const field_rule& rule : m_fields) {
            if (is_name_of_field(name, listed.entry.name, rule.field) &&
                fnmatch(rule.pattern.c_str(), listed.entry.name.c_str(), 0) == 0) {
                return register_bits{key, rule.high, rule.low};
            }
        }
    }
    return std::nullopt;
}

const register_entry* register_table::find(const register_key& key) const {
    const auto found = m_rows.find(key);
    return found == m_rows.end() ? nullptr : &found->second.entry;
}

bool register_table::has_register(std::uint32_t address) const {
    const std::optional<banked_register> banked = find_banked_register(address);
    return find({banked ? banked->select_address : address, std::nullopt}) != nullptr;
}

void register_table::set_word(const register_key& key, std::uint32_t word) {
    row& changed = m_rows.at(key);
    m_lines[changed.line].replace(changed.column, changed.length, hex_text(word));
    changed.length = hex_length;
    changed.entry.word = word;
}

void register_table::add(const register_key& key, const register_entry& entry) {
    const std::string selector = key.selector ? hex_text(*key.selector) : "-         ";
    std::string line = hex_text(key.address) + "  " + selector + "  ";
    m_rows.emplace(key, row{entry, m_lines.size(), line.size(), hex_length});
    line += hex_text(entry.word) + (entry.read_only ? "  ro      " : "  rw      ") + entry.name;
    m_lines.push_back(line);
}

void register_table::print(std::ostream& out) const {
    for (const std::string& line : m_lines) {
        out << line << '\n';
    }
}

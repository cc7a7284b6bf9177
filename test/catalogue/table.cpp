#include "catalogue/table.hpp"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <tuple>

namespace {

std::vector<std::string> split(const std::string& line) {
    std::vector<std::string> texts;
    std::istringstream stream(line);
    for (std::string text; std::getline(stream, text, '\t');) {
        texts.push_back(text);
    }
    return texts;
}

/** The group of a list of the catalogue: "orlin-ddr" of "orlin_ddr_registers". */
std::string group_of(std::string list) {
    list.resize(list.rfind('_'));
    std::ranges::replace(list, '_', '-');
    return list;
}

} // namespace

table_row::table_row(const std::vector<std::string>& columns, const std::string& line)
    : m_columns(columns), m_line(line), m_texts(split(line)) {
    if (m_texts.size() != m_columns.size()) {
        throw std::runtime_error(hardware_table + ": wrong number of columns: " + line);
    }
}

const std::string& table_row::operator[](const std::string& column) const {
    const auto found = std::find(m_columns.begin(), m_columns.end(), column);
    return m_texts.at(static_cast<std::size_t>(found - m_columns.begin()));
}

unsigned int table_row::number(const std::string& column) const {
    const std::string& text = (*this)[column];
    const bool hexadecimal = text.starts_with("0x");
    const char* const end = text.data() + text.size();
    unsigned int value = 0;
    const auto result =
        std::from_chars(text.data() + (hexadecimal ? 2 : 0), end, value, hexadecimal ? 16 : 10);
    if (result.ec != std::errc() || result.ptr != end) {
        throw std::runtime_error(hardware_table + ": no number in column " + column + ": " +
                                 m_line);
    }
    return value;
}

std::vector<table_row> hardware_rows(const std::string& kind) {
    std::ifstream stream(HARDWARE_TABLE);
    std::vector<std::string> columns;
    std::vector<table_row> rows;
    for (std::string line; std::getline(stream, line);) {
        if (!line.starts_with(kind + '\t')) {
            continue;
        }
        if (columns.empty()) {
            columns = split(line);
        } else {
            rows.emplace_back(columns, line);
        }
    }
    if (rows.empty()) {
        throw std::runtime_error(hardware_table + ": no row of " + kind);
    }
    return rows;
}

std::optional<unsigned int> register_field::selector() const {
    if (reg["selector"] == "-") {
        return std::nullopt;
    }
    const unsigned int part = field["selector-part"] == "-" ? 0 : field.number("selector-part");
    return reg.number("selector") | part;
}

std::vector<register_field> every_register_field() {
    std::vector<register_field> found;
    const std::vector<table_row> fields = hardware_rows("field");
    for (const table_row& reg : hardware_rows("register")) {
        for (const table_row& field : fields) {
            if (field["list"] == reg["fields"]) {
                found.push_back({reg, field});
            }
        }
    }
    return found;
}

void PrintTo(const hardware_property& p, std::ostream* out) {
    *out << p.group << " : " << p.name << " (" << p.kind << ") : " << p.help;
    for (const std::string& member : p.members) {
        *out << " " << member;
    }
}

std::vector<hardware_property> every_property() {
    std::vector<hardware_property> all;
    const std::vector<table_row> fields = hardware_rows("field");
    for (const table_row& reg : hardware_rows("register")) {
        const std::string group = group_of(reg["list"]);
        hardware_property set{group, reg["name"] + "::dq", "set", "no help.", {}};
        for (const table_row& field : fields) {
            if (field["list"] == reg["fields"]) {
                set.members.push_back(reg["name"] + "::" + field["name"]);
                all.push_back({group, set.members.back(), "register", field["description"], {}});
            }
        }
        if (reg["kind"] == "dq") {
            all.push_back(set);
        }
    }
    for (const char* kind : {"regulator", "file"}) {
        for (const table_row& row : hardware_rows(kind)) {
            all.push_back({group_of(row["list"]), row["name"], kind, "no help.", {}});
        }
    }
    std::ranges::sort(all, {},
                      [](const hardware_property& p) { return std::tie(p.group, p.name); });
    return all;
}

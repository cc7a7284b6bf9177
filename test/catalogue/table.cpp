#include "table.hpp"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace {

std::vector<std::string> split(const std::string& line) {
    std::vector<std::string> texts;
    std::istringstream stream(line);
    for (std::string text; std::getline(stream, text, '\t');) {
        texts.push_back(text);
    }
    return texts;
}

} // namespace

table_row::table_row(const std::vector<std::string>& columns, const std::string& line)
    : m_columns(columns), m_line(line), m_texts(split(line)) {
    if (m_texts.size() != m_columns.size()) {
        throw std::runtime_error("wrong number of columns: " + line);
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
        throw std::runtime_error("no number in column " + column + ": " + m_line);
    }
    return value;
}

std::vector<table_row> read_table(const std::string& file) {
    std::ifstream stream(std::string(CATALOGUE_DATA_DIR "/") + file);
    std::string line;
    if (!std::getline(stream, line) || !line.starts_with("# ")) {
        throw std::runtime_error("no table of the catalogue: " + file);
    }
    const std::vector<std::string> columns = split(line.substr(2));
    std::vector<table_row> rows;
    while (std::getline(stream, line)) {
        rows.emplace_back(columns, line);
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
    const std::vector<table_row> fields = read_table("fields.tsv");
    for (const table_row& reg : read_table("registers.tsv")) {
        for (const table_row& field : fields) {
            if (field["field-list"] == reg["field-list"]) {
                found.push_back({reg, field});
            }
        }
    }
    return found;
}

#pragma once

#include <optional>
#include <string>
#include <vector>

/** One row of a table file: texts by column name. An unknown column throws std::out_of_range. */
class table_row {
public:
    /**
     * @param columns the names of the columns
     * @param line    the tab-separated texts, one per column; throws std::runtime_error when
     *                there are more or fewer
     */
    table_row(const std::vector<std::string>& columns, const std::string& line);

    const std::string& operator[](const std::string& column) const;

    /** The text of a column as an unsigned number, hexadecimal after "0x", otherwise decimal. */
    unsigned int number(const std::string& column) const;

    /** The whole row as it stands in the file. */
    const std::string& line() const { return m_line; }

private:
    std::vector<std::string> m_columns;
    std::string m_line;
    std::vector<std::string> m_texts;
};

/**
 * The rows of a table file, in their order. The first line is "# " and the column names; all
 * texts are separated by single tabs.
 * @param file name of a file in the folder CATALOGUE_DATA_DIR; a file that cannot be opened, or
 *             has no line of names, throws std::runtime_error
 */
std::vector<table_row> read_table(const std::string& file);

/** A field of a register: a row of registers.tsv and one of fields.tsv. */
struct register_field {
    /** The word that the select register must hold; nothing for a register that is behind none. */
    std::optional<unsigned int> selector() const;

    table_row reg;
    table_row field;
};

/** The fields of every register, in the order of the tables. */
std::vector<register_field> every_register_field();

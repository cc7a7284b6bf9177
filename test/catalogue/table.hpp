#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

/** One row of the table of hardware: texts by column name. An unknown column throws
 * std::out_of_range. */
class table_row {
public:
    /**
     * @param columns the names of the columns
     * @param line    the texts between tabs, one per column; throws std::runtime_error when there
     *                are more or fewer
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

/** The name of the table of hardware, for messages. */
inline const std::string hardware_table = "test/catalogue/hardware.tsv";

/**
 * The rows of one kind in the table of hardware, in their order: those that begin with it, after
 * the first, which names the columns.
 */
std::vector<table_row> hardware_rows(const std::string& kind);

/** A field of a register: a row of each. */
struct register_field {
    /** The word that the select register must hold; nothing for a register that is behind none. */
    std::optional<unsigned int> selector() const;

    /** The name of the field's property. */
    std::string name() const { return reg["name"] + "::" + field["name"]; }

    table_row reg;
    table_row field;
};

/** The fields of every register, in the order of the table. */
std::vector<register_field> every_register_field();

/** What the table says of a property. */
struct hardware_property {
    std::string group;
    std::string name;
    std::string kind; ///< "register", "set", "regulator" or "file"
    std::string help;
    std::vector<std::string> members; ///< of a set

    bool operator==(const hardware_property&) const = default;
};
void PrintTo(const hardware_property& p, std::ostream* out); ///< for a test's message

/** Every property, in the order in which the tool lists them. */
std::vector<hardware_property> every_property();

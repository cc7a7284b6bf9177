#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace sim {

/** Where a word lies. `selector` is the select register's word, for banked registers only. */
struct register_key {
    std::uint32_t address;
    std::optional<std::uint32_t> selector;

    bool operator==(const register_key&) const = default;
    bool operator<(const register_key& other) const {
        return std::tie(address, selector) < std::tie(other.address, other.selector);
    }
};

/** What lies there. */
struct register_entry {
    std::uint32_t word;
    bool read_only; ///< a write changes nothing
    std::string name;
};

/**
 * The words of a board, as the text that people read and edit.
 *
 * One line per word, five columns parted by blanks:
 *
 *     address     selector    word        access  name
 *     0x18428194  0x0000020e  0x00000041  rw      orlin-ddra-read2 dq2
 *
 * The selector is "-" where the register is not banked, access is "rw" or "ro", and the name is the
 * rest of the line. Empty lines and lines that begin with "#" are comments. Printing gives back
 * every line as it was read, except for the digits of words that were changed since.
 */
class register_table {
public:
    /** An empty table. */
    register_table() = default;

    /**
     * Reads a table; `file` is its name for messages.
     * Throws input_error on a line that does not hold the five columns, on an address that is not a
     * multiple of 4, on a selector where none belongs (or none where one does), and on a word that
     * is listed twice.
     */
    static register_table parse(std::istream& text, const std::string& file);

    /** The entry at `key`, or null. The table owns it; it stays valid until the table is gone. */
    const register_entry* find(const register_key& key) const;

    /**
     * True if a register lies at `address`. A banked one does where its PHY's select register is
     * listed, whichever banks are.
     */
    bool has_register(std::uint32_t address) const;

    /** Changes the word of an entry that exists. */
    void set_word(const register_key& key, std::uint32_t word);

    /** Adds a line at the end for a key that is not listed yet. */
    void add(const register_key& key, const register_entry& entry);

    void print(std::ostream& out) const;

private:
    struct row {
        register_entry entry;
        std::size_t line = 0;   ///< index in m_lines
        std::size_t column = 0; ///< where the word stands in that line
        std::size_t length = 0; ///< how many characters it has there
    };

    void parse_line(const std::string& line, const std::string& where);

    std::vector<std::string> m_lines;
    std::map<register_key, row> m_rows;
};

} // namespace sim

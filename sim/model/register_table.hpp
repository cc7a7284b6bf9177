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

/** Where a word lies. `selector` is the select register's word, for banked registers only. */
struct register_key {
    std::uint32_t address = 0;
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

/** Some bits of a word: those of a field, or all. */
struct register_bits {
    register_key place;
    unsigned int high = 31; ///< inclusive
    unsigned int low = 0;   ///< inclusive

    /** The largest number that fits. */
    std::uint32_t limit() const { return ~std::uint32_t{0} >> (31 - (high - low)); }
};

/**
 * The words of a board, as the text that people read and edit.
 *
 * One line per word, five columns parted by blanks:
 *
 *     address     selector    word        access  name
 *     0x18428194  0x0000020e  0x00000041  rw      orlin-ddra-read2::dq2
 *
 * The selector is "-" where the register is not banked, access is "rw" or "ro", and the name is the
 * rest of the line. A line that begins with "fields" says where the fields of the words lie whose
 * names fit a pattern of the shell: "FIELD=HIGH..LOW" is the property WORD::FIELD, "HIGH..LOW" the
 * property of the word's own name, and a FIELD with "::" in it has its whole name there.
 *
 *     fields  *::dq?      6..0
 *     fields  i2c*-delay  sda-delay=3..0 scl-delay=7..4
 *
 * Empty lines and lines that begin with "#" are comments. Printing gives back every line as it was
 * read, except for the digits of words that were changed since.
 */
class register_table {
public:
    /** An empty table. */
    register_table() = default;

    /**
     * Reads a table; `file` is its name for messages.
     * Throws input_error on a line that does not hold the five columns, on an address that is not a
     * multiple of 4, on a selector where none belongs (or none where one does), on a word that is
     * listed twice, and on bits that are none.
     */
    static register_table parse(std::istream& text, const std::string& file);

    /** Where the field of a property lies; empty for a name that no line gives to one. */
    std::optional<register_bits> find_property(const std::string& name) const;

    /** The entry at `key`, or null. The table owns it; it stays valid until the table is gone. */
    const register_entry* find(const register_key& key) const;

    /** Calls `use` with the key and the entry of each word, by address and selector. */
    template <typename Use>
    void for_each(const Use& use) const {
        for (const auto& [key, listed] : m_rows) {
            use(key, listed.entry);
        }
    }

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

    /** A field of every word whose name fits the pattern. */
    struct field_rule {
        std::string pattern;
        std::string field; ///< empty: the word's own name is the property's
        unsigned int high;
        unsigned int low;
    };

    void parse_line(const std::string& line, const std::string& where);
    void parse_fields(std::string_view rest, const std::string& where);

    std::vector<field_rule> m_fields;
    std::vector<std::string> m_lines;
    std::map<register_key, row> m_rows;
};

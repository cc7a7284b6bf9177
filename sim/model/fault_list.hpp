#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/failing_call.hpp"
#include "model/register_table.hpp"

/**
 * What is wrong with a board: one fault per line, each a kind, a place and how it shows.
 *
 *     stuck     PLACE MASK                 the bits of MASK do not take a write
 *     reads-as  PLACE WORD                 reads give WORD, whatever was written
 *     no-open   PATH [ERROR]               neither the path nor what lies below opens (ENOENT)
 *     no-write  PATH [ERROR]               it cannot be opened for writing (EACCES)
 *     no-map    PLACE [ERROR]              the page with this place cannot be mapped (EPERM)
 *     no-lock   PATH [ERROR]               the file cannot be locked (ENOLCK)
 *     content   PATH [TEXT]                reads of the file give TEXT, or nothing at all
 *     fail      CALL N[+] [ERROR]          call number N of a process fails, with "+" all from it
 *     signal    CALL N[+] SIGNAL           it goes on, after its process group got the signal
 *
 * PLACE is a property's name, MASK and WORD then being about the bits of its field, or it is
 * ADDRESS[/SELECTOR]. ERROR is the name of an errno value; the one in brackets is taken when it is
 * left out, or that of `default_error`. Without a selector a fault of a banked register concerns
 * all its banks. Where several faults concern the same place, the last one counts, except that
 * stuck bits add up. The board's own text is never changed by a fault.
 */
class fault_list {
public:
    /** Adds the faults of a whole text; `file` is its name for messages. As `add` for each line. */
    void add_all(std::istream& text, const std::string& file, const register_table& registers);

    /**
     * Adds the fault of one line; an empty line or one that begins with "#" adds none. `where`
     * names the line for messages. Throws input_error on anything that is not as told above, on a
     * path that does not belong to a board, and on a place that `registers` does not list.
     */
    void add(std::string_view line, const std::string& where, const register_table& registers);

    /** The bits at `key` that keep their old value in a write. */
    std::uint32_t stuck_bits(const register_key& key) const;

    /** The word that a read at `key` gives where the register holds this one. */
    std::uint32_t read_back(const register_key& key, std::uint32_t held) const;

    /** The errno value with which opening fails; empty when it does not. */
    std::optional<int> open_error(std::string_view path, bool for_writing) const;

    /** The errno value with which mapping the page at `address` fails; empty when it does not. */
    std::optional<int> map_error(std::uint32_t address) const;

    /** The errno value with which locking fails; empty when it does not. */
    std::optional<int> lock_error(std::string_view path) const;

    /**
     * The errno value with which this call fails; empty when it does not. `number` counts the
     * calls of its kind from 1. Allocates nothing.
     */
    std::optional<int> call_error(failing_call call, std::uint32_t number) const noexcept;

    /** The signal that comes when this call is made; empty when none does. Allocates nothing. */
    std::optional<int> call_signal(failing_call call, std::uint32_t number) const noexcept;

    /** What a reader of the file gets in place of its content; empty when it gets the content. */
    std::optional<std::string> content(std::string_view path) const;

private:
    class line_parser;

    struct word_fault {
        register_key place;     ///< without a selector: all banks
        std::uint32_t mask = 0; ///< of the bits that it is about
        std::uint32_t word = 0;
    };
    struct path_fault {
        std::string path;
        int error;
    };
    struct page_fault {
        std::uint32_t page;
        int error;
    };
    struct call_fault {
        failing_call call;
        std::uint32_t first;
        bool and_all_later;
        int number; ///< of the error or the signal
    };
    struct content_fault {
        std::string path;
        std::string text;
    };

    std::vector<word_fault> m_stuck;
    std::vector<word_fault> m_reads_as;
    std::vector<path_fault> m_no_open;
    std::vector<path_fault> m_no_write;
    std::vector<path_fault> m_no_lock;
    std::vector<page_fault> m_no_map;
    std::vector<content_fault> m_content;
    std::vector<call_fault> m_calls;
    std::vector<call_fault> m_signals;

    static std::optional<int> last_number(const std::vector<call_fault>& faults, failing_call call,
                                          std::uint32_t number) noexcept;
};

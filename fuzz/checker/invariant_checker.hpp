#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "board/board_files.hpp"
#include "board/memory_board.hpp"
#include "checker/property_target.hpp"

/** How an action of the tool ended. */
enum class outcome { accepted, refused, out_of_range, invalid_argument };

/** One line for each thing that was wrong. */
using findings = std::vector<std::string>;

/**
 * What must hold whatever is typed, judged by the accesses to the board and by its files alone.
 *
 *  - Every access is of one aligned 32-bit word, where a register of the property lies; a data
 *    register of a PHY is only ever accessed directly after the selector was written.
 *  - A word is read before it is written, and no write changes a bit outside the field (and the
 *    bit above a DQ delay, which has to be set). A mapped field only ever gets a code of its map.
 *  - What is refused, or ends with an exception, changes nothing: no register and no file. A set
 *    may have written members before the one that refused, but not for a list of the wrong length.
 *    What is accepted was written.
 *  - Reading writes nothing but selectors, and shows what the hardware holds.
 *  - A file gets a plain decimal number within the limits, and no other file changes.
 *  - An uncaught std::out_of_range comes from a number that a field or a regulator was given,
 *    std::invalid_argument from a regulator only.
 *
 * The object follows one board from the first access on: after each action of the tool, the
 * function for that action is called once.
 */
class invariant_checker {
public:
    /** Neither is owned, and neither was touched since it was made or reset. */
    invariant_checker(const memory_board& board, const board_files& files);

    /** A text was given to the property's `set`. */
    void check_set(const property_target& target, outcome result, const std::string& text);

    /** The property's `get` was called; `shown` is the text if it was accepted. */
    void check_get(const property_target& target, outcome result, const std::string& shown,
                   bool hexadecimal);

    /** A plain field stepped by +n and -n, without touching a limit, shows the same as before. */
    void check_round_trip(const std::string& before, const std::string& after,
                          const std::string& step);

    /** What was wrong so far. */
    const findings& violations() const { return m_violations; }

    /** Adds one that the caller found. */
    void report(const std::string& violation) { m_violations.push_back(violation); }

private:
    /** The words that an action sent to the hardware, and those of them that were new. */
    struct writes {
        std::set<register_key> sent;
        std::set<register_key> changed;
    };

    writes check_accesses(const property_target& target, bool may_write);
    void check_access(const property_target& target, std::size_t index);
    void check_write(const property_target& target, const memory_access& made);
    void check_written(const property_target& target, outcome result, const writes& made);
    void check_list(const property_target& target, const std::string& text);
    void check_exception(const property_target& target, outcome result, bool setting);
    void check_files(const property_target& target, bool may_change, const std::string& text);
    void check_new_content(const property_target& target, const std::string& content,
                           const std::string& text);
    void check_shown_number(const property_target& target, const std::string& shown);
    std::optional<std::string> text_of(const field_place& field, bool hexadecimal);
    std::optional<std::string> text_of(const property_target& target, bool hexadecimal);

    const memory_board& m_board;
    const board_files& m_files;
    std::size_t m_checked = 0; ///< how many accesses have been looked at
    file_contents m_contents;  ///< as they were after the last action
    /** Every word that was read or written, as it was seen last. */
    std::map<register_key, std::uint32_t> m_seen;
    findings m_violations;
};

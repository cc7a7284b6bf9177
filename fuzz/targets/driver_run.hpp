#pragma once

#include <string>
#include <vector>

#include "board/board_files.hpp"
#include "checker/invariant_checker.hpp"

namespace fuzz {

/** What one run of the program's `main` left to see. */
struct driver_run {
    outcome result = outcome::refused; ///< accepted: `main` returned 0; refused: something else
    int status = 0;                    ///< what `main` returned; 0 if an exception left it
    std::string out;
    std::string err;
    std::string operand;         ///< the word that the driver took for a name, or an empty text
    bool has_value = false;      ///< a further word follows the operand
    std::string option_argument; ///< of the option -r, or an empty text
    bool holds_lock = false;     ///< the lock was taken and not released

    /** An exception left `main`. */
    bool is_cut_short() const { return result != outcome::accepted && result != outcome::refused; }

    /** The last line of `err`, without its end. */
    std::string last_message() const;
};

/**
 * Runs the program's `main` on the board that is plugged in; once per process, since the catalogue
 * does not survive it.
 * @param words    the command line, without the program's name
 * @param files    where the properties of the catalogue find their files
 * @param can_lock false: the lock is refused
 */
driver_run run_driver(std::vector<std::string> words, const board_files& files, bool can_lock);

} // namespace fuzz

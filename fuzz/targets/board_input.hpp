#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "board/board_files.hpp"
#include "model/board_model.hpp"

namespace fuzz {

/** The input of the command line's target, and the board that it describes: see targets.hpp. */
class board_input {
public:
    explicit board_input(const std::string& text);

    /** The command line, without the program's name. */
    const std::vector<std::string>& words() const { return m_words; }

    /** The registers at power-on, with the words and faults of the input. */
    sim::board_model model() const { return {m_registers, m_faults}; }

    /** The files at power-on, with the faults of the input. */
    file_contents files() const;

    bool can_lock() const;

private:
    void set_word(std::string_view operands);

    sim::register_table m_registers;
    sim::fault_list m_faults;
    std::vector<std::string> m_words;
};

} // namespace fuzz

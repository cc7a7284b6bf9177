#pragma once

#include <string>

#include "board/memory_board.hpp"
#include "targets/value_input.hpp"

/**
 * One register of the catalogue as it is at start-up, its fields registered as properties, on a
 * board that has nothing else. All of it goes with the object.
 */
class register_bench {
public:
    /**
     * @param register_name throws std::out_of_range when the catalogue has no such register
     * @param words         the words of the fields, in the order of the fields' names
     */
    register_bench(const std::string& register_name, const value_input& words);
    ~register_bench();
    register_bench(const register_bench&) = delete;
    register_bench& operator=(const register_bench&) = delete;

    const memory_board& board() const { return m_board; }

private:
    memory_board m_board;
};

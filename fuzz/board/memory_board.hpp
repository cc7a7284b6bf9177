#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <vector>

#include "model/board_model.hpp"

/** One access of the tool to the hardware. */
struct memory_access {
    bool written = false;
    std::uint32_t address = 0;
    std::uint32_t word = 0; ///< what was read, or what was sent
    /** The word meant: the address, and behind a data register of a PHY the selector of the time.
     */
    register_key place;
};

/**
 * The registers of a board in the memory of this process, behind `mmap_read` and `mmap_write`.
 *
 * The object that was built last is the one that they reach, until it dies. A read where no
 * register lies gives all ones, a write there goes nowhere; both are logged.
 */
class memory_board {
public:
    explicit memory_board(board_model model);
    ~memory_board();
    memory_board(const memory_board&) = delete;
    memory_board& operator=(const memory_board&) = delete;

    /** The board that `mmap_read` and `mmap_write` reach; there has to be one. */
    static memory_board& plugged_in();

    std::uint32_t read(std::uint32_t address);
    void write(std::uint32_t address, std::uint32_t word);

    /** Every access so far, in order. */
    const std::vector<memory_access>& accesses() const { return m_accesses; }

    bool has_register(std::uint32_t address) const {
        return m_model.registers().has_register(address);
    }

    /**
     * When set, may change the address and the word of every access before it is carried out: so
     * that a test can tell a tool that goes wrong from one that does not.
     */
    inline static std::function<void(memory_access&)> doctor;

private:
    memory_access doctored(bool written, std::uint32_t address, std::uint32_t word) const;
    register_key place_of(std::uint32_t address) const;

    board_model m_model;
    std::vector<memory_access> m_accesses;
    std::map<std::uint32_t, std::uint32_t> m_sent; ///< the last word written, by address
    memory_board* m_before;
};

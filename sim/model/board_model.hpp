#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "model/fault_list.hpp"
#include "model/register_table.hpp"

/**
 * What the registers of a board hold, and what a write does to them.
 *
 * A banked register gives the word of the selector last written to its PHY's select register. A
 * selector that the table does not list has a word of its own all the same: it is 0 until it is
 * written, and listed from then on. Faults show in reads and writes; the selector counts as it is
 * held, even where a fault makes the select register read as something else.
 */
class board_model {
public:
    /** Takes both by value: the model is alone with its state. */
    board_model(register_table registers, fault_list faults);

    /** What a read at the physical address gives; empty where no register lies. */
    std::optional<std::uint32_t> read(std::uint32_t address) const;

    /** A write of `word`. False where no register lies. */
    bool write(std::uint32_t address, std::uint32_t word);

    /**
     * What lies at the address now, e.g. "orlin-ddra"; for a banked register the word
     * that is selected, e.g. "orlin-ddra-read0::dq3". Empty where no register lies.
     */
    std::string name_of(std::uint32_t address) const;

    /** The table as it stands after the writes. */
    const register_table& registers() const { return m_registers; }

private:
    register_key key_at(std::uint32_t address) const;

    register_table m_registers;
    fault_list m_faults;
};

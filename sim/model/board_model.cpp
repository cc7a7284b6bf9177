#include "model/board_model.hpp"

#include <utility>

#include "model/ddr_phy.hpp"
#include "model/text.hpp"

board_model::board_model(register_table registers, fault_list faults)
    : m_registers(std::move(registers)), m_faults(std::move(faults)) {}

register_key board_model::key_at(std::uint32_t address) const {
    const std::optional<banked_register> banked = find_banked_register(address);
    if (!banked) {
        return {address, std::nullopt};
    }
    return {address, m_registers.find({banked->select_address, std::nullopt})->word};
}

std::optional<std::uint32_t> board_model::read(std::uint32_t address) const {
    if (!m_registers.has_register(address)) {
        return std::nullopt;
    }
    const register_key key = key_at(address);
    const register_entry* const entry = m_registers.find(key);
    return m_faults.read_back(key, entry == nullptr ? 0 : entry->word);
}

bool board_model::write(std::uint32_t address, std::uint32_t word) {
    if (!m_registers.has_register(address)) {
        return false;
    }
    const register_key key = key_at(address);
    const register_entry* const entry = m_registers.find(key);
    const std::uint32_t stuck = m_faults.stuck_bits(key);
    const std::uint32_t old_word = entry == nullptr ? 0 : entry->word;
    const std::uint32_t new_word = (old_word & stuck) | (word & ~stuck);
    if (entry == nullptr) {
        m_registers.add(key, {new_word, false, name_of(address)});
    } else if (!entry->read_only) {
        m_registers.set_word(key, new_word);
    }
    return true;
}

std::string board_model::name_of(std::uint32_t address) const {
    if (!m_registers.has_register(address)) {
        return {};
    }
    const register_key key = key_at(address);
    if (const register_entry* const entry = m_registers.find(key)) {
        return entry->name;
    }
    return find_banked_register(address)->name + " selector " + hex_text(*key.selector);
}

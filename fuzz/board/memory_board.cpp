#include "board/memory_board.hpp"

#include <optional>
#include <utility>

#include "model/ddr_phy.hpp"
#include "reg/mmap_access.hpp"

namespace {

memory_board* newest = nullptr;

constexpr std::uint32_t empty_bus = 0xffffffff;

} // namespace

memory_board::memory_board(board_model model)
    : m_model(std::move(model)), m_before(std::exchange(newest, this)) {}

memory_board::~memory_board() {
    newest = m_before;
}

memory_board& memory_board::plugged_in() {
    return *newest;
}

std::uint32_t memory_board::read(std::uint32_t address) {
    memory_access made = doctored(false, address, 0);
    made.word = m_model.read(made.address).value_or(empty_bus);
    m_accesses.push_back(made);
    return made.word;
}

void memory_board::write(std::uint32_t address, std::uint32_t word) {
    const memory_access made = doctored(true, address, word);
    m_accesses.push_back(made);
    m_sent[made.address] = made.word;
    m_model.write(made.address, made.word);
}

memory_access memory_board::doctored(bool written, std::uint32_t address,
                                     std::uint32_t word) const {
    memory_access made{written, address, word, place_of(address)};
    if (doctor) {
        doctor(made);
        made.place = place_of(made.address);
    }
    return made;
}

register_key memory_board::place_of(std::uint32_t address) const {
    const std::optional<banked_register> banked = find_banked_register(address);
    const auto sent = banked ? m_sent.find(banked->select_address) : m_sent.end();
    return {address, sent == m_sent.end() ? std::nullopt : std::optional(sent->second)};
}

unsigned int mmap_read(unsigned int address) {
    return memory_board::plugged_in().read(address);
}

unsigned int mmap_write(unsigned int address, unsigned int value) {
    memory_board::plugged_in().write(address, value);
    return 0;
}

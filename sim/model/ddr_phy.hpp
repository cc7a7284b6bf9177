#pragma once

#include <cstdint>
#include <optional>
#include <string>

/** A data register of a DDR PHY: one address, behind which every selector has a word of its own. */
struct banked_register {
    std::uint32_t select_address; ///< the PHY's select register; its word chooses the bank
    std::string name;             ///< e.g. "orlin-ddra read"
};

/**
 * The banked register at a physical address, or empty when the word there stands alone.
 *
 * Each of the three PHYs (bases 0x18428000, 0x18448000, 0x1a419000) has its select register at base
 * + 0x12c, and at base + 0x194, + 0x1a0 and + 0x13c the data registers of the read delays, the
 * write delays and the slices.
 */
std::optional<banked_register> find_banked_register(std::uint32_t address);

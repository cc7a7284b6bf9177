#include "model/ddr_phy.hpp"

#include <string_view>

namespace {

struct named_number {
    std::uint32_t number;
    std::string_view name;
};

constexpr named_number phy_bases[] = {
    {0x18428000, "orlin-ddra"},
    {0x18448000, "orlin-ddrb"},
    {0x1a419000, "pelune-ddr"},
};

constexpr std::uint32_t phy_size = 0x1000; // bytes

constexpr named_number data_offsets[] = {
    {0x194, "read"},
    {0x1a0, "write"},
    {0x13c, "slice"},
};

constexpr std::uint32_t select_offset = 0x12c;

} // namespace

std::optional<banked_register> find_banked_register(std::uint32_t address) {
    for (const named_number& phy : phy_bases) {
        if (address / phy_size != phy.number / phy_size) {
            continue; // whole pages are asked for, word by word
        }
        for (const named_number& data : data_offsets) {
            if (address == phy.number + data.number) {
                return banked_register{phy.number + select_offset,
                                       std::string(phy.name).append(" ").append(data.name)};
            }
        }
    }
    return std::nullopt;
}

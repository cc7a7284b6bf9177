#include "model/board_model.hpp"

#include <fstream>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "catalogue/table.hpp"

// The folder that every board begins as a copy of.

namespace sim {
namespace power_on_test {

const std::string folder = POWER_ON_DIR;

struct phy {
    std::uint32_t base;
    std::string name;
    std::uint32_t slices;
};

const phy phys[] = {
    {0x18428000, "orlin-ddra", 4},
    {0x18448000, "orlin-ddrb", 8},
    {0x1a419000, "pelune-ddr", 4},
};

std::string text_of(const std::string& file) {
    std::ifstream stream(folder + file);
    EXPECT_TRUE(stream) << file;
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

long number_in(const std::string& file) {
    return std::stol(text_of("/root" + file));
}

register_table registers() {
    std::istringstream text(text_of("/registers"));
    return register_table::parse(text, "registers");
}

/** Every lane of every byte slice of one kind of delay holds a small delay that is its own. */
void expect_lanes(const phy& phy, const std::string& kind, std::uint32_t offset,
                  std::uint32_t lanes) {
    const register_table table = registers();
    for (std::uint32_t slice = 0; slice < phy.slices; ++slice) {
        const std::string name = phy.name + "-" + kind + std::to_string(slice);
        std::set<std::uint32_t> words;
        for (std::uint32_t lane = 0; lane < lanes; ++lane) {
            const register_entry* const entry =
                table.find({phy.base + offset, lane << 8 | 7 * slice});
            ASSERT_NE(entry, nullptr) << name << " lane " << lane;
            EXPECT_EQ(entry->name, name + " dq" + std::to_string(lane));
            EXPECT_FALSE(entry->read_only);
            EXPECT_LE(entry->word & ~0x40u, 8u) << name << " lane " << lane;
            words.insert(entry->word);
        }
        EXPECT_EQ(words.size(), lanes) << name;
    }
}

TEST(sim_power_on, every_lane_has_a_delay_of_its_own) {
    for (const phy& phy : phys) {
        expect_lanes(phy, "read", 0x194, 8);
        expect_lanes(phy, "write", 0x1a0, 9);
    }
}

TEST(sim_power_on, every_slice_has_a_word_of_its_own) {
    const register_table table = registers();
    std::set<std::uint32_t> words;
    for (const phy& phy : phys) {
        for (std::uint32_t slice = 0; slice < phy.slices; ++slice) {
            const register_entry* const entry = table.find({phy.base + 0x13c, 8 * slice});
            ASSERT_NE(entry, nullptr);
            EXPECT_EQ(entry->name, phy.name + std::to_string(slice));
            words.insert(entry->word);
        }
    }
    EXPECT_EQ(words.size(), 16u);
}

TEST(sim_power_on, every_strength_and_termination_is_one_that_has_a_value) {
    const std::set<std::uint32_t> strengths = {15, 14, 11, 8};
    const std::set<std::uint32_t> terminations = {6, 4, 1, 0};
    const board_model board(registers(), {});
    for (const phy& phy : phys) {
        EXPECT_EQ(board.name_of(phy.base + 0x120), phy.name + " i/o control");
        EXPECT_EQ(board.name_of(phy.base + 0x12c), phy.name + " select");
        const std::uint32_t word = board.read(phy.base + 0x120).value();
        for (const int shift : {20, 16, 4}) {
            EXPECT_TRUE(strengths.contains(word >> shift & 0xf)) << phy.name << " bit " << shift;
        }
        EXPECT_TRUE(terminations.contains(word & 0xf)) << phy.name;
    }
}

TEST(sim_power_on, every_register_of_the_catalogue_is_there) {
    const register_table table = registers();
    for (const register_field& each : every_register_field()) {
        const auto& [reg, field] = each;
        EXPECT_NE(table.find({reg.number("address"), each.selector()}), nullptr)
            << reg["name"] << " " << field["name"];
        if (each.selector()) {
            EXPECT_NE(table.find({reg.number("select-address"), std::nullopt}), nullptr)
                << reg["name"];
        }
    }
}

TEST(sim_power_on, every_code_of_a_mapped_field_stands_for_a_value) {
    std::map<std::string, std::set<std::uint32_t>> codes;
    for (const table_row& row : read_table("maps.tsv")) {
        codes[row["map"]].insert(row.number("raw-value"));
    }
    const board_model board(registers(), {});
    for (const auto& [reg, field] : every_register_field()) {
        if (field["map"] == "-") {
            continue;
        }
        const std::uint32_t word = board.read(reg.number("address")).value();
        const std::uint32_t width = field.number("high") - field.number("low") + 1;
        const std::uint32_t code = word >> field.number("low") & ((1u << width) - 1);
        EXPECT_TRUE(codes.at(field["map"]).contains(code)) << reg["name"] << " " << field["name"];
    }
}

TEST(sim_power_on, the_registers_that_stand_alone_have_their_names) {
    const std::pair<std::uint32_t, const char*> rows[] = {
        {0x1170c008, "ehci0-phy"},      {0x1170c01c, "ehci1-phy"},      {0x10090110, "i2c0-delay"},
        {0x10090130, "i2c1-delay"},     {0x10090150, "i2c2-delay"},     {0x10090170, "i2c3-delay"},
        {0x10090180, "i2c4-delay"},     {0x100901b0, "i2c5-delay"},     {0x100901d0, "i2c6-delay"},
        {0x100901f0, "i2c7-delay"},     {0x10091010, "i2c8-delay"},     {0x10091030, "i2c9-delay"},
        {0x10091050, "i2c10-delay"},    {0x10091070, "i2c11-delay"},    {0x10091080, "i2c12-delay"},
        {0x100910b0, "i2c13-delay"},    {0x100910d0, "i2c14-delay"},    {0x100910f0, "i2c15-delay"},
        {0x10040004, "mac-tx"},         {0x10040008, "mac-rx"},         {0x11250cbc, "ebus-delay"},
        {0x11250c4c, "ebus-strength0"}, {0x11250c50, "ebus-strength1"}, {0x111a2204, "pcie state"},
    };
    const board_model board(registers(), {});
    std::set<std::uint32_t> named;
    for (const auto& [address, name] : rows) {
        EXPECT_EQ(board.name_of(address), name);
        named.insert(address);
    }
    for (const phy& phy : phys) {
        named.insert(phy.base + 0x120);
    }
    for (const table_row& row : read_table("registers.tsv")) {
        EXPECT_TRUE(row["selector"] != "-" || named.contains(row.number("address"))) << row["name"];
    }
}

TEST(sim_power_on, the_pcie_link_is_up_and_its_state_cannot_be_written) {
    board_model board(registers(), {});
    EXPECT_EQ(board.read(0x111a2204).value() & 0x3f, 3u);
    board.write(0x111a2204, 0);
    EXPECT_EQ(board.read(0x111a2204).value() & 0x3f, 3u);
}

TEST(sim_power_on, every_regulator_and_file_of_the_catalogue_is_within_its_limits) {
    for (const table_row& row : read_table("elsewhere.tsv")) {
        const std::string& path = row["path"];
        if (row["kind"] == "regulator") {
            EXPECT_LT(number_in(path + "/min_microvolts"), number_in(path + "/microvolts"));
            EXPECT_LT(number_in(path + "/microvolts"), number_in(path + "/max_microvolts"));
        } else {
            EXPECT_GE(number_in(path), static_cast<long>(row.number("minimum")));
            EXPECT_LE(number_in(path), static_cast<long>(row.number("maximum")));
        }
    }
}

TEST(sim_power_on, there_is_no_fault_and_every_example_of_one_is_right) {
    std::istringstream text(text_of("/faults"));
    fault_list examples;
    int count = 0;
    bool in_examples = false;
    for (std::string line; std::getline(text, line);) {
        ASSERT_TRUE(line.starts_with("#")) << line;
        if (in_examples) {
            EXPECT_NO_THROW(examples.add(line.substr(1), "example")) << line;
            count += line.size() > 1 ? 1 : 0;
        }
        in_examples = in_examples || line.ends_with("For example:");
    }
    EXPECT_EQ(count, 10);
    EXPECT_NO_THROW(examples.check_places(registers()));
}

} // namespace power_on_test
} // namespace sim

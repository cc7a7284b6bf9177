#include <fstream>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include "catalogue/table.hpp"
#include "model/board_model.hpp"
#include "model/eyes.hpp"

// The folder that every board begins as a copy of.

namespace power_on_test {

const std::string folder = POWER_ON_DIR;

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

/** Where a property lies on the board; the test fails if no line says so. */
register_bits bits_of(const register_table& table, const std::string& property) {
    const std::optional<register_bits> bits = table.find_property(property);
    EXPECT_TRUE(bits) << "sim/power-on/registers has no word, or no line of fields, for "
                      << property;
    return bits.value_or(register_bits{});
}

std::uint32_t code_of(const register_table& table, const register_bits& bits) {
    const register_entry* const entry = table.find(bits.place);
    return entry == nullptr ? 0 : entry->word >> bits.low & bits.limit();
}

TEST(PowerOn, EveryFieldOfTheHardwareIsInItsPlace) {
    const register_table table = registers();
    for (const register_field& each : every_register_field()) {
        SCOPED_TRACE(each.name());
        const register_bits bits = bits_of(table, each.name());
        if (HasFailure()) {
            continue; // the rest only repeats it
        }
        SCOPED_TRACE("sim/power-on/registers and test/catalogue/hardware.tsv");
        EXPECT_EQ(bits.place.address, each.reg.number("address"));
        EXPECT_EQ(bits.place.selector, each.selector());
        EXPECT_EQ(bits.high, each.field.number("high"));
        EXPECT_EQ(bits.low, each.field.number("low"));
        if (each.selector()) {
            EXPECT_TRUE(table.find({each.reg.number("select-address"), std::nullopt}));
        }
    }
}

TEST(PowerOn, EveryLaneOfASliceHasASmallDelayOfItsOwn) {
    const register_table table = registers();
    for (const hardware_property& p : every_property()) {
        std::set<std::uint32_t> codes;
        for (const std::string& lane : p.members) {
            const std::uint32_t code = code_of(table, bits_of(table, lane));
            EXPECT_LE(code & ~0x40U, 8U) << lane;
            codes.insert(code);
        }
        EXPECT_EQ(codes.size(), p.members.size()) << p.name;
    }
}

TEST(PowerOn, EverySliceHasAWordOfItsOwn) {
    const register_table table = registers();
    std::set<std::uint32_t> words;
    std::size_t slices = 0;
    for (const register_field& each : every_register_field()) {
        if (each.reg["kind"] == "slice") {
            words.insert(code_of(table, bits_of(table, each.name())));
            ++slices;
        }
    }
    EXPECT_EQ(words.size(), slices);
}

TEST(PowerOn, EveryCodeOfAMappedFieldStandsForAValue) {
    std::map<std::string, std::set<std::uint32_t>> codes;
    for (const table_row& row : hardware_rows("map")) {
        codes[row["name"]].insert(row.number("raw-value"));
    }
    const register_table table = registers();
    for (const register_field& each : every_register_field()) {
        if (each.field["map"] != "-") {
            EXPECT_TRUE(
                codes.at(each.field["map"]).contains(code_of(table, bits_of(table, each.name()))))
                << each.name();
        }
    }
}

TEST(PowerOn, ThePcieLinkIsUpAndItsStateCannotBeWritten) {
    board_model board(registers(), {});
    EXPECT_EQ(board.read(0x111a2204).value() & 0x3f, 3U);
    board.write(0x111a2204, 0);
    EXPECT_EQ(board.read(0x111a2204).value() & 0x3f, 3U);
}

TEST(PowerOn, EveryRegulatorAndFileOfTheCatalogueIsWithinItsLimits) {
    for (const table_row& row : hardware_rows("regulator")) {
        const std::string& path = row["directory"];
        EXPECT_LT(number_in(path + "/min_microvolts"), number_in(path + "/microvolts"));
        EXPECT_LT(number_in(path + "/microvolts"), number_in(path + "/max_microvolts"));
    }
    for (const table_row& row : hardware_rows("file")) {
        EXPECT_GE(number_in(row["path"]), static_cast<long>(row.number("minimum")));
        EXPECT_LE(number_in(row["path"]), static_cast<long>(row.number("maximum")));
    }
}

TEST(PowerOn, EveryLanePassesInAnEyeThatIsNotCentredOnIt) {
    const register_table table = registers();
    eyes all(table, [](const std::string& path) { return text_of("/root" + path); });
    std::istringstream text(text_of("/eyes"));
    all.add_all(text, "eyes");
    std::set<std::pair<int, int>> windows;
    int centred = 0;
    for (const lane_eye& lane : all.lanes()) {
        SCOPED_TRACE(lane.word->name);
        ASSERT_TRUE(lane.window);
        EXPECT_EQ(all.end_of(lane), test_end::passes);
        EXPECT_EQ(lane.narrowed, 0);
        EXPECT_EQ(lane.moved, 0);
        EXPECT_GE(lane.window->to - lane.window->from, 12);
        EXPECT_LE(lane.window->to - lane.window->from, 40);
        windows.emplace(lane.window->from, lane.window->to);
        centred += lane.window->from + lane.window->to == 2 * lane.delay() ? 1 : 0;
    }
    EXPECT_GT(windows.size(), 20U);
    EXPECT_LT(centred, 27) << "of " << all.lanes().size();
}

TEST(PowerOn, ThereIsNoFaultAndEveryExampleOfOneIsRight) {
    std::istringstream text(text_of("/faults"));
    const register_table table = registers();
    fault_list examples;
    int count = 0;
    bool in_examples = false;
    for (std::string line; std::getline(text, line);) {
        ASSERT_TRUE(line.starts_with("#")) << line;
        if (in_examples) {
            EXPECT_NO_THROW(examples.add(line.substr(1), "example", table)) << line;
            count += line.size() > 1 ? 1 : 0;
        }
        in_examples = in_examples || line.ends_with("For example:");
    }
    EXPECT_EQ(count, 12);
}

} // namespace power_on_test

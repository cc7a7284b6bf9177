#include "model/register_table.hpp"

#include <sstream>

#include <gtest/gtest.h>

#include "model/text.hpp"

namespace register_table_test {

register_table table_of(const std::string& text) {
    std::istringstream stream(text);
    return register_table::parse(stream, "registers");
}

std::string printed(const register_table& table) {
    std::ostringstream text;
    table.print(text);
    return text.str();
}

std::string refusal_of(const std::string& text) {
    try {
        table_of(text);
    } catch (const input_error& error) {
        return error.what();
    }
    return "no refusal";
}

TEST(RegisterTable, ALineGivesAWordAndWhatItIs) {
    const register_table table = table_of("0x10040004 - 0x00200001 ro  mac tx \n");
    const register_entry* const entry = table.find({0x10040004, std::nullopt});
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->word, 0x00200001U);
    EXPECT_TRUE(entry->read_only);
    EXPECT_EQ(entry->name, "mac tx");
}

TEST(RegisterTable, BankedWordsAreToldApartBySelector) {
    const register_table table = table_of("0x18428194 0x007 1 rw one\n"
                                          "0x18428194 0x107 2 rw two\n");
    EXPECT_EQ(table.find({0x18428194, 0x007})->word, 1U);
    EXPECT_EQ(table.find({0x18428194, 0x107})->word, 2U);
    EXPECT_EQ(table.find({0x18428194, 0x207}), nullptr);
    EXPECT_EQ(table.find({0x18428194, std::nullopt}), nullptr);
}

TEST(RegisterTable, ABankedRegisterLiesWhereItsSelectRegisterIsListed) {
    const register_table table = table_of("0x1842812c - 0 rw select\n");
    EXPECT_TRUE(table.has_register(0x1842812c));
    EXPECT_TRUE(table.has_register(0x18428194));
    EXPECT_FALSE(table.has_register(0x18448194));
    EXPECT_FALSE(table.has_register(0x18428120));
}

TEST(RegisterTable, APropertyIsFoundByTheFieldsOfItsWord) {
    const register_table table = table_of("0x10090110 - 0 rw i2c0-delay\n"
                                          "0x18428194 0x107 0 rw orlin-ddra-read1::dq1\n"
                                          "0x111a2204 - 0 ro pcie-state\n"
                                          "fields i2c*-delay sda-delay=3..0 scl-delay=7..4\n"
                                          "fields *::dq? 6..0\n"
                                          "fields pcie-state pcie-link::state-ro=3..0\n");
    const auto scl = table.find_property("i2c0-delay::scl-delay");
    ASSERT_TRUE(scl);
    EXPECT_EQ(scl->place, (register_key{0x10090110, std::nullopt}));
    EXPECT_EQ(scl->high, 7U);
    EXPECT_EQ(scl->low, 4U);
    EXPECT_EQ(scl->limit(), 15U);
    EXPECT_EQ(table.find_property("orlin-ddra-read1::dq1")->place,
              (register_key{0x18428194, 0x107}));
    EXPECT_EQ(table.find_property("pcie-link::state-ro")->high, 3U);
    for (const char* const other : {"i2c0-delay", "i2c1-delay::scl-delay",
                                    "i2c0-delay::", "pcie-state::pcie-link::state-ro"}) {
        EXPECT_FALSE(table.find_property(other)) << other;
    }
}

TEST(RegisterTable, PrintingGivesBackTheTextWithComments) {
    const std::string text =
        "# a comment\n\n  0x10040004   - 0x1 rw   mac-tx  # the rest \n# end\n";
    EXPECT_EQ(printed(table_of(text)), text);
}

TEST(RegisterTable, AChangedWordChangesItsDigitsOnly) {
    register_table table = table_of("# one\n 0x10040004  -   7 rw  mac-tx\n");
    table.set_word({0x10040004, std::nullopt}, 0xabcdef);
    table.set_word({0x10040004, std::nullopt}, 0x12);
    EXPECT_EQ(printed(table), "# one\n 0x10040004  -   0x00000012 rw  mac-tx\n");
    EXPECT_EQ(table.find({0x10040004, std::nullopt})->word, 0x12U);
}

TEST(RegisterTable, AnAddedWordIsALineInTheSameColumnsAndCanBeChanged) {
    register_table table = table_of("# one\n");
    table.add({0x18428194, 0x20f}, {5, false, "spare"});
    table.add({0x10040004, std::nullopt}, {6, true, "mac-tx"});
    table.set_word({0x18428194, 0x20f}, 7);
    EXPECT_EQ(printed(table), "# one\n"
                              "0x18428194  0x0000020f  0x00000007  rw      spare\n"
                              "0x10040004  -           0x00000006  ro      mac-tx\n");
    EXPECT_EQ(printed(table_of(printed(table))), printed(table));
}

TEST(RegisterTable, ALineThatMakesNoSenseIsRefusedWithItsPlace) {
    const struct {
        const char* line;
        const char* message;
    } rows[] = {
        {"zz - 5 rw x", "'zz' is no address"},
        {"0x10040002 - 5 rw x", "address 0x10040002 is not a multiple of 4"},
        {"0x10040004 7 5 rw x", "the register at 0x10040004 is not banked: its selector must be -"},
        {"0x184481a0 - 5 rw x", "the register at 0x184481a0 is banked: its selector is missing"},
        {"0x184481a0 y 5 rw x", "'y' is no selector"},
        {"0x10040004 - 0x123456789 rw x", "'0x123456789' is no word"},
        {"0x10040004 -", "the word is missing"},
        {"0x10040004 - 5 rx x", "'rx' is no access: rw or ro"},
        {"0x10040004 - 5 rw", "the name is missing"},
        {"fields mac-?? 3", "'3' are no bits: HIGH..LOW"},
        {"fields mac-?? delay=3..4", "'3..4' are no bits: HIGH..LOW"},
        {"fields mac-?? delay=32..0", "'32..0' are no bits: HIGH..LOW"},
        {"fields mac-?? delay=a..0", "'a..0' are no bits: HIGH..LOW"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(refusal_of(std::string("# first\n") + row.line + "\n"),
                  std::string("registers:2: ") + row.message);
    }
}

TEST(RegisterTable, AWordThatIsListedTwiceIsRefused) {
    EXPECT_EQ(refusal_of("0x10040004 - 5 rw x\n0x10040004 - 6 rw y\n"),
              "registers:2: this word is listed already");
}

} // namespace register_table_test
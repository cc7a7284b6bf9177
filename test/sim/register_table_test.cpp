#include "model/register_table.hpp"

#include "model/text.hpp"

#include <sstream>

#include <gtest/gtest.h>

namespace sim {
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

TEST(sim_register_table, a_line_gives_a_word_and_what_it_is) {
    const register_table table = table_of("0x10040004 - 0x00200001 ro  mac tx \n");
    const register_entry* const entry = table.find({0x10040004, std::nullopt});
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->word, 0x00200001u);
    EXPECT_TRUE(entry->read_only);
    EXPECT_EQ(entry->name, "mac tx");
}

TEST(sim_register_table, banked_words_are_told_apart_by_selector) {
    const register_table table = table_of("0x18428194 0x007 1 rw one\n"
                                          "0x18428194 0x107 2 rw two\n");
    EXPECT_EQ(table.find({0x18428194, 0x007})->word, 1u);
    EXPECT_EQ(table.find({0x18428194, 0x107})->word, 2u);
    EXPECT_EQ(table.find({0x18428194, 0x207}), nullptr);
    EXPECT_EQ(table.find({0x18428194, std::nullopt}), nullptr);
}

TEST(sim_register_table, a_banked_register_lies_where_its_select_register_is_listed) {
    const register_table table = table_of("0x1842812c - 0 rw select\n");
    EXPECT_TRUE(table.has_register(0x1842812c));
    EXPECT_TRUE(table.has_register(0x18428194));
    EXPECT_FALSE(table.has_register(0x18448194));
    EXPECT_FALSE(table.has_register(0x18428120));
}

TEST(sim_register_table, printing_gives_back_the_text_with_comments) {
    const std::string text =
        "# a comment\n\n  0x10040004   - 0x1 rw   mac-tx  # the rest \n# end\n";
    EXPECT_EQ(printed(table_of(text)), text);
}

TEST(sim_register_table, a_changed_word_changes_its_digits_only) {
    register_table table = table_of("# one\n 0x10040004  -   7 rw  mac-tx\n");
    table.set_word({0x10040004, std::nullopt}, 0xabcdef);
    table.set_word({0x10040004, std::nullopt}, 0x12);
    EXPECT_EQ(printed(table), "# one\n 0x10040004  -   0x00000012 rw  mac-tx\n");
    EXPECT_EQ(table.find({0x10040004, std::nullopt})->word, 0x12u);
}

TEST(sim_register_table, an_added_word_is_a_line_in_the_same_columns_and_can_be_changed) {
    register_table table = table_of("# one\n");
    table.add({0x18428194, 0x20f}, {5, false, "spare"});
    table.add({0x10040004, std::nullopt}, {6, true, "mac-tx"});
    table.set_word({0x18428194, 0x20f}, 7);
    EXPECT_EQ(printed(table), "# one\n"
                              "0x18428194  0x0000020f  0x00000007  rw      spare\n"
                              "0x10040004  -           0x00000006  ro      mac-tx\n");
    EXPECT_EQ(printed(table_of(printed(table))), printed(table));
}

TEST(sim_register_table, a_line_that_makes_no_sense_is_refused_with_its_place) {
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
    };
    for (const auto& row : rows) {
        EXPECT_EQ(refusal_of(std::string("# first\n") + row.line + "\n"),
                  std::string("registers:2: ") + row.message);
    }
}

TEST(sim_register_table, a_word_that_is_listed_twice_is_refused) {
    EXPECT_EQ(refusal_of("0x10040004 - 5 rw x\n0x10040004 - 6 rw y\n"),
              "registers:2: this word is listed already");
}

} // namespace register_table_test
} // namespace sim

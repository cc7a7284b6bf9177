#include "model/text.hpp"

#include <gtest/gtest.h>

namespace sim {
namespace text_test {

TEST(sim_text, words_are_taken_from_the_front) {
    std::string_view rest = "  one\ttwo three \r";
    EXPECT_EQ(take_word(rest), "one");
    EXPECT_EQ(take_word(rest), "two");
    EXPECT_EQ(take_word(rest), "three");
    EXPECT_EQ(take_word(rest), "");
}

TEST(sim_text, a_word_points_into_the_line_it_was_taken_from) {
    const std::string line = "  one two";
    std::string_view rest = line;
    take_word(rest);
    EXPECT_EQ(take_word(rest).data(), line.data() + 6);
}

TEST(sim_text, trimming_keeps_the_blanks_inside) {
    EXPECT_EQ(trimmed(" \ti/o  control \r"), "i/o  control");
    EXPECT_EQ(trimmed(" \t"), "");
}

TEST(sim_text, numbers_are_decimal_or_hexadecimal_after_0x) {
    EXPECT_EQ(parse_number("77"), 77u);
    EXPECT_EQ(parse_number("0x20e"), 0x20eu);
    EXPECT_EQ(parse_number("0xFFFFFFFF"), 0xffffffffu);
    EXPECT_EQ(parse_number("4294967295"), 0xffffffffu);
}

TEST(sim_text, what_is_no_number_of_32_bits_is_refused) {
    for (const char* const text :
         {"", "0x", "x1", "-1", "+1", "12g", "20e", "0x1g", "0x100000000", "4294967296", "1 2"}) {
        EXPECT_EQ(parse_number(text), std::nullopt) << text;
    }
}

TEST(sim_text, words_are_shown_with_eight_lower_case_digits) {
    EXPECT_EQ(hex_text(0), "0x00000000");
    EXPECT_EQ(hex_text(0x1A419194), "0x1a419194");
    EXPECT_EQ(hex_text(0xffffffff), "0xffffffff");
}

} // namespace text_test
} // namespace sim

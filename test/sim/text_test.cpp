#include "model/text.hpp"

#include <gtest/gtest.h>

namespace text_test {

TEST(Text, WordsAreTakenFromTheFront) {
    std::string_view rest = "  one\ttwo three \r";
    EXPECT_EQ(take_word(rest), "one");
    EXPECT_EQ(take_word(rest), "two");
    EXPECT_EQ(take_word(rest), "three");
    EXPECT_EQ(take_word(rest), "");
}

TEST(Text, AWordPointsIntoTheLineItWasTakenFrom) {
    const std::string line = "  one two";
    std::string_view rest = line;
    take_word(rest);
    EXPECT_EQ(take_word(rest).data(), line.data() + 6);
}

TEST(Text, TrimmingKeepsTheBlanksInside) {
    EXPECT_EQ(trimmed(" \ti/o  control \r"), "i/o  control");
    EXPECT_EQ(trimmed(" \t"), "");
}

TEST(Text, NumbersAreDecimalOrHexadecimalAfter0x) {
    EXPECT_EQ(parse_number("77"), 77U);
    EXPECT_EQ(parse_number("0x20e"), 0x20eU);
    EXPECT_EQ(parse_number("0xFFFFFFFF"), 0xffffffffU);
    EXPECT_EQ(parse_number("4294967295"), 0xffffffffU);
}

TEST(Text, WhatIsNoNumberOf32BitsIsRefused) {
    for (const char* const text :
         {"", "0x", "x1", "-1", "+1", "12g", "20e", "0x1g", "0x100000000", "4294967296", "1 2"}) {
        EXPECT_EQ(parse_number(text), std::nullopt) << text;
    }
}

TEST(Text, WordsAreShownWithEightLowerCaseDigits) {
    EXPECT_EQ(hex_text(0), "0x00000000");
    EXPECT_EQ(hex_text(0x1A419194), "0x1a419194");
    EXPECT_EQ(hex_text(0xffffffff), "0xffffffff");
}

} // namespace text_test
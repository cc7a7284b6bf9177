#include "base/hexadecimal.hpp"

#include <gtest/gtest.h>

namespace hexadecimal_test {

TEST(Hexadecimal, DigitsAreLowerCaseAndAsManyAsTheNumberNeeds) {
    EXPECT_EQ(hexadecimal(0), "0x0");
    EXPECT_EQ(hexadecimal(255), "0xff");
    EXPECT_EQ(hexadecimal(0xffffffff), "0xffffffff");
}

TEST(Hexadecimal, ZerosAreInFrontUpToTheDigitsThatAreAskedFor) {
    EXPECT_EQ(hexadecimal(0, 8), "0x00000000");
    EXPECT_EQ(hexadecimal(0x1A, 3), "0x01a");
    EXPECT_EQ(hexadecimal(0x12345678, 3), "0x12345678");
}

} // namespace hexadecimal_test

#include <limits>
#include <ostream>
#include <string>

#include "reg/reg_subval.hpp"
#include "support/hardware_test.hpp"

namespace reg_subval_clamp_test {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::ValuesIn;

constexpr long long lowest = std::numeric_limits<long long>::min();
constexpr long long highest = std::numeric_limits<long long>::max();
constexpr unsigned int all_ones = 0xffffffff;

/** Nothing but limits. */
class limits_only : public reg_subval {
public:
    limits_only(unsigned int min, unsigned int max)
        : reg_subval("field", "", false), m_min(min), m_max(max) {}

    bool set(reg_info*, unsigned int) override { return false; }
    bool get(reg_info*, unsigned int*) override { return false; }
    void get_limits(unsigned int* min, unsigned int* max) override {
        *min = m_min;
        *max = m_max;
    }

private:
    unsigned int m_min;
    unsigned int m_max;
};

struct clamp_row {
    const char* name;
    unsigned int min;
    unsigned int max;
    long long value;
    unsigned int current;
    long long request;
    unsigned int result;
    const char* message;
};

void PrintTo(const clamp_row& row, std::ostream* out) {
    *out << row.value << " in " << row.min << " ~ " << row.max;
}

constexpr clamp_row rows[] = {
    {"Inside", 0, 127, 73, 70, 3, 73, ""},
    {"ExactlyOnTheLargest", 0, 127, 127, 120, 7, 127, ""},
    {"ExactlyOnTheSmallest", 0, 127, 0, 5, -5, 0, ""},
    {"ExactlyOnASmallestAboveZero", 2, 255, 2, 5, -3, 2, ""},
    {"TheOnlyLegalValue", 9, 9, 9, 9, 0, 9, ""},
    {"TheWholeRangeOf32Bits", 0, all_ones, 0xffffffff, 1, 2, all_ones, ""},
    {"CurrentAndRequestDoNotCount", 0, 127, 64, 4000, -9000, 64, ""},
    {"AboveTheLargest", 0, 127, 130, 120, 10, 127,
     "warning! applying 10 to current value 120 is out of range (0 ~ 127). adjusted to 127\n"},
    {"OneAboveTheLargest", 0, 127, 128, 127, 1, 127,
     "warning! applying 1 to current value 127 is out of range (0 ~ 127). adjusted to 127\n"},
    {"StillAboveTheLargestAfterAStepDown", 0, 15, 59, 60, -1, 15,
     "warning! applying -1 to current value 60 is out of range (0 ~ 15). adjusted to 15\n"},
    {"StillBelowTheSmallestAfterAStepUp", 20, 30, 6, 5, 1, 20,
     "warning! applying 1 to current value 5 is out of range (20 ~ 30). adjusted to 20\n"},
    {"BelowTheSmallest", 0, 127, -195, 5, -200, 0,
     "warning! applying -200 to current value 5 is out of range (0 ~ 127). adjusted to 0\n"},
    {"OneBelowZero", 0, 127, -1, 0, -1, 0,
     "warning! applying -1 to current value 0 is out of range (0 ~ 127). adjusted to 0\n"},
    {"OneBelowASmallestAboveZero", 2, 255, 1, 3, -2, 2,
     "warning! applying -2 to current value 3 is out of range (2 ~ 255). adjusted to 2\n"},
    {"OneAbove32Bits", 0, all_ones, 0x100000000, all_ones, 1, all_ones,
     "warning! applying 1 to current value 4294967295 is out of range (0 ~ 4294967295). "
     "adjusted to 4294967295\n"},
    {"MinusOneIsNotTheLargest32BitNumber", 0, all_ones, -1, 0, -1, 0,
     "warning! applying -1 to current value 0 is out of range (0 ~ 4294967295). "
     "adjusted to 0\n"},
    {"LowBitsThatWouldFit", 0, 127, 0x100000005, 5, 0x100000000, 127,
     "warning! applying 4294967296 to current value 5 is out of range (0 ~ 127). "
     "adjusted to 127\n"},
    {"LimitsAbove31Bits", 0x80000000, 0x90000000, 0x7fffffff, 0x80000000, -1, 0x80000000,
     "warning! applying -1 to current value 2147483648 is out of range "
     "(2147483648 ~ 2415919104). adjusted to 2147483648\n"},
    {"TheHighest64BitNumber", 0, 127, highest, 0, highest, 127,
     "warning! applying 9223372036854775807 to current value 0 is out of range (0 ~ 127). "
     "adjusted to 127\n"},
    {"TheLowest64BitNumber", 0, 127, lowest, 0, lowest, 0,
     "warning! applying -9223372036854775808 to current value 0 is out of range (0 ~ 127). "
     "adjusted to 0\n"},
};

class RegSubvalClamp : public hardware_test, public testing::WithParamInterface<clamp_row> {};

TEST_P(RegSubvalClamp, GivesTheNearestLegalValueAndWarnsOnlyWhenItDiffers) {
    const clamp_row& row = GetParam();
    limits_only field(row.min, row.max);
    EXPECT_EQ(field.clamp(row.value, row.current, row.request), row.result);
    EXPECT_EQ(messages(), row.message);
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, RegSubvalClamp, ValuesIn(rows),
                         [](const auto& row) { return row.param.name; });

TEST(RegSubvalClampMessage, IsOneWrite) {
    limits_only field(0, 127);
    fake_streams::reset();
    field.clamp(130, 120, 10);
    EXPECT_THAT(fake_streams::writes(),
                ElementsAre("warning! applying 10 to current value 120 is out of "
                            "range (0 ~ 127). adjusted to 127\n"));
}

} // namespace reg_subval_clamp_test

#include "base/wrapping.hpp"

#include <cstdint>
#include <limits>

#include <gtest/gtest.h>

namespace wrapping_test {

constexpr long long lowest = std::numeric_limits<long long>::min();
constexpr long long highest = std::numeric_limits<long long>::max();

// Compile-time evaluation refuses undefined behaviour, so these would not build if a sum
// overflowed.
static_assert(wrapping_add(highest, 1LL) == lowest);
static_assert(wrapping_subtract(lowest, 1LL) == highest);

struct operands {
    long long a;
    long long b;
    long long sum;
    long long difference;
};

constexpr operands rows[] = {
    {0, 0, 0, 0},
    {2, 3, 5, -1},
    {-7, 4, -3, -11},
    {4, -7, -3, 11},
    {-7, -4, -11, -3},
    {0xffffffff, 1, 0x100000000, 0xfffffffe},
    {highest, 0, highest, highest},
    {highest - 1, 1, highest, highest - 2},
    {highest, 1, lowest, highest - 1},
    {highest, highest, -2, 0},
    {highest, -1, highest - 1, lowest},
    {lowest, 0, lowest, lowest},
    {lowest, 1, lowest + 1, highest},
    {lowest, -1, highest, lowest + 1},
    {lowest, lowest, 0, 0},
    {lowest, highest, -1, 1},
    {highest, lowest, -1, -1},
    {0, lowest, lowest, lowest},
    {0x40, lowest, lowest + 0x40, lowest + 0x40},
};

TEST(Wrapping, SumsAreTakenModuloTwoToTheWidth) {
    for (const operands& row : rows) {
        EXPECT_EQ(wrapping_add(row.a, row.b), row.sum) << row.a << " + " << row.b;
        EXPECT_EQ(wrapping_add(row.b, row.a), row.sum) << row.b << " + " << row.a;
    }
}

TEST(Wrapping, DifferencesAreTakenModuloTwoToTheWidth) {
    for (const operands& row : rows) {
        EXPECT_EQ(wrapping_subtract(row.a, row.b), row.difference) << row.a << " - " << row.b;
        EXPECT_EQ(wrapping_add(row.difference, row.b), row.a) << row.difference << " + " << row.b;
    }
}

TEST(Wrapping, TheWidthIsThatOfTheOperands) {
    constexpr std::int32_t lowest32 = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t highest32 = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(wrapping_add<std::int32_t>(highest32, 1), lowest32);
    EXPECT_EQ(wrapping_subtract<std::int32_t>(lowest32, 1), highest32);
    EXPECT_EQ(wrapping_add<long long>(highest32, 1), 0x80000000LL);
    EXPECT_EQ(wrapping_subtract<long long>(lowest32, 1), -0x80000001LL);
}

} // namespace wrapping_test

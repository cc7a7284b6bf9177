// Fields and registers that are built before main, by a file that includes their headers and no
// other of the tool's.

#include <algorithm>

#include <gtest/gtest.h>

#include "reg/reg_bitmask.hpp"
#include "reg/reg_info.hpp"

namespace early_objects_test {

reg_bitmask* const early_field = new reg_bitmask(7, 4, "field", "no desc");
reg_info* const early_register = new reg_info("register", 0x1000, {early_field}, true);

TEST(EarlyObjects, AreInTheListsThatOwnThem) {
    EXPECT_EQ(std::ranges::count(subval_garbages.m_list, early_field), 1);
    EXPECT_EQ(std::ranges::count(info_garbages.m_list, early_register), 1);
}

} // namespace early_objects_test

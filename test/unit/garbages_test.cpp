#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <iterator>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reg/reg_bitmask.hpp"
#include "reg/reg_info.hpp"
#include "support/hardware_test.hpp"

namespace garbages_test {

using testing::Eq;
using testing::ExitedWithCode;
using testing::IsEmpty;

/** A field that tells standard error when it is deleted. */
class telling_field : public reg_bitmask {
public:
    explicit telling_field(const std::string& name) : reg_bitmask(7, 4, name, "no desc") {}
    ~telling_field() override { std::fputs(("field " + m_name + "\n").c_str(), stderr); }
};

/** A register that tells standard error when it is deleted. */
class telling_register : public reg_info {
public:
    telling_register(const std::string& name, std::initializer_list<reg_bitmask*> fields,
                     bool garbage = true)
        : reg_info(name, 0x1000, fields, garbage) {}
    ~telling_register() override { std::fputs(("register " + m_name + "\n").c_str(), stderr); }
};

using Garbages = hardware_test;
using GarbagesDeathTest = hardware_test;

TEST_F(Garbages, ObjectsAreAppendedInTheOrderInWhichTheyAreBuilt) {
    const std::size_t fields_before = subval_garbages.m_list.size();
    auto* const field_b = new reg_bitmask(7, 4, "b", "no desc");
    auto* const field_a = new reg_bitmask(3, 0, "a", "no desc");
    ASSERT_EQ(subval_garbages.m_list.size(), fields_before + 2);
    EXPECT_EQ(subval_garbages.m_list.back(), field_a);
    EXPECT_EQ(*std::prev(subval_garbages.m_list.end(), 2), field_b);

    const std::size_t registers_before = info_garbages.m_list.size();
    auto* const register_b = new reg_info("b", 0x1000, {field_a, field_b}, true);
    auto* const register_a = new reg_info("a", 0x1004, {field_a, field_b}, true);
    ASSERT_EQ(info_garbages.m_list.size(), registers_before + 2);
    EXPECT_EQ(info_garbages.m_list.back(), register_a);
    EXPECT_EQ(*std::prev(info_garbages.m_list.end(), 2), register_b);
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(GarbagesDeathTest, AtExitRegistersAreDeletedBeforeFieldsEachInBuildingOrder) {
    EXPECT_EXIT(
        {
            auto* const field_2 = new telling_field("2");
            new telling_register("b", {field_2});
            auto* const field_1 = new telling_field("1");
            new telling_register("a", {field_1, field_2});
            new telling_register("c", {field_1});
            std::exit(0);
        },
        ExitedWithCode(0), Eq("register b\nregister a\nregister c\nfield 2\nfield 1\n"));
}

TEST_F(GarbagesDeathTest, ARegisterWithoutFieldsIsDeletedAtExit) {
    EXPECT_EXIT(
        {
            new telling_register("empty", {});
            std::exit(0);
        },
        ExitedWithCode(0), Eq("register empty\n"));
}

TEST_F(GarbagesDeathTest, BothOfTwoFieldsWithTheSameNameAreDeletedAtExit) {
    EXPECT_EXIT(
        {
            auto* const earlier = new telling_field("same");
            auto* const later = new telling_field("same");
            new telling_register("r", {earlier, later});
            std::exit(0);
        },
        ExitedWithCode(0), Eq("register r\nfield same\nfield same\n"));
}

TEST_F(GarbagesDeathTest, ARegisterBuiltWithoutTheGarbageFlagIsNotDeletedAtExit) {
    [[maybe_unused]] static telling_register* kept = nullptr; // reachable to the end: not a leak
    EXPECT_EXIT(
        {
            kept = new telling_register("kept", {}, false);
            std::exit(0);
        },
        ExitedWithCode(0), Eq(""));
}

TEST_F(GarbagesDeathTest, AddGarbageHandsARegisterOver) {
    EXPECT_EXIT(
        {
            auto* const handed_over = new telling_register("handed over", {}, false);
            new telling_register("later", {});
            handed_over->add_garbage();
            std::exit(0);
        },
        ExitedWithCode(0), Eq("register later\nregister handed over\n"));
}

} // namespace garbages_test

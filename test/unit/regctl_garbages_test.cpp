#include "reg/regctl_garbages.hpp"

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace regctl_garbages_test {

using testing::ElementsAre;
using testing::IsEmpty;

/** An object that leaves its name in a list when it is deleted. */
class owned {
public:
    owned(std::string name, std::vector<std::string>& deleted)
        : m_name(std::move(name)), m_deleted(deleted) {}
    virtual ~owned() { m_deleted.push_back(m_name); }
    owned(const owned&) = delete;
    owned& operator=(const owned&) = delete;

protected:
    const std::string m_name;
    std::vector<std::string>& m_deleted;
};

class owned_subclass : public owned {
public:
    using owned::owned;
    ~owned_subclass() override { m_deleted.push_back("subclass of " + m_name); }
};

TEST(RegctlGarbages, DeletesItsElementsFromFrontToBack) {
    std::vector<std::string> deleted;
    {
        regctl_garbages<owned*> garbages;
        garbages.m_list.push_back(new owned("c", deleted));
        garbages.m_list.push_back(new owned("a", deleted));
        garbages.m_list.push_back(new owned("b", deleted));
    }
    EXPECT_THAT(deleted, ElementsAre("c", "a", "b"));
}

TEST(RegctlGarbages, DeletesNothingBeforeItsOwnEnd) {
    std::vector<std::string> deleted;
    regctl_garbages<owned*> garbages;
    for (int i = 0; i < 100; ++i) {
        garbages.m_list.push_back(new owned("object", deleted));
    }
    EXPECT_EQ(garbages.m_list.size(), 100U);
    EXPECT_THAT(deleted, IsEmpty());
}

TEST(RegctlGarbages, SkipsNullElementsWhereverTheyStand) {
    std::vector<std::string> deleted;
    {
        regctl_garbages<owned*> garbages;
        garbages.m_list.push_back(nullptr);
        garbages.m_list.push_back(new owned("first", deleted));
        garbages.m_list.push_back(nullptr);
        garbages.m_list.push_back(nullptr);
        garbages.m_list.push_back(new owned("second", deleted));
        garbages.m_list.push_back(nullptr);
    }
    EXPECT_THAT(deleted, ElementsAre("first", "second"));
}

TEST(RegctlGarbages, DeletesThroughTheVirtualDestructor) {
    std::vector<std::string> deleted;
    {
        regctl_garbages<owned*> garbages;
        garbages.m_list.push_back(new owned_subclass("a", deleted));
        garbages.m_list.push_back(new owned("b", deleted));
    }
    EXPECT_THAT(deleted, ElementsAre("subclass of a", "a", "b"));
}

TEST(RegctlGarbages, StartsEmptyAndMayEndEmpty) {
    const regctl_garbages<owned*> garbages;
    EXPECT_THAT(garbages.m_list, IsEmpty());
}

TEST(RegctlGarbages, IsDeletedThroughItsOwnVirtualDestructorAndNeverCopied) {
    using garbages = regctl_garbages<owned*>;
    EXPECT_TRUE(std::has_virtual_destructor_v<garbages>);
    EXPECT_FALSE(std::is_copy_constructible_v<garbages>);
    EXPECT_FALSE(std::is_copy_assignable_v<garbages>);
}

} // namespace regctl_garbages_test

// Groups, their members, and the registry of groups.

#include "property/property_group.hpp"

#include <cstddef>
#include <map>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_property.hpp"
#include "support/hardware_test.hpp"
#include "support/heap.hpp"

namespace property_group_test {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/** A group that tells when it is deleted. */
class telling_group : public property_group {
public:
    telling_group(std::string group_name, std::vector<std::string>& deleted)
        : property_group(std::move(group_name)), m_deleted(deleted) {}
    ~telling_group() override { m_deleted.push_back(name); }

private:
    std::vector<std::string>& m_deleted;
};

class PropertyGroup : public hardware_test {
protected:
    PropertyGroup() { fake_property::log.clear(); }

    /** What the registry holds. */
    static const std::map<std::string, property_group*>& groups() {
        return property_group::property_groups;
    }
};

// A name that does not fit into a string object: storing it takes memory of its own.
const std::string long_name(100, 'g');

TEST_F(PropertyGroup, IsCreatedEmptyOnFirstUse) {
    property_group* group = property_group::register_property_group("orlin-ddr");
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->name, "orlin-ddr");
    EXPECT_THAT(group->m_properties, IsEmpty());
    EXPECT_THAT(groups(), ElementsAre(Pair("orlin-ddr", group)));
}

TEST_F(PropertyGroup, IsTheSameOneOnEveryLaterUse) {
    property_group* group = property_group::register_property_group("mac");
    fake_property member("a");
    group->add_property(&member);
    EXPECT_EQ(property_group::register_property_group("mac"), group);
    EXPECT_EQ(property_group::get_property_group("mac"), group);
    EXPECT_THAT(group->m_properties, ElementsAre(Pair("a", &member)));
    EXPECT_THAT(groups(), ElementsAre(Pair("mac", group)));
}

TEST_F(PropertyGroup, RegistryIsOrderedByByteAndPrefixFirst) {
    property_group* longer = property_group::register_property_group("i2c-slow");
    property_group* shorter = property_group::register_property_group("i2c");
    property_group* upper = property_group::register_property_group("I2C");
    EXPECT_THAT(groups(),
                ElementsAre(Pair("I2C", upper), Pair("i2c", shorter), Pair("i2c-slow", longer)));
}

TEST_F(PropertyGroup, UnknownNameGivesNullAndLeavesAnEntryThatHoldsNull) {
    EXPECT_EQ(property_group::get_property_group("none"), nullptr);
    EXPECT_THAT(groups(), ElementsAre(Pair("none", nullptr)));
    EXPECT_EQ(property_group::get_property_group("none"), nullptr);
    EXPECT_THAT(groups(), ElementsAre(Pair("none", nullptr)));
}

TEST_F(PropertyGroup, IsCreatedInTheEntryThatHoldsNull) {
    property_group::get_property_group("later");
    property_group* group = property_group::register_property_group("later");
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->name, "later");
    EXPECT_THAT(groups(), ElementsAre(Pair("later", group)));
    EXPECT_EQ(property_group::get_property_group("later"), group);
}

// The entry takes two allocations: for its place in the registry, and for the long name.
TEST_F(PropertyGroup, LookUpWithoutMemoryForTheEntryGivesNullAndLeavesNone) {
    property_group* const known = property_group::register_property_group("known");
    for (const std::size_t allocation : {1U, 2U}) {
        property_group* found = known;
        {
            const heap::failure failure(allocation);
            found = property_group::get_property_group(long_name);
        }
        EXPECT_EQ(found, nullptr) << "allocation " << allocation;
        EXPECT_THAT(groups(), ElementsAre(Pair("known", known)));
    }
    EXPECT_EQ(property_group::get_property_group(long_name), nullptr);
    EXPECT_TRUE(groups().contains(long_name));
}

TEST_F(PropertyGroup, LookUpOfAKnownNameNeedsNoMemory) {
    property_group* group = property_group::register_property_group(long_name);
    const heap::failure failure(1);
    EXPECT_EQ(property_group::get_property_group(long_name), group);
}

TEST_F(PropertyGroup, CreationWithoutMemoryRaisesTheErrorAndLosesNothing) {
    const std::size_t before = heap::live();
    std::size_t failures = 0;
    for (bool created = false; !created;) {
        try {
            const heap::failure failure(failures + 1);
            property_group::register_property_group(long_name);
            created = true;
        } catch (const std::bad_alloc&) {
            ++failures;
        }
        property_group::free_all();
        EXPECT_EQ(heap::live(), before) << "after failure " << failures;
    }
    EXPECT_GE(failures, 3U); // the entry, its name, and the group at the least
}

TEST_F(PropertyGroup, CopyOfTheRegistryIsASnapshotOfTheLiveGroups) {
    property_group* early = property_group::register_property_group("early");
    const std::map<std::string, property_group*> copy = property_group::get_groups();
    property_group::register_property_group("late");
    EXPECT_THAT(copy, ElementsAre(Pair("early", early)));

    fake_property member("a");
    early->add_property(&member);
    EXPECT_THAT(copy.at("early")->m_properties, ElementsAre(Pair("a", &member)));
}

TEST_F(PropertyGroup, DroppingTheCopyLeavesTheRegistry) {
    property_group* group = property_group::register_property_group("group");
    property_group::get_groups().clear();
    EXPECT_THAT(groups(), ElementsAre(Pair("group", group)));
}

TEST_F(PropertyGroup, AddingAMemberLeavesTheRegistriesAlone) {
    property_group group("group");
    fake_property member("a");
    EXPECT_EQ(group.add_property(&member), &member);
    EXPECT_THAT(group.m_properties, ElementsAre(Pair("a", &member)));
    EXPECT_THAT(property::properties, IsEmpty());
    EXPECT_THAT(groups(), IsEmpty());
}

TEST_F(PropertyGroup, AddingAMemberReplacesTheOneOfThatNameSilently) {
    property_group group("group");
    fake_property first("a");
    fake_property second("a");
    group.add_property(&first);
    EXPECT_EQ(group.add_property(&second), &second);
    EXPECT_THAT(group.m_properties, ElementsAre(Pair("a", &second)));
    EXPECT_THAT(fake_property::log, IsEmpty());
}

TEST_F(PropertyGroup, PropertyRegisteredOnceCanBeInSeveralGroups) {
    property* p = new fake_property("a");
    property::register_property("one", p);
    property_group* two = property_group::register_property_group("two");
    two->add_property(p);
    EXPECT_THAT(groups().at("one")->m_properties, ElementsAre(Pair("a", p)));
    EXPECT_THAT(two->m_properties, ElementsAre(Pair("a", p)));
    EXPECT_THAT(property::properties, ElementsAre(Pair("a", p)));
}

TEST_F(PropertyGroup, FreeAllDeletesEveryGroupInNameOrderButNoMember) {
    std::vector<std::string> deleted;
    fake_property member("a");
    for (const char* name : {"mac", "ehci", "pcie"}) {
        auto* group = new telling_group(name, deleted);
        group->add_property(&member);
        property_group::property_groups[name] = group;
    }
    property_group::free_all();
    EXPECT_THAT(deleted, ElementsAre("ehci", "mac", "pcie"));
    EXPECT_THAT(groups(), IsEmpty());
    EXPECT_THAT(fake_property::log, IsEmpty());
}

TEST_F(PropertyGroup, FreeAllSkipsEntriesThatHoldNull) {
    std::vector<std::string> deleted;
    property_group::get_property_group("a");
    property_group::property_groups["b"] = new telling_group("b", deleted);
    property_group::get_property_group("c");
    property_group::free_all();
    EXPECT_THAT(deleted, ElementsAre("b"));
    EXPECT_THAT(groups(), IsEmpty());
}

TEST_F(PropertyGroup, FreeAllLeavesTheRegisteredProperties) {
    property* p = new fake_property("a");
    property::register_property("group", p);
    property_group::free_all();
    EXPECT_EQ(property::get_property("a"), p);
    EXPECT_THAT(fake_property::log, IsEmpty());
}

TEST_F(PropertyGroup, FreeAllTwiceOrOnNothingIsHarmless) {
    property_group::free_all();
    property_group::register_property_group("group");
    property_group::free_all();
    property_group::free_all();
    EXPECT_THAT(groups(), IsEmpty());
}

} // namespace property_group_test

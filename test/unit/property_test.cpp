// The abstract property and the registry of properties.

#include "property/property.hpp"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "property/property_group.hpp"
#include "support/fake_property.hpp"
#include "support/hardware_test.hpp"
#include "support/heap.hpp"

namespace property_test {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

// What main would find.
const bool empty_before_main =
    property::properties.empty() && property_group::property_groups.empty();
const int mode_before_main = property::m_number_mode;

class Property : public hardware_test {
protected:
    Property() { fake_property::log.clear(); }

    property_group m_group{"group"};
};

TEST_F(Property, RegistriesAreEmptyAndNumbersDecimalBeforeMain) {
    EXPECT_TRUE(empty_before_main);
    EXPECT_EQ(mode_before_main, 0);
}

TEST_F(Property, BearsItsNameAndDeletesItselfUnlessToldOtherwise) {
    const fake_property p("orlin-ddra-read0");
    EXPECT_EQ(p.name, "orlin-ddra-read0");
    EXPECT_TRUE(p.m_auto_delete);
}

TEST_F(Property, HelpOfAKindWithoutOneIsNoHelp) {
    fake_property p("a");
    std::string help = "what was there before";
    p.get_help(help);
    EXPECT_EQ(help, "no help.");
    EXPECT_THAT(fake_property::log, IsEmpty());
}

TEST_F(Property, UnregisteringDeletesTheObject) {
    auto p = std::make_unique<fake_property>("a");
    property* base = p.release();
    base->on_unregister();
    EXPECT_THAT(fake_property::log, ElementsAre("delete a"));
}

TEST_F(Property, UnregisteringLeavesAloneWhatIsNotToDeleteItself) {
    fake_property p("a");
    p.m_auto_delete = false;
    p.on_unregister();
    EXPECT_THAT(fake_property::log, IsEmpty());
}

TEST_F(Property, IsFoundUnderExactlyItsName) {
    property* p = new fake_property("mac-tx::delay");
    EXPECT_EQ(property::register_property(&m_group, p), p);
    EXPECT_EQ(property::get_property("mac-tx::delay"), p);
    for (const char* other : {"", "mac-tx", "mac-tx::", "mac-tx::delay2", "MAC-TX::DELAY", "m*"}) {
        EXPECT_EQ(property::get_property(other), nullptr) << other;
    }
}

TEST_F(Property, LookingUpAnUnknownNameLeavesNothingBehind) {
    EXPECT_EQ(property::get_property("unknown"), nullptr);
    EXPECT_THAT(property::properties, IsEmpty());
}

TEST_F(Property, IsRegisteredOnceAndInItsGroup) {
    property* p = new fake_property("a");
    EXPECT_EQ(property::register_property(&m_group, p), p);
    EXPECT_THAT(property::properties, ElementsAre(Pair("a", p)));
    EXPECT_THAT(m_group.m_properties, ElementsAre(Pair("a", p)));
    EXPECT_THAT(property_group::property_groups, IsEmpty());
}

TEST_F(Property, RegistryIsOrderedByByteAndPrefixFirst) {
    property* lower = new fake_property("r::a");
    property* longer = new fake_property("r::a1");
    property* upper = new fake_property("r::B");
    property* beyond_ascii = new fake_property("r::\xff");
    for (property* p : {beyond_ascii, longer, lower, upper}) {
        property::register_property(&m_group, p);
    }
    EXPECT_THAT(property::properties,
                ElementsAre(Pair("r::B", upper), Pair("r::a", lower), Pair("r::a1", longer),
                            Pair("r::\xff", beyond_ascii)));
    EXPECT_EQ(m_group.m_properties, property::properties);
}

TEST_F(Property, RegistryAndGroupAreTheSameInWhateverOrderTheyAreFilled) {
    std::vector<std::string> names = {"a", "b", "c", "d", "e"};
    do {
        property_group group("group");
        for (const std::string& name : names) {
            property::register_property(&group, new fake_property(name));
        }
        fake_property late(names.front());
        EXPECT_EQ(property::register_property(&group, &late), nullptr);
        std::string order;
        for (const auto& [name, p] : property::properties) {
            EXPECT_EQ(p->name, name);
            order += name;
        }
        EXPECT_EQ(order, "abcde");
        EXPECT_EQ(group.m_properties, property::properties);
        property::free_all();
    } while (std::next_permutation(names.begin(), names.end()));
}

TEST_F(Property, EntryThatHoldsNullIsNoProperty) {
    EXPECT_EQ(property::properties["a"], nullptr); // a subscript leaves such an entry
    property::properties["b"] = nullptr;
    EXPECT_EQ(property::get_property("a"), nullptr);
    property* a = new fake_property("a");
    EXPECT_EQ(property::register_property(&m_group, a), a);
    EXPECT_EQ(property::get_property("a"), a);
    EXPECT_THAT(m_group.m_properties, ElementsAre(Pair("a", a)));
    property::free_all();
    EXPECT_THAT(fake_property::log, ElementsAre("delete a"));
    EXPECT_THAT(property::properties, IsEmpty());
}

TEST_F(Property, SecondOfTheSameNameIsRefusedAndStaysWithItsCaller) {
    property* first = new fake_property("a");
    fake_property second("a");
    property_group other("other");
    property::register_property(&m_group, first);
    EXPECT_EQ(property::register_property(&m_group, &second), nullptr);
    EXPECT_EQ(property::register_property(&other, &second), nullptr);
    EXPECT_THAT(property::properties, ElementsAre(Pair("a", first)));
    EXPECT_THAT(m_group.m_properties, ElementsAre(Pair("a", first)));
    EXPECT_THAT(other.m_properties, IsEmpty());
    EXPECT_THAT(fake_property::log, IsEmpty()); // neither is deleted
}

TEST_F(Property, RegisteringTheSameObjectAgainIsAClash) {
    property_group other("other");
    property* p = new fake_property("a");
    property::register_property(&m_group, p);
    EXPECT_EQ(property::register_property(&other, p), nullptr);
    EXPECT_THAT(property::properties, ElementsAre(Pair("a", p)));
    EXPECT_THAT(other.m_properties, IsEmpty());
}

TEST_F(Property, RegisteringReplacesAMemberOfTheSameNameInTheGroup) {
    fake_property unregistered("a");
    m_group.add_property(&unregistered);
    property* p = new fake_property("a");
    EXPECT_EQ(property::register_property(&m_group, p), p);
    EXPECT_THAT(m_group.m_properties, ElementsAre(Pair("a", p)));
    EXPECT_THAT(fake_property::log, IsEmpty());
}

// An entry takes two allocations, for its place and for the long name; and there are two.
TEST_F(Property, RegisteringWithoutMemoryRaisesTheErrorAndRegistersNothing) {
    fake_property p("a name too long to be kept in place");
    for (const std::size_t allocation : {1U, 2U, 3U, 4U}) {
        EXPECT_THROW(
            {
                const heap::failure failure(allocation);
                property::register_property(&m_group, &p);
            },
            std::bad_alloc)
            << "allocation " << allocation;
        EXPECT_EQ(property::get_property(p.name), nullptr);
        EXPECT_THAT(m_group.m_properties, IsEmpty());
    }
    p.m_auto_delete = false;
    EXPECT_EQ(property::register_property(&m_group, &p), &p);
    property::free_all();
}

TEST_F(Property, RegisteringByGroupNameCreatesTheGroupOnFirstMention) {
    property* a = new fake_property("a");
    property* b = new fake_property("b");
    EXPECT_EQ(property::register_property("i2c", a), a);
    property_group* created = property_group::property_groups.at("i2c");
    EXPECT_EQ(property::register_property("i2c", b), b);
    EXPECT_THAT(property_group::property_groups, ElementsAre(Pair("i2c", created)));
    EXPECT_THAT(created->m_properties, ElementsAre(Pair("a", a), Pair("b", b)));
    EXPECT_THAT(property::properties, ElementsAre(Pair("a", a), Pair("b", b)));
}

TEST_F(Property, ClashByGroupNameStillCreatesTheGroupEmpty) {
    property* first = new fake_property("a");
    fake_property second("a");
    property::register_property("one", first);
    EXPECT_EQ(property::register_property("two", &second), nullptr);
    ASSERT_TRUE(property_group::property_groups.contains("two"));
    EXPECT_THAT(property_group::property_groups.at("two")->m_properties, IsEmpty());
    EXPECT_THAT(property_group::property_groups.at("one")->m_properties,
                ElementsAre(Pair("a", first)));
    EXPECT_THAT(property::properties, ElementsAre(Pair("a", first)));
}

TEST_F(Property, FreeAllDeletesEveryPropertyInNameOrderAndForgetsThem) {
    for (const char* name : {"b", "c", "a", "B"}) {
        property::register_property(&m_group, new fake_property(name));
    }
    property::free_all();
    EXPECT_THAT(fake_property::log, ElementsAre("delete B", "delete a", "delete b", "delete c"));
    EXPECT_THAT(property::properties, IsEmpty());
}

TEST_F(Property, FreeAllForgetsWhatDoesNotDeleteItself) {
    fake_property p("a");
    p.m_auto_delete = false;
    property::register_property(&m_group, &p);
    property::free_all();
    EXPECT_THAT(fake_property::log, IsEmpty());
    EXPECT_THAT(property::properties, IsEmpty());
}

TEST_F(Property, FreeAllReleasesOnlyWhatWasRegistered) {
    fake_property only_in_a_group("a");
    property_group::register_property_group("group")->add_property(&only_in_a_group);
    property::free_all();
    EXPECT_THAT(fake_property::log, IsEmpty());
}

TEST_F(Property, FreeAllLeavesTheGroups) {
    property_group* group = property_group::register_property_group("group");
    property::register_property(group, new fake_property("a"));
    property::free_all();
    EXPECT_THAT(property_group::property_groups, ElementsAre(Pair("group", group)));
}

TEST_F(Property, FreeAllTwiceOrOnNothingIsHarmless) {
    property::free_all();
    property::register_property(&m_group, new fake_property("a"));
    property::free_all();
    property::free_all();
    EXPECT_THAT(fake_property::log, ElementsAre("delete a"));
    EXPECT_THAT(property::properties, IsEmpty());
}

} // namespace property_test

// A register's field as a property: how it is registered, and what reaches the hardware.

#include "property/property_register.hpp"

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_property.hpp"
#include "support/field_properties.hpp"
#include "support/heap.hpp"
#include "support/shown.hpp"

namespace property_register_test {

using fake_memory::log;
using fake_memory::read;
using fake_memory::write;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class RegisterFields : public hardware_test {
protected:
    RegisterFields() { fake_property::log.clear(); }

    property_group m_group{"group"};
    reg_info m_reg{
        "R",
        0x10000000,
        {new reg_bitmask(3, 0, "b", "the low bits"), new reg_bitmask(7, 4, "a", "the high bits")},
        false};
};

TEST_F(RegisterFields, BecomePropertiesNamedAfterRegisterAndField) {
    property_register::register_as_property(&m_group, &m_reg);
    for (const char* field : {"a", "b"}) {
        const std::string name = std::string("R::") + field;
        const auto* p = dynamic_cast<property_register*>(property::get_property(name));
        ASSERT_NE(p, nullptr) << name;
        EXPECT_EQ(p->name, name);
        EXPECT_TRUE(p->m_auto_delete);
        EXPECT_EQ(p->m_reg, &m_reg);
        EXPECT_EQ(p->m_subval, m_reg.m_subvals.at(field));
    }
    EXPECT_EQ(property::properties.size(), 2U);
    EXPECT_EQ(m_group.m_properties, property::properties);
    EXPECT_THAT(property_group::property_groups, IsEmpty());
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(RegisterFields, NameOfThePropertyIsThatUnderWhichTheRegisterListsTheField) {
    m_reg.m_subvals = {{"listed", m_reg.m_subvals.at("a")}};
    property_register::register_as_property(&m_group, &m_reg);
    EXPECT_THAT(property::properties, ElementsAre(Pair("R::listed", testing::_)));
}

TEST_F(RegisterFields, AreNoneOfAnEmptyRegister) {
    reg_info empty("E", 0x10000000, std::initializer_list<reg_bitmask*>{}, false);
    property_register::register_as_property(&m_group, &empty);
    EXPECT_THAT(property::properties, IsEmpty());
    EXPECT_THAT(m_group.m_properties, IsEmpty());
}

TEST_F(RegisterFields, TakeThePlacesOfMembersOfTheSameNames) {
    fake_property unregistered("R::a");
    m_group.add_property(&unregistered);
    property_register::register_as_property(&m_group, &m_reg);
    EXPECT_EQ(m_group.m_properties, property::properties);
    EXPECT_EQ(property::properties.size(), 2U);
}

TEST_F(RegisterFields, TakenNameIsReportedAndTheWalkGoesOn) {
    property* earlier = new fake_property("R::a");
    property::register_property("earlier", earlier);
    property_register::register_as_property(&m_group, &m_reg);
    EXPECT_EQ(messages(), "property R::a is already registered.\n");
    EXPECT_EQ(property::get_property("R::a"), earlier);
    EXPECT_THAT(m_group.m_properties, ElementsAre(Pair("R::b", property::get_property("R::b"))));
    EXPECT_NE(property::get_property("R::b"), nullptr);
    EXPECT_THAT(fake_property::log, IsEmpty());
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(RegisterFields, AreWalkedInTheOrderOfTheirNames) {
    property_register::register_as_property(&m_group, &m_reg);
    property_register::register_as_property(&m_group, &m_reg);
    EXPECT_EQ(messages(), "property R::a is already registered.\n"
                          "property R::b is already registered.\n");
}

TEST_F(RegisterFields, PropertyThatFindsItsNameTakenIsDestroyed) {
    property_register::register_as_property(&m_group, &m_reg);
    property_register::register_as_property(&m_group, &m_reg); // the messages take memory, too
    const auto registered = property::properties;
    fake_streams::reset();
    const std::size_t before = heap::live();
    property_register::register_as_property(&m_group, &m_reg);
    fake_streams::reset();
    EXPECT_EQ(heap::live(), before);
    EXPECT_EQ(property::properties, registered);
}

class PropertyRegister : public field_properties {};

TEST_F(PropertyRegister, HelpIsTheDescriptionOfTheField) {
    std::string help = "what was there before";
    property::get_property("r::a")->get_help(help);
    EXPECT_EQ(help, "four bits");
    property::get_property("mixed::ro")->get_help(help);
    EXPECT_EQ(help, "seen only");
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(PropertyRegister, FreeingThePropertiesLeavesTheRegisterAndItsFields) {
    property::free_all();
    unsigned int value = 0;
    EXPECT_TRUE(m_r.m_subvals.at("a")->get(&m_r, &value));
    EXPECT_EQ(value, 7U);
}

TEST_F(PropertyRegister, ReadingTouchesTheHardwareOnceForAllFields) {
    EXPECT_EQ(shown(*property::get_property("r::a")), "7");
    fake_memory::words[r] = 0;
    EXPECT_EQ(shown(*property::get_property("r::a")), "7");
    EXPECT_EQ(shown(*property::get_property("r::b")), "22");
    EXPECT_THAT(log, ElementsAre(read(r, 0x12345678)));
}

TEST_F(PropertyRegister, FieldWithoutAUserValueShowsNothing) {
    EXPECT_EQ(shown(*property::get_property("mixed::map")), "(none)");
    EXPECT_THAT(log, ElementsAre(read(mixed, 0x53)));
}

TEST_F(PropertyRegister, WriteChangesTheFieldAloneAndCommitsTheRegister) {
    EXPECT_TRUE(set("r::a", "9"));
    EXPECT_THAT(log, ElementsAre(read(r, 0x12345678), write(r, 0x12345698), read(r, 0x12345698)));
    EXPECT_EQ(shown(*property::get_property("r::a")), "9");
}

TEST_F(PropertyRegister, WriteOfTheSameValueIsCommittedToo) {
    EXPECT_TRUE(set("r::a", "7"));
    EXPECT_THAT(log, ElementsAre(read(r, 0x12345678), write(r, 0x12345678), read(r, 0x12345678)));
}

TEST_F(PropertyRegister, BitsThatDoNotStickAreNoFailureButShow) {
    fake_memory::kept = [](unsigned int, unsigned int word) { return word & ~0x10U; };
    EXPECT_TRUE(set("r::a", "9"));
    EXPECT_THAT(log, ElementsAre(read(r, 0x12345678), write(r, 0x12345698), read(r, 0x12345688)));
    EXPECT_EQ(shown(*property::get_property("r::a")), "8");
}

TEST_F(PropertyRegister, WriteAfterWriteBuildsOnWhatTheHardwareKept) {
    EXPECT_TRUE(set("r::a", "0"));
    log.clear();
    EXPECT_TRUE(set("r::b", "+9"));
    EXPECT_THAT(log, ElementsAre(write(r, 0x12345f08), read(r, 0x12345f08)));
}

TEST_F(PropertyRegister, AbsoluteValueThatDoesNotFitIsRefusedSilentlyWithoutAnyAccess) {
    EXPECT_FALSE(set("r::a", "16"));
    EXPECT_FALSE(set("r::a", " -1"));
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(PropertyRegister, StepBeyondALimitIsReportedAndTheLimitCommitted) {
    EXPECT_TRUE(set("r::a", "+10"));
    EXPECT_EQ(messages(), "warning! applying 10 to current value 7 is out of range (0 ~ 15). "
                          "adjusted to 15\n");
    EXPECT_THAT(log, ElementsAre(read(r, 0x12345678), write(r, 0x123456f8), read(r, 0x123456f8)));
}

TEST_F(PropertyRegister, StepThatWrapsIsClampedToTheLowerLimit) {
    EXPECT_TRUE(set("r::a", "+9223372036854775807"));
    EXPECT_EQ(messages(), "warning! applying 9223372036854775807 to current value 7 is out of "
                          "range (0 ~ 15). adjusted to 0\n");
    EXPECT_THAT(log, ElementsAre(read(r, 0x12345678), write(r, 0x12345608), read(r, 0x12345608)));
}

TEST_F(PropertyRegister, StepIsAppliedByTheFieldInItsOwnWay) {
    EXPECT_TRUE(set("mixed::map", "40"));
    log.clear();
    // Clamped to the raw limits, which is no key of the map.
    EXPECT_FALSE(set("mixed::map", "+1"));
    EXPECT_EQ(messages(), "warning! applying 1 to current value 40 is out of range (0 ~ 15). "
                          "adjusted to 15\n");
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(PropertyRegister, StepFromNoUserValueFailsSilently) {
    EXPECT_FALSE(set("mixed::map", "+1"));
    EXPECT_THAT(log, ElementsAre(read(mixed, 0x53)));
}

TEST_F(PropertyRegister, MappedValueIsTranslatedBothWays) {
    EXPECT_TRUE(set("mixed::map", "40"));
    EXPECT_FALSE(set("mixed::map", "41"));
    EXPECT_EQ(shown(*property::get_property("mixed::map")), "40");
    EXPECT_THAT(log, ElementsAre(read(mixed, 0x53), write(mixed, 0x51), read(mixed, 0x51)));
}

TEST_F(PropertyRegister, ReadOnlyFieldRefusesEveryWriteAndIsReadForAStep) {
    EXPECT_FALSE(set("mixed::ro", "5"));
    EXPECT_THAT(log, IsEmpty());
    EXPECT_FALSE(set("mixed::ro", "+1"));
    EXPECT_FALSE(set("mixed::ro", "-6"));
    EXPECT_EQ(messages(), "warning! applying -6 to current value 5 is out of range (0 ~ 15). "
                          "adjusted to 0\n");
    EXPECT_THAT(log, ElementsAre(read(mixed, 0x53)));
}

TEST_F(PropertyRegister, EveryMessageIsOneWrite) {
    fake_streams::reset();
    EXPECT_FALSE(set("r::a", "abc"));
    property_register::register_as_property(property_group::get_property_group("registers"),
                                            &m_wide);
    EXPECT_THAT(fake_streams::writes(), ElementsAre("failed to parse value abc\n",
                                                    "property wide::all is already registered.\n"));
}

} // namespace property_register_test

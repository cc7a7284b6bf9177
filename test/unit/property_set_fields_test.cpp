// A set of register fields: what reaches the hardware.

#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "property/property_set.hpp"
#include "support/field_properties.hpp"
#include "support/shown.hpp"

namespace property_set_fields_test {

using fake_memory::log;
using fake_memory::read;
using fake_memory::write;
using testing::ElementsAre;
using testing::IsEmpty;

class PropertySetOfFields : public field_properties {
protected:
    property_set m_set{"set", {"r::a", "r::b"}};
};

TEST_F(PropertySetOfFields, IsShownInTheNumberMode) {
    EXPECT_EQ(shown(m_set), "{7,22}");
    property::m_number_mode = 1;
    EXPECT_EQ(shown(m_set), "{0x7,0x16}");
    EXPECT_THAT(log, ElementsAre(read(r, 0x12345678)));
    EXPECT_EQ(messages(), "");
}

TEST_F(PropertySetOfFields, EachMemberIsWrittenAndCommittedInTurn) {
    EXPECT_TRUE(m_set.set("{1,2}"));
    EXPECT_THAT(log, ElementsAre(read(r, 0x12345678), write(r, 0x12345618), read(r, 0x12345618),
                                 write(r, 0x12344218), read(r, 0x12344218)));
    EXPECT_EQ(messages(), "");
}

TEST_F(PropertySetOfFields, BlankBeforeANumberIsSkippedByTheField) {
    EXPECT_TRUE(m_set.set("{ 4,5}"));
    EXPECT_EQ(shown(m_set), "{4,5}");
    EXPECT_EQ(messages(), "");
}

TEST_F(PropertySetOfFields, ReadsHexadecimalInHexadecimalMode) {
    property::m_number_mode = 1;
    EXPECT_TRUE(m_set.set("{a,0x10}"));
    EXPECT_EQ(shown(m_set), "{0xa,0x10}");
}

TEST_F(PropertySetOfFields, StepMovesEveryMemberWithinItsOwnLimits) {
    EXPECT_TRUE(m_set.set("+9"));
    EXPECT_EQ(messages(), "warning! applying 9 to current value 7 is out of range (0 ~ 15). "
                          "adjusted to 15\n");
    EXPECT_EQ(shown(m_set), "{15,31}");
}

TEST_F(PropertySetOfFields, BracedStepsMoveEachMemberByItsOwn) {
    EXPECT_TRUE(m_set.set("{-2,+3}"));
    EXPECT_EQ(shown(m_set), "{5,25}");
    EXPECT_EQ(messages(), "");
}

TEST_F(PropertySetOfFields, EmptyPieceIsRefusedByTheField) {
    property_set one("one", {"r::a"});
    EXPECT_FALSE(one.set("{}"));
    EXPECT_EQ(messages(), "set failed\n");
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(PropertySetOfFields, RefusedMemberLeavesTheEarlierOnesWritten) {
    EXPECT_FALSE(m_set.set("{1,32}"));
    EXPECT_EQ(messages(), "set failed\n");
    EXPECT_THAT(log, ElementsAre(read(r, 0x12345678), write(r, 0x12345618), read(r, 0x12345618)));
}

TEST_F(PropertySetOfFields, WhatTheMemberReportsComesBeforeTheFailure) {
    EXPECT_FALSE(m_set.set("{1,2"));
    EXPECT_EQ(messages(), "failed to parse value {1,2\nset failed\n");
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(PropertySetOfFields, WrongNumberOfPiecesTouchesNoHardware) {
    EXPECT_FALSE(m_set.set("{1,2,3}"));
    EXPECT_EQ(messages(), "3 != 2\n");
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(PropertySetOfFields, MemberWithoutAUserValueMakesTheSetUnreadable) {
    property_set set("set", {"r::a", "mixed::map"});
    EXPECT_EQ(shown(set), "(none)");
    EXPECT_EQ(messages(), "");
    EXPECT_THAT(log, ElementsAre(read(r, 0x12345678), read(mixed, 0x53)));
}

TEST_F(PropertySetOfFields, ErrorOfAMemberPassesThroughAndKeepsWhatIsWritten) {
    EXPECT_THAT([&] { m_set.set("{1,99999999999999999999}"); },
                testing::ThrowsMessage<std::out_of_range>("stoll"));
    EXPECT_EQ(messages(), "");
    EXPECT_THAT(log, ElementsAre(read(r, 0x12345678), write(r, 0x12345618), read(r, 0x12345618)));
    EXPECT_EQ(shown(m_set), "{1,22}");
}

} // namespace property_set_fields_test

#include "reg/reg_bitmask_map.hpp"

#include <cstdlib>

#include "reg/reg_info.hpp"
#include "support/field_value.hpp"
#include "support/hardware_test.hpp"
#include "support/mock_register.hpp"

namespace reg_bitmask_map_test {

using fake_memory::read;
using fake_memory::words;
using fake_memory::write;
using testing::ElementsAre;
using testing::Eq;
using testing::ExitedWithCode;
using testing::IsEmpty;
using testing::Optional;
using testing::StrictMock;

using value_map = reg_bitmask_map::value_map;

constexpr unsigned int address = 0x1000;
const value_map drive_map = {{30, 15}, {34, 14}, {40, 11}, {60, 8}};
const value_map odt_map = {{0, 0}, {40, 6}, {60, 4}, {120, 1}};
const value_map empty_map;

class RegBitmaskMap : public hardware_test {
protected:
    RegBitmaskMap() { words[address] = 0x12345678; }

    /** A mapped field on bits 3..0. */
    static reg_bitmask_map* low_bits(const value_map* map) {
        return new reg_bitmask_map(3, 0, "drv", "drive strength", map);
    }

    reg_bitmask_map* const m_field = low_bits(&drive_map);
    reg_info m_register{"orlin-ddra", address, {m_field}, false};
};

using RegBitmaskMapDeathTest = RegBitmaskMap;

TEST_F(RegBitmaskMap, IsBuiltAndOwnedLikeAPlainField) {
    EXPECT_EQ(m_field->get_name(), "drv");
    EXPECT_EQ(m_field->get_desc(), "drive strength");
    EXPECT_EQ(subval_garbages.m_list.back(), m_field);
}

TEST_F(RegBitmaskMap, StoresTheRawCodeOfAKeyThatIsWiderThanTheField) {
    EXPECT_TRUE(m_field->set(&m_register, 40));
    EXPECT_EQ(m_register.load(m_field), 0x1234567bU);
    EXPECT_THAT(value_of(m_field, m_register), Optional(40U));
    m_register.commit();
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0x12345678), write(address, 0x1234567b),
                                              read(address, 0x1234567b)));
}

TEST_F(RegBitmaskMap, EveryKeyGoesInAsItsCodeAndComesBackAsItself) {
    for (const auto& [key, raw] : drive_map) {
        EXPECT_TRUE(m_field->set(&m_register, key)) << key;
        EXPECT_EQ(m_register.load(m_field), 0x12345670U | raw) << key;
        EXPECT_THAT(value_of(m_field, m_register), Optional(key));
    }
}

TEST_F(RegBitmaskMap, ReadsTheKeyOfARawCode) {
    words[address] = 0xabcde;
    EXPECT_THAT(value_of(m_field, m_register), Optional(34U));
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0xabcde)));
}

TEST_F(RegBitmaskMap, ARawCodeWithoutAnEntryCannotBeReadAndIsLeftInTheValue) {
    words[address] = 0xabcd3;
    unsigned int value = 99;
    EXPECT_FALSE(m_field->get(&m_register, &value));
    EXPECT_EQ(value, 3U);
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0xabcd3)));
}

TEST_F(RegBitmaskMap, RefusesWhatIsNotAKeyEvenWhenItFitsTheField) {
    StrictMock<mock_register> untouched; // any call on it is an error
    for (const unsigned int value : {0U, 8U, 15U, 29U, 35U, 61U, 0xffffffffU}) {
        EXPECT_FALSE(m_field->set(&untouched, value)) << value;
    }
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(RegBitmaskMap, ZeroIsAKeyLikeAnyOther) {
    auto* const field = low_bits(&odt_map);
    words[address] = 0xfffffff0;
    EXPECT_THAT(value_of(field, m_register), Optional(0U));
    EXPECT_TRUE(field->set(&m_register, 60));
    EXPECT_EQ(m_register.load(field), 0xfffffff4U);
    EXPECT_TRUE(field->set(&m_register, 0));
    EXPECT_EQ(m_register.load(field), 0xfffffff0U);
}

TEST_F(RegBitmaskMap, OfTwoKeysForOneCodeTheSmallerIsRead) {
    static const value_map doubled = {{0xffffffff, 5}, {70, 5}, {50, 5}, {60, 5}, {10, 9}};
    auto* const field = low_bits(&doubled);
    for (const unsigned int key : {50U, 60U, 70U, 0xffffffffU}) {
        EXPECT_TRUE(field->set(&m_register, key)) << key;
        EXPECT_EQ(m_register.load(field), 0x12345675U) << key;
        EXPECT_THAT(value_of(field, m_register), Optional(50U));
    }
}

TEST_F(RegBitmaskMap, AKeyThatIsAlsoARawCodeIsNotTranslatedTwice) {
    static const value_map chained = {{1, 5}, {2, 1}, {3, 2}};
    auto* const field = low_bits(&chained);
    EXPECT_TRUE(field->set(&m_register, 3));
    EXPECT_EQ(m_register.load(field), 0x12345672U);
    EXPECT_THAT(value_of(field, m_register), Optional(3U));
    m_register.store(field, 5);
    EXPECT_THAT(value_of(field, m_register), Optional(1U));
}

TEST_F(RegBitmaskMap, TheMapIsSharedAndNotCopied) {
    static value_map shared = {{30, 15}};
    auto* const one = low_bits(&shared);
    auto* const other = low_bits(&shared);
    shared[34] = 14;
    EXPECT_TRUE(one->set(&m_register, 34));
    EXPECT_THAT(value_of(other, m_register), Optional(34U));
}

TEST_F(RegBitmaskMap, TheTranslationsLeaveWhatTheyRefuseAsItWas) {
    unsigned int value = 60;
    EXPECT_TRUE(m_field->_before_set(value));
    EXPECT_EQ(value, 8U);
    EXPECT_FALSE(m_field->_before_set(value)) << "a raw code is not a key";
    EXPECT_EQ(value, 8U);
    EXPECT_TRUE(m_field->_after_read(value));
    EXPECT_EQ(value, 60U);
    EXPECT_FALSE(m_field->_after_read(value)) << "a key is not a raw code";
    EXPECT_EQ(value, 60U);
}

TEST_F(RegBitmaskMap, AnEmptyMapHasNothingToSetOrRead) {
    auto* const field = low_bits(&empty_map);
    unsigned int value = 0;
    EXPECT_FALSE(field->check_subval(0));
    EXPECT_FALSE(field->_before_set(value));
    EXPECT_FALSE(field->_after_read(value));
    EXPECT_EQ(value, 0U);
    EXPECT_FALSE(field->set(&m_register, 0));
    EXPECT_THAT(fake_memory::log, IsEmpty());
    EXPECT_FALSE(field->get(&m_register, &value));
    EXPECT_EQ(value, 8U);
}

TEST_F(RegBitmaskMap, TheLimitsAreThoseOfTheBitsAndNotOfTheKeys) {
    unsigned int min = 1;
    unsigned int max = 0;
    m_field->get_limits(&min, &max);
    EXPECT_EQ(min, 0U);
    EXPECT_EQ(max, 15U);
}

TEST_F(RegBitmaskMap, AStepFromAKeyAboveTheLimitsIsClampedAndThenRefused) {
    words[address] = 0x1234567f;
    EXPECT_FALSE(m_field->adjust(&m_register, 4));
    EXPECT_EQ(m_register.load(m_field), 0x1234567fU);
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0x1234567f)));
    EXPECT_EQ(messages(), "warning! applying 4 to current value 30 is out of range (0 ~ 15). "
                          "adjusted to 15\n");
}

TEST_F(RegBitmaskMap, AStepDownThatStaysAboveTheLimitsIsClampedToTheLargestToo) {
    auto* const field = low_bits(&odt_map);
    words[address] = 0x12345674;
    for (const auto& [step, shown] : {std::pair{-1, "-1"}, {-44, "-44"}, {0, "0"}}) {
        fake_streams::reset();
        EXPECT_FALSE(field->adjust(&m_register, step));
        EXPECT_EQ(messages(), std::string("warning! applying ") + shown +
                                  " to current value 60 is out of range (0 ~ 15). "
                                  "adjusted to 15\n");
    }
    EXPECT_EQ(m_register.load(field), 0x12345674U);
}

TEST_F(RegBitmaskMap, AStepWithinTheLimitsOntoNoKeyIsRefusedSilently) {
    auto* const field = low_bits(&odt_map);
    words[address] = 0x12345674;
    EXPECT_FALSE(field->adjust(&m_register, -45));
    EXPECT_EQ(m_register.load(field), 0x12345674U);
}

TEST_F(RegBitmaskMap, AStepThatIsClampedOntoAKeySetsIt) {
    auto* const field = low_bits(&odt_map);
    words[address] = 0x12345676;
    EXPECT_TRUE(field->adjust(&m_register, -100));
    EXPECT_EQ(m_register.load(field), 0x12345670U);
    EXPECT_EQ(messages(), "warning! applying -100 to current value 40 is out of range (0 ~ 15). "
                          "adjusted to 0\n");
}

TEST_F(RegBitmaskMap, AStepOfAnUnreadableFieldFailsSilently) {
    words[address] = 0x12345673;
    EXPECT_FALSE(m_field->adjust(&m_register, 100));
    EXPECT_EQ(m_register.load(m_field), 0x12345673U);
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0x12345673)));
}

TEST_F(RegBitmaskMapDeathTest, TheMapOutlivesTheFieldsThatShareIt) {
    EXPECT_EXIT(
        {
            low_bits(&drive_map); // a field that freed the map would end the process
            low_bits(&drive_map);
            std::exit(0);
        },
        ExitedWithCode(0), Eq(""));
}

} // namespace reg_bitmask_map_test

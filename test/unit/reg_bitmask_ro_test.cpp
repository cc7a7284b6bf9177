#include "reg/reg_bitmask_ro.hpp"

#include "reg/reg_info.hpp"
#include "support/field_value.hpp"
#include "support/hardware_test.hpp"
#include "support/mock_register.hpp"

namespace reg_bitmask_ro_test {

using fake_memory::read;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::StrictMock;

constexpr unsigned int address = 0x1000;

class RegBitmaskRo : public hardware_test {
protected:
    RegBitmaskRo() { fake_memory::words[address] = 0x12345678; }

    reg_bitmask_ro* const m_field = new reg_bitmask_ro(7, 4, "link", "is the link up");
    reg_info m_register{"pcie", address, {m_field}, false};
};

TEST_F(RegBitmaskRo, IsBuiltAndOwnedLikeAPlainField) {
    EXPECT_EQ(m_field->get_name(), "link");
    EXPECT_EQ(m_field->get_desc(), "is the link up");
    EXPECT_EQ(subval_garbages.m_list.back(), m_field);
    unsigned int min = 1;
    unsigned int max = 0;
    m_field->get_limits(&min, &max);
    EXPECT_EQ(min, 0U);
    EXPECT_EQ(max, 15U);
}

TEST_F(RegBitmaskRo, ReadsLikeAPlainField) {
    EXPECT_THAT(value_of(m_field, m_register), Optional(7U));
    EXPECT_THAT(value_of(m_field, m_register), Optional(7U));
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0x12345678)));
}

TEST_F(RegBitmaskRo, RefusesEveryValueWithoutACallOnTheRegister) {
    StrictMock<mock_register> untouched; // any call on it is an error
    for (const unsigned int value : {0U, 1U, 7U, 15U, 16U, 0xffffffffU}) {
        EXPECT_FALSE(m_field->set(&untouched, value)) << value;
    }
    EXPECT_FALSE(m_field->set(&m_register, 7));
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(RegBitmaskRo, AStepWithinTheLimitsIsReadAndRefusedSilently) {
    EXPECT_FALSE(m_field->adjust(&m_register, 1));
    EXPECT_FALSE(m_field->adjust(&m_register, 0));
    EXPECT_EQ(m_register.load(m_field), 0x12345678U);
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0x12345678)));
}

TEST_F(RegBitmaskRo, AStepBeyondTheLimitsWarnsBeforeItIsRefused) {
    EXPECT_FALSE(m_field->adjust(&m_register, 9));
    EXPECT_EQ(m_register.load(m_field), 0x12345678U);
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0x12345678)));
    EXPECT_EQ(messages(), "warning! applying 9 to current value 7 is out of range (0 ~ 15). "
                          "adjusted to 15\n");
}

} // namespace reg_bitmask_ro_test

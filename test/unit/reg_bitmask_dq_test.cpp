#include "platform/orlin/reg_bitmask_dq.hpp"

#include <limits>
#include <ostream>
#include <tuple>

#include "reg/reg_info.hpp"
#include "support/field_value.hpp"
#include "support/hardware_test.hpp"
#include "support/mock_register.hpp"

namespace reg_bitmask_dq_test {

using fake_memory::read;
using fake_memory::words;
using testing::ElementsAre;
using testing::Optional;
using testing::StrictMock;
using testing::ValuesIn;

constexpr unsigned int address = 0x18428194;
constexpr long long lowest = std::numeric_limits<long long>::min();
constexpr long long highest = std::numeric_limits<long long>::max();

class RegBitmaskDq : public hardware_test {
protected:
    RegBitmaskDq() { words[address] = 0x12345600; }

    orlin::reg_bitmask_dq* const m_field = new orlin::reg_bitmask_dq(6, 0, "dq3", "no desc", 0x300);
    reg_info m_register{"r", address, {m_field}, false};
};

TEST_F(RegBitmaskDq, IsAnOwnedBitFieldWithItsPartOfTheSelector) {
    EXPECT_EQ(m_field->get_name(), "dq3");
    EXPECT_EQ(m_field->get_desc(), "no desc");
    EXPECT_EQ(m_field->m_sel, 0x300U);
    EXPECT_EQ(subval_garbages.m_list.back(), m_field);
    unsigned int min = 1;
    unsigned int max = 0;
    m_field->get_limits(&min, &max);
    EXPECT_EQ(min, 0U);
    EXPECT_EQ(max, 0x7fU);
}

TEST_F(RegBitmaskDq, EveryWriteAlsoSetsTheBitAboveTheField) {
    EXPECT_TRUE(m_field->set(&m_register, 0));
    EXPECT_EQ(m_register.load(m_field), 0x12345680U);
    EXPECT_TRUE(m_field->set(&m_register, 5));
    EXPECT_EQ(m_register.load(m_field), 0x12345685U);
    EXPECT_TRUE(m_field->set(&m_register, 0x7f));
    EXPECT_EQ(m_register.load(m_field), 0x123456ffU);
}

TEST_F(RegBitmaskDq, ReadsNeverShowTheBitAboveTheField) {
    words[address] = 0xffffffc6;
    EXPECT_THAT(value_of(m_field, m_register), Optional(0x46U));
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0xffffffc6)));
}

TEST_F(RegBitmaskDq, RefusesAnAbsoluteValueOfMoreThan7Bits) {
    StrictMock<mock_register> untouched; // any call on it is an error
    EXPECT_FALSE(m_field->set(&untouched, 0x80));
    EXPECT_FALSE(m_field->set(&untouched, 0xff));
}

TEST_F(RegBitmaskDq, TheBitAboveFollowsTheFieldsPositionAndWidth) {
    auto* const field = new orlin::reg_bitmask_dq(11, 8, "f", "no desc", 0);
    EXPECT_TRUE(field->set(&m_register, 0xa));
    EXPECT_EQ(m_register.load(field), 0x12345a00U | 0x1000U);
    EXPECT_TRUE(field->adjust(&m_register, 3)); // +2 becomes +5
    EXPECT_THAT(value_of(field, m_register), Optional(0xdU));
    EXPECT_TRUE(field->adjust(&m_register, -9)); // and then -4
    EXPECT_THAT(value_of(field, m_register), Optional(4U));
    EXPECT_TRUE(field->adjust(&m_register, -4)); // and then passes the bottom, -7
    EXPECT_THAT(value_of(field, m_register), Optional(0xfU));
}

struct step_row {
    const char* name;
    unsigned int current;
    long long step;
    unsigned int result;
    bool warned = false;
};

void PrintTo(const step_row& row, std::ostream* out) {
    *out << row.step << " from " << row.current;
}

constexpr step_row steps[] = {
    {"MorePositive", 70, 3, 73},
    {"PositiveToNegative", 66, -5, 3},
    {"NegativeToPositive", 3, 5, 66},
    {"MoreNegative", 3, -2, 5},
    {"PositiveZeroIsWrittenAsZero", 64, 0, 0},
    {"ZeroStaysZero", 0, 0, 0},
    {"PositiveToZero", 66, -2, 0},
    {"NegativeToZero", 3, 3, 0},
    {"PositiveZeroUp", 64, 1, 65},
    {"ZeroUp", 0, 1, 65},
    {"PositiveZeroDown", 64, -1, 1},
    {"ZeroDown", 0, -1, 1},
    {"ToTheTop", 120, 7, 127},
    {"ToTheBottom", 60, -3, 63},
    {"NegativePastTheBottomIsTheTopWithoutAWarning", 60, -10, 127},
    {"NegativeJustPastTheBottom", 63, -1, 127},
    {"PositivePastTheTopIsClamped", 120, 10, 127, true},
    {"PositiveJustPastTheTop", 127, 1, 127, true},
    {"NegativePastTheTopIsClamped", 3, 67, 127, true},
    {"PositivePastTheBottomRunsOnIntoTheSign", 70, -70, 64},
    {"PositiveFarPastTheBottomIsClamped", 70, -134, 127, true},
    // At the ends of 64 bits the sums wrap, and the range check sees what they wrapped to.
    {"LowestStepFromNegative", 3, lowest, 0, true},
    {"LowestStepFromPositiveZero", 64, lowest, 0, true},
    {"LowestStepFromPositive", 70, lowest, 127, true},
    {"HighestStepFromNegative", 3, highest, 0, true},
    {"HighestStepFromPositive", 70, highest, 127, true},
};

class RegBitmaskDqStep : public RegBitmaskDq, public testing::WithParamInterface<step_row> {};

TEST_P(RegBitmaskDqStep, MovesTheDelayInSignAndMagnitude) {
    const step_row& row = GetParam();
    words[address] = 0x12345600 | row.current;
    EXPECT_TRUE(m_field->adjust(&m_register, row.step));
    EXPECT_EQ(m_register.load(m_field), 0x12345680 | row.result);
    EXPECT_EQ(messages(), row.warned ? "warning! applying " + std::to_string(row.step) +
                                           " to current value " + std::to_string(row.current) +
                                           " is out of range (0 ~ 127). adjusted to " +
                                           std::to_string(row.result) + "\n"
                                     : "");
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0x12345600 | row.current)));
}

INSTANTIATE_TEST_SUITE_P(Rows, RegBitmaskDqStep, ValuesIn(steps),
                         [](const auto& row) { return row.param.name; });

/** A DQ field that answers the calls which a step makes on itself. */
class hooked_dq : public orlin::reg_bitmask_dq {
public:
    hooked_dq() : reg_bitmask_dq(6, 0, "hooked", "no desc", 0) {}

    bool get(reg_info*, unsigned int* value) override {
        EXPECT_EQ(*value, 0U);
        *value = 70;
        return readable;
    }
    unsigned int clamp(long long value, unsigned int current, long long request) override {
        EXPECT_THAT(std::make_tuple(value, current, request), testing::FieldsAre(73, 70U, 3));
        return 42;
    }
    bool set(reg_info*, unsigned int value) override {
        EXPECT_EQ(value, 42U);
        ++sets;
        return false;
    }

    bool readable = true;
    int sets = 0;
};

TEST_F(RegBitmaskDq, AStepReadsClampsAndSetsThroughTheVirtualTable) {
    auto* const field = new hooked_dq;
    StrictMock<mock_register> untouched;
    EXPECT_FALSE(field->adjust(&untouched, 3)) << "the answer is that of set";
    EXPECT_EQ(field->sets, 1);
}

TEST_F(RegBitmaskDq, AStepOfAnUnreadableFieldFailsAtOnce) {
    auto* const field = new hooked_dq;
    field->readable = false;
    StrictMock<mock_register> untouched;
    EXPECT_FALSE(field->adjust(&untouched, 3));
    EXPECT_EQ(field->sets, 0);
}

} // namespace reg_bitmask_dq_test

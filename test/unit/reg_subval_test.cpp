#include "reg/reg_subval.hpp"

#include <algorithm>
#include <limits>
#include <string>
#include <type_traits>

#include "reg/reg_info.hpp"
#include "support/hardware_test.hpp"
#include "support/mock_register.hpp"

namespace reg_subval_test {

using testing::_;
using testing::DoAll;
using testing::InSequence;
using testing::Pointee;
using testing::Return;
using testing::SetArgPointee;
using testing::StrictMock;

constexpr long long lowest = std::numeric_limits<long long>::min();
constexpr long long highest = std::numeric_limits<long long>::max();
constexpr unsigned int all_ones = 0xffffffff;

/** The abstract part of a field, owned by its test. */
class mock_field : public reg_subval {
public:
    explicit mock_field(const std::string& name = "field", const std::string& desc = "no desc")
        : reg_subval(name, desc, false) {}

    MOCK_METHOD(bool, set, (reg_info * reg, unsigned int value), (override));
    MOCK_METHOD(bool, get, (reg_info * reg, unsigned int* value), (override));
    MOCK_METHOD(void, get_limits, (unsigned int* min, unsigned int* max), (override));

    void has_limits(unsigned int min, unsigned int max) {
        EXPECT_CALL(*this, get_limits)
            .WillOnce(DoAll(SetArgPointee<0>(min), SetArgPointee<1>(max)));
    }

    /** Expects one `get` that gives this value; the result variable is 0 before. */
    void reads(reg_info& reg, unsigned int value) {
        EXPECT_CALL(*this, get(&reg, Pointee(0U)))
            .WillOnce(DoAll(SetArgPointee<1>(value), Return(true)));
    }
};

/** A field that replaces the range check. */
class mock_clamping_field : public mock_field {
public:
    MOCK_METHOD(unsigned int, clamp, (long long value, unsigned int current, long long request),
                (override));
};

class RegSubval : public hardware_test {
protected:
    StrictMock<mock_field> m_field;
    StrictMock<mock_register> m_register; // fields reach it, the base class never does
};

TEST_F(RegSubval, KeepsCopiesOfItsNameAndDescription) {
    std::string name = "odt";
    std::string desc = "on-die termination";
    StrictMock<mock_field> field(name, desc);
    name = desc = "gone";
    EXPECT_EQ(field.get_name(), "odt");
    EXPECT_EQ(field.get_desc(), "on-die termination");
    EXPECT_EQ(&field.get_name(), &field.get_name());
    EXPECT_EQ(&field.get_desc(), &field.get_desc());
}

TEST_F(RegSubval, WithoutTheGarbageFlagItBelongsToItsCreator) {
    EXPECT_EQ(std::ranges::count(subval_garbages.m_list, &m_field), 0);
}

TEST_F(RegSubval, WithTheGarbageFlagItIsAppendedToTheFieldsList) {
    class garbage_field : public reg_subval {
    public:
        garbage_field() : reg_subval("field", "", true) {}
        bool set(reg_info*, unsigned int) override { return false; }
        bool get(reg_info*, unsigned int*) override { return false; }
        void get_limits(unsigned int*, unsigned int*) override {}
    };
    const std::size_t before = subval_garbages.m_list.size();
    const reg_subval* const field = new garbage_field;
    ASSERT_EQ(subval_garbages.m_list.size(), before + 1);
    EXPECT_EQ(subval_garbages.m_list.back(), field);
}

TEST_F(RegSubval, IsAbstractWithAVirtualDestructor) {
    EXPECT_TRUE(std::is_abstract_v<reg_subval>);
    EXPECT_TRUE(std::has_virtual_destructor_v<reg_subval>);
}

TEST_F(RegSubval, AdjustReadsClampsAndSets) {
    const InSequence order;
    m_field.reads(m_register, 120);
    m_field.has_limits(0, 127);
    EXPECT_CALL(m_field, set(&m_register, 123)).WillOnce(Return(true));

    EXPECT_TRUE(m_field.adjust(&m_register, 3));
}

TEST_F(RegSubval, AdjustOfAnUnreadableFieldFailsAtOnce) {
    EXPECT_CALL(m_field, get(&m_register, _)).WillOnce(Return(false));

    EXPECT_FALSE(m_field.adjust(&m_register, 1000));
}

TEST_F(RegSubval, AdjustGivesTheAnswerOfSet) {
    m_field.reads(m_register, 3);
    m_field.has_limits(0, 15);
    EXPECT_CALL(m_field, set(&m_register, 4)).WillOnce(Return(false));

    EXPECT_FALSE(m_field.adjust(&m_register, 1));
}

TEST_F(RegSubval, AdjustClampsWithAWarningAndStillSets) {
    m_field.reads(m_register, 120);
    m_field.has_limits(0, 127);
    EXPECT_CALL(m_field, set(&m_register, 127)).WillOnce(Return(true));

    EXPECT_TRUE(m_field.adjust(&m_register, 10));
    EXPECT_EQ(messages(), "warning! applying 10 to current value 120 is out of range (0 ~ 127). "
                          "adjusted to 127\n");
}

TEST_F(RegSubval, AFieldKindMayReplaceTheRangeCheck) {
    StrictMock<mock_clamping_field> field;
    field.reads(m_register, 120);
    EXPECT_CALL(field, clamp(130, 120, 10)).WillOnce(Return(77));
    EXPECT_CALL(field, set(&m_register, 77)).WillOnce(Return(true));

    EXPECT_TRUE(field.adjust(&m_register, 10));
}

struct sum_row {
    unsigned int current;
    long long delta;
    long long wanted;
};

TEST_F(RegSubval, TheWantedValueIsASigned64BitSumThatWraps) {
    constexpr sum_row rows[] = {
        {0, 0, 0},
        {5, -200, -195},
        {all_ones, 1, 0x100000000},
        {all_ones, -1, 0xfffffffe},
        {0, highest, highest},
        {1, highest, lowest},
        {all_ones, highest, lowest + 0xfffffffe},
        {0, lowest, lowest},
        {all_ones, lowest, lowest + 0xffffffff},
    };
    for (const sum_row& row : rows) {
        SCOPED_TRACE(std::to_string(row.current) + " + " + std::to_string(row.delta));
        StrictMock<mock_clamping_field> field;
        field.reads(m_register, row.current);
        EXPECT_CALL(field, clamp(row.wanted, row.current, row.delta)).WillOnce(Return(1));
        EXPECT_CALL(field, set(&m_register, 1)).WillOnce(Return(true));
        EXPECT_TRUE(field.adjust(&m_register, row.delta));
    }
}

} // namespace reg_subval_test

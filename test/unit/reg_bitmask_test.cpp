#include "reg/reg_bitmask.hpp"

#include <initializer_list>
#include <string>
#include <vector>

#include "reg/reg_info.hpp"
#include "support/field_value.hpp"
#include "support/hardware_test.hpp"
#include "support/mock_register.hpp"

namespace reg_bitmask_test {

using fake_memory::read;
using fake_memory::words;
using fake_memory::write;
using testing::ElementsAre;
using testing::InSequence;
using testing::IsEmpty;
using testing::Optional;
using testing::Return;
using testing::StrictMock;

constexpr unsigned int address = 0x1000;

class RegBitmask : public hardware_test {
protected:
    RegBitmask() { words[address] = 0x12345678; }

    reg_info m_register{"r", address, std::initializer_list<reg_bitmask*>{}, false};
};

TEST_F(RegBitmask, WritesBits7To4AndReadsThemBack) {
    auto* const field = new reg_bitmask(7, 4, "f", "no desc");
    EXPECT_THAT(value_of(field, m_register), Optional(7U));
    EXPECT_TRUE(field->set(&m_register, 9));
    EXPECT_EQ(m_register.load(field), 0x12345698U);
    EXPECT_THAT(value_of(field, m_register), Optional(9U));
    m_register.commit();
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0x12345678), write(address, 0x12345698),
                                              read(address, 0x12345698)));
}

TEST_F(RegBitmask, RefusesAValueOneBitTooWideWithoutAWordOrAnAccess) {
    auto* const field = new reg_bitmask(7, 4, "f", "no desc");
    EXPECT_FALSE(field->set(&m_register, 16));
    EXPECT_THAT(fake_memory::log, IsEmpty());
    EXPECT_EQ(m_register.load(field), 0x12345678U);
}

TEST_F(RegBitmask, CarriesItsOwnNameAndDescriptionAndIsAlwaysOwned) {
    const std::size_t before = subval_garbages.m_list.size();
    auto* const field = new reg_bitmask(7, 4, "odt", "[0-15]cycles");
    EXPECT_EQ(field->get_name(), "odt");
    EXPECT_EQ(field->get_desc(), "[0-15]cycles");
    ASSERT_EQ(subval_garbages.m_list.size(), before + 1);
    EXPECT_EQ(subval_garbages.m_list.back(), field);
}

TEST_F(RegBitmask, InitReplacesNameDescriptionAndBitRange) {
    auto* const field = new reg_bitmask(7, 4, "f", "no desc");
    const std::size_t owned = subval_garbages.m_list.size();
    field->init("g", "another", 30, 16);
    EXPECT_EQ(field->get_name(), "g");
    EXPECT_EQ(field->get_desc(), "another");
    EXPECT_THAT(value_of(field, m_register), Optional(0x1234U));
    EXPECT_TRUE(field->check_subval(0x7fff));
    EXPECT_FALSE(field->check_subval(0x8000));
    EXPECT_EQ(subval_garbages.m_list.size(), owned);
}

TEST_F(RegBitmask, TheRawCodeIsNotMaskedAgainWhenItIsMerged) {
    auto* const field = new reg_bitmask(7, 4, "f", "no desc");
    EXPECT_EQ(field->apply_subval(0x12345678, 9), 0x12345698U);
    EXPECT_EQ(field->apply_subval(0x12345678, 0x19), 0x12345798U);
    EXPECT_EQ(field->apply_subval(0, 0x10), 0x100U);
}

TEST_F(RegBitmask, TheHooksOfAPlainFieldChangeNothing) {
    auto* const field = new reg_bitmask(7, 4, "f", "no desc");
    unsigned int value = 0xabc;
    EXPECT_TRUE(field->_before_set(value));
    EXPECT_TRUE(field->_after_read(value));
    EXPECT_EQ(value, 0xabcU);
}

TEST_F(RegBitmask, LoadsAndStoresInItsOwnName) {
    auto* const field = new reg_bitmask(7, 4, "f", "no desc");
    StrictMock<mock_register> reg;
    const InSequence order;
    EXPECT_CALL(reg, load(field)).WillOnce(Return(0x12345678));
    EXPECT_THAT(value_of(field, reg), Optional(7U));
    EXPECT_CALL(reg, load(field)).WillOnce(Return(0x87654321));
    EXPECT_CALL(reg, store(field, 0x876543a1));
    EXPECT_TRUE(field->set(&reg, 10));
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(RegBitmask, AdjustStepsAndClampsWithAWarning) {
    words[address] = 120;
    auto* const field = new reg_bitmask(6, 0, "f", "no desc");
    EXPECT_TRUE(field->adjust(&m_register, 7));
    EXPECT_EQ(m_register.load(field), 127U);

    m_register.store(field, 0xff00 | 120);
    EXPECT_TRUE(field->adjust(&m_register, 10));
    EXPECT_EQ(m_register.load(field), 0xff00U | 127U);
    const std::string above = "warning! applying 10 to current value 120 is out of range "
                              "(0 ~ 127). adjusted to 127\n";
    EXPECT_EQ(messages(), above);

    m_register.store(field, 5);
    EXPECT_TRUE(field->adjust(&m_register, -5));
    EXPECT_EQ(m_register.load(field), 0U);
    m_register.store(field, 5);
    EXPECT_TRUE(field->adjust(&m_register, -200));
    EXPECT_EQ(m_register.load(field), 0U);
    EXPECT_EQ(messages(), above + "warning! applying -200 to current value 5 is out of range "
                                  "(0 ~ 127). adjusted to 0\n");
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 120)));
}

/** A field with every step of a read and a write in its own hands. */
class hooked_field : public reg_bitmask {
public:
    hooked_field() : reg_bitmask(7, 4, "hooked", "no desc") {}

    bool check_subval(unsigned int value) override {
        calls.push_back("check " + std::to_string(value));
        return check;
    }
    bool _before_set(unsigned int& value) override {
        calls.push_back("before " + std::to_string(value));
        value += 1;
        return before;
    }
    unsigned int apply_subval(unsigned int word, unsigned int raw) override {
        calls.push_back("apply " + std::to_string(word) + " " + std::to_string(raw));
        return 4711;
    }
    bool _after_read(unsigned int& value) override {
        calls.push_back("after " + std::to_string(value));
        value += 100;
        return after;
    }

    std::vector<std::string> calls;
    bool check = true;
    bool before = true;
    bool after = true;
};

TEST_F(RegBitmask, SetChecksTheUserValueThenTranslatesThenMerges) {
    auto* const field = new hooked_field;
    StrictMock<mock_register> reg;
    EXPECT_CALL(reg, load(field)).WillOnce(Return(7));
    EXPECT_CALL(reg, store(field, 4711));
    EXPECT_TRUE(field->set(&reg, 3000));
    EXPECT_THAT(field->calls, ElementsAre("check 3000", "before 3000", "apply 7 3001"));
}

TEST_F(RegBitmask, ARefusedCheckOrTranslationLeavesTheRegisterAlone) {
    auto* const field = new hooked_field;
    StrictMock<mock_register> reg; // any call on it is an error
    field->before = false;
    EXPECT_FALSE(field->set(&reg, 3));
    EXPECT_THAT(field->calls, ElementsAre("check 3", "before 3"));
    field->check = false;
    field->calls.clear();
    EXPECT_FALSE(field->set(&reg, 3));
    EXPECT_THAT(field->calls, ElementsAre("check 3"));
}

TEST_F(RegBitmask, GetTranslatesTheExtractedBitsAndGivesTheAnswerOfTheHook) {
    auto* const field = new hooked_field;
    unsigned int value = 0;
    EXPECT_TRUE(field->get(&m_register, &value));
    EXPECT_EQ(value, 107U);
    field->after = false;
    EXPECT_FALSE(field->get(&m_register, &value));
    EXPECT_THAT(field->calls, ElementsAre("after 7", "after 7"));
}

} // namespace reg_bitmask_test

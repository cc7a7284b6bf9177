#include "platform/orlin/reg_info_orlin_dq.hpp"

#include <initializer_list>
#include <string>

#include "reg/reg_info.hpp"
#include "support/field_value.hpp"
#include "support/hardware_test.hpp"

namespace reg_info_orlin_dq_test {

using fake_memory::read;
using fake_memory::words;
using fake_memory::write;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::Pair;
using testing::UnorderedElementsAre;

constexpr unsigned int sel = 0x1842812c;
constexpr unsigned int data = 0x18428194;

/** The read delays of one slice, with selector 7: the data register shows 0x12345646, delay +6. */
class RegInfoOrlinDq : public hardware_test {
protected:
    RegInfoOrlinDq() { words[data] = 0x12345646; }

    static orlin::reg_bitmask_dq* lane(unsigned int index) {
        return new orlin::reg_bitmask_dq(6, 0, "dq" + std::to_string(index), "no desc", index << 8);
    }
    static orlin::reg_info_orlin_dq* slice(unsigned int selector,
                                           std::initializer_list<orlin::reg_bitmask_dq*> lanes) {
        return new orlin::reg_info_orlin_dq("orlin-ddra-read", selector, sel, data, lanes);
    }

    orlin::reg_bitmask_dq* const m_dq3 = lane(3);
    orlin::reg_bitmask_dq* const m_dq1 = lane(1);
    orlin::reg_info_orlin_dq* const m_register = slice(7, {m_dq3, m_dq1});
};

TEST_F(RegInfoOrlinDq, IsAlwaysOwnedAndTouchesNoHardwareWhenBuilt) {
    EXPECT_EQ(info_garbages.m_list.back(), m_register);
    EXPECT_EQ(m_register->m_name, "orlin-ddra-read");
    EXPECT_EQ(m_register->m_addr, data);
    EXPECT_EQ(m_register->m_sel_addr, sel);
    EXPECT_EQ(m_register->m_sel_value, 7U);
    EXPECT_THAT(m_register->m_subvals, ElementsAre(Pair("dq1", m_dq1), Pair("dq3", m_dq3)));
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

/** A subclass sees what is kept for each lane. */
class register_with_lanes : public orlin::reg_info_orlin_dq {
public:
    using reg_info_orlin_dq::m_dq_dirty;
    using reg_info_orlin_dq::m_dq_loaded;
    using reg_info_orlin_dq::m_dq_values;
    using reg_info_orlin_dq::reg_info_orlin_dq;
};

TEST_F(RegInfoOrlinDq, KeepsAWordAndTwoFlagsForEveryLaneFromTheBeginning) {
    auto* const reg = new register_with_lanes("r", 7, sel, data, {m_dq3, m_dq1});
    EXPECT_THAT(reg->m_dq_values, UnorderedElementsAre(Pair(m_dq1, 0U), Pair(m_dq3, 0U)));
    EXPECT_THAT(reg->m_dq_loaded, UnorderedElementsAre(Pair(m_dq1, false), Pair(m_dq3, false)));
    EXPECT_THAT(reg->m_dq_dirty, UnorderedElementsAre(Pair(m_dq1, false), Pair(m_dq3, false)));
    EXPECT_TRUE(m_dq3->set(reg, 5));
    EXPECT_THAT(value_of(m_dq1, *reg), Optional(0x46U));
    EXPECT_THAT(reg->m_dq_values,
                UnorderedElementsAre(Pair(m_dq1, 0x12345646U), Pair(m_dq3, 0x12345685U)));
    EXPECT_THAT(reg->m_dq_loaded, UnorderedElementsAre(Pair(m_dq1, true), Pair(m_dq3, true)));
    EXPECT_THAT(reg->m_dq_dirty, UnorderedElementsAre(Pair(m_dq1, false), Pair(m_dq3, true)));
}

TEST_F(RegInfoOrlinDq, RegistersWithTheSameLanesKeepWordsOfTheirOwn) {
    const orlin::dq_lanes lanes = {m_dq3, m_dq1};
    auto* first = new orlin::reg_info_orlin_dq("first", 7, sel, data, lanes);
    auto* second = new orlin::reg_info_orlin_dq("second", 14, sel, data, lanes);
    EXPECT_TRUE(m_dq3->set(first, 5));
    second->commit();
    EXPECT_THAT(value_of(m_dq3, *second), Optional(0x46U));
    EXPECT_THAT(value_of(m_dq3, *first), Optional(5U));
    EXPECT_EQ(second->m_subvals, first->m_subvals);
    EXPECT_THAT(fake_memory::log, ElementsAre(write(sel, 0x307), read(data, 0x12345646), //
                                              write(sel, 0x30e), read(data, 0x12345646)));
}

TEST_F(RegInfoOrlinDq, OfTwoLanesWithOneNameTheLaterIsListed) {
    orlin::reg_bitmask_dq* const other_dq3 = lane(3);
    EXPECT_THAT(slice(7, {m_dq3, other_dq3, m_dq1})->m_subvals,
                ElementsAre(Pair("dq1", m_dq1), Pair("dq3", other_dq3)));
}

TEST_F(RegInfoOrlinDq, ReadingALaneSelectsItAndReadsItOnce) {
    EXPECT_THAT(value_of(m_dq3, *m_register), Optional(0x46U));
    EXPECT_THAT(fake_memory::log, ElementsAre(write(sel, 0x307), read(data, 0x12345646)));
    words[data] = 0;
    EXPECT_THAT(value_of(m_dq3, *m_register), Optional(0x46U));
    EXPECT_THAT(fake_memory::log, ElementsAre(write(sel, 0x307), read(data, 0x12345646)));
}

TEST_F(RegInfoOrlinDq, TheSelectorIsMadeOfTheLanesPartAndTheRegistersPart) {
    auto* const dq2 = lane(2);
    EXPECT_EQ(slice(14, {dq2})->load(dq2), 0x12345646U);
    auto* const dq8 = lane(8);
    EXPECT_EQ(slice(0x807, {dq8})->load(dq8), 0x12345646U); // joined, not added
    EXPECT_THAT(fake_memory::log, ElementsAre(write(sel, 0x20e), read(data, 0x12345646),
                                              write(sel, 0x807), read(data, 0x12345646)));
}

TEST_F(RegInfoOrlinDq, EachLaneHasAWordOfItsOwn) {
    EXPECT_EQ(m_register->load(m_dq3), 0x12345646U);
    words[data] = 0x11;
    EXPECT_EQ(m_register->load(m_dq1), 0x11U);
    EXPECT_EQ(m_register->load(m_dq3), 0x12345646U);
    m_register->store(m_dq1, 0x22);
    EXPECT_EQ(m_register->load(m_dq1), 0x22U);
    EXPECT_EQ(m_register->load(m_dq3), 0x12345646U);
    EXPECT_THAT(fake_memory::log, ElementsAre(write(sel, 0x307), read(data, 0x12345646),
                                              write(sel, 0x107), read(data, 0x11)));
}

TEST_F(RegInfoOrlinDq, ALaneSharedByTwoRegistersIsReadForEach) {
    auto* const other = slice(14, {m_dq3});
    EXPECT_EQ(m_register->load(m_dq3), 0x12345646U);
    words[data] = 0x55;
    EXPECT_EQ(other->load(m_dq3), 0x55U);
    EXPECT_EQ(m_register->load(m_dq3), 0x12345646U);
    EXPECT_THAT(fake_memory::log, ElementsAre(write(sel, 0x307), read(data, 0x12345646),
                                              write(sel, 0x30e), read(data, 0x55)));
}

TEST_F(RegInfoOrlinDq, WritingAnUnreadLaneReadsItThenCommitsWithTheBitAbove) {
    EXPECT_TRUE(m_dq3->set(m_register, 5));
    EXPECT_THAT(fake_memory::log, ElementsAre(write(sel, 0x307), read(data, 0x12345646)));
    fake_memory::log.clear();
    m_register->commit();
    EXPECT_THAT(fake_memory::log, ElementsAre(write(sel, 0x307), write(data, 0x12345685),
                                              write(sel, 7), read(data, 0x12345685)));
}

TEST_F(RegInfoOrlinDq, CommitWritesStoredLanesInNameOrderAndAgainEveryTime) {
    EXPECT_TRUE(m_dq3->set(m_register, 5));
    words[data] = 0xa00;
    EXPECT_TRUE(m_dq1->set(m_register, 6));
    fake_memory::log.clear();
    m_register->commit();
    EXPECT_THAT(fake_memory::log,
                ElementsAre(write(sel, 0x107), write(data, 0xa86), write(sel, 7), read(data, 0xa86),
                            write(sel, 0x307), write(data, 0x12345685), write(sel, 7),
                            read(data, 0x12345685)));
    fake_memory::log.clear();
    EXPECT_TRUE(m_dq1->set(m_register, 9));
    EXPECT_THAT(fake_memory::log, IsEmpty());
    m_register->commit();
    EXPECT_THAT(fake_memory::log,
                ElementsAre(write(sel, 0x107), write(data, 0xa89), write(sel, 7), read(data, 0xa89),
                            write(sel, 0x307), write(data, 0x12345685), write(sel, 7),
                            read(data, 0x12345685)));
}

TEST_F(RegInfoOrlinDq, CommitSkipsLanesThatWereOnlyRead) {
    EXPECT_THAT(value_of(m_dq3, *m_register), Optional(0x46U));
    fake_memory::log.clear();
    m_register->commit();
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(RegInfoOrlinDq, ARefusedValueLeavesNothingToCommit) {
    EXPECT_FALSE(m_dq3->set(m_register, 0x80));
    m_register->commit();
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(RegInfoOrlinDq, WhatACommitReadsBackIsNotKept) {
    EXPECT_TRUE(m_dq3->set(m_register, 5));
    fake_memory::kept = [](unsigned int, unsigned int) { return 0x33U; };
    m_register->commit();
    fake_memory::log.clear();
    EXPECT_THAT(value_of(m_dq3, *m_register), Optional(5U));
    EXPECT_THAT(fake_memory::log, IsEmpty());
    fake_memory::kept = nullptr;
    m_register->commit();
    EXPECT_THAT(fake_memory::log, ElementsAre(write(sel, 0x307), write(data, 0x12345685),
                                              write(sel, 7), read(data, 0x12345685)));
}

TEST_F(RegInfoOrlinDq, AStepThenACommitWritesTheMovedDelay) {
    EXPECT_TRUE(m_dq3->adjust(m_register, 3));
    m_register->commit();
    EXPECT_THAT(fake_memory::log,
                ElementsAre(write(sel, 0x307), read(data, 0x12345646), write(sel, 0x307),
                            write(data, 0x123456c9), write(sel, 7), read(data, 0x123456c9)));
}

TEST_F(RegInfoOrlinDq, AWordStoredForAnUnreadLaneIsReplacedByItsFirstLoad) {
    m_register->store(m_dq3, 0xcafe);
    EXPECT_THAT(fake_memory::log, IsEmpty());
    EXPECT_EQ(m_register->load(m_dq3), 0x12345646U);
    fake_memory::log.clear();
    m_register->commit(); // it stays marked as stored
    EXPECT_THAT(fake_memory::log, ElementsAre(write(sel, 0x307), write(data, 0x12345646),
                                              write(sel, 7), read(data, 0x12345646)));
}

TEST_F(RegInfoOrlinDq, OfTwoLanesWithTheSameNameOnlyTheLaterIsCommitted) {
    auto* const later = new orlin::reg_bitmask_dq(6, 0, "dq3", "no desc", 0x500);
    auto* const reg = slice(7, {m_dq3, later});
    reg->store(m_dq3, 1);
    reg->store(later, 2);
    reg->commit();
    EXPECT_THAT(fake_memory::log,
                ElementsAre(write(sel, 0x507), write(data, 2), write(sel, 7), read(data, 2)));
}

} // namespace reg_info_orlin_dq_test

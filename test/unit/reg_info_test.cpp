#include "reg/reg_info.hpp"

#include <algorithm>
#include <atomic>
#include <type_traits>

#include "reg/reg_bitmask.hpp"
#include "reg/reg_bitmask_map.hpp"
#include "reg/reg_bitmask_ro.hpp"
#include "support/field_value.hpp"
#include "support/hardware_test.hpp"

namespace reg_info_test {

using fake_memory::read;
using fake_memory::words;
using fake_memory::write;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::Pair;

constexpr unsigned int address = 0x18428120;
constexpr std::initializer_list<reg_bitmask*> no_fields = {};

class RegInfo : public hardware_test {
protected:
    RegInfo() { words[address] = 0x12345678; }

    reg_bitmask* const m_low = new reg_bitmask(7, 4, "low", "no desc");
    reg_bitmask* const m_high = new reg_bitmask(31, 24, "high", "no desc");
    reg_info m_register{"orlin-ddra", address, {m_low, m_high}, false};
};

TEST_F(RegInfo, BuildingTouchesNoHardware) {
    EXPECT_EQ(m_register.m_name, "orlin-ddra");
    EXPECT_EQ(m_register.m_addr, address);
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(RegInfo, ReadTwiceTouchesTheHardwareOnce) {
    EXPECT_EQ(m_register.load(m_low), 0x12345678U);
    words[address] = 0xffffffff;
    EXPECT_EQ(m_register.load(m_low), 0x12345678U);
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0x12345678)));
}

TEST_F(RegInfo, FieldsShareOneRead) {
    EXPECT_THAT(value_of(m_low, m_register), Optional(7U));
    EXPECT_THAT(value_of(m_high, m_register), Optional(0x12U));
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0x12345678)));
}

TEST_F(RegInfo, LoadAndStoreDoNotAskWhichFieldIsMeant) {
    EXPECT_EQ(m_register.load(nullptr), 0x12345678U);
    m_register.store(nullptr, 0xcafe);
    EXPECT_EQ(m_register.load(m_high), 0xcafeU);
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0x12345678)));
}

TEST_F(RegInfo, OneCommitCarriesTheChangesOfTwoFields) {
    EXPECT_TRUE(m_low->set(&m_register, 9));
    EXPECT_TRUE(m_high->set(&m_register, 0xab));
    m_register.commit();
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0x12345678), write(address, 0xab345698),
                                              read(address, 0xab345698)));
}

TEST_F(RegInfo, SetWithoutCommitLeavesTheHardwareUnchanged) {
    EXPECT_TRUE(m_low->set(&m_register, 9));
    EXPECT_THAT(value_of(m_low, m_register), Optional(9U));
    EXPECT_EQ(words[address], 0x12345678U);
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0x12345678)));
}

TEST_F(RegInfo, AfterACommitTheCacheHoldsWhatTheHardwareKept) {
    fake_memory::kept = [](unsigned int, unsigned int word) { return word & 0x00ffffff; };
    EXPECT_TRUE(m_high->set(&m_register, 0xab));
    m_register.commit();
    fake_memory::log.clear();
    EXPECT_THAT(value_of(m_high, m_register), Optional(0U));
    EXPECT_THAT(value_of(m_low, m_register), Optional(7U));
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(RegInfo, EveryCommitWritesAndReadsBackOnce) {
    m_register.load(nullptr);
    fake_memory::log.clear();
    m_register.commit();
    words[address] = 0x55;
    m_register.commit();
    EXPECT_THAT(fake_memory::log,
                ElementsAre(write(address, 0x12345678), read(address, 0x12345678),
                            write(address, 0x12345678), read(address, 0x12345678)));
}

TEST_F(RegInfo, TheFirstLoadReplacesAWordThatWasStoredBeforeIt) {
    m_register.store(m_low, 0xcafe);
    EXPECT_THAT(fake_memory::log, IsEmpty());
    EXPECT_EQ(m_register.load(m_low), 0x12345678U);
    EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0x12345678)));
}

TEST_F(RegInfo, OnlyLoadMarksTheRegisterAsRead) {
    m_register.store(m_low, 0xcafe);
    m_register.commit();
    words[address] = 0xbeef;
    EXPECT_EQ(m_register.load(m_low), 0xbeefU);
    EXPECT_THAT(fake_memory::log,
                ElementsAre(write(address, 0xcafe), read(address, 0xcafe), read(address, 0xbeef)));
}

/** A register with a read of its own, as the kinds behind a select register have. */
class odd_register : public reg_info {
public:
    odd_register() : reg_info("odd", address, no_fields, false) {}
    void _read() override { m_value = ++m_reads; }

    static_assert(std::is_same_v<decltype(m_value), std::atomic<unsigned int>>);

private:
    unsigned int m_reads = 0x100;
};

TEST_F(RegInfo, LoadAndCommitReadThroughTheVirtualTable) {
    odd_register odd;
    EXPECT_EQ(odd.load(nullptr), 0x101U);
    EXPECT_EQ(odd.load(nullptr), 0x101U);
    EXPECT_THAT(fake_memory::log, IsEmpty());
    odd.commit();
    EXPECT_EQ(odd.load(nullptr), 0x102U);
    EXPECT_THAT(fake_memory::log, ElementsAre(write(address, 0x101)));
}

TEST_F(RegInfo, ListsItsFieldsInAscendingByteOrderOfTheirNames) {
    auto* const capital = new reg_bitmask(0, 0, "Z", "no desc");
    auto* const ten = new reg_bitmask(1, 1, "dq10", "no desc");
    auto* const two = new reg_bitmask(2, 2, "dq2", "no desc");
    auto* const high_byte = new reg_bitmask(3, 3, "\xc3\xa9", "no desc");
    const reg_info reg("r", address, {two, high_byte, ten, capital}, false);
    EXPECT_THAT(reg.m_subvals, ElementsAre(Pair("Z", capital), Pair("dq10", ten), Pair("dq2", two),
                                           Pair("\xc3\xa9", high_byte)));
}

TEST_F(RegInfo, OfTwoFieldsWithTheSameNameTheLaterOneCounts) {
    auto* const later = new reg_bitmask(3, 0, "low", "no desc");
    const reg_info reg("r", address, {m_low, m_high, later}, false);
    EXPECT_THAT(reg.m_subvals, ElementsAre(Pair("high", m_high), Pair("low", later)));
    EXPECT_EQ(std::ranges::count(subval_garbages.m_list, m_low), 1);
    EXPECT_EQ(std::ranges::count(subval_garbages.m_list, later), 1);
}

TEST_F(RegInfo, AsksTheFieldForItsNameThroughTheVirtualTable) {
    class renamed : public reg_bitmask {
    public:
        using reg_bitmask::reg_bitmask;
        const std::string& get_name() override { return m_desc; }
    };
    reg_bitmask* const field = new renamed(3, 0, "name", "another");
    const reg_info reg("r", address, {field}, false);
    EXPECT_THAT(reg.m_subvals, ElementsAre(Pair("another", field)));
}

TEST_F(RegInfo, AnEmptyFieldListGivesAnEmptyMapAndAnOwnedRegister) {
    const auto* const reg = new reg_info("r", address, no_fields, true);
    EXPECT_THAT(reg->m_subvals, IsEmpty());
    EXPECT_EQ(info_garbages.m_list.back(), reg);
}

TEST_F(RegInfo, TakesListsOfEveryBitFieldKind) {
    static const reg_bitmask_map::value_map map = {{30, 15}};
    auto* const mapped = new reg_bitmask_map(3, 0, "mapped", "no desc", &map);
    auto* const read_only = new reg_bitmask_ro(3, 0, "read-only", "no desc");
    const reg_info of_mapped("r", address, {mapped}, false);
    const reg_info of_read_only("r", address, {read_only}, false);
    EXPECT_THAT(of_mapped.m_subvals, ElementsAre(Pair("mapped", mapped)));
    EXPECT_THAT(of_read_only.m_subvals, ElementsAre(Pair("read-only", read_only)));
}

TEST_F(RegInfo, OnlyTheGarbageFlagOrAddGarbageHandsItToTheRegistersList) {
    const std::size_t before = info_garbages.m_list.size();
    auto* const late = new reg_info("late", address, {m_low}, false);
    EXPECT_EQ(info_garbages.m_list.size(), before);
    auto* const early = new reg_info("early", address, {m_low}, true);
    EXPECT_EQ(info_garbages.m_list.back(), early);
    late->add_garbage();
    EXPECT_EQ(info_garbages.m_list.back(), late);
    EXPECT_EQ(info_garbages.m_list.size(), before + 2);
}

TEST_F(RegInfo, DoesNotDeleteItsFields) {
    { const reg_info gone("gone", address, {m_low}, false); }
    EXPECT_EQ(m_low->get_name(), "low");
    EXPECT_THAT(value_of(m_low, m_register), Optional(7U));
}

} // namespace reg_info_test

#include "platform/orlin/reg_info_orlin_ddr.hpp"

#include <initializer_list>

#include "reg/reg_bitmask.hpp"
#include "reg/reg_info.hpp"
#include "support/field_value.hpp"
#include "support/hardware_test.hpp"

namespace reg_info_orlin_ddr_test {

using fake_memory::read;
using fake_memory::words;
using fake_memory::write;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::Pair;

constexpr unsigned int selector = 0x31;
constexpr unsigned int sel = 0x1842812c;
constexpr unsigned int data = 0x18428194;

class RegInfoOrlinDdr : public hardware_test {
protected:
    RegInfoOrlinDdr() { words[data] = 0x12345678; }

    reg_bitmask* const m_field = new reg_bitmask(31, 0, "value", "no desc");
    orlin::reg_info_orlin_ddr* const m_register =
        new orlin::reg_info_orlin_ddr("orlin-ddra-x", selector, sel, data, {m_field});
};

TEST_F(RegInfoOrlinDdr, IsAlwaysOwnedAndTouchesNoHardwareWhenBuilt) {
    EXPECT_EQ(info_garbages.m_list.back(), m_register);
    EXPECT_EQ(m_register->m_name, "orlin-ddra-x");
    EXPECT_EQ(m_register->m_addr, data);
    EXPECT_EQ(m_register->m_sel_addr, sel);
    EXPECT_EQ(m_register->m_sel_value, selector);
    EXPECT_THAT(m_register->m_subvals, ElementsAre(Pair("value", m_field)));
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(RegInfoOrlinDdr, ReadingSelectsThenReadsAndASecondReadAccessesNothing) {
    EXPECT_THAT(value_of(m_field, *m_register), Optional(0x12345678U));
    words[data] = 0xffffffff;
    EXPECT_THAT(value_of(m_field, *m_register), Optional(0x12345678U));
    EXPECT_THAT(fake_memory::log, ElementsAre(write(sel, selector), read(data, 0x12345678)));
}

TEST_F(RegInfoOrlinDdr, StoringTouchesNoHardware) {
    m_register->store(m_field, 0xcafe);
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(RegInfoOrlinDdr, CommittingSelectsWritesSelectsAndReads) {
    EXPECT_TRUE(m_field->set(m_register, 0xcafe));
    EXPECT_THAT(fake_memory::log, ElementsAre(write(sel, selector), read(data, 0x12345678)));
    fake_memory::log.clear();
    m_register->commit();
    EXPECT_THAT(fake_memory::log, ElementsAre(write(sel, selector), write(data, 0xcafe),
                                              write(sel, selector), read(data, 0xcafe)));
}

TEST_F(RegInfoOrlinDdr, AfterACommitTheCacheHoldsWhatTheHardwareKept) {
    fake_memory::kept = [](unsigned int, unsigned int word) { return word & 0xff; };
    EXPECT_TRUE(m_field->set(m_register, 0xcafe));
    m_register->commit();
    fake_memory::log.clear();
    EXPECT_THAT(value_of(m_field, *m_register), Optional(0xfeU));
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(RegInfoOrlinDdr, SelectsAnewForEveryAccess) {
    words[sel] = selector; // what another register may have left there is not relied on
    m_register->_read();
    m_register->_read();
    EXPECT_THAT(fake_memory::log, ElementsAre(write(sel, selector), read(data, 0x12345678),
                                              write(sel, selector), read(data, 0x12345678)));
}

TEST_F(RegInfoOrlinDdr, SeveralFieldsShareTheWord) {
    auto* const low = new reg_bitmask(3, 0, "low", "no desc");
    auto* const high = new reg_bitmask(31, 28, "high", "no desc");
    auto* const reg = new orlin::reg_info_orlin_ddr("r", selector, sel, data, {low, high});
    EXPECT_TRUE(low->set(reg, 1));
    EXPECT_TRUE(high->set(reg, 2));
    reg->commit();
    EXPECT_THAT(fake_memory::log,
                ElementsAre(write(sel, selector), read(data, 0x12345678), write(sel, selector),
                            write(data, 0x22345671), write(sel, selector), read(data, 0x22345671)));
}

TEST_F(RegInfoOrlinDdr, CommitReadsBackThroughTheVirtualTable) {
    class odd_register : public orlin::reg_info_orlin_ddr {
    public:
        explicit odd_register(std::initializer_list<reg_bitmask*> fields)
            : reg_info_orlin_ddr("odd", selector, sel, data, fields) {}
        void _read() override { m_value = 0x42; }
    };
    auto* const odd = new odd_register({m_field});
    EXPECT_TRUE(m_field->set(odd, 7));
    odd->commit();
    EXPECT_EQ(odd->load(m_field), 0x42U);
    EXPECT_THAT(fake_memory::log, ElementsAre(write(sel, selector), write(data, 7)));
}

} // namespace reg_info_orlin_ddr_test

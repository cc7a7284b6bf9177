#include "platform/orlin/reg_info_orlin_dq.hpp"
#include "reg/reg_bitmask.hpp"
#include "support/field_value.hpp"
#include "support/hardware_test.hpp"

namespace reg_info_orlin_dq_strangers_test {

using fake_memory::read;
using fake_memory::words;
using fake_memory::write;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

constexpr unsigned int sel = 0x1842812c;
constexpr unsigned int data = 0x18428194;

/** A slice that shows the word which its transfers share. */
class open_slice : public orlin::reg_info_orlin_dq {
public:
    explicit open_slice(orlin::reg_bitmask_dq* lane)
        : reg_info_orlin_dq("slice", 7, sel, data, {lane}) {}

    unsigned int transfer_word() const { return m_value; }
    bool single_word_is_loaded() const { return m_loaded; }
};

/** Fields that do not belong on a slice: none at all, another kind, another slice's lane. */
class RegInfoOrlinDqStrangers : public hardware_test {
protected:
    RegInfoOrlinDqStrangers() { words[data] = 0x12345646; }

    orlin::reg_bitmask_dq* const m_dq3 = new orlin::reg_bitmask_dq(6, 0, "dq3", "no desc", 0x300);
    reg_bitmask* const m_plain = new reg_bitmask(6, 0, "plain", "no desc");
    open_slice* const m_register = new open_slice(m_dq3);
};

TEST_F(RegInfoOrlinDqStrangers, ANullFieldLoadsAsAllOnesWithoutAnAccess) {
    EXPECT_EQ(m_register->load(nullptr), 0xffffffffU);
    EXPECT_EQ(m_register->load(nullptr), 0xffffffffU);
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(RegInfoOrlinDqStrangers, AFieldOfAnotherKindReadsAllOnesWithoutAnAccess) {
    EXPECT_EQ(m_register->load(m_plain), 0xffffffffU);
    EXPECT_THAT(value_of(m_plain, *m_register), Optional(0x7fU));
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(RegInfoOrlinDqStrangers, AStoredWordOfAnotherKindIsNeitherLoadedNorCommitted) {
    m_register->m_subvals["plain"] = m_plain;
    EXPECT_TRUE(m_plain->set(m_register, 5));
    EXPECT_EQ(m_register->load(m_plain), 0xffffffffU);
    m_register->commit();
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(RegInfoOrlinDqStrangers, CommitSkipsANullField) {
    m_register->m_subvals["dq0"] = nullptr;
    m_register->store(nullptr, 1);
    m_register->store(m_dq3, 2);
    m_register->commit();
    EXPECT_THAT(fake_memory::log,
                ElementsAre(write(sel, 0x307), write(data, 2), write(sel, 7), read(data, 2)));
}

TEST_F(RegInfoOrlinDqStrangers, ALaneAddedLaterIsUnreadAndUnstored) {
    auto* const dq5 = new orlin::reg_bitmask_dq(6, 0, "dq5", "no desc", 0x500);
    m_register->m_subvals["dq5"] = dq5;
    m_register->commit();
    EXPECT_THAT(fake_memory::log, IsEmpty());
    EXPECT_EQ(m_register->load(dq5), 0x12345646U);
    EXPECT_THAT(fake_memory::log, ElementsAre(write(sel, 0x507), read(data, 0x12345646)));
}

TEST_F(RegInfoOrlinDqStrangers, TheSharedWordOnlyCarriesTransfers) {
    EXPECT_TRUE(m_register->single_word_is_loaded()); // so that it is never read on its own
    m_register->load(m_dq3);
    EXPECT_EQ(m_register->transfer_word(), 0x12345646U);
    m_register->store(m_dq3, 0xcafe);
    EXPECT_EQ(m_register->transfer_word(), 0x12345646U);
    fake_memory::kept = [](unsigned int, unsigned int) { return 0x33U; };
    m_register->commit();
    EXPECT_EQ(m_register->transfer_word(), 0x33U);
    EXPECT_EQ(m_register->load(m_dq3), 0xcafeU);
}

TEST_F(RegInfoOrlinDqStrangers, CommitReadsBackThroughTheVirtualTable) {
    class odd_slice : public open_slice {
    public:
        using open_slice::open_slice;
        void _read() override { m_value = 0x42; }
    };
    auto* const odd = new odd_slice(m_dq3);
    EXPECT_TRUE(m_dq3->set(odd, 5)); // a lane's own read is not the register's
    odd->commit();
    EXPECT_EQ(odd->transfer_word(), 0x42U);
    EXPECT_THAT(fake_memory::log, ElementsAre(write(sel, 0x307), read(data, 0x12345646),
                                              write(sel, 0x307), write(data, 0x12345685)));
}

} // namespace reg_info_orlin_dq_strangers_test

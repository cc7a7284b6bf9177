#include <bitset>
#include <cstdint>
#include <initializer_list>
#include <string>

#include "reg/reg_bitmask.hpp"
#include "support/field_value.hpp"
#include "support/hardware_test.hpp"

namespace reg_bitmask_ranges_test {

using fake_memory::read;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

using bits = std::bitset<32>;

constexpr unsigned int address = 0x1000;
constexpr unsigned int pattern = 0x9e3779b9; // no bit pattern in it repeats

/** Every range of bits of a word: 32 of one bit, 31 of two bits, ... one of 32 bits. */
class RegBitmaskRanges : public hardware_test {
protected:
    /** Runs a check on every range, from zeros, from ones, and from a mixture of both. */
    template <class Check>
    int for_every_range(Check check) {
        int ranges = 0;
        for (int msb = 0; msb < 32; ++msb) {
            for (int lsb = 0; lsb <= msb; ++lsb) {
                ++ranges;
                auto* const field = new reg_bitmask(msb, lsb, "f", "no desc");
                for (const unsigned int word : {0U, 0xffffffffU, pattern}) {
                    SCOPED_TRACE("bits " + std::to_string(msb) + ".." + std::to_string(lsb) +
                                 " of " + std::to_string(word));
                    fake_memory::log.clear();
                    fake_memory::words[address] = word;
                    reg_info reg("r", address, {field}, false);
                    check(msb, lsb, word, field, reg);
                }
            }
        }
        return ranges;
    }

    /** The word with bits msb..lsb replaced, one bit after the other. */
    static unsigned int replaced(bits word, int msb, int lsb, bits value) {
        for (int bit = lsb; bit <= msb; ++bit) {
            word[static_cast<std::size_t>(bit)] = value[static_cast<std::size_t>(bit - lsb)];
        }
        return static_cast<unsigned int>(word.to_ulong());
    }

    /** The value of bits msb..lsb, gathered one bit after the other. */
    static unsigned int gathered(bits word, int msb, int lsb) {
        bits value;
        for (int bit = lsb; bit <= msb; ++bit) {
            value[static_cast<std::size_t>(bit - lsb)] = word[static_cast<std::size_t>(bit)];
        }
        return static_cast<unsigned int>(value.to_ulong());
    }

    /** The first number that no longer fits: 2 to the power of the width. */
    static std::uint64_t too_large(int msb, int lsb) {
        std::uint64_t power = 1;
        for (int bit = lsb; bit <= msb; ++bit) {
            power *= 2;
        }
        return power;
    }
};

TEST_F(RegBitmaskRanges, ReadsItsOwnBitsAndNoOthers) {
    EXPECT_EQ(528, for_every_range(
                       [](int msb, int lsb, unsigned int word, reg_bitmask* field, reg_info& reg) {
                           EXPECT_THAT(value_of(field, reg), Optional(gathered(word, msb, lsb)));
                           EXPECT_THAT(fake_memory::log, ElementsAre(read(address, word)));
                       }));
}

TEST_F(RegBitmaskRanges, TakesZeroOneAndTheLargestAndChangesNoOtherBit) {
    EXPECT_EQ(528, for_every_range(
                       [](int msb, int lsb, unsigned int word, reg_bitmask* field, reg_info& reg) {
                           const auto largest = static_cast<unsigned int>(too_large(msb, lsb) - 1);
                           for (const unsigned int value : {0U, 1U, largest}) {
                               EXPECT_TRUE(field->set(&reg, value)) << value;
                               EXPECT_EQ(reg.load(field), replaced(word, msb, lsb, value)) << value;
                               EXPECT_THAT(value_of(field, reg), Optional(value));
                           }
                           EXPECT_THAT(fake_memory::log, ElementsAre(read(address, word)));
                       }));
}

TEST_F(RegBitmaskRanges, RefusesTheFirstValueThatDoesNotFit) {
    int refused = 0;
    for_every_range(
        [&refused](int msb, int lsb, unsigned int word, reg_bitmask* field, reg_info& reg) {
            const std::uint64_t value = too_large(msb, lsb);
            if (value > 0xffffffff) {
                return; // a user value has no more than 32 bits: all of them fit
            }
            ++refused;
            EXPECT_FALSE(field->set(&reg, static_cast<unsigned int>(value)));
            EXPECT_THAT(fake_memory::log, IsEmpty());
            EXPECT_EQ(reg.load(field), word);
        });
    EXPECT_EQ(refused, 527 * 3);
}

TEST_F(RegBitmaskRanges, OfNoBitsHaveOneValueAndChangeNothing) {
    auto* const field = new reg_bitmask(3, 4, "f", "no desc");
    fake_memory::words[address] = pattern;
    reg_info reg("r", address, {field}, false);
    EXPECT_THAT(value_of(field, reg), Optional(0U));
    EXPECT_FALSE(field->set(&reg, 1));
    EXPECT_TRUE(field->set(&reg, 0));
    EXPECT_EQ(reg.load(field), pattern);
}

TEST_F(RegBitmaskRanges, LimitsAreZeroAndTheLargest) {
    for_every_range([](int msb, int lsb, unsigned int, reg_bitmask* field, reg_info&) {
        unsigned int min = 1;
        unsigned int max = 0;
        field->get_limits(&min, &max);
        EXPECT_EQ(min, 0U);
        EXPECT_EQ(max, too_large(msb, lsb) - 1);
        EXPECT_THAT(fake_memory::log, IsEmpty());
    });
}

} // namespace reg_bitmask_ranges_test

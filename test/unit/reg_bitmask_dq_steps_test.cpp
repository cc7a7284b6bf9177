#include <string>

#include "platform/orlin/reg_bitmask_dq.hpp"
#include "support/hardware_test.hpp"

namespace reg_bitmask_dq_steps_test {

using fake_memory::read;
using testing::ElementsAre;

constexpr unsigned int address = 0x18428194;
constexpr unsigned int bit_above = 0x80;
constexpr int most = 63; // the largest magnitude

struct outcome {
    unsigned int value;
    bool warned;
};

/** The value of a delay from -63 to +63; no delay is written as 0. */
unsigned int encoded(int delay) {
    return delay > 0 ? 64 + static_cast<unsigned int>(delay) : static_cast<unsigned int>(-delay);
}

/** What a step makes of a value, told in delays. */
outcome stepped(unsigned int value, int step) {
    const bool positive = value >= 64;
    const int delay = positive ? static_cast<int>(value) - 64 : -static_cast<int>(value);
    const int wanted = delay + step;
    if (wanted > most) {
        return {encoded(most), true}; // past the top: the largest delay, and a warning
    }
    if (wanted >= -most) {
        return {encoded(wanted), false};
    }
    if (!positive) {
        return {encoded(most), false}; // past the bottom: the largest delay, and not a word
    }
    // From a positive delay the magnitude runs on through the sign bit to the end of 7 bits.
    const int magnitude = -wanted;
    return magnitude <= 127 ? outcome{static_cast<unsigned int>(magnitude), false}
                            : outcome{127, true};
}

std::string warning(unsigned int value, int step) {
    return "warning! applying " + std::to_string(step) + " to current value " +
           std::to_string(value) + " is out of range (0 ~ 127). adjusted to 127\n";
}

using RegBitmaskDqSteps = hardware_test;

TEST_F(RegBitmaskDqSteps, EveryValueTakesEveryStepFromMinus200To200) {
    auto* const field = new orlin::reg_bitmask_dq(6, 0, "dq0", "no desc", 0);
    int warnings = 0;
    for (unsigned int value = 0; value < 128; ++value) {
        for (int step = -200; step <= 200; ++step) {
            SCOPED_TRACE(std::to_string(step) + " from " + std::to_string(value));
            fake_memory::log.clear();
            fake_memory::words[address] = 0xdeadbe00 | value;
            reg_info reg("r", address, {field}, false);
            fake_streams::reset();
            const outcome expected = stepped(value, step);

            EXPECT_TRUE(field->adjust(&reg, step));
            EXPECT_EQ(reg.load(field), 0xdeadbe00 | bit_above | expected.value);
            EXPECT_EQ(messages(), expected.warned ? warning(value, step) : "");
            EXPECT_THAT(fake_memory::log, ElementsAre(read(address, 0xdeadbe00 | value)));
            warnings += expected.warned ? 1 : 0;
        }
    }
    EXPECT_EQ(warnings, 20192);
}

} // namespace reg_bitmask_dq_steps_test

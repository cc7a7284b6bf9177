#include "model/eyes.hpp"

#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>

#include "model/text.hpp"

namespace eyes_test {

const std::string core_volts = "/sys/class/regulator/regulator.4/microvolts";

const register_table& registers() {
    static const register_table table = [] {
        std::istringstream text("0x18428120 - 0x00000014 rw orlin-ddra\n"
                                "0x1842812c - 0 rw orlin-ddra select\n"
                                "0x1842813c 0 0 rw orlin-ddra0::scl\n"
                                "0x18428194 0x000 0x8a rw orlin-ddra-read0::dq0\n"
                                "0x18428194 0x100 0x45 rw orlin-ddra-read0::dq1\n"
                                "0x1a419194 0x000 0x40 rw pelune-ddr-read0::dq0\n"
                                "fields orlin-ddra odt=3..0 dqsdrv=7..4\n"
                                "fields absent odt=3..0\n"
                                "fields *::scl 31..0\n");
        return register_table::parse(text, "registers");
    }();
    return table;
}

eyes eyes_of(const std::string& text, const std::string& volts = "900000\n") {
    eyes all(registers(), [volts](const std::string& path) {
        return path == core_volts ? volts : throw std::invalid_argument(path);
    });
    std::istringstream stream(text);
    all.add_all(stream, "eyes");
    return all;
}

/** How a test of the lane orlin-ddra-read0::dq0 ends; its delay is -10. */
test_end end_of(const std::string& text, const std::string& volts = "900000\n") {
    const eyes all = eyes_of(text, volts);
    return all.end_of(all.lanes().front());
}

TEST(Eyes, EveryWordOfALaneIsOneWithItsDelay) {
    const eyes all = eyes_of("# nothing\n\n  # at all\n");
    ASSERT_EQ(all.lanes().size(), 3U);
    EXPECT_EQ(all.lanes()[0].word->name, "orlin-ddra-read0::dq0");
    EXPECT_EQ(all.lanes()[0].delay(), -10);
    EXPECT_EQ(all.lanes()[1].delay(), 5);
    EXPECT_EQ(all.lanes()[2].delay(), 0);
    EXPECT_EQ(all.retrain(), 0);
    for (const lane_eye& lane : all.lanes()) {
        EXPECT_EQ(all.end_of(lane), test_end::passes);
    }
}

TEST(Eyes, ADelayIsSignAndMagnitude) {
    EXPECT_EQ(delay_of(0), 0);
    EXPECT_EQ(delay_of(0x80 | 0x3f), -63);
    EXPECT_EQ(delay_of(0xffffffff), 63);
    for (int delay = -most_steps; delay <= most_steps; ++delay) {
        EXPECT_EQ(delay_of(with_delay(0x123456ff, delay)), delay);
        EXPECT_EQ(with_delay(0x123456ff, delay) & ~0x7fU, 0x12345680U);
    }
}

struct window_row {
    const char* text = "";
    test_end end = test_end::passes;
    const char* volts = "900000";
};

TEST(Eyes, TheDelayAgainstTheWindowDecides) {
    constexpr test_end passes = test_end::passes;
    constexpr test_end fails = test_end::fails;
    constexpr test_end dies = test_end::board_dies;
    const std::string shift = "shift orlin-* " + core_volts + " 900000 10000\n";
    const window_row rows[] = {
        {"eye orlin-ddra-read0::dq0 -10 +5", passes},
        {"eye orlin-ddra-read0::dq0 -63 -10", passes},
        {"eye orlin-ddra-read0::dq0 -9 +5", dies},
        {"eye orlin-ddra-read0::dq1 +62 63", passes},
        {"eye *::dq0 -7 0\nedge 3", fails},
        {"eye *::dq0 -6 0\nedge 3", dies},
        {"eye *::dq0 -30 -13\nedge 3", fails},
        {"eye *::dq0 -30 -14\nedge 3", dies},
        {"eye *::dq0 -30 -14\neye orlin-*::dq? -10 -10", passes},
        {"eye orlin-*::dq? -10 -10\neye *::dq0 -30 -14", dies},
        {"hole orlin-ddra-read0::dq0 -10 -10", fails},
        {"hole *::dq0 -12 -10\nhole *::dq0 5 5", fails},
        {"hole *::dq0 -12 -11\nhole *::dq0 -9 -9", passes},
        {"hole *::dq0 -12 -8\neye *::dq0 0 5\nedge 9", dies},
        {"eye *::dq0 -12 -8\nnarrow *::dq0 orlin-ddra::odt 2 1", passes},
        {"eye *::dq0 -11 -8\nnarrow *::dq0 orlin-ddra::odt 2 1\nedge 1", fails},
        {"narrow *::dq0 orlin-ddra::odt 6 1\neye *::dq0 -11 -8\nedge 1", fails},
        {"eye *::dq0 -11 -8\nnarrow *::dq0 orlin-ddra::odt 4 9", passes},
        {"eye *::dq0 -12 -8\nnarrow *::dq0 orlin-ddra::odt 3 2", passes},
        {"eye *::dq0 -12 -8\nnarrow *::dq0 orlin-ddra::odt 3 2\n"
         "narrow *::dq0 orlin-ddra::dqsdrv 0xf 2",
         dies},
        {"eye *::dq0 -12 -8\nnarrow *::dq0 orlin-ddra::odt 1 1\nedge 1", fails},
        {"narrow *::dq0 orlin-ddra::odt 1 63", passes},
        {"eye *::dq0 -9 0", passes, "890000"},
        {"eye *::dq0 -9 0", dies, "890001"},
        {"eye *::dq0 -20 -10", passes, "909999"},
        {"eye *::dq0 -11 -11", passes, "910000"},
        {"eye *::dq0 -63 -40", passes, "1200000\n"},
        {"eye *::dq0 -63 63", dies, "4294967295"},
        {"eye *::dq0 -63 63\nhole *::dq0 -11 -11", fails, "910000"},
    };
    for (const window_row& row : rows) {
        EXPECT_EQ(end_of(std::string(row.text) + "\n" + shift, row.volts), row.end)
            << row.text << " at " << row.volts;
    }
}

struct bad_row {
    const char* line;
    const char* message;
};

TEST(Eyes, ALineThatMakesNoSenseIsRefusedWithItsPlace) {
    const bad_row rows[] = {
        {"eyes *::dq0 1 2", "'eyes' is no kind of line"},
        {"eye", "the lanes are missing"},
        {"eye orlin-ddra::odt 1 2", "no lane fits 'orlin-ddra::odt'"},
        {"eye *::dq0", "the delay from -63 to +63 is missing"},
        {"eye *::dq0 -5", "the delay from -63 to +63 is missing"},
        {"eye *::dq0 -64 5", "'-64' is no delay from -63 to +63"},
        {"eye *::dq0 -5 +64", "'+64' is no delay from -63 to +63"},
        {"eye *::dq0 -5 +-4", "'+-4' is no delay from -63 to +63"},
        {"eye *::dq0 6 5", "the delays end before they begin"},
        {"hole *::dq0 5 6 7", "'7' is too much"},
        {"edge", "the number of steps is missing"},
        {"edge -1", "'-1' is no number of steps"},
        {"edge 64", "'64' is more than 63 steps"},
        {"retrain 2 3", "'3' is too much"},
        {"narrow *::dq0 orlin-ddra::adrdrv 1 1",
         "no property with a code of at most 8 bits: 'orlin-ddra::adrdrv'"},
        {"narrow *::dq0 orlin-ddra0::scl 1 1",
         "no property with a code of at most 8 bits: 'orlin-ddra0::scl'"},
        {"narrow *::dq0 orlin-ddra::odt x 1", "'x' is no code"},
        {"narrow *::dq0 orlin-ddra::odt 16 1", "the code has more bits than the field"},
        {"narrow *::dq0 orlin-ddra::odt 15", "the number of steps is missing"},
        {"shift *::dq0 /etc/passwd 1 1", "'/etc/passwd' is no file of the board"},
        {"shift *::dq0 /sys/class/regulator/regulator.4/microvolts",
         "the nominal voltage is missing"},
        {"shift *::dq0 /sys/class/regulator/regulator.4/microvolts 5 5V",
         "'5V' is no voltage of a step"},
        {"shift *::dq0 /sys/class/regulator/regulator.4/microvolts 5 0", "a step of 0 microvolts"},
        {"shift *::dq0 /sys/class/regulator/regulator.4/microvolts 5 5 5", "'5' is too much"},
        {"shift *::dq0 /sys/class/regulator/regulator.4/microvolts 5 5",
         "'low' is no number of microvolts in /sys/class/regulator/regulator.4/microvolts"},
    };
    for (const bad_row& row : rows) {
        try {
            eyes_of(std::string("edge 1\n\n") + row.line + "\n", "low\n");
            ADD_FAILURE() << row.line;
        } catch (const input_error& error) {
            EXPECT_EQ(error.what(), std::string("eyes:3: ") + row.message);
        }
    }
}

TEST(Eyes, TheLastEdgeAndTheLastRetrainingCount) {
    EXPECT_EQ(end_of("edge 1\nedge 4\neye *::dq0 -7 0\n"), test_end::fails);
    EXPECT_EQ(eyes_of("retrain 5\nretrain 2\n").retrain(), 2);
}

} // namespace eyes_test

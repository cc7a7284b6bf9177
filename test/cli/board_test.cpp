#include "cli/board.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/texts.hpp"

using testing::ElementsAre;

namespace board_test {

/** The lines of the trace that open a file of the board in a directory. */
std::vector<std::string> opened_below(const board& on_board, const std::string& directory) {
    std::vector<std::string> opened;
    for (const std::string& line : on_board.trace()) {
        if (line.starts_with("open " + directory + "/")) {
            opened.push_back(line);
        }
    }
    return opened;
}

TEST(Run, OpensTheRdqsFileBeforeItTakesTheLockAndUnlocksLast) {
    const board on_board(board_setup().word(0x10090110, 0x3));
    on_board.run({sda, "5"});
    EXPECT_THAT(on_board.trace(),
                ElementsAre("open /sys/kernel/debug/mmc0/rdqs r",
                            "close /sys/kernel/debug/mmc0/rdqs", "open /tmp/brisel.lock rw",
                            "lock /tmp/brisel.lock", "open /dev/zeb_mem rw", "map 0x10090000",
                            "read 0x10090110 0x00000003 i2c0-delay", "unmap 0x10090000",
                            "close /dev/zeb_mem", "open /dev/zeb_mem rw", "map 0x10090000",
                            "write 0x10090110 0x00000005 i2c0-delay", "unmap 0x10090000",
                            "close /dev/zeb_mem", "open /dev/zeb_mem rw", "map 0x10090000",
                            "read 0x10090110 0x00000005 i2c0-delay", "unmap 0x10090000",
                            "close /dev/zeb_mem", "unlock /tmp/brisel.lock"));
}

TEST(Run, ListingOpensNothingButTheRdqsFileAndTheLock) {
    const board on_board;
    on_board.run({"-l"});
    EXPECT_THAT(on_board.trace(),
                ElementsAre("open /sys/kernel/debug/mmc0/rdqs r",
                            "close /sys/kernel/debug/mmc0/rdqs", "open /tmp/brisel.lock rw",
                            "lock /tmp/brisel.lock", "unlock /tmp/brisel.lock"));
}

TEST(Run, ReadOfARegulatorOpensItsVoltageTwiceAndItsLimitsOnce) {
    const board on_board;
    on_board.run({"cpu_regulator::microvolts"});
    const std::string directory = "/sys/class/regulator/regulator.1";
    EXPECT_THAT(opened_below(on_board, "/sys/class"),
                ElementsAre("open " + directory + "/microvolts r",
                            "open " + directory + "/min_microvolts r",
                            "open " + directory + "/max_microvolts r",
                            "open " + directory + "/microvolts r"));
}

TEST(Run, WriteOfARegulatorReadsItsVoltageAndLimitsOnceAndWritesItsVoltageOnce) {
    const board on_board;
    on_board.run({"cpu_regulator::microvolts", "1000000"});
    const std::string directory = "/sys/class/regulator/regulator.1";
    EXPECT_THAT(opened_below(on_board, "/sys/class"),
                ElementsAre("open " + directory + "/microvolts r",
                            "open " + directory + "/min_microvolts r",
                            "open " + directory + "/max_microvolts r",
                            "open " + directory + "/microvolts w"));
}

TEST(Run, RefusedVoltageWritesNoFile) {
    const board on_board;
    on_board.run({"cpu_regulator::microvolts", "92%"});
    EXPECT_THAT(opened_below(on_board, "/sys/class"), testing::SizeIs(3));
}

TEST(Run, ReadOfRdqsOpensItsFileOnce) {
    const board on_board;
    on_board.run({"mmc::rdqs"});
    EXPECT_THAT(opened_below(on_board, "/sys/kernel/debug"),
                ElementsAre("open /sys/kernel/debug/mmc0/rdqs r"));
}

TEST(Run, WriteOfRdqsReadsItsFileOnceAndWritesItOnce) {
    const board on_board;
    on_board.run({"mmc::rdqs", "+1"});
    EXPECT_THAT(
        opened_below(on_board, "/sys/kernel/debug"),
        ElementsAre("open /sys/kernel/debug/mmc0/rdqs r", "open /sys/kernel/debug/mmc0/rdqs w"));
}

TEST(Run, LockFileIsCreatedEmptyAndKept) {
    const board on_board;
    EXPECT_EQ(on_board.file("/tmp/brisel.lock"), std::nullopt);
    on_board.run({sda});
    EXPECT_EQ(on_board.file("/tmp/brisel.lock"), "");
}

TEST(Run, LockFileIsNeverWritten) {
    const board on_board(board_setup().file("/tmp/brisel.lock", "left alone"));
    EXPECT_EQ(on_board.run({sda, "5"}).status, 0);
    EXPECT_EQ(on_board.file("/tmp/brisel.lock"), "left alone");
}

TEST(Board, IsNotChangedByAnotherBoard) {
    const board first(board_setup().word(0x10090110, 0x3));
    const board second(board_setup().word(0x10090110, 0x4));
    EXPECT_EQ(first.run({sda, "9"}).status, 0);
    EXPECT_EQ(first.run({sda}).out, "9\n");
    EXPECT_EQ(second.run({sda}).out, "4\n");
}

TEST(DqSet, EveryLaneOfEveryRegisterKeepsAWordOfItsOwn) {
    const board on_board;
    for (const char* set :
         {"orlin-ddra-read0::dq", "orlin-ddra-read3::dq", "pelune-ddr-read0::dq"}) {
        EXPECT_EQ(on_board.run({set, "{1,2,3,4,5,6,7,8}"}).status, 0);
    }
    EXPECT_EQ(on_board.run({"orlin-ddra-read0::dq", "{11,12,13,14,15,16,17,18}"}).status, 0);
    EXPECT_EQ(on_board.run({"-r", "orlin-ddra-read0::dq"}).out, "{11,12,13,14,15,16,17,18}\n");
    EXPECT_EQ(on_board.run({"-r", "orlin-ddra-read3::dq"}).out, "{1,2,3,4,5,6,7,8}\n");
    EXPECT_EQ(on_board.run({"-r", "pelune-ddr-read0::dq"}).out, "{1,2,3,4,5,6,7,8}\n");
}

} // namespace board_test

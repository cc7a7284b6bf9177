#include <random>
#include <regex>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tune/swept_board.hpp"

// Sweeps of lanes: what they write, what they find, and the lanes beside them.

namespace sweep_lanes_test {

using namespace swept_boards;

using testing::HasSubstr;

TEST(SweepOfLanes, WritesNoLaneButItsOwn) {
    const swept_board b;
    EXPECT_EQ(b.begin({lane + "=d-1..d+1", "--", "true"}).status, 0);
    // Each write of a delay, behind the one of the select register.
    std::vector<std::string> writes;
    std::string selector;
    for (const std::string& access : b.on_board().accesses()) {
        if (access.starts_with("write 0x1842812c ")) {
            selector = access.substr(access.rfind(' ') + 1);
        } else if (access.starts_with("write ")) {
            writes.push_back(access + " at " + selector);
        }
    }
    EXPECT_THAT(writes, testing::ElementsAre("write 0x18428194 0x000000c1 at 0x00000300",
                                             "write 0x18428194 0x000000c0 at 0x00000300",
                                             "write 0x18428194 0x00000081 at 0x00000300",
                                             "write 0x18428194 0x000000c0 at 0x00000300"));
}

TEST(SweepOfLanes, FindsEyesThatAreDrawnAtRandom) {
    std::mt19937 random(1); // the same ones in every run
    const std::string lanes = lane.substr(0, lane.size() - 1);
    std::string eyes = "edge 63\n"; // it does not die
    std::string windows;
    for (int i = 0; i < 8; ++i) {
        // What the lanes hold, d-3 to d+4, passes.
        const std::string early = std::to_string(4 + random() % 4);
        const std::string late = std::to_string(5 + random() % 3);
        eyes.append("eye ").append(lanes).append(std::to_string(i));
        eyes.append(" -").append(early).append(" +").append(late).append("\n");
        windows += "d-" + early + " to d+" + late + "\n";
    }
    for (const std::string option : {"--stop=3", "--all"}) {
        const swept_board b(eyes);
        EXPECT_EQ(b.begin({option, lanes + "=d-9..d+9", "--", memory_test}).status, 0);
        const std::string found =
            std::regex_replace(b.best(), std::regex("[^\n]*, window ([^,]*),[^\n]*"), "$1");
        EXPECT_EQ(found, windows);
    }
}

TEST(SweepOfLanes, SaysWhichLanesItCannotReadAtItsEnd) {
    const swept_board b;
    // Reading a lane maps two pages. It is read, then all 68 of the PHY, then it again; of the
    // second time that all are read, the first one fails, and with it the lanes of its register.
    const run_result run =
        b.begin({lane + "=d+0", "--", "true"}, "fail mmap " + std::to_string(2 + 136 + 2 + 1));
    EXPECT_THAT(run.err, HasSubstr("::dq0 can no longer be read: map /dev/zeb_mem for address "
                                   "0x1842812c failed: Operation not permitted\n"));
}

} // namespace sweep_lanes_test

#include <ostream>

#include <gtest/gtest.h>

#include "cli/board.hpp"
#include "cli/texts.hpp"

// A board that does not hold what was written: the next run shows what it holds.

namespace lying_board_test {

struct lying_case {
    std::string name;
    std::string property;
    std::string value;
    std::string fault;
    std::string shown; ///< by the next run; empty where it can show nothing
};

void PrintTo(const lying_case& row, std::ostream* out) {
    *out << row.property << " " << row.value << " with " << row.fault;
}

const std::string dq3 = "orlin-ddra-read1::dq3";
const std::string lanes = "orlin-ddra-read1::dq";

// Every word begins as all zeros, but the I/O control word (code 4, that is 60 ohms).
const std::vector<lying_case> rows = {
    {"PlainFieldWithBitsThatStayClear", sda, "15", "stuck 0x10090110 0x00000006", "9"},
    {"PlainFieldThatTakesNoWrite", sda, "15", "stuck 0x10090110 0xffffffff", "0"},
    {"PlainFieldThatReadsAnotherWord", sda, "15", "reads-as 0x10090110 0x00000004", "4"},
    {"MappedFieldWithABitThatStaysClear", odt, "120", "stuck 0x18428120 0x00000001", "0"},
    {"MappedFieldWithABitThatStaysSet", odt, "120", "stuck 0x18428120 0x00000004", ""},
    {"MappedFieldThatReadsAnotherCode", odt, "120", "reads-as 0x18428120 0x00000006", "40"},
    {"SliceWithBitsThatStayClear", "orlin-ddra1::scl", "255", "stuck 0x1842813c/0x008 0x0f", "240"},
    {"SliceThatReadsAnotherWord", "orlin-ddra1::scl", "1", "reads-as 0x1842813c/0x008 7", "7"},
    {"SliceBesideALyingOne", "orlin-ddra1::scl", "255", "stuck 0x1842813c/0x010 0xff", "255"},
    {"LaneWithABitThatStaysClear", dq3, "5", "stuck 0x18428194/0x307 0x00000004", "1"},
    {"LaneWithASignThatStaysClear", dq3, "127", "stuck 0x18428194/0x307 0x00000040", "63"},
    {"LaneWithoutTheBitAboveTheDelay", dq3, "5", "stuck 0x18428194/0x307 0x00000080", "5"},
    {"LaneThatReadsAnotherWord", dq3, "5", "reads-as 0x18428194/0x307 0x000000ff", "127"},
    {"SetWithOneLyingLane", lanes, "{1,2,3,4,5,6,7,8}", "stuck 0x18428194/0x307 0x00000004",
     "{1,2,3,0,5,6,7,8}"},
    {"SetThatReadsOneOtherLane", lanes, "{1,2,3,4,5,6,7,8}", "reads-as 0x18428194/0x507 0x7f",
     "{1,2,3,4,5,127,7,8}"},
    {"SetWithoutALaneThatTakesAWrite", lanes, "5", "stuck 0x18428194 0xffffffff",
     "{0,0,0,0,0,0,0,0}"},
};

board_setup all_clear() {
    board_setup setup;
    setup.word(0x10090110, 0).word(0x18428120, 4).word(0x1842813c, 0x008, 0);
    for (std::uint32_t lane = 0; lane < 8; ++lane) {
        setup.word(0x18428194, lane * 0x100 + 7, 0);
    }
    return setup;
}

class LyingBoard : public testing::TestWithParam<lying_case> {};

TEST_P(LyingBoard, ShowsInTheNextRunWhatItHolds) {
    const auto& [name, property, value, fault, shown] = GetParam();
    const board on_board(all_clear().fault(fault));
    const run_result write = on_board.run({property, value});
    EXPECT_EQ(write.err, set_done(property, value));
    EXPECT_EQ(write.status, 0);
    const run_result read = on_board.run({property});
    EXPECT_EQ(read.out, shown + "\n");
    EXPECT_EQ(read.err, shown.empty() ? get_failed(property) : got(property, shown));
    EXPECT_EQ(read.status, shown.empty() ? 246 : 0);
}

std::string name_of(const testing::TestParamInfo<lying_case>& row) {
    return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(With, LyingBoard, testing::ValuesIn(rows), name_of);

TEST(LyingBoardStep, StartsFromWhatTheRegisterKept) {
    const board on_board(all_clear().fault("stuck 0x10090110 0x00000006"));
    EXPECT_EQ(on_board.run({sda, "15"}).status, 0);
    EXPECT_EQ(on_board.run({sda, "+4"}).status, 0); // from 9 to 13, of which 9 sticks
    EXPECT_EQ(on_board.accesses().back(), "read 0x10090110 0x00000009");
    EXPECT_EQ(on_board.run({sda}).out, "9\n");
}

} // namespace lying_board_test

#include "cli/cli_case.hpp"
#include "cli/texts.hpp"

namespace {

constexpr std::uint32_t read_data = 0x18428194;
constexpr std::uint32_t dq3_of_read1 = 0x307;
const std::string dq3 = "orlin-ddra-read1::dq3";

/** A write to orlin-ddra-read1::dq3, from one word to another. */
cli_case moved(const std::string& name, const std::string& value, std::uint32_t before,
               const std::string& before_text, const std::string& after_text,
               const std::string& warning = "") {
    cli_case row{.name = name, .args = {dq3, value}};
    row.board = board_setup().word(read_data, dq3_of_read1, before).word(read_data, 0x007, 0x42);
    row.err = warning + set_done(dq3, value);
    row.accesses = {"write 0x1842812c 0x00000307", "read 0x18428194 " + before_text,
                    "write 0x1842812c 0x00000307", "write 0x18428194 " + after_text,
                    "write 0x1842812c 0x00000007", "read 0x18428194 0x00000042"};
    return row;
}

} // namespace

const std::vector<cli_case> dq_cases = {
    {.name = "LaneIsSelectedByItsIndexAndItsRegister",
     .args = {dq3},
     .board = board_setup().word(read_data, dq3_of_read1, 0x45),
     .out = "69\n",
     .err = got(dq3, "69"),
     .accesses = {"write 0x1842812c 0x00000307", "read 0x18428194 0x00000045"}},
    {.name = "SecondLaneOfTheThirdSliceUsesSelector20e",
     .args = {"orlin-ddra-read2::dq2"},
     .board = board_setup().word(read_data, 0x20e, 0x45),
     .out = "69\n",
     .err = got("orlin-ddra-read2::dq2", "69"),
     .accesses = {"write 0x1842812c 0x0000020e", "read 0x18428194 0x00000045"}},
    {.name = "BitAboveTheDelayNeverShows",
     .args = {"-x", "pelune-ddr-write3::dq8"},
     .board = board_setup().word(0x1a4191a0, 0x815, 0xffffff83),
     .out = "0x3\n",
     .err = got("pelune-ddr-write3::dq8", "0x3"),
     .accesses = {"write 0x1a41912c 0x00000815", "read 0x1a4191a0 0xffffff83"}},
    {.name = "LastLaneOfTheLastWriteRegisterOfPhyB",
     .args = {"orlin-ddrb-write7::dq8"},
     .board = board_setup().word(0x184481a0, 0x831, 0x7f),
     .out = "127\n",
     .err = got("orlin-ddrb-write7::dq8", "127"),
     .accesses = {"write 0x1844812c 0x00000831", "read 0x184481a0 0x0000007f"}},
    {.name = "SameFieldInTheOtherChipsRegister",
     .args = {"pelune-ddr-read0::dq3"},
     .board = board_setup().word(0x1a419194, 0x300, 0x11).word(read_data, 0x300, 0x22),
     .out = "17\n",
     .err = got("pelune-ddr-read0::dq3", "17"),
     .accesses = {"write 0x1a41912c 0x00000300", "read 0x1a419194 0x00000011"}},

    moved("WriteKeepsTheOtherBitsAndSetsTheOneAboveTheDelay", "5", 0xabcd007f, "0xabcd007f",
          "0xabcd0085"),
    moved("LargestDelayIsWritten", "0x7f", 0, "0x00000000", "0x000000ff"),
    moved("PositiveDelayGrows", "+3", 70, "0x00000046", "0x000000c9"),
    moved("PositiveDelayCrossesZero", "-5", 66, "0x00000042", "0x00000083"),
    moved("PositiveDelayMovedToZeroIsWrittenAsZero", "-2", 66, "0x00000042", "0x00000080"),
    moved("NegativeDelayCrossesZero", "+5", 3, "0x00000003", "0x000000c2"),
    moved("NegativeDelayMovedToZeroIsWrittenAsZero", "+3", 3, "0x00000003", "0x00000080"),
    moved("NegativeDelayGrows", "-2", 3, "0x00000003", "0x00000085"),
    moved("PositiveZeroIsWrittenAsZero", "+0", 64, "0x00000040", "0x00000080"),
    moved("ZeroMovesUp", "+1", 0, "0x00000000", "0x000000c1"),
    moved("ZeroMovesDown", "-1", 0, "0x00000000", "0x00000081"),
    moved("NegativeDelayPastTheBottomBecomesTheTopWithoutAWarning", "-10", 60, "0x0000003c",
          "0x000000ff"),
    moved("PositiveDelayPastTheTopIsClampedWithAWarning", "+10", 120, "0x00000078", "0x000000ff",
          "warning! applying 10 to current value 120 is out of range (0 ~ 127). adjusted to 127\n"),
    moved("PositiveDelayFarPastTheBottomIsClampedWithAWarning", "-500", 66, "0x00000042",
          "0x000000ff",
          "warning! applying -500 to current value 66 is out of range (0 ~ 127). adjusted to "
          "127\n"),
    moved("NegativeDelayFarPastTheTopIsClampedWithAWarning", "+500", 3, "0x00000003", "0x000000ff",
          "warning! applying 500 to current value 3 is out of range (0 ~ 127). adjusted to 127\n"),

    {.name = "DelayThatDoesNotFitIsRefusedWithoutAnAccess",
     .args = {dq3, "0x80"},
     .err = set_failed(dq3, "0x80"),
     .status = 245},
};

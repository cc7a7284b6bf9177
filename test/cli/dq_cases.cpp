#include "cli/cli_case.hpp"
#include "cli/texts.hpp"
#include "model/text.hpp"

namespace {

constexpr std::uint32_t read_data = 0x18428194;
constexpr std::uint32_t dq3_of_read1 = 0x307;
const std::string dq3 = "orlin-ddra-read1::dq3";

/** A write to orlin-ddra-read1::dq3, from one word to another. */
cli_case moved(const std::string& name, const std::string& value, std::uint32_t before,
               std::uint32_t after, const std::string& messages = "") {
    cli_case row{.name = name, .args = {dq3, value}};
    row.board = board_setup().word(read_data, dq3_of_read1, before).word(read_data, 0x007, 0x42);
    row.err = messages + set_done(dq3, value);
    row.accesses = {"write 0x1842812c 0x00000307", "read 0x18428194 " + hex_text(before),
                    "write 0x1842812c 0x00000307", "write 0x18428194 " + hex_text(after),
                    "write 0x1842812c 0x00000007", "read 0x18428194 0x00000042"};
    return row;
}

} // namespace

const std::vector<cli_case> dq_cases = {
    reads("LaneIsSelectedByItsIndexAndItsRegister", {dq3}, {read_data, dq3_of_read1}, 0x00000045,
          "69"),
    reads("SecondLaneOfTheThirdSliceUsesSelector20e", {"orlin-ddra-read2::dq2"}, {read_data, 0x20e},
          0x00000045, "69"),
    reads("BitAboveTheDelayNeverShows", {"-x", "pelune-ddr-write3::dq8"}, {0x1a4191a0, 0x815},
          0xffffff83, "0x3"),
    reads("LastLaneOfTheLastWriteRegisterOfPhyB", {"orlin-ddrb-write7::dq8"}, {0x184481a0, 0x831},
          0x0000007f, "127"),
    {.name = "SameFieldInTheOtherChipsRegister",
     .args = {"pelune-ddr-read0::dq3"},
     .board = board_setup().word(0x1a419194, 0x300, 0x11).word(read_data, 0x300, 0x22),
     .out = "17\n",
     .err = got("pelune-ddr-read0::dq3", "17"),
     .accesses = {"write 0x1a41912c 0x00000300", "read 0x1a419194 0x00000011"}},

    moved("WriteKeepsTheOtherBitsAndSetsTheOneAboveTheDelay", "5", 0xabcd007f, 0xabcd0085),
    moved("PositiveDelayGrows", "+3", 70, 0xc9),
    moved("PositiveDelayCrossesZero", "-5", 66, 0x83),
    moved("NegativeDelayCrossesZero", "+5", 3, 0xc2),
    moved("NegativeDelayMovedToZeroIsWrittenAsZero", "+3", 3, 0x80),
    moved("NegativeDelayPastTheBottomBecomesTheTopWithoutAWarning", "-10", 60, 0xff),
    moved("PositiveDelayPastTheTopIsClampedWithAWarning", "+10", 120, 0xff,
          warning("10", "120", "127", "127")),
    moved("PositiveDelayFarPastTheBottomIsClampedWithAWarning", "-500", 66, 0xff,
          warning("-500", "66", "127", "127")),
    moved("NegativeDelayFarPastTheTopIsClampedWithAWarning", "+500", 3, 0xff,
          warning("500", "3", "127", "127")),

    refuses("DelayThatDoesNotFitIsRefusedWithoutAnAccess", {dq3, "0x80"}),
};

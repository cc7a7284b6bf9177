#include "cli/cli_case.hpp"
#include "cli/texts.hpp"

namespace {

constexpr std::uint32_t pelune_read_data = 0x1a419194;

/** The lanes of pelune-ddr-read1 hold these words. */
board_setup lanes_holding(const std::vector<std::uint32_t>& words) {
    board_setup setup;
    for (std::uint32_t lane = 0; lane < words.size(); ++lane) {
        setup.word(pelune_read_data, lane * 0x100 + 7, words[lane]);
    }
    return setup;
}

const std::vector<std::string> all_read = {
    "write 0x1a41912c 0x00000007", "read 0x1a419194 0x00000041",  "write 0x1a41912c 0x00000107",
    "read 0x1a419194 0x00000042",  "write 0x1a41912c 0x00000207", "read 0x1a419194 0x00000043",
    "write 0x1a41912c 0x00000307", "read 0x1a419194 0x00000044",  "write 0x1a41912c 0x00000407",
    "read 0x1a419194 0x00000005",  "write 0x1a41912c 0x00000507", "read 0x1a419194 0x00000006",
    "write 0x1a41912c 0x00000607", "read 0x1a419194 0x00000007",  "write 0x1a41912c 0x00000707",
    "read 0x1a419194 0x00000008",
};

board_setup one_to_eight() {
    return lanes_holding({0x41, 0x42, 0x43, 0x44, 5, 6, 7, 8});
}

/**
 * The accesses of setting the first `after.size()` lanes, one after the other, from the words
 * `before` to the words `after`: every commit writes all lanes stored so far.
 */
std::vector<std::string> accesses_of_setting(const std::vector<std::string>& before,
                                             const std::vector<std::string>& after) {
    std::vector<std::string> accesses;
    const auto select = [&](const std::string& digit) {
        accesses.push_back("write 0x1a41912c 0x00000" + digit + "07");
    };
    for (std::size_t lane = 0; lane < after.size(); ++lane) {
        select(std::to_string(lane));
        accesses.push_back("read 0x1a419194 0x000000" + before[lane]);
        for (std::size_t stored = 0; stored <= lane; ++stored) {
            select(std::to_string(stored));
            accesses.push_back("write 0x1a419194 0x000000" + after[stored]);
            select("0");
            accesses.push_back("read 0x1a419194 0x000000" + after[0]);
        }
    }
    return accesses;
}

} // namespace

const std::vector<cli_case> set_cases = {
    {.name = "SetShowsItsLanesInOrder",
     .args = {lanes},
     .board = one_to_eight(),
     .out = "{65,66,67,68,5,6,7,8}\n",
     .err = got(lanes, "{65,66,67,68,5,6,7,8}"),
     .accesses = all_read},
    {.name = "RawReadOfASet",
     .args = {"-r", lanes},
     .board = one_to_eight(),
     .out = "{65,66,67,68,5,6,7,8}\n",
     .accesses = all_read},
    {.name = "BracedListGoesToTheLanesInOrderAndEveryCommitWritesAllStoredLanes",
     .args = {lanes, "{1,2,3,4,5,6,7,8}"},
     .board = one_to_eight(),
     .err = set_done(lanes, "{1,2,3,4,5,6,7,8}"),
     .accesses = accesses_of_setting({"41", "42", "43", "44", "05", "06", "07", "08"},
                                     {"81", "82", "83", "84", "85", "86", "87", "88"})},
    {.name = "PlainTextGoesToEveryLane",
     .args = {lanes, "5"},
     .board = one_to_eight(),
     .err = set_done(lanes, "5"),
     .accesses = accesses_of_setting({"41", "42", "43", "44", "05", "06", "07", "08"},
                                     {"85", "85", "85", "85", "85", "85", "85", "85"})},
    {.name = "StepMovesEveryLaneByItself",
     .args = {lanes, "+1"},
     .board = one_to_eight(),
     .err = set_done(lanes, "+1"),
     .accesses = accesses_of_setting({"41", "42", "43", "44", "05", "06", "07", "08"},
                                     {"c2", "c3", "c4", "c5", "84", "85", "86", "87"})},
    {.name = "BracedListMayMixStepsAndValues",
     .args = {lanes, "{+1,2,-1,4, 5,0x6,7x,8}"},
     .board = one_to_eight(),
     .err = set_done(lanes, "{+1,2,-1,4, 5,0x6,7x,8}"),
     .accesses = accesses_of_setting({"41", "42", "43", "44", "05", "06", "07", "08"},
                                     {"c2", "82", "c2", "84", "85", "86", "87", "88"})},
    {.name = "HexadecimalModeReadsTheListInHexadecimal",
     .args = {"-x", lanes, "{1,2,3,4,5,6,7,7f}"},
     .board = one_to_eight(),
     .err = set_done(lanes, "{1,2,3,4,5,6,7,7f}"),
     .accesses = accesses_of_setting({"41", "42", "43", "44", "05", "06", "07", "08"},
                                     {"81", "82", "83", "84", "85", "86", "87", "ff"})},
    refuses("ListOfTheWrongLengthTouchesNothing", {lanes, "{1,2,3}"}, "3 != 8\n"),
    refuses("CommaAtTheEndMakesAnotherPiece", {lanes, "{1,2,3,4,5,6,7,8,}"}, "9 != 8\n"),
    refuses("SetOfNineLanesCountsNine", {"pelune-ddr-write1::dq", "{1,2,3,4,5,6,7,8}"}, "8 != 9\n"),
    {.name = "EmptyPieceEndsTheWorkAndEarlierLanesKeepTheirNewValues",
     .args = {lanes, "{1,,3,4,5,6,7,8}"},
     .board = one_to_eight(),
     .err = "set failed\n" + set_failed(lanes, "{1,,3,4,5,6,7,8}"),
     .status = 245,
     .accesses = accesses_of_setting({"41"}, {"81"})},
    {.name = "RefusedPieceEndsTheWorkAndEarlierLanesKeepTheirNewValues",
     .args = {lanes, "{1,2,200,4,5,6,7,8}"},
     .board = one_to_eight(),
     .err = "set failed\n" + set_failed(lanes, "{1,2,200,4,5,6,7,8}"),
     .status = 245,
     .accesses = accesses_of_setting({"41", "42"}, {"81", "82"})},
    refuses("UnclosedBraceGoesToEveryLaneAsItIs", {lanes, "{1,2,"},
            "failed to parse value {1,2,\nset failed\n"),
    refuses("SignAloneIsRefusedByTheFirstLane", {lanes, "-"},
            "failed to parse value -\nset failed\n"),
    {.name = "NumberBeyondSixtyFourBitsEndsTheRunWithEarlierLanesWritten",
     .args = {lanes, "{1,99999999999999999999,3,4,5,6,7,8}"},
     .board = one_to_eight(),
     .err = uncaught("out_of_range", "stoll"),
     .status = aborted,
     .accesses = accesses_of_setting({"41"}, {"81"})},
};

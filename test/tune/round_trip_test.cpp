#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/table.hpp"
#include "cli/texts.hpp"
#include "tune/tune_case.hpp"

// What is saved can be put back, and what is set is what is saved.

namespace tune_round_trip_test {

/** A board whose registers hold words that mean nothing. */
board_setup random_board(unsigned int seed) {
    std::mt19937 random(seed);
    board_setup setup;
    for (const register_field& each : every_register_field()) {
        const auto word = static_cast<std::uint32_t>(random());
        if (each.selector()) {
            setup.word(each.reg.number("address"), *each.selector(), word);
        } else {
            setup.word(each.reg.number("address"), word);
        }
    }
    return setup;
}

/** The writes among accesses that are not of a selector. */
std::vector<std::string> written(const board& on_board) {
    std::vector<std::string> found;
    for (const std::string& line : on_board.trace()) {
        if (line.starts_with("write 0x") && !line.ends_with(" select")) {
            found.push_back(line);
        }
    }
    return found;
}

class AnyState : public testing::TestWithParam<unsigned int> {};

TEST_P(AnyState, IsSavedAndAppliedWithoutAChange) {
    const board on_board(random_board(GetParam()));
    const run_result saved = run_tune(on_board, {"save", "--all"});
    EXPECT_EQ(saved.status, 0);
    const run_result applied = run_tune(on_board, {"apply", tuning_file}, saved.out);
    EXPECT_EQ(applied.out, "");
    EXPECT_EQ(applied.err, "");
    EXPECT_EQ(applied.status, 0);
    EXPECT_THAT(written(on_board), testing::IsEmpty());
}

TEST_P(AnyState, IsCarriedToAnotherBoardAndBack) {
    const board from(random_board(GetParam()));
    const board to(random_board(GetParam() + 100));
    const std::string wanted = run_tune(from, {"save", "--all"}).out;
    const std::string before = run_tune(to, {"save", "--all"}).out;
    EXPECT_EQ(run_tune(to, {"apply", tuning_file}, wanted).status, 0);
    EXPECT_EQ(run_tune(to, {"diff", tuning_file}, wanted).out, "");
    EXPECT_EQ(run_tune(to, {"diff", tuning_file}, before).status, 1);
    EXPECT_EQ(run_tune(to, {"apply", tuning_file}, before).status, 0);
    EXPECT_EQ(run_tune(to, {"diff", tuning_file}, before).out, "");
}

INSTANTIATE_TEST_SUITE_P(Of, AnyState, testing::Range(1U, 9U));

TEST(Save, HasEverythingThatBriselLists) {
    const board on_board;
    const std::string saved = run_tune(on_board, {"save", "--all"}).out;
    std::string missing;
    for (const hardware_property& p : every_property()) {
        const bool is_lane = p.name.find("::dq") != std::string::npos && p.kind == "register";
        const std::string line = "\n" + p.name + " = ";
        const std::string note = "\n# " + p.name + ": read-only\n";
        if (!is_lane && saved.find(line) == std::string::npos &&
            saved.find(note) == std::string::npos) {
            missing += p.name + "\n";
        }
    }
    EXPECT_EQ(missing, "");
}

TEST(Save, NotesWhatCannotBeRead) {
    const board on_board(board_setup().fault("no-map 0x10040008"));
    const run_result saved = run_tune(on_board, {"save", "mac", "mmc", "pcie"});
    EXPECT_THAT(saved.out, testing::HasSubstr("\n# mac-rx::delay: map /dev/zeb_mem for address "
                                              "0x10040008 failed: Operation not permitted\n"));
    EXPECT_THAT(saved.out, testing::HasSubstr("\n# pcie-link::state-ro: read-only\n"));
    EXPECT_THAT(saved.out, testing::EndsWith("\nmmc::rdqs = 40\n"));
    EXPECT_EQ(saved.status, 1);
}

TEST(Save, NotesTheReasonForEachPropertyAndSaysItOnceForARegister) {
    const board on_board(board_setup().fault("no-map 0x10090110 EACCES"));
    const run_result saved = run_tune(on_board, {"save", "i2c0-delay::*"});
    const std::string reason =
        ": map /dev/zeb_mem for address 0x10090110 failed: Permission denied\n";
    EXPECT_THAT(saved.out, testing::EndsWith("\n# i2c0-delay::scl-delay" + reason +
                                             "# i2c0-delay::sda-delay" + reason));
    EXPECT_EQ(saved.err, "i2c0-delay::scl-delay" + reason);
    EXPECT_EQ(saved.status, 1);
}

TEST(Save, BeginsWithVersionMachineAndTime) {
    const board on_board;
    EXPECT_THAT(run_tune(on_board, {"save", "mac-tx::delay"}).out,
                testing::MatchesRegex("# brisel-tune " BRISEL_VERSION
                                      ", .* \\(.*\\), [0-9]{4}-[0-9]{2}-[0-9]{2} "
                                      "[0-9]{2}:[0-9]{2}:[0-9]{2} UTC\nmac-tx::delay = 2\n"));
}

TEST(Save, NamesEachGroupBeforeItIsRead) {
    const board on_board;
    EXPECT_EQ(run_tune(on_board, {"save", "--all"}).err,
              "reading ebus\nreading ehci\nreading i2c\nreading mac\nreading mmc\n"
              "reading orlin-ddr\nreading pelune-ddr\nreading regulator\n");
}

TEST(Save, ShowsATuningThatGoesToStandardInputsName) {
    const board on_board;
    EXPECT_THAT(run_tune(on_board, {"save", "-o", "-", "mmc"}).out,
                testing::EndsWith("\nmmc::rdqs = 40\n"));
}

TEST(Save, ReplacesAFileAsAWhole) {
    const board on_board(board_setup().file("/tmp/saved", "something else, and longer than that"));
    const std::string file = on_board.path("/tmp/saved");
    EXPECT_EQ(run_tune(on_board, {"save", "-o", file, "mmc"}).status, 0);
    EXPECT_THAT(on_board.file("/tmp/saved"),
                testing::Optional(testing::EndsWith(" UTC\nmmc::rdqs = 40\n")));
    EXPECT_EQ(run_tune(on_board, {"apply", file}).status, 0);
}

} // namespace tune_round_trip_test

#include <csignal>
#include <ostream>
#include <string>
#include <tuple>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/texts.hpp"
#include "tune/tune_case.hpp"

// Whatever fails while a tuning is applied, and whenever a user ends it: the board holds the old
// tuning or the new one, or the report says which property holds what.

namespace tune_failing_apply_test {

const std::string cpu = "cpu_regulator::microvolts";
// By `set`, which does what `apply` does, but for the lanes that `apply` looks at beside it.
const std::vector<std::string> new_tuning = {"set",
                                             cpu + "=1010000",
                                             sda + "=12",
                                             "mac-tx::delay=4",
                                             lanes + "={1,2,3,4,5,6,7,8}",
                                             "mmc::rdqs=50",
                                             "gpu_regulator::microvolts=900000"};
const std::vector<std::string> names = {cpu,   sda,         "mac-tx::delay",
                                        lanes, "mmc::rdqs", "gpu_regulator::microvolts"};

/** What the board holds of the tuning, as `get` shows it. */
std::string held(const board& on_board) {
    std::vector<std::string> args = {"get"};
    args.insert(args.end(), names.begin(), names.end());
    return on_board.capture(on_board.launch_bare(args, "", "brisel-tune")).out;
}

/** The texts of the old tuning and the new one. */
struct tunings {
    tunings() {
        const board on_board;
        before = held(on_board);
        EXPECT_EQ(run_tune(on_board, new_tuning).status, 0);
        after = held(on_board);
    }
    std::string before;
    std::string after;
};

const tunings& both() {
    static const tunings found;
    return found;
}

class FailingApply : public testing::TestWithParam<std::string> {};

TEST_P(FailingApply, LeavesTheOldTuningOrTheNewOneOrSaysWhatIsThere) {
    int failures = 0;
    for (int number = 1;; ++number) {
        SCOPED_TRACE(number);
        const board on_board;
        const run_result run = on_board.capture(on_board.launch_bare(
            new_tuning, "fail " + GetParam() + " " + std::to_string(number), "brisel-tune"));
        const bool has_failed =
            testing::Value(on_board.trace(), testing::Contains(testing::HasSubstr(" failed: ")));
        const std::string now = held(on_board);
        switch (run.status) {
        case 0:
            EXPECT_EQ(now, both().after);
            break;
        case 1:
            EXPECT_EQ(now, both().before) << run.err;
            EXPECT_NE(run.err, "");
            break;
        default:
            EXPECT_EQ(run.status, 2);
            // Before anything was written; else the report names what is not as before.
            if (now != both().before) {
                EXPECT_THAT(run.err, testing::HasSubstr(" # not put back to ")) << now;
            }
            break;
        }
        failures += has_failed ? 1 : 0;
        if (!has_failed || HasFailure()) {
            break;
        }
    }
    EXPECT_GT(failures, 2);
}

INSTANTIATE_TEST_SUITE_P(AtEvery, FailingApply, testing::Values("open", "mmap", "read", "write"),
                         [](const auto& call) { return call.param; });

/** A signal, and the numbers of the calls with which it comes, one in each run. */
struct interruption {
    std::string name;
    int signal;
    int first;
    int step;
};

void PrintTo(const interruption& by, std::ostream* out) {
    *out << by.name;
}

class InterruptedApply
    : public testing::TestWithParam<std::tuple<interruption, std::string /* call */>> {};

TEST_P(InterruptedApply, LeavesTheOldTuningOrTheNewOne) {
    const auto& [by, call] = GetParam();
    int interrupted = 0;
    int applied = 0;
    for (int number = by.first;; number += by.step) {
        SCOPED_TRACE(number);
        const board on_board;
        program_start apply = on_board.launch_bare(
            new_tuning, "signal " + call + " " + std::to_string(number) + " " + by.name,
            "brisel-tune");
        apply.leads_group = true;
        const run_result run = on_board.capture(std::move(apply));
        const std::string now = held(on_board);
        if (!testing::Value(on_board.trace(), testing::Contains("signal " + by.name))) {
            EXPECT_EQ(run.status, 0);
            break;
        }
        EXPECT_EQ(run.status, -by.signal);
        EXPECT_TRUE(now == both().after || (now == both().before && applied == 0)) << now;
        ++interrupted;
        applied += now == both().after ? 1 : 0;
        if (HasFailure()) {
            break;
        }
    }
    EXPECT_GT(applied, 0);
    EXPECT_EQ(applied == interrupted, call == "write"); // as soon as one writes, signals wait
}

// A page is mapped for each access to a register. Two signals share the calls among them.
INSTANTIATE_TEST_SUITE_P(By, InterruptedApply,
                         testing::Combine(testing::Values(interruption{"SIGTERM", SIGTERM, 1, 1},
                                                          interruption{"SIGINT", SIGINT, 1, 2},
                                                          interruption{"SIGHUP", SIGHUP, 2, 2}),
                                          testing::Values("mmap", "read", "write")),
                         [](const auto& row) {
                             return std::get<0>(row.param).name + "AtEach_" +
                                    std::get<1>(row.param);
                         });

TEST(InterruptedAndFailingApply, SaysWhatTheBoardHolds) {
    const board on_board(board_setup().fault("stuck mac-rx::delay 2"));
    program_start set = on_board.launch_bare({"set", "mac-tx::delay=4", "mac-rx::delay=6"},
                                             "signal mmap 5 SIGINT", "brisel-tune");
    set.leads_group = true;
    const run_result run = on_board.capture(std::move(set));
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, testing::HasSubstr("all was put back:"));
}

} // namespace tune_failing_apply_test

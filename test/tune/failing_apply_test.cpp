#include <csignal>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/wait.h>

#include "cli/texts.hpp"
#include "support/text_file.hpp"
#include "tune/tune_case.hpp"

// Whatever fails while a tuning is applied, and whenever a user ends it: the board holds the old
// tuning or the new one, or the report says which property holds what.

namespace tune_failing_apply_test {

const std::string cpu = "cpu_regulator::microvolts";
const std::string tuning = cpu + " = 1010000\n" + sda + " = 12\nmac-tx::delay = 4\n" + lanes +
                           " = {1,2,3,4,5,6,7,8}\nmmc::rdqs = 50\n"
                           "gpu_regulator::microvolts = 900000\n";
const std::vector<std::string> names = {cpu,   sda,         "mac-tx::delay",
                                        lanes, "mmc::rdqs", "gpu_regulator::microvolts"};

/** What the board holds of the tuning, as `get` shows it. */
std::string held(const board& on_board) {
    std::vector<std::string> args = {"get"};
    args.insert(args.end(), names.begin(), names.end());
    return run_tune(on_board, args).out;
}

/** The texts of the old tuning and the new one. */
struct tunings {
    tunings() {
        const board on_board;
        before = held(on_board);
        EXPECT_EQ(run_tune(on_board, {"apply", tuning_file}, tuning).status, 0);
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
        const std::string file = on_board.path("/tmp/tuning");
        write_text(file, tuning);
        const run_result run = on_board.capture(on_board.launch_bare(
            {"apply", file}, "fail " + GetParam() + " " + std::to_string(number), "brisel-tune"));
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

class InterruptedApply : public testing::TestWithParam<int> {};

TEST_P(InterruptedApply, LeavesTheOldTuningOrTheNewOne) {
    for (std::size_t lines = 5; lines < 420; lines += 25) {
        SCOPED_TRACE(lines);
        const board on_board;
        const std::string file = on_board.path("/tmp/tuning");
        write_text(file, tuning);
        const descriptor null("/dev/null", O_RDWR);
        program_start program = on_board.launch_bare({"apply", file}, "", "brisel-tune");
        program.in = null;
        program.out = null;
        program.err = null;
        const pid_t run = start(program);
        while (on_board.trace().size() < lines && waitpid(run, nullptr, WNOHANG | WNOWAIT) == 0) {
            std::this_thread::yield();
        }
        kill(run, GetParam());
        wait_for(run);
        const std::string now = held(on_board);
        EXPECT_TRUE(now == both().before || now == both().after) << now;
    }
}

INSTANTIATE_TEST_SUITE_P(By, InterruptedApply, testing::Values(SIGINT, SIGTERM, SIGHUP));

} // namespace tune_failing_apply_test

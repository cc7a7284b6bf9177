#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

#include "cli/streams.hpp"
#include "tune/swept_board.hpp"

// Sweeps on boards that die of them, and sweeps that are ended from outside: they go on, and all is
// as before.

namespace sweep_board_test {

using namespace swept_boards;

using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST(SweepOnABoardThatDies, FindsTheWindow) {
    const swept_board b("eye " + lane + " -4 +7\n");
    EXPECT_EQ(b.sweep({lane, "--", memory_test}), 2); // one death on each side
    EXPECT_EQ(b.best(), lane + " = 65 # d+1, window d-4 to d+7, 12 points, margins 5 and 6; "
                               "d-5 hung; d+8 hung\n");
    EXPECT_EQ(b.held(lane), lane + " = 64 # d+0\n");
    // There is nothing left to be tried: what was set since stays.
    EXPECT_EQ(run_tune(b.on_board(), {"set", lane + "=d+1"}).status, 0);
    const std::string log = b.log();
    const run_result again = b.go_on();
    EXPECT_EQ(again.status, 0);
    EXPECT_EQ(again.err, "the sweep is complete: there is nothing left to be tried\n");
    EXPECT_EQ(b.log(), log);
    EXPECT_EQ(b.held(lane), lane + " = 65 # d+1\n");
}

TEST(SweepOnABoardThatDies, GoesThroughAHole) {
    const swept_board b("eye " + lane + " -4 +7\nhole " + lane + " +3 +4\n");
    EXPECT_EQ(b.sweep({lane, "--", memory_test}), 2);
    EXPECT_EQ(b.best(), lane + " = 1 # d-1, window d-4 to d+2, 7 points, margins 3 and 3; also "
                               "d+5 to d+7; d-5 hung\n");
}

TEST(SweepOnABoardThatDies, TriesEveryPointIfAsked) {
    const swept_board b("eye " + lane + " -2 +1\n");
    EXPECT_EQ(b.sweep({"--all", lane + "=d-5..d+5", "--", memory_test}), 7);
    EXPECT_EQ(b.best(), lane + " = 64 # d+0, window d-2 to d+1, 4 points, margins 2 and 1; "
                               "d-3 hung; d+2 hung\n");
    EXPECT_EQ(b.go_on({"--retry-hangs"}).status, -SIGKILL);
}

TEST(SweepOnABoardThatDies, BeginsARowInTheMiddleOfItsNeighboursWindow) {
    const swept_board b("eye " + lane + " -1 +7\nnarrow orlin-ddra-* mac-tx::delay 2 2\n");
    EXPECT_EQ(b.sweep({lane + "=d-5..d+9", delay + "=1..3", "--", memory_test}), 6);
    EXPECT_EQ(b.best(), delay + " = 2\n" + lane +
                            " = 67 # d+3, window d-1 to d+7, 9 points, margins 4 and 4; of " +
                            delay +
                            " 1 to 3, 3 rows, margins 1 and 1; d-2 hung; d+8 hung; its rows begin "
                            "with the range; its rows end with the range\n");
    EXPECT_THAT(b.log(),
                HasSubstr("before " + delay + " = 2\norder " + lane +
                          ": 15 points, d-5 to d+9, from d+0 outwards\norder for each of " + delay +
                          ": 3 points, 1 to 3, from 2 outwards\ntry " + lane + "=d+3 " + delay +
                          "=3\npass"));
}

TEST(SweepOnABoardThatDies, GoesOnFromTheValuesOfTheNewBoot) {
    const swept_board b("eye " + lane + " -4 +7\n");
    EXPECT_EQ(b.begin({lane + "=d-6..d+9", "--", memory_test}).status, -SIGKILL);
    EXPECT_EQ(run_tune(b.on_board(), {"set", lane + "=d+2"}).status, 0); // as boot code might
    const run_result restored = run_tune(b.on_board(), {"restore", b.log_file()});
    EXPECT_EQ(restored.status, 2);
    EXPECT_THAT(restored.err, HasSubstr(": nothing was swept in this boot; --force takes the first "
                                        "one's values\nnothing was written\n"));
    write_text(b.on_board().path("/../eyes"), ""); // of a board that dies no message is left
    const run_result second = b.go_on();
    EXPECT_EQ(second.status, 0);
    EXPECT_THAT(second.err, HasSubstr(lane + " is d+2 in this boot; it was d+0\n"));
    EXPECT_THAT(b.log(), HasSubstr("before " + lane + " = 66\n"));
    EXPECT_EQ(run_tune(b.on_board(), {"restore", "--force", b.log_file()}).status, 0);
    EXPECT_EQ(b.held(lane), lane + " = 64 # d+0\n");
}

TEST(SweepInOneBoot, IsPutBackBeforeItGoesOn) {
    const swept_board b;
    // Killed while a value is tried: the board keeps it.
    const std::string test = "[ $BRISEL_VALUE != 3 ] || [ -e $BRISEL_BOARD/again ] || "
                             "{ touch $BRISEL_BOARD/again; kill -9 $PPID; sleep 1000; }";
    EXPECT_EQ(b.begin({delay + "=2..4", "--", "sh", "-c", test}).status, -SIGKILL);
    EXPECT_EQ(b.held(delay), delay + " = 3\n");
    const run_result restored = run_tune(b.on_board(), {"restore", b.log_file()});
    EXPECT_EQ(restored.out, delay + " = 2 # was 3\n");
    EXPECT_EQ(run_tune(b.on_board(), {"set", delay + "=7"}).status, 0);
    EXPECT_EQ(b.go_on().status, 0);
    EXPECT_EQ(b.held(delay), delay + " = 2\n");
    EXPECT_EQ(b.best(), delay + " = 2 # window 2, 1 point, margins 0 and 0; begins with the "
                                "range; 3 hung\n");
    EXPECT_EQ(b.go_on({"--retry-hangs"}).status, 0);
    EXPECT_EQ(b.best(), delay + " = 3 # window 2 to 4, 3 points, margins 1 and 1; begins with the "
                                "range; ends with the range\n");
}

TEST(SweepInOneBoot, DoesNotGoOnWhereItCannotBePutBack) {
    const swept_board b;
    EXPECT_EQ(b.begin({delay + "=2..4", "--", "true"}).status, 0);
    write_text(b.log_file(), b.log().substr(0, b.log().find("end complete")));
    EXPECT_EQ(run_tune(b.on_board(), {"set", delay + "=7"}).status, 0);
    write_text(b.on_board().path("/../faults"), "stuck " + delay + " 1\n");
    const run_result run = b.go_on();
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, delay + " was set to 2 and holds 3\n" + delay + " = 7 # as before\n");
}

TEST(SweepInOneBoot, PutsNoVoltageBackThatIsOutsideTheLimits) {
    const swept_board b;
    const std::string volts = "cpu_regulator::microvolts";
    EXPECT_EQ(b.begin({volts + "=1000000..1000001", "--", "true"}).status, 0);
    std::string log = b.log();
    log.erase(log.find("end complete"));
    log.replace(log.find("1000000\n"), 7, "1300001");
    write_text(b.log_file(), log);
    const run_result run = b.go_on();
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err, "1300001 is outside the limits of " + volts + ", 800000 to 1300000\n");
    EXPECT_EQ(b.held(volts), volts + " = 1000000\n");
}

TEST(SweepInOneBoot, TakesNoValuesBeforeThatAreCutOff) {
    const swept_board b;
    const std::string lanes = lane.substr(0, lane.size() - 1); // the set
    EXPECT_EQ(b.begin({lanes + "=d+0", "--", "true"}).status, 0);
    const std::string whole = b.log();
    const std::size_t third = whole.find("before " + lanes + "2");
    // Nothing had been tried: what the board holds now is what it goes back to.
    write_text(b.log_file(), whole.substr(0, third));
    EXPECT_EQ(run_tune(b.on_board(), {"restore", b.log_file()}).status, 2);
    EXPECT_EQ(run_tune(b.on_board(), {"set", lanes + "0=d+7"}).status, 0);
    EXPECT_EQ(b.go_on().status, 0);
    EXPECT_EQ(b.held(lanes + "0"), lanes + "0 = 71 # d+7\n");
    // Something had: a log without these lines was written by somebody else.
    std::string torn = whole;
    torn.erase(third, torn.find("before " + lanes + "5") - third);
    write_text(b.log_file(), torn.substr(0, torn.find("end complete")));
    EXPECT_EQ(b.go_on().err, b.log_file() + ":5: the values before are not those of the axes\n");
    EXPECT_EQ(b.held(lanes + "0"), lanes + "0 = 71 # d+7\n");
    EXPECT_EQ(run_tune(b.on_board(), {"best", b.log_file()}).err,
              b.log_file() + ":4: it is not known what " + lanes + "2 held before\n");
}

class InterruptedSweep : public testing::TestWithParam<int> {};

TEST_P(InterruptedSweep, PutsBackWhatWasThere) {
    const std::string number = std::to_string(GetParam());
    const swept_board b;
    const run_result run =
        b.begin({delay + "=2..4", "--", "sh", "-c",
                 "[ $BRISEL_VALUE != 3 ] || [ -e $BRISEL_BOARD/again ] || { touch "
                 "$BRISEL_BOARD/again; kill -" +
                     number + " $PPID; sleep 1000; }"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.err, HasSubstr("brisel-tune: interrupted\n"));
    EXPECT_EQ(b.held(delay), delay + " = 2\n");
    EXPECT_THAT(b.log(), HasSubstr("\nend interrupted\n"));
    EXPECT_EQ(b.go_on().status, 0); // and tries that point again
    EXPECT_THAT(b.best(), StartsWith(delay + " = 3 # window 2 to 4"));
}

INSTANTIATE_TEST_SUITE_P(By, InterruptedSweep, testing::Values(SIGINT, SIGTERM, SIGHUP, SIGQUIT));

TEST(SweepOnABoard, EndsBetweenTwoPointsToo) {
    const swept_board b;
    const run_result run = b.begin({delay + "=2..4", "--", "true"}, "signal mmap 2 SIGTERM");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(b.held(delay), delay + " = 2\n");
}

TEST(SweepOnABoard, BeginsNoTestOnceItIsInterrupted) {
    const swept_board b;
    // The first three pages are mapped to read the value, the fourth to set it.
    const run_result run =
        b.begin({"--settle=1000", delay + "=3", "--", "sh", "-c", "touch $BRISEL_BOARD/begun"},
                "signal mmap 5 SIGINT");
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(b.log(), HasSubstr("\nend interrupted\n"));
    EXPECT_EQ(b.held(delay), delay + " = 2\n");
    EXPECT_NE(access(b.on_board().path("/../begun").c_str(), F_OK), 0);
}

TEST(SweepOnABoard, LeavesItAsItWasWheneverItIsInterrupted) {
    int interrupted = 0;
    for (int number = 1;; ++number) {
        SCOPED_TRACE(number);
        const swept_board b;
        const run_result run = b.begin({"--all", delay + "=1..5", "--", "true"},
                                       "signal mmap " + std::to_string(number) + " SIGTERM");
        EXPECT_EQ(b.held(delay), delay + " = 2\n");
        if (run.status == 0) {
            break;
        }
        ++interrupted;
        if (HasFailure()) {
            break;
        }
    }
    EXPECT_GT(interrupted, 20);
}

TEST(SweepOnABoard, IsInterruptedInTheCheckOfMemoryToo) {
    const swept_board b;
    const run_result run =
        b.begin({delay + "=3", "--", "sh", "-c",
                 "[ $BRISEL_VALUE = 2 ] || exit 1; kill -INT $PPID; sleep 1000"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(b.log(), HasSubstr("\nend interrupted\n"));
}

TEST(SweepOnABoard, GoesOnWhereverItWasKilled) {
    int killed = 0;
    for (int number = 1;; ++number) {
        SCOPED_TRACE(number);
        const swept_board b;
        const run_result run = b.begin({"--all", delay + "=1..5", "--", "true"},
                                       "signal mmap " + std::to_string(number) + " SIGKILL");
        if (run.status == 0) {
            break;
        }
        ++killed;
        EXPECT_EQ(run.status, -SIGKILL);
        if (!testing::Value(b.log(), HasSubstr("before"))) {
            continue; // nothing had been tried
        }
        EXPECT_EQ(b.go_on().status, 0);
        EXPECT_EQ(b.held(delay), delay + " = 2\n");
        // All pass but the point in progress, which is a hang: it is not tried again.
        EXPECT_EQ(count_of("\ntry ", b.log()), 5);
        EXPECT_EQ(count_of("\npass ", b.log()), 4);
        if (HasFailure()) {
            break;
        }
    }
    EXPECT_GT(killed, 20);
}

TEST(SweepOnABoard, LeavesASignalIgnoredThatWas) {
    const swept_board b;
    program_start program = b.on_board().launch_bare(
        {"sweep", "-o", b.log_file(), delay + "=3", "--", "sh", "-c", "kill -HUP $PPID"}, "",
        "brisel-tune");
    program.ignores_hangup = true;
    const run_result run = b.on_board().capture(std::move(program));
    EXPECT_EQ(run.status, 0);
}

TEST(SweepOnABoard, PutsBackWhatNobodyElseHasSet) {
    const swept_board b;
    const std::string set_by_somebody_else = BRISEL_BUILD_DIR "/brisel mac-rx::delay 9";
    const run_result run =
        b.begin({"mac-rx::delay=6", delay + "=3", "--", "sh", "-c", set_by_somebody_else});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, EndsWith("somebody else has set mac-rx::delay: 6 was tried, and it holds "
                                  "9, which is left there\n"));
    EXPECT_EQ(b.held("mac-rx::delay"), "mac-rx::delay = 9\n");
    EXPECT_EQ(b.held(delay), delay + " = 2\n");
}

TEST(SweepOnABoard, EndsWithATestThatCannotBeExecuted) {
    const swept_board b;
    const std::string test = b.on_board().path("/tmp/test");
    write_text(test, "#!/no/interpreter\n");
    chmod(test.c_str(), 0755);
    const run_result run = b.begin({delay + "=3", "--", test});
    const std::string why = "cannot execute " + test + ": No such file or directory\n";
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, EndsWith("brisel-tune: " + why));
    EXPECT_THAT(b.log(), HasSubstr("\ninterrupted "));
    EXPECT_THAT(b.log(), EndsWith("\n| " + why + "end " + why));
}

TEST(SweepOnABoard, EndsWithATestThatCannotBeExecutedAgain) {
    const swept_board b;
    const std::string test = b.on_board().path("/tmp/te\033st");
    write_text(test, "#!/bin/sh\nrm \"$0\"; exit 1\n");
    chmod(test.c_str(), 0755);
    const run_result run = b.begin({delay + "=3", "--", test});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(
        b.log(),
        ContainsRegex("\ninterrupted [0-9.]+ s\nend cannot execute /.*/te\\\\x1bst: No such"));
}

TEST(SweepOnABoard, LeavesNoLogWhereItCannotBegin) {
    const swept_board b;
    const std::string boot = "/proc/sys/kernel/random/boot_id";
    std::filesystem::remove(b.on_board().path(boot));
    std::filesystem::create_directory(b.on_board().path(boot));
    const run_result run = b.begin({delay + "=3", "--", "true"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr(boot + ": "));
    EXPECT_FALSE(std::filesystem::exists(b.log_file()));
}

TEST(SweepOnABoard, GivesTheTestNothingToRead) {
    const swept_board b;
    const std::string test = "[ $(readlink /proc/self/fd/0) = /dev/null ]";
    EXPECT_EQ(b.begin({delay + "=2..4", "--", "sh", "-c", test}).status, 0);
    const std::string log = b.log();
    write_text(b.log_file(), log.substr(0, log.find("try " + delay + "=4")));
    program_start program =
        b.on_board().launch_bare({"sweep", "--lead=0", "--continue", "-"}, "", "brisel-tune");
    const descriptor in(b.log_file(), O_RDONLY);
    const std::string rest = b.on_board().path("/tmp/rest");
    const descriptor out(rest, O_WRONLY | O_CREAT);
    program.in = in;
    program.out = out;
    program.err = out;
    EXPECT_EQ(wait_for(start(program)), 0);
    EXPECT_THAT(text_of(rest), HasSubstr("try " + delay + "=4\npass"));
}

} // namespace sweep_board_test

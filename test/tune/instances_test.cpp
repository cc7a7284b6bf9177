#include <csignal>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include "cli/texts.hpp"
#include "support/text_file.hpp"
#include "tune/tune_case.hpp"

// Other instances, of both programs.

namespace tune_instances_test {

/** The lock, as another program holds it. */
descriptor hold_lock(const board& on_board) {
    descriptor held(on_board.path(lock_file), O_RDWR | O_CREAT);
    EXPECT_EQ(flock(held, LOCK_EX), 0);
    return held;
}

TEST(TuneLock, GivesUpAndNamesWhoHoldsIt) {
    const board on_board;
    const descriptor held = hold_lock(on_board);
    const std::string holder = ", process " + std::to_string(getpid());
    run_result run = run_tune(on_board, {"get", "--wait", "0", "mac"});
    EXPECT_EQ(run.err, "another instance works" + holder + "; nothing was done\n");
    EXPECT_EQ(run.status, 2);
    run = run_tune(on_board, {"get", "--wait", "0.6", "mac"});
    EXPECT_EQ(run.err, "waiting for another instance" + holder + "\nanother instance works" +
                           holder + "; nothing was done\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(on_board.accesses(), testing::IsEmpty());
}

TEST(TuneLock, IsWaitedForAsLongAsItTakes) {
    const board on_board;
    descriptor held = hold_lock(on_board);
    std::thread other([&] {
        std::this_thread::sleep_for(std::chrono::seconds(1));
        held.close();
    });
    const run_result run = run_tune(on_board, {"get", "mac-tx::delay"});
    other.join();
    EXPECT_EQ(run.out, "mac-tx::delay = 2\n");
    EXPECT_THAT(run.err, testing::StartsWith("waiting for another instance"));
    EXPECT_EQ(run.status, 0);
}

TEST(TuneLock, IsNotHeldByAnInstanceThatIsStopped) {
    for (const std::string command : {"get", "set"}) {
        const board on_board;
        const std::vector<std::string> words = {command,
                                                command == "set" ? "mac-tx::delay=4" : "mac"};
        program_start program = on_board.launch_bare(words, "signal mmap 1 SIGTSTP", "brisel-tune");
        program.leads_group = true;
        const descriptor null("/dev/null", O_RDWR);
        program.in = null;
        program.out = null;
        program.err = null;
        const pid_t process = start(program);
        siginfo_t info{};
        waitid(P_PID, static_cast<id_t>(process), &info, WSTOPPED | WEXITED | WNOWAIT);
        EXPECT_EQ(info.si_code, CLD_STOPPED);
        EXPECT_EQ(run_tune(on_board, {"get", "--wait", "0", "mac-rx::delay"}).status, 0);
        kill(process, SIGCONT);
        EXPECT_EQ(wait_for(process), 0);
    }
}

TEST(TuneLock, KeepsTwoHundredInstancesApart) {
    const board on_board(board_setup().word(0x1842813c, 8, 0));
    const descriptor null("/dev/null", O_RDWR);
    const std::string file = on_board.path("/tmp/tuning");
    write_text(file, lanes + " = {1,2,3,4,5,6,7,8}\n");
    std::vector<pid_t> runs;
    for (int i = 0; i < 200; ++i) {
        program_start program = i % 2 == 0
                                    ? on_board.launch_bare({"orlin-ddra1::scl", "+1"}, "")
                                    : on_board.launch_bare({"apply", file}, "", "brisel-tune");
        program.in = null;
        program.out = null;
        program.err = null;
        runs.push_back(start(program));
    }
    for (const pid_t run : runs) {
        EXPECT_EQ(wait_for(run), 0);
    }
    EXPECT_EQ(run_tune(on_board, {"get", "orlin-ddra1::scl"}).out,
              "orlin-ddra1::scl = 0x00000064\n");
    EXPECT_EQ(run_tune(on_board, {"diff", tuning_file}, lanes + " = {1,2,3,4,5,6,7,8}").out, "");
}

} // namespace tune_instances_test

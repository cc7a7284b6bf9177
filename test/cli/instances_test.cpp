#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <stdexcept>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "cli/board.hpp"
#include "cli/texts.hpp"
#include "model/text.hpp"

// Several instances at a time, and the lock that keeps them apart.

using testing::ElementsAre;
using testing::IsEmpty;

namespace instances_test {

const std::string lock_opened = "open /tmp/brisel.lock rw";

std::ptrdiff_t count(const std::vector<std::string>& lines, const std::string& line) {
    return std::count(lines.begin(), lines.end(), line);
}

/** Waits until the trace has this many lines like that. */
void wait_for_lines(const board& on_board, const std::string& line, std::ptrdiff_t number) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(100);
    while (count(on_board.trace(), line) < number) {
        if (std::chrono::steady_clock::now() > deadline) {
            throw std::runtime_error("no run came to: " + line);
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

/** An instance in the background, with its standard error on a file of the board's folder. */
pid_t start_in_background(const board& on_board, program_start program) {
    const descriptor null("/dev/null", O_RDWR);
    const descriptor err(on_board.path("/tmp/messages"), O_WRONLY | O_CREAT | O_APPEND);
    program.in = null;
    program.out = null;
    program.err = err;
    return start(program);
}

/** The lock, as another program holds it. */
descriptor hold_lock(const board& on_board, int kind) {
    descriptor held(on_board.path(lock_file), O_RDWR | O_CREAT);
    if (flock(held, kind) != 0) {
        throw std::runtime_error("a lock of the test's own is not free");
    }
    return held;
}

class InstancesWait : public testing::TestWithParam<int> {};

TEST_P(InstancesWait, ForAnyLockOfAnotherProgram) {
    const board on_board(board_setup().word(0x10090110, 0x3));
    descriptor held = hold_lock(on_board, GetParam());
    const pid_t run = start_in_background(on_board, on_board.launch({sda, "5"}));
    wait_for_lines(on_board, lock_opened, 1);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_EQ(on_board.trace().back(), lock_opened);
    held.close();
    EXPECT_EQ(wait_for(run), 0);
    EXPECT_EQ(on_board.file("/tmp/messages"), set_done(sda, "5"));
}

INSTANTIATE_TEST_SUITE_P(OfBothKinds, InstancesWait, testing::Values(LOCK_EX, LOCK_SH));

TEST(Instances, OneThatWaitsCanBeEndedAndHasTouchedNothing) {
    const board on_board;
    const descriptor held = hold_lock(on_board, LOCK_EX);
    const pid_t run = start_in_background(on_board, on_board.launch({sda, "5"}));
    wait_for_lines(on_board, lock_opened, 1);
    kill(run, SIGTERM);
    EXPECT_EQ(wait_for(run), -SIGTERM);
    EXPECT_THAT(on_board.accesses(), IsEmpty());
    EXPECT_EQ(on_board.file("/tmp/messages"), "");
}

TEST(Instances, OneThatIsKilledLeavesTheLockToTheNext) {
    const board on_board(board_setup().word(0x10090110, 0x3));
    // A regulator that does not answer holds an instance up behind the lock.
    const std::string voltage = on_board.path("/sys/class/regulator/regulator.1/microvolts");
    std::filesystem::remove(voltage);
    ASSERT_EQ(mkfifo(voltage.c_str(), 0600), 0);
    const pid_t holder =
        start_in_background(on_board, on_board.launch({"cpu_regulator::microvolts", "95%"}));
    wait_for_lines(on_board, "lock /tmp/brisel.lock", 1);
    const pid_t next = start_in_background(on_board, on_board.launch({sda, "5"}));
    wait_for_lines(on_board, lock_opened, 2);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_EQ(count(on_board.trace(), "lock /tmp/brisel.lock"), 1);
    EXPECT_THAT(on_board.accesses(), IsEmpty());

    kill(holder, SIGKILL);
    EXPECT_EQ(wait_for(holder), -SIGKILL);
    EXPECT_EQ(wait_for(next), 0);
    EXPECT_EQ(on_board.file("/tmp/messages"), set_done(sda, "5"));
    EXPECT_THAT(on_board.accesses(),
                ElementsAre("read 0x10090110 0x00000003", "write 0x10090110 0x00000005",
                            "read 0x10090110 0x00000005"));
}

TEST(Instances, AHundredStepsAtOnceOnOneFieldLoseNone) {
    const board on_board(board_setup().word(0x1842813c, 0x008, 0));
    descriptor held = hold_lock(on_board, LOCK_EX);
    std::vector<pid_t> runs(100);
    for (pid_t& run : runs) {
        run = start_in_background(on_board, on_board.launch_bare({"orlin-ddra1::scl", "+1"}, ""));
    }
    wait_for_lines(on_board, lock_opened, 100);
    held.close();
    for (const pid_t run : runs) {
        EXPECT_EQ(wait_for(run), 0);
    }
    std::vector<std::string> accesses;
    std::string messages;
    for (std::uint32_t value = 0; value < 100; ++value) {
        const std::string select = "write 0x1842812c 0x00000008";
        const std::string before = "0x1842813c " + hex_text(value);
        const std::string after = "0x1842813c " + hex_text(value + 1);
        accesses.insert(accesses.end(), {select, "read " + before, select, "write " + after, select,
                                         "read " + after});
        messages += set_done("orlin-ddra1::scl", "+1");
    }
    EXPECT_EQ(on_board.accesses(), accesses);
    EXPECT_EQ(on_board.file("/tmp/messages"), messages);
    EXPECT_EQ(on_board.run({"orlin-ddra1::scl"}).out, "100\n");
}

} // namespace instances_test

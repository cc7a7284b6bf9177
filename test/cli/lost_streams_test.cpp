#include <csignal>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include "cli/streams.hpp"
#include "cli/texts.hpp"

// Standard streams that are closed, full, or not read: what is said is lost, what is done is not.

using testing::ElementsAre;

namespace lost_streams_test {

/** A board, and a run on it with some streams on a device in place of a file, or closed. */
class LostStream : public testing::TestWithParam<const char*> {
protected:
    /** Runs with standard output or standard error lost, the other in the file "/tmp/other". */
    int run_without(int lost, const std::vector<std::string>& args) const {
        const descriptor in("/dev/null", O_RDONLY);
        const descriptor other(on_board.path("/tmp/other"), O_WRONLY | O_CREAT | O_TRUNC);
        program_start program = on_board.launch(args);
        program.in = in;
        if (std::string(GetParam()).empty()) {
            (lost == STDOUT_FILENO ? program.err : program.out) = other;
            return wait_for(start(program));
        }
        const descriptor device(GetParam(), O_WRONLY);
        program.out = lost == STDOUT_FILENO ? device : other;
        program.err = lost == STDOUT_FILENO ? other : device;
        return wait_for(start(program));
    }

    std::optional<std::string> other() const { return on_board.file("/tmp/other"); }

    const std::vector<std::string> sda_is_read = {"read 0x10090110 0x00000003"};
    const std::vector<std::string> sda_is_written = {
        "read 0x10090110 0x00000003", "write 0x10090110 0x00000005", "read 0x10090110 0x00000005"};
    const board on_board{board_setup().word(0x10090110, 0x3)};
};

TEST_P(LostStream, OutputOfAReadLeavesItsStatusLine) {
    EXPECT_EQ(run_without(STDOUT_FILENO, {sda}), 0);
    EXPECT_EQ(other(), got(sda, "3"));
    EXPECT_EQ(on_board.accesses(), sda_is_read);
    EXPECT_EQ(on_board.trace().back(), "unlock /tmp/brisel.lock");
}

TEST_P(LostStream, ErrorsOfAReadLeaveItsValue) {
    EXPECT_EQ(run_without(STDERR_FILENO, {sda}), 0);
    EXPECT_EQ(other(), "3\n");
    EXPECT_EQ(on_board.accesses(), sda_is_read);
}

TEST_P(LostStream, OutputOfAWriteMattersToNothing) {
    EXPECT_EQ(run_without(STDOUT_FILENO, {sda, "5"}), 0);
    EXPECT_EQ(other(), set_done(sda, "5"));
    EXPECT_EQ(on_board.accesses(), sda_is_written);
}

TEST_P(LostStream, ErrorsOfAWriteTakeNothingFromIt) {
    EXPECT_EQ(run_without(STDERR_FILENO, {sda, "5"}), 0);
    EXPECT_EQ(other(), "");
    EXPECT_EQ(on_board.accesses(), sda_is_written);
}

TEST_P(LostStream, OutputOfTheOtherActionsChangesNoStatus) {
    EXPECT_EQ(run_without(STDOUT_FILENO, {"-l"}), 0);
    EXPECT_EQ(run_without(STDOUT_FILENO, {"-h"}), 254);
    EXPECT_EQ(run_without(STDOUT_FILENO, {"-i"}), 253);
    EXPECT_EQ(run_without(STDOUT_FILENO, {"-r", sda}), 0);
    EXPECT_EQ(other(), "");
}

TEST_P(LostStream, ErrorsChangeNoStatusOfAFailure) {
    EXPECT_EQ(run_without(STDERR_FILENO, {sda, "16"}), 245);
    EXPECT_EQ(run_without(STDERR_FILENO, {sda, "abc"}), 245);
    EXPECT_EQ(run_without(STDERR_FILENO, {"no::such"}), 0);
    EXPECT_EQ(other(), "");
}

INSTANTIATE_TEST_SUITE_P(ThatIsClosed, LostStream, testing::Values(""));
INSTANTIATE_TEST_SUITE_P(OnAFullDevice, LostStream, testing::Values("/dev/full"));

TEST(AllStreamsClosed, TakeNothingFromAWrite) {
    const board on_board(board_setup().word(0x10090110, 0x3));
    EXPECT_EQ(wait_for(start(on_board.launch({sda, "5"}))), 0);
    EXPECT_THAT(on_board.accesses(),
                ElementsAre("read 0x10090110 0x00000003", "write 0x10090110 0x00000005",
                            "read 0x10090110 0x00000005"));
}

// The lock file, opened first, takes the number of a stream that is closed.
TEST(ClosedStreams, DoNotMakeTheLockFileTakeWhatIsSaid) {
    for (const bool out_is_closed : {false, true}) {
        const board on_board;
        const descriptor null("/dev/null", O_RDWR);
        program_start program = on_board.launch({sda});
        program.in = null;
        (out_is_closed ? program.err : program.out) = null;
        EXPECT_EQ(wait_for(start(program)), 0);
        EXPECT_EQ(on_board.file(lock_file), "");
    }
}

TEST(PipeWithoutAReader, EndsTheRunWhereItFirstHasSomethingToSay) {
    const board on_board(board_setup().word(0x10090110, 0x3));
    EXPECT_EQ(run_without_readers(on_board.launch({"-l"})), -SIGPIPE);
    EXPECT_EQ(run_without_readers(on_board.launch({sda, "5"})), -SIGPIPE);
    EXPECT_THAT(on_board.accesses(),
                ElementsAre("read 0x10090110 0x00000003", "write 0x10090110 0x00000005",
                            "read 0x10090110 0x00000005"));
    EXPECT_EQ(on_board.run({sda}).out, "5\n"); // and leaves no lock behind
}

} // namespace lost_streams_test

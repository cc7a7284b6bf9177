#include <algorithm>
#include <csignal>
#include <ostream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>

#include "cli/streams.hpp"
#include "cli/texts.hpp"

// What arrives where standard output and standard error lead, and in which order.

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string sda = "i2c0-delay::sda-delay";
const std::string lock_file = "/tmp/brisel.lock";

board_setup sda_is_3() {
    return board_setup().word(0x10090110, 0x3);
}

struct stream_case {
    std::string name;
    std::vector<std::string> args;
    board_setup setup;
    std::vector<std::string> lines; ///< of both streams, in order, without their line breaks
    int status;
};

void PrintTo(const stream_case& row, std::ostream* out) {
    *out << row.name;
}

std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < text.size(); begin = text.find('\n', begin) + 1) {
        lines.push_back(text.substr(begin, text.find('\n', begin) - begin));
    }
    return lines;
}

std::string trimmed(std::string line) {
    return line.substr(0, line.size() - 1);
}

const std::vector<stream_case> rows = {
    {"ValueComesBeforeItsStatusLine", {sda}, sda_is_3(), {"3", trimmed(got(sda, "3"))}, 0},
    {"RawValueComesAlone", {"-r", sda}, sda_is_3(), {"3"}, 0},
    {"StatusLineOfAWriteComesAlone", {sda, "9"}, sda_is_3(), {trimmed(set_done(sda, "9"))}, 0},
    {"EmptyLineOfAFailedReadComesBeforeItsStatusLine",
     {"orlin-ddra::odt"},
     board_setup().word(0x18428120, 3),
     {"", trimmed(get_failed("orlin-ddra::odt"))},
     246},
    {"WarningComesBeforeTheStatusLine",
     {sda, "+20"},
     sda_is_3(),
     {"warning! applying 20 to current value 3 is out of range (0 ~ 15). adjusted to 15",
      trimmed(set_done(sda, "+20"))},
     0},
    {"MessageOfStartUpComesBeforeTheUsage",
     {"-h"},
     board_setup().fault("no-open /sys/kernel/debug/mmc0/rdqs"),
     lines_of("open /sys/kernel/debug/mmc0/rdqs failed.\n" + usage),
     254},
    {"NumberOfTheOperandComesBeforeTheUsage", {"-x"}, {}, lines_of("..2\n" + usage), 0},
    {"ReasonThatTheNodeIsMissingComesAlone",
     {sda},
     board_setup().fault("no-open /dev/zeb_mem"),
     {"open /dev/zeb_mem for address 0x10090110 failed: No such file or directory"},
     aborted},
};

class Streams : public testing::TestWithParam<stream_case> {};

TEST_P(Streams, OnOnePipeGetOneWritePerLineInOrder) {
    const board on_board(GetParam().setup);
    const stream_result run = run_into_pipe(on_board.launch(GetParam().args));
    std::vector<std::string> lines = GetParam().lines;
    std::for_each(lines.begin(), lines.end(), [](std::string& line) { line += '\n'; });
    EXPECT_THAT(run.parts, testing::ElementsAreArray(lines));
    EXPECT_EQ(run.status, GetParam().status);
}

TEST_P(Streams, InATerminalGetTheSameLinesInTheSameOrder) {
    const board on_board(GetParam().setup);
    const stream_result run = run_in_terminal(on_board.launch(GetParam().args));
    std::string text;
    for (const std::string& line : GetParam().lines) {
        text += line + "\r\n";
    }
    EXPECT_EQ(run.text(), text);
    EXPECT_EQ(run.status, GetParam().status);
}

std::string name_of(const testing::TestParamInfo<stream_case>& row) {
    return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(Where, Streams, testing::ValuesIn(rows), name_of);

TEST(List, IsTheSameInAPipeInATerminalAndInAFile) {
    const board on_board;
    const run_result in_file = on_board.run({"-l"});
    const stream_result in_pipe = run_into_pipe(on_board.launch({"-l"}));
    EXPECT_EQ(in_pipe.text(), in_file.out);
    for (const std::string& line : in_pipe.parts) {
        EXPECT_EQ(line.find('\n'), line.size() - 1) << "not one write per line: " << line;
    }
    std::string in_terminal = run_in_terminal(on_board.launch({"-l"})).text();
    in_terminal.erase(std::remove(in_terminal.begin(), in_terminal.end(), '\r'), in_terminal.end());
    EXPECT_EQ(in_terminal, in_file.out);
}

} // namespace

#include "cli/streams.hpp"

#include <ostream>

#include <gtest/gtest.h>

#include "cli/texts.hpp"

// What arrives where standard output and standard error lead, and in which order.

namespace streams_test {

board_setup sda_is_3() {
    return board_setup().word(0x10090110, 0x3);
}

struct stream_case {
    std::string name;
    std::vector<std::string> args;
    board_setup setup;
    std::string text; ///< of both streams, in order
    int status;
};

void PrintTo(const stream_case& row, std::ostream* out) {
    *out << row.name;
}

const std::vector<stream_case> rows = {
    {"ValueComesBeforeItsStatusLine", {sda}, sda_is_3(), "3\n" + got(sda, "3"), 0},
    {"RawValueComesAlone", {"-r", sda}, sda_is_3(), "3\n", 0},
    {"StatusLineOfAWriteComesAlone", {sda, "9"}, sda_is_3(), set_done(sda, "9"), 0},
    {"EmptyLineOfAFailedReadComesBeforeItsStatusLine",
     {"orlin-ddra::odt"},
     board_setup().word(0x18428120, 3),
     "\n" + get_failed("orlin-ddra::odt"),
     246},
    {"WarningComesBeforeTheStatusLine",
     {sda, "+20"},
     sda_is_3(),
     warning("20", "3", "15", "15") + set_done(sda, "+20"),
     0},
    {"MessageOfStartUpComesBeforeTheUsage",
     {"-h"},
     board_setup().fault("no-open /sys/kernel/debug/mmc0/rdqs"),
     "open /sys/kernel/debug/mmc0/rdqs failed.\n" + usage,
     254},
    {"NumberOfTheOperandComesBeforeTheUsage", {"-x"}, {}, "..2\n" + usage, 0},
    {"ReasonThatTheNodeIsMissingComesAlone",
     {sda},
     board_setup().fault("no-open /dev/zeb_mem"),
     "open /dev/zeb_mem for address 0x10090110 failed: No such file or directory\n",
     aborted},
};

/** The lines of a text, each with its line break. */
std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t end = 0;
    for (std::size_t begin = 0; begin < text.size(); begin = end) {
        end = text.find('\n', begin) + 1;
        lines.push_back(text.substr(begin, end - begin));
    }
    return lines;
}

/** What a terminal shows of it: every line break takes the cursor to the left, too. */
std::string in_terminal(std::string text) {
    for (std::size_t end = 0; (end = text.find('\n', end)) != std::string::npos; end += 2) {
        text.insert(end, 1, '\r');
    }
    return text;
}

class Streams : public testing::TestWithParam<stream_case> {};

TEST_P(Streams, OnOnePipeGetOneWritePerLineInOrder) {
    const board on_board(GetParam().setup);
    const stream_result run = run_into_pipe(on_board.launch(GetParam().args));
    EXPECT_EQ(run.parts, lines_of(GetParam().text));
    EXPECT_EQ(run.status, GetParam().status);
}

TEST_P(Streams, InATerminalGetTheSameLinesInTheSameOrder) {
    const board on_board(GetParam().setup);
    const auto run = run_in_terminal(on_board.launch(GetParam().args));
    if (!run) {
        GTEST_SKIP() << no_terminal;
    }
    EXPECT_EQ(run->text(), in_terminal(GetParam().text));
    EXPECT_EQ(run->status, GetParam().status);
}

std::string name_of(const testing::TestParamInfo<stream_case>& row) {
    return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(Where, Streams, testing::ValuesIn(rows), name_of);

TEST(List, IsTheSameInAFileAndInAPipe) {
    const board on_board;
    const std::string list = on_board.run({"-l"}).out;
    EXPECT_EQ(run_into_pipe(on_board.launch({"-l"})).parts, lines_of(list));
}

TEST(List, IsTheSameInATerminal) {
    const board on_board;
    const auto run = run_in_terminal(on_board.launch({"-l"}));
    if (!run) {
        GTEST_SKIP() << no_terminal;
    }
    EXPECT_EQ(run->text(), in_terminal(on_board.run({"-l"}).out));
}

} // namespace streams_test

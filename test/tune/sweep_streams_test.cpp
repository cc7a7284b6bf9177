#include <array>
#include <csignal>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "cli/streams.hpp"
#include "tune/swept_board.hpp"

// The log of a sweep, to wherever it goes, and what is said beside it.

namespace sweep_streams_test {

using namespace swept_boards;

using testing::ContainsRegex;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST(SweepLogOnABoard, MayBeReadFromStandardInput) {
    const swept_board b;
    EXPECT_EQ(b.begin({delay + "=2..4", "--", "true"}).status, 0);
    const std::string log = b.log();
    const std::size_t cut = log.find("try " + delay + "=4") + 3;
    write_text(b.log_file(), log.substr(0, cut));
    program_start program =
        b.on_board().launch_bare({"sweep", "--lead=0", "--continue", "-"}, "", "brisel-tune");
    const descriptor in(b.log_file(), O_RDONLY);
    const std::string rest = b.on_board().path("/tmp/rest");
    const descriptor out(rest, O_WRONLY | O_CREAT);
    const descriptor err("/dev/null", O_WRONLY);
    program.in = in;
    program.out = out;
    program.err = err;
    EXPECT_EQ(wait_for(start(program)), 0);
    EXPECT_THAT(text_of(rest), StartsWith(" <cut>\nsession "));
    EXPECT_THAT(text_of(rest), HasSubstr("try " + delay + "=4\npass"));
    EXPECT_THAT(text_of(rest), testing::Not(HasSubstr("=3")));
}

TEST(SweepLogOnABoard, ThatHasNotLeftTheBoardIsNotFollowedByItsPoint) {
    const swept_board b;
    program_start program = b.on_board().launch_bare(
        {"sweep", "--lead=1000", delay + "=3", "--", "true"}, "", "brisel-tune");
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    const descriptor log(ends[0]);
    const descriptor nothing("/dev/null", O_RDWR);
    program.in = nothing;
    program.out = ends[1];
    program.err = nothing;
    const pid_t process = start(program);
    close(ends[1]);
    std::string text;
    char c = 0;
    while (read(log, &c, 1) == 1) {
        text += c;
        if (text.ends_with("\ntry " + delay + "=3\n")) { // it waits a thousand seconds
            kill(process, SIGINT);
        }
    }
    EXPECT_EQ(wait_for(process), 1);
    EXPECT_THAT(text, ContainsRegex("=3\ninterrupted [0-9.]+ s\nend interrupted\n$"));
    EXPECT_THAT(b.on_board().accesses(), testing::Each(StartsWith("read ")));
}

TEST(SweepLogOnABoard, ThatIsLostEndsItWithAllAsBefore) {
    const swept_board b;
    program_start program =
        b.on_board().launch_bare({"sweep", delay, "--", "true"}, "", "brisel-tune");
    const descriptor full("/dev/full", O_WRONLY);
    const std::string said = b.on_board().path("/tmp/said");
    const descriptor err(said, O_WRONLY | O_CREAT);
    program.in = full;
    program.out = full;
    program.err = err;
    EXPECT_EQ(wait_for(start(program)), 2);
    EXPECT_THAT(text_of(said), HasSubstr("standard output: No space left on device\n"));
    EXPECT_EQ(b.held(delay), delay + " = 2\n");
}

TEST(SweepLogOnABoard, ThatIsLostDoesNotHideWhatIsNotPutBack) {
    const swept_board b;
    const std::string wait = "while [ ! -e $BRISEL_BOARD/gone ]; do sleep 0.01; done";
    program_start program = b.on_board().launch_bare(
        {"sweep", "--lead=0", delay + "=3", "--", "sh", "-c", wait}, "fail mmap 6+", "brisel-tune");
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    descriptor reader(ends[0]);
    descriptor writer(ends[1]);
    const std::string said = b.on_board().path("/tmp/said");
    const descriptor err(said, O_WRONLY | O_CREAT);
    program.in = err;
    program.out = writer;
    program.err = err;
    const pid_t process = start(program);
    writer.close();
    std::string log;
    for (char c = 0; !testing::Value(log, HasSubstr("\ntry ")) && read(reader, &c, 1) == 1;) {
        log += c;
    }
    reader.close();
    write_text(b.on_board().path("/../gone"), "");
    EXPECT_EQ(wait_for(process), 2);
    EXPECT_THAT(text_of(said), HasSubstr("not everything could be put back:\n"));
    EXPECT_THAT(text_of(said), EndsWith("brisel-tune: standard output: Broken pipe\n"));
}

TEST(SweepOnATerminal, ShowsHowFarItIs) {
    const swept_board b;
    program_start program = b.on_board().launch_bare(
        {"sweep", "-o", b.log_file(), delay + "=2..3", "--", "true"}, "", "brisel-tune");
    for (const char* const variable : {"LANG", "LC_ALL", "LC_CTYPE"}) {
        program.environment.emplace_back(variable, "C");
    }
    program.environment.insert(program.environment.end(),
                               {{"COLUMNS", "80"}, {"NO_COLOR", "1"}, {"TERM", "vt100"}});
    const auto shown = run_in_terminal(program);
    if (!shown) {
        GTEST_SKIP() << no_terminal;
    }
    EXPECT_THAT(shown->text(), EndsWith("on /\r\n\r\033[Kdelay .. 2, 0 done, nothing passes, 0:00"
                                        "\r\033[Kdelay *. 3, 1 done, 2 pass, 0:00, up to 0:00 left"
                                        "\r\033[Kdelay ** 2 to 3 pass, 2 points tried\r\n"));
    // Where picture and words have no room, the words alone are shown.
    program.words[3] += "-in-20-columns";
    program.environment[program.environment.size() - 3].second = "20";
    EXPECT_THAT(run_in_terminal(program)->text(),
                EndsWith("\r\033[Kdelay 2 to 3 pass, 2 points tried\r\n"));
    // Of two axes the row's value stands for it.
    program.words[3] += "-of-two-axes";
    program.environment[program.environment.size() - 3].second = "80";
    program.words.insert(program.words.begin() + 5, "mac-rx::delay=5");
    EXPECT_THAT(run_in_terminal(program)->text(),
                EndsWith("\r\033[K5 ** 2 to 3 pass, 2 points tried\r\n"));
    program.words.erase(program.words.begin() + 5);
    // What is said otherwise stands in a line of its own.
    program.words[3] += "-interrupted";
    program.words.back() = "false";
    EXPECT_THAT(run_in_terminal(program)->text(),
                HasSubstr("nothing passes, 0:00\r\nbrisel-tune: unsound: "));
    program.words.back() = "true";
    // Where no line can be written over, each row has one.
    program.words[3] += "-of-dumb";
    program.environment.back().second = "dumb";
    EXPECT_THAT(run_in_terminal(program)->text(),
                EndsWith("on /\r\nbrisel-tune: mac-tx::delay: 2 to 3 pass, 2 points tried\r\n"));
}

TEST(SweepOnATerminal, HasItsLogElsewhere) {
    const swept_board b;
    const auto shown = run_in_terminal(
        b.on_board().launch_bare({"sweep", delay, "--", "true"}, "", "brisel-tune"));
    if (!shown) {
        GTEST_SKIP() << no_terminal;
    }
    EXPECT_EQ(shown->status, 2);
    EXPECT_EQ(shown->text(), "brisel-tune: the log goes to a file, -o FILE, or into a pipe: not to "
                             "a terminal\r\n");
}

TEST(SweepLogOnABoard, LeavesTheBoardBeforeAPointIsTried) {
    const swept_board b;
    const run_result run = b.on_board().capture(b.on_board().launch_bare(
        {"sweep", "--lead=0.01", delay + "=3", "--", "true"}, "", "brisel-tune"));
    EXPECT_EQ(run.status, 0);
    program_start program = b.on_board().launch_bare(
        {"sweep", "--lead=0.01", delay + "=3", "--", "true"}, "", "brisel-tune");
    const stream_result piped = run_into_pipe(std::move(program));
    EXPECT_EQ(piped.status, 0);
    EXPECT_THAT(piped.text(), HasSubstr("try " + delay + "=3\npass"));
}

TEST(SweepLogOnABoard, TakesNoAxesBesideALog) {
    const swept_board b;
    EXPECT_EQ(b.begin({delay + "=2", "--", "true"}).status, 0);
    const std::string err = "--continue takes a log, and axes, COMMAND, -o and the other options "
                            "from it\n";
    EXPECT_EQ(b.go_on({delay}).err, err);
    EXPECT_EQ(b.go_on({"--", "true"}).err, err);
    EXPECT_EQ(b.go_on({"-o", "x"}).err, err);
    EXPECT_EQ(b.go_on({"--repeat=2"}).err, err);
    EXPECT_EQ(run_tune(b.on_board(), {"sweep", "-o", "/no/log", delay, "--", "true"}).err,
              "/no/log: No such file or directory\n");
    EXPECT_EQ(run_tune(b.on_board(), {"sweep", "--continue", "/no/log"}).err,
              "/no/log: No such file or directory\n");
}

} // namespace sweep_streams_test

#include "cli/streams.hpp"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>

#include "catalogue/table.hpp"
#include "cli/texts.hpp"
#include "support/text_file.hpp"
#include "tune/tune_case.hpp"

// Standard output that is closed, full or not read: a result that nobody gets is an error.

namespace tune_streams_test {

/** Runs with this as standard output; says what comes on standard error. */
std::string messages_with(const board& on_board, program_start program, int out, int status) {
    const descriptor err(on_board.path("/tmp/messages"), O_WRONLY | O_CREAT | O_TRUNC);
    program.out = out;
    program.err = err;
    EXPECT_EQ(wait_for(start(program)), status);
    return on_board.file("/tmp/messages").value_or("");
}

TEST(TuneOutput, ThatIsLostIsAnError) {
    const board on_board;
    const program_start get = on_board.launch({"get", "mac"}, "brisel-tune");
    EXPECT_EQ(messages_with(on_board, get, -1, 2), "brisel-tune: standard output is closed\n");
    EXPECT_THAT(on_board.accesses(), testing::IsEmpty());
    const descriptor full("/dev/full", O_WRONLY);
    EXPECT_EQ(messages_with(on_board, get, full, 2),
              "brisel-tune: standard output: No space left on device\n");
    EXPECT_EQ(messages_with(on_board, on_board.launch({"list"}, "brisel-tune"), full, 2),
              "brisel-tune: standard output: No space left on device\n");
    EXPECT_EQ(run_without_readers(get), 2);
    const program_start set = on_board.launch({"set", "mac-tx::delay=4"}, "brisel-tune");
    EXPECT_EQ(messages_with(on_board, set, full, 2),
              "brisel-tune: standard output: No space left on device; all was set\n");
    write_text(on_board.path("/tmp/tuning"), "mac-tx::delay = 5\n");
    const program_start dry_run =
        on_board.launch({"apply", "-n", on_board.path("/tmp/tuning")}, "brisel-tune");
    EXPECT_EQ(messages_with(on_board, dry_run, full, 2),
              "brisel-tune: standard output: No space left on device\n");
}

const char* const help_text = R"(brisel-tune COMMAND [ARGUMENT...]

  list [--json] [NAME...]           what can be tuned, and within which limits
  get NAME...                       present values
  set NAME=VALUE...                 sets all of these, or none
  save [-o FILE] NAME... | --all    notes a tuning
  diff FILE [FILE]                  compares a tuning with the board, or with another one
  sweep AXIS [AXIS] -- COMMAND...   runs COMMAND at each value of one or two knobs
  best LOG...                       the middle of each lane's widest window, as a tuning
  plot [-o FILE] LOG...             draws the eye of a sweep; into FILE.svg or FILE.html
  restore [--force] LOG             puts back what a sweep found
  apply [-n] FILE                   sets what differs, or nothing; -n shows what it would set

  --wait SECONDS   how long to wait for another instance (default: as long as it takes)
  -h, --help       this text
  --version        the version

of sweep:
  -o LOG           the log, a new file (default: standard output, but no terminal)
  --continue LOG   goes on with a log; --retry-hangs tries again what hung
  --all            every point; or else a side ends after --stop N (3) that do not pass, or a hang
  --together       a set of lanes is one axis: offsets to the present delays
  --repeat N       runs of COMMAND at each point, all of which have to pass
  --timeout S      seconds after which COMMAND is ended
  --settle S       seconds to wait after setting a value
  --lead S         seconds that a line of the log needs to leave the board through a pipe (1)
  --no-control     does not run COMMAND again at the values before after a point that did not pass

NAME is a property, a group, or a pattern such as 'i2c*'. VALUE is a number, d+N or d-N for the delay of
a DQ lane, raw:N for a code that stands for no value, or {V,...} for a set. FILE may be -, for standard
input. Exit status: 0 done; 1 a difference, a value that cannot be read, all put back, or a sweep that
ended early or found no pass; 2 a mistake.
)";

TEST(TuneOutput, OfTheHelpIsThisText) {
    const board on_board;
    for (const char* option : {"-h", "--help"}) {
        const run_result run = run_tune(on_board, {option});
        EXPECT_EQ(run.out, help_text);
        EXPECT_EQ(run.status, 0);
    }
    EXPECT_EQ(run_tune(on_board, {"--version"}).out, "brisel-tune " BRISEL_VERSION "\n");
}

TEST(TuneOutput, OfNobodyGoesIntoNoFile) {
    const board on_board;
    const descriptor null("/dev/null", O_RDWR);
    // It says something while it holds the lock.
    program_start program = on_board.launch({"save", "--all"}, "brisel-tune");
    program.in = null;
    program.out = null;
    EXPECT_EQ(wait_for(start(program)), 0);
    EXPECT_EQ(on_board.file(lock_file), "");
}

TEST(TuneOutput, ListsAsManyPropertiesAsBrisel) {
    const board on_board;
    const std::string table = run_tune(on_board, {"list"}).out;
    const auto lines = static_cast<std::size_t>(std::count(table.begin(), table.end(), '\n'));
    EXPECT_EQ(lines, every_property().size() + 1); // and the headings
}

} // namespace tune_streams_test

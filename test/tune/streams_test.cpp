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

TEST(TuneOutput, OfTheHelpNamesEveryCommand) {
    const board on_board;
    for (const char* option : {"-h", "--help"}) {
        const run_result run = run_tune(on_board, {option});
        for (const char* command : {"list", "get", "set", "save", "diff", "apply"}) {
            EXPECT_THAT(run.out, testing::HasSubstr("\n  " + std::string(command) + " "));
        }
        EXPECT_EQ(run.status, 0);
    }
    EXPECT_EQ(run_tune(on_board, {"--version"}).out, "brisel-tune " BRISEL_VERSION "\n");
}

TEST(TuneOutput, ListsAsManyPropertiesAsBrisel) {
    const board on_board;
    const std::string table = run_tune(on_board, {"list"}).out;
    const auto lines = static_cast<std::size_t>(std::count(table.begin(), table.end(), '\n'));
    EXPECT_EQ(lines, every_property().size() + 1); // and the headings
}

} // namespace tune_streams_test

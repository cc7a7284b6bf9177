#include <gtest/gtest.h>

#include <fcntl.h>

#include "cli/cli_case.hpp"
#include "cli/texts.hpp"
#include "support/temp_dir.hpp"
#include "support/text_file.hpp"

// Another language, and another decimal point, change nothing.

namespace locale_test {

const std::string cpu = "cpu_regulator::microvolts";
const std::string voltage = "/sys/class/regulator/regulator.1/microvolts";

using variables = std::vector<std::pair<std::string, std::string>>;

/** What differs, or would, where a comma is the decimal point, texts are German, or are UTF-8. */
const std::vector<cli_case> rows = {
    {.name = "PointInAPercentage",
     .args = {cpu, "104.1%"},
     .err = set_done(cpu, "104.1%"),
     .files = {{voltage, "1050000"}}},
    {.name = "CommaEndsAPercentage",
     .args = {cpu, "104,9%"},
     .err = set_done(cpu, "104,9%"),
     .files = {{voltage, "1040000"}}},
    {.name = "PointInAVoltage",
     .args = {cpu, "1000000.5"},
     .err = set_done(cpu, "1000000.5"),
     .files = {{voltage, "1010000"}}},
    {.name = "PercentageOutOfRangeIsShownWithAPoint",
     .args = {cpu, "92.5%"},
     .err = "percentage 92.5%: out of range\n" + set_failed(cpu, "92.5%"),
     .status = 245,
     .files = {{voltage, "1000000\n"}}},
    {.name = "VoltageOutOfRangeIsShownWithoutGroups",
     .args = {cpu, "2000000"},
     .err = "2000000mv: out of range(800000-1300000)\n" + set_failed(cpu, "2000000"),
     .status = 245},
    {.name = "LargeValueIsShownWithoutGroups",
     .args = {"orlin-ddra1::scl"},
     .board = board_setup().word(0x1842813c, 0x008, 1234567890),
     .out = "1234567890\n",
     .err = got("orlin-ddra1::scl", "1234567890")},
    {.name = "ReasonIsTheUsualOne",
     .args = {sda},
     .board = board_setup().fault("no-open /dev/zeb_mem EACCES"),
     .err = "open /dev/zeb_mem for address 0x10090110 failed: Permission denied\n",
     .status = aborted},
    {.name = "LettersOfSeveralBytesAreShownAsTheyCame",
     .args = {sda, "für 5"},
     .err = "failed to parse value für 5\n" + set_failed(sda, "für 5"),
     .status = 245},
};

void expect_rows_in(const variables& locale, const std::vector<cli_case>& table) {
    for (const cli_case& row : table) {
        SCOPED_TRACE(row.name);
        const board on_board(row.board);
        program_start program = on_board.launch(row.args);
        program.environment.insert(program.environment.end(), locale.begin(), locale.end());
        const run_result result = on_board.capture(program);
        EXPECT_EQ(result.out, row.out);
        EXPECT_EQ(result.err, row.err);
        EXPECT_EQ(result.status, row.status);
        for (const auto& [path, text] : row.files) {
            EXPECT_EQ(on_board.file(path), text) << path;
        }
    }
}

/** Runs another program, its output into a file. */
int run(const std::vector<std::string>& words, const variables& environment,
        const std::string& output) {
    const descriptor null("/dev/null", O_RDWR);
    const descriptor out(output, O_WRONLY | O_CREAT | O_TRUNC);
    return wait_for(start({words, environment, null, out, null}));
}

TEST(Locale, OfTheBoardIsUsuallyCAndMakesNoDifference) {
    expect_rows_in({{"LC_ALL", "C"}}, rows);
}

TEST(Locale, OfUtf8MakesNoDifference) {
    expect_rows_in({{"LC_ALL", "C.UTF-8"}}, rows);
}

TEST(Locale, WithAnotherDecimalPointMakesNoDifference) {
    const temp_dir folder;
    ASSERT_EQ(run({"/usr/bin/localedef", "-i", "de_DE", "-f", "UTF-8", folder.file("de_DE.UTF-8")},
                  {}, folder.file("log")),
              0)
        << "the package locales is needed";
    const variables german = {{"LC_ALL", "de_DE.UTF-8"}, {"LOCPATH", folder.path().string()}};
    ASSERT_EQ(run({"/usr/bin/printf", "%.1f", "1,5"}, german, folder.file("number")), 0);
    ASSERT_EQ(text_of(folder.file("number")), "1,5") << "the locale has no effect";
    expect_rows_in(german, rows);
    expect_rows_in(german, regulator_cases);
}

} // namespace locale_test

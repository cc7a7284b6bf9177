#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/streams.hpp"
#include "tune/sweep_text.hpp"
#include "tune/swept_board.hpp"

// The program draws: what it draws is in the tests of its parts.

namespace plot_test {

using namespace sweep_texts;
using namespace swept_boards;

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class Plot : public testing::Test {
protected:
    Plot() {
        write_text(m_board.log_file(),
                   head_of(delay + " -- true", {delay + "=2"}) + row_of(delay + "=", 0, "x***x"));
    }

    run_result plot(std::vector<std::string> words) const {
        words.insert(words.begin(), "plot");
        return run_tune(m_board.on_board(), words);
    }

    /** The program with the log, and in its environment these variables. */
    program_start with(const std::vector<std::pair<std::string, std::string>>& environment) const {
        program_start program =
            m_board.on_board().launch_bare({"plot", m_board.log_file()}, "", "brisel-tune");
        program.environment.insert(program.environment.end(), environment.begin(),
                                   environment.end());
        return program;
    }

    const swept_board m_board;
};

TEST_F(Plot, TouchesNoHardware) {
    const run_result run = plot({m_board.log_file()});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.out, StartsWith(delay + ": true\n"));
    EXPECT_THAT(m_board.on_board().accesses(), IsEmpty());
}

TEST_F(Plot, IsOfTheCharactersOfTheLocale) {
    const std::vector<std::pair<std::string, std::string>> environment = {
        {"LC_ALL", "C.UTF-8"}, {"TERM", "vt100"}, {"NO_COLOR", ""}, {"COLUMNS", ""}};
    EXPECT_THAT(run_into_pipe(with(environment)).text(), HasSubstr("\ndelay ×███×···········  "));
}

TEST_F(Plot, HasTheWidthAndTheColorsOfItsTerminal) {
    std::vector<std::pair<std::string, std::string>> environment = {
        {"LC_ALL", "C"}, {"COLUMNS", ""}, {"TERM", "vt100"}, {"NO_COLOR", ""}};
    const auto shown = run_in_terminal(with(environment), 40);
    if (!shown) {
        GTEST_SKIP() << no_terminal;
    }
    EXPECT_THAT(shown->text(), HasSubstr("\r\n. not tried  * passed  x failed\r\n| present"));
    EXPECT_THAT(shown->text(), HasSubstr("\r\ndelay \033[0;31mx\033[0;32m***\033[0;31mx\033["));
    EXPECT_THAT(run_in_terminal(with(environment))->text(), HasSubstr(" present  ^ best  "));
    environment.back().second = "1";
    EXPECT_THAT(run_in_terminal(with(environment))->text(), Not(HasSubstr("\033")));
    environment.pop_back();
    environment.back().second = "";
    EXPECT_THAT(run_in_terminal(with(environment))->text(), Not(HasSubstr("\033")));
}

TEST_F(Plot, GoesToAFileAsThePictureThatItsNameSays) {
    const std::string svg = m_board.on_board().path("/tmp/eye.svg");
    const std::string page = m_board.on_board().path("/tmp/eye.html");
    EXPECT_EQ(plot({"-o", svg, m_board.log_file()}).status, 0);
    EXPECT_THAT(text_of(svg), StartsWith("<svg "));
    EXPECT_EQ(plot({"-o", page, m_board.log_file()}).out, "");
    EXPECT_THAT(text_of(page), StartsWith("<!DOCTYPE html>\n"));
}

TEST_F(Plot, RefusesOtherFiles) {
    const run_result other = plot({"-o", "eye.png", m_board.log_file()});
    EXPECT_EQ(other.status, 2);
    EXPECT_EQ(other.err, "-o takes FILE.svg or FILE.html, not 'eye.png'\n");
    EXPECT_EQ(plot({"-o", "/no/folder/eye.svg", m_board.log_file()}).err,
              "/no/folder/eye.svg: No such file or directory\n");
    EXPECT_EQ(plot({m_board.log_file(), "/no/log"}).err, "/no/log: No such file or directory\n");
    EXPECT_EQ(plot({}).err, "usage: brisel-tune plot [-o FILE] LOG...\n");
}

} // namespace plot_test

#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "targets/board_input.hpp"
#include "targets/driver_rules.hpp"
#include "targets/separate_process.hpp"

namespace fuzz {
namespace driver_rules_test {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/** What is found in a run on a board at power-on, after a test has changed what is seen of it. */
findings found_in(const std::vector<std::string>& words,
                  const std::function<void(driver_run&)>& change) {
    const board_input power_on("");
    const board_files files(power_on.files());
    return in_separate_process([&] {
        const memory_board board(power_on.model());
        invariant_checker checker(board, files);
        driver_run run = run_driver(words, files, true);
        change(run);
        check_run(run, true, checker);
        return checker.violations();
    });
}

const std::vector<std::string> read_odt = {"orlin-ddra::odt"};
const std::vector<std::string> write_odt = {"orlin-ddra::odt", "120"};

TEST(DriverRules, RunAsItIsIsRight) {
    for (const auto& words : {read_odt, write_odt, {"-l"}, {"-r", "mmc::rdqs"}, {}}) {
        EXPECT_THAT(found_in(words, [](driver_run&) {}), IsEmpty());
    }
}

TEST(DriverRules, StatusThatDoesNotBelongToTheActionIsFound) {
    EXPECT_THAT(found_in(read_odt, [](driver_run& run) { run.status = -2; }),
                ElementsAre(HasSubstr("status of a read")));
    EXPECT_THAT(found_in(write_odt, [](driver_run& run) { run.status = -10; }),
                ElementsAre(HasSubstr("status of a write")));
    EXPECT_THAT(found_in({"-l"}, [](driver_run& run) { run.status = -11; }),
                ElementsAre(HasSubstr("status of no action")));
    EXPECT_THAT(found_in({"-r", "mmc::rdqs"}, [](driver_run& run) { run.status = -10; }),
                ElementsAre(HasSubstr("status of a raw read")));
}

TEST(DriverRules, StatusOfARefusedLockIsFoundWhenItWasNot) {
    EXPECT_THAT(found_in({"-l"}, [](driver_run& run) { run.status = -1; }),
                ElementsAre(HasSubstr("status of the lock")));
}

TEST(DriverRules, LockThatIsKeptIsFound) {
    EXPECT_THAT(found_in(read_odt, [](driver_run& run) { run.holds_lock = true; }),
                ElementsAre(HasSubstr("lock held at the end")));
}

TEST(DriverRules, WriteThatShowsSomethingIsFound) {
    EXPECT_THAT(found_in(write_odt, [](driver_run& run) { run.out = "120\n"; }),
                ElementsAre(HasSubstr("a write that shows something")));
}

TEST(DriverRules, ReadThatShowsAnotherValueThanItReportsIsFound) {
    EXPECT_THAT(found_in(read_odt, [](driver_run& run) { run.out = "40\n"; }),
                ElementsAre(HasSubstr("what was shown is not what was reported")));
}

TEST(DriverRules, RefusalThatIsNotReportedIsFound) {
    EXPECT_THAT(found_in({"orlin-ddra::odt", "35"},
                         [](driver_run& run) { run.err = "BRISEL: set orlin-ddra::odt := 35\n"; }),
                ElementsAre(HasSubstr("refused, and not said so")));
}

TEST(DriverRules, WriteThatIsNotReportedIsFound) {
    EXPECT_THAT(found_in(write_odt, [](driver_run& run) { run.err.clear(); }),
                Contains(HasSubstr("not a register of the property")));
}

TEST(DriverRules, RawReadOfAnUnknownNameThatShowsSomethingIsFound) {
    EXPECT_THAT(found_in({"-r", "odt"}, [](driver_run& run) { run.err.clear(); }),
                ElementsAre(HasSubstr("shown and not known")));
}

TEST(SeparateProcess, LeavesThisOneAsItIs) {
    int number = 1;
    EXPECT_THAT(in_separate_process([&] {
                    return findings{std::to_string(++number), "two"};
                }),
                ElementsAre("2", "two"));
    EXPECT_EQ(number, 1);
}

TEST(SeparateProcess, ThatEndsAbnormallyIsFound) {
    EXPECT_THAT(in_separate_process([]() -> findings { _Exit(1); }),
                ElementsAre(HasSubstr("the run ended abnormally")));
    EXPECT_THAT(in_separate_process([]() -> findings { std::abort(); }),
                ElementsAre(HasSubstr("the run ended abnormally")));
}

} // namespace driver_rules_test
} // namespace fuzz

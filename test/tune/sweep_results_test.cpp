#include "tune/window/sweep_results.hpp"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tune/plot/plot_words.hpp"
#include "tune/plot/row_picture.hpp"
#include "tune/plot/signs.hpp"
#include "tune/sweep_text.hpp"
#include "tune/text/mistake.hpp"

namespace sweep_results_test {

using namespace sweep_texts;

using testing::Pair;
using testing::StartsWith;
using testing::ThrowsMessage;

TEST(Sign, OfManyRunsIsTenths) {
    const std::vector<std::pair<point_result, char>> digits = {{{verdict::part, 1, 2}, '1'},
                                                               {{verdict::part, 9, 10}, '9'},
                                                               {{verdict::part, 9, 11}, '8'},
                                                               {{verdict::part, 99, 100}, '9'},
                                                               {{verdict::part, 1, 100}, '1'}};
    for (const auto& [result, digit] : digits) {
        EXPECT_EQ(digit_of(result), digit);
    }
    EXPECT_EQ(words_for(point_result{verdict::part, 2, 3}), "2 of 3 passed");
    EXPECT_EQ(words_for(point_result{verdict::hang, 2, 3}), "2 of 3 passed, else hung"); // of logs
    EXPECT_EQ(words_for(point_result{verdict::pass, 3, 3}), "passed");
    EXPECT_EQ(words_for(point_result{verdict::timeout, 0, 0}), "timed out");
}

TEST(Sign, IsExplainedByWhatItCounts) {
    const knobs all;
    sweep_results results = results_in(all, lane_log("***"), "log");
    const auto digits = [&](std::uint8_t runs) {
        results.grids.front().cells.front() = {verdict::part, 1, runs};
        return digits_in(results);
    };
    EXPECT_THAT(digits(2), Pair("1", "of 2 runs passed"));
    EXPECT_THAT(digits(10), Pair("1-9", "of 10 runs passed"));
    EXPECT_THAT(digits(11), Pair("1-9", "tenths of 11 runs passed"));
    results.logs.resize(3);
    EXPECT_THAT(digits(3), Pair("1-2", "of 3 logs passed"));
}

TEST(SweepResults, RefuseALogOfOtherPointsWithItsLine) {
    const knobs all;
    const auto merged = [&](const std::string& other) {
        return [&all, other] {
            sweep_results results = results_in(all, lane_log("***"), "one");
            merge(results, results_in(all, other, "two"));
        };
    };
    EXPECT_THAT(merged(grid_log({"**"})),
                ThrowsMessage<mistake>("two:4: not the same properties and values as in one"));
    EXPECT_THAT(merged(head_of("no-such -- test", {lane + "=1"})),
                ThrowsMessage<mistake>(StartsWith("two:4: no property: 'no-such'")));
    EXPECT_THAT(merged(head_of("--repeat=0 " + lane + " -- test", {lane + "=1"})),
                ThrowsMessage<mistake>("two:4: --repeat takes a number from 1 to 100, not '0'"));
}

TEST(SweepResults, AreUnderstoodTheSameWayEverywhere) {
    setenv("POSIXLY_CORRECT", "1", 1); // which ends options at the first word that is none
    const knobs all;
    const sweep_results results =
        results_in(all, head_of("--repeat=5 " + lane + " --all -- test", {lane + "=1"}), "log");
    unsetenv("POSIXLY_CORRECT");
    EXPECT_EQ(results.words.sweep.repeat, 5U);
    EXPECT_TRUE(results.words.all);
    EXPECT_THAT(results.words.operands, testing::ElementsAre(lane));
}

TEST(SweepResults, LeaveOutThePointsOfOtherSweeps) {
    const knobs all;
    const std::string log = grid_log({"***"});
    for (const std::string point :
         {"mac-tx::delay=1", "mac-tx::delay=1 nonsense=2", "nonsense=1 mac-rx::delay=2",
          "mac-tx::delay=16 mac-rx::delay=2", "mac-tx::delay=1 mac-rx::delay=9"}) {
        const auto cells =
            results_in(all, log + "try " + point + "\nfail 1 s\n", "log").grids[0].cells;
        EXPECT_TRUE(std::none_of(cells.begin(), cells.end(), [](const point_result& cell) {
            return cell.kind == verdict::fail;
        })) << point;
    }
}

TEST(SweepResults, CountTheLogsThatPassed) {
    const knobs all;
    sweep_results results = results_in(all, lane_log("**4x"), "one");
    merge(results, results_in(all, lane_log("*x*."), "two"));
    merge(results, results_in(all, lane_log("*H.."), "three"));
    const auto& cells = results.grids.front().cells;
    EXPECT_EQ(cells[0].kind, verdict::pass);
    EXPECT_EQ(cells[1].kind, verdict::hang);
    EXPECT_EQ(cells[1].passed, 1);
    EXPECT_EQ(cells[2].kind, verdict::part);
    EXPECT_EQ(cells[2].passed, 1);
    EXPECT_EQ(cells[3].kind, verdict::fail);
    EXPECT_EQ(cells[3].passed, 0);
    EXPECT_EQ(cells[3].runs, 3);
}

TEST(SweepResults, DoNotDependOnTheOrderOfTheLogs) {
    const knobs all;
    const std::vector<std::string> logs = {lane_log("*.x*."), lane_log(".Hx*x"), lane_log("*t**u")};
    const auto kinds = [&](const std::vector<std::size_t>& order) {
        sweep_results results = results_in(all, logs[order[0]], "one");
        merge(results, results_in(all, logs[order[1]], "two"));
        merge(results, results_in(all, logs[order[2]], "three"));
        return row_picture(results.grids.front(), 0, 1, {});
    };
    EXPECT_EQ(kinds({0, 1, 2}).substr(0, 5), "2H1*u");
    EXPECT_EQ(kinds({2, 1, 0}), kinds({0, 1, 2}));
    EXPECT_EQ(kinds({1, 0, 2}), kinds({0, 1, 2}));
}

TEST(SweepResults, OfASetAreThoseThatTheLanesOfAllBoardsTake) {
    const knobs all;
    const auto log_with = [](const std::string& run, const std::string& first_lane) {
        return head_of(run + " -- test", {slice + "={" + first_lane + ",64,64,64,64,64,64,64}"}) +
               row_of(slice + "=d", 0, "***") + "end complete\n";
    };
    const std::string range = "--together " + slice + "=d-5..d+5";
    const std::vector<std::string> logs = {log_with(range, "64"), log_with(range, "126")};
    for (const bool reversed : {false, true}) {
        sweep_results results = results_in(all, logs[reversed ? 1 : 0], "one");
        merge(results, results_in(all, logs[reversed ? 0 : 1], "two"));
        const sweep_grid& grid = results.grids.front();
        const window found = widest_in(grid, 0);
        EXPECT_EQ(text_of(grid.columns, found), "d+0 to d+1");
    }
    for (const std::string& other : {range + "/2", slice + "=d-5..d+5"}) {
        const auto merged = [&] {
            sweep_results results = results_in(all, logs[0], "one");
            merge(results, results_in(all, log_with(other, "64"), "two"));
        };
        EXPECT_THAT(merged,
                    ThrowsMessage<mistake>("two:4: not the same properties and values as in one"));
    }
}

TEST(SweepResults, TakeTheTwoCodesOfNoDelayForOne) {
    const knobs all;
    sweep_results results = results_in(all, lane_log("*********", "64"), "one");
    merge(results, results_in(all, lane_log("********x", "0"), "two"));
    EXPECT_EQ(results.grids.front().cell(0, 8).passed, 1);
}

TEST(SweepResults, AreRelativeToTheLastBootsValues) {
    const knobs all;
    const std::string cut_off = "session S, boot b2\nbefore " + lane + "=70\norder o\n";
    const std::string log = lane_log("***") + cut_off + row_of(lane + "=d", 0, "*") +
                            "session S, boot b3\nbefore " + lane + "=80\norder o\n";
    EXPECT_EQ(results_in(all, log, "log").grids.front().columns.present().front(), 70U);
    EXPECT_EQ(
        results_in(all, lane_log("") + cut_off, "log").grids.front().columns.present().front(),
        64U);
}

} // namespace sweep_results_test

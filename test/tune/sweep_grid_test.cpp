#include "tune/window/sweep_grid.hpp"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tune/knob/tuning.hpp"
#include "tune/text/mistake.hpp"
#include "tune/window/best_point.hpp"

namespace sweep_grid_test {

using testing::ElementsAre;
using testing::ThrowsMessage;

const std::string lane = "orlin-ddra-read0::dq3";
const std::string slice = "orlin-ddra-read0::dq";

/** Grids of axes, whose properties hold what a tuning says. */
std::vector<sweep_grid> grids(const knobs& all, const std::vector<std::string>& axes,
                              const std::string& present, bool together = false) {
    return make_grids(all, axes, together, settings_of(parse_tuning(all, present, "present")));
}

const std::string slice_present = slice + " = {64,64,64,64,64,64,64,64}\n";

TEST(SweepGrid, HasTheFirstOfTwoWindowsThatAreAsWideAndAsNear) {
    const knobs all;
    sweep_grid grid = grids(all, {lane + "=d-3..d+3"}, lane + " = 64\n").front();
    for (const std::size_t column : {0U, 1U, 5U, 6U}) {
        grid.cell(0, column).kind = verdict::pass;
    }
    EXPECT_EQ(widest_in(grid, 0).first, 0U);
}

/** How many steps a point is away from the nearest one that did not pass, or from the edge. */
std::size_t margin_of(const sweep_grid& grid, std::size_t row, std::size_t column) {
    const auto passed_within = [&](std::size_t steps) {
        for (std::size_t r = row - steps; r != row + steps + 1; ++r) { // 0 - 1 is outside, too
            for (std::size_t c = column - steps; c != column + steps + 1; ++c) {
                if (r >= grid.row_count() || c >= grid.columns.size() ||
                    grid.cell(r, c).kind != verdict::pass) {
                    return false;
                }
            }
        }
        return true;
    };
    std::size_t steps = 0;
    while (passed_within(steps)) {
        ++steps;
    }
    return steps;
}

TEST(BestPoint, IsFarthestFromWhatDidNotPassInAnyGrid) {
    const knobs all;
    std::mt19937 random(1); // the same ones in every run
    for (int round = 0; round < 200; ++round) {
        sweep_grid grid = grids(all, {"mac-tx::delay=0..8", "mac-rx::delay=0..5"},
                                "mac-tx::delay = 4\nmac-rx::delay = 3\n")
                              .front();
        std::size_t farthest = 0;
        for (point_result& cell : grid.cells) {
            cell.kind = random() % 12 == 0 ? verdict::fail : verdict::pass;
        }
        for (std::size_t row = 0; row < 6; ++row) {
            for (std::size_t column = 0; column < 9; ++column) {
                farthest = std::max(farthest, margin_of(grid, row, column));
            }
        }
        const auto best = best_in(grid);
        ASSERT_TRUE(best.has_value());
        EXPECT_EQ(margin_of(grid, best->row, best->column), farthest);
    }
}

TEST(SweepGrid, HasARowForEachValueOfTheSecondAxis) {
    const knobs all;
    const auto found =
        grids(all, {lane + "=d-1..d+1", "orlin-ddra::odt"}, lane + " = 64\norlin-ddra::odt = 60\n");
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].row_count(), 4U);
    EXPECT_EQ(found[0].cells.size(), 12U);
    EXPECT_THAT(found[0].place(0, 2), ElementsAre(lane + "=d+1", "orlin-ddra::odt=40"));
    EXPECT_EQ(found[0].row_name(3), lane + " with orlin-ddra::odt=0");
    const auto settings = found[0].settings_at(3, 0);
    ASSERT_EQ(settings.size(), 2U);
    EXPECT_EQ(settings[0].target->name(), "orlin-ddra::odt"); // set first
    EXPECT_EQ(settings[1].code, 1U);
}

TEST(SweepGrid, IsOneForEachLaneOfASet) {
    const knobs all;
    const auto found = grids(all, {slice + "=d-1..d+1"}, slice_present);
    ASSERT_EQ(found.size(), 8U);
    EXPECT_EQ(found[7].columns.target().name(), "orlin-ddra-read0::dq7");
    EXPECT_EQ(found[7].row_name(0), "orlin-ddra-read0::dq7");
    const auto together = grids(all, {slice + "=d-1..d+1"}, slice_present, true);
    ASSERT_EQ(together.size(), 1U);
    EXPECT_EQ(together[0].settings_at(0, 2).size(), 8U);
}

TEST(SweepGrid, RefusesAxesThatCannotBeSwept) {
    const knobs all;
    const auto refused = [&](const std::vector<std::string>& axes, const std::string& present) {
        return [&all, axes, present] { grids(all, axes, present); };
    };
    EXPECT_THAT(refused({lane, slice}, slice_present),
                ThrowsMessage<mistake>("the axes " + lane + " and " + slice + " share bits"));
    EXPECT_THAT(refused({slice, "orlin-ddra::odt"}, slice_present + "orlin-ddra::odt = 60"),
                ThrowsMessage<mistake>("of two axes, " + slice +
                                       " can be one with --together, or one of its lanes"));
    EXPECT_EQ(grids(all, {slice + "=d+1", "orlin-ddra::odt"},
                    slice_present + "orlin-ddra::odt = 60", true)
                  .size(),
              1U);
    EXPECT_THAT(refused({"pcie-link::state-ro"}, ""),
                ThrowsMessage<mistake>("pcie-link::state-ro is read-only"));
    EXPECT_THAT(refused({"mac"}, ""), ThrowsMessage<mistake>(testing::HasSubstr("is a group")));
}

TEST(SweepGrid, TakesOverWhatALogSays) {
    const knobs all;
    auto found = grids(all, {lane + "=d-1..d+1"}, lane + " = 64\n");
    const auto tried = [](std::string_view place) {
        return tried_point{place, {verdict::pass, 0, 0}};
    };
    fill(found, {tried(lane + "=d+1"), tried(lane + "=d+2"), tried(lane), tried("mac-tx::delay=0"),
                 tried(lane + "=d-1 mac-tx::delay=0")});
    EXPECT_EQ(found[0].cell(0, 0).kind, verdict::untried);
    EXPECT_EQ(found[0].cell(0, 1).kind, verdict::untried);
    EXPECT_EQ(found[0].cell(0, 2).kind, verdict::pass);
    auto two = grids(all, {lane + "=d-1..d+1", "mac-tx::delay"}, lane + " = 64\nmac-tx::delay = 2");
    fill(two, {tried(lane + "=d+1 mac-tx::delay=16"), tried(lane + "=d+1 mac-tx::delay=1")});
    EXPECT_EQ(two[0].cell(1, 2).kind, verdict::pass);
    EXPECT_EQ(two[0].cell(0, 2).kind, verdict::untried);
}

/** A row of a lane from d-8 upwards: '.' for a point that passed. */
sweep_grid row_of(const knobs& all, const std::string& row, const std::string& present) {
    const std::string to = std::to_string(row.size() - 9);
    sweep_grid grid = grids(all, {lane + "=d-8..d+" + to}, lane + " = " + present + "\n").front();
    for (std::size_t i = 0; i < row.size(); ++i) {
        grid.cell(0, i).kind = row[i] == '.' ? verdict::pass : verdict::fail;
    }
    return grid;
}

TEST(Windows, AreWhereAllPass) {
    const knobs all;
    const auto widest = [&](const std::string& row, const std::string& present) {
        const sweep_grid grid = row_of(all, row, present);
        const window w = widest_in(grid, 0);
        return w.size == 0
                   ? "none"
                   : text_of(grid.columns, w) + ", " + grid.columns.text(middle_of(grid, w));
    };
    //                 876543210123456
    EXPECT_EQ(widest("xxx...xxx....xx", "d+0"), "d+1 to d+4, d+2");
    EXPECT_EQ(widest("xxx...xxx....xx", "d+4"), "d+1 to d+4, d+3");
    EXPECT_EQ(widest("xxx...xxx...xxx", "d-5"), "d-5 to d-3, d-4");
    EXPECT_EQ(widest("xxx...xxx...xxx", "d+0"), "d+1 to d+3, d+2");
    EXPECT_EQ(widest("x....xxx...xxxx", "d+1"), "d-7 to d-4, d-5");
    EXPECT_EQ(widest("xxx.xxxxxxxxxxx", "d+0"), "d-5, d-5");
    EXPECT_EQ(widest("...............", "d+6"), "d-8 to d+6, d-1");
    EXPECT_EQ(widest("xx.xxx....xxxxx", "d-6"), "d-2 to d+1, d-1");
    EXPECT_EQ(widest("xx..xxxxxx..xxx", "d-6"), "d-6 to d-5, d-6");
    EXPECT_EQ(widest("xxxxxxxxxxxxxxx", "d+6"), "none");
}

} // namespace sweep_grid_test

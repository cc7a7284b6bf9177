#include "tune/plot/text_plot.hpp"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tune/plot/row_picture.hpp"
#include "tune/sweep_text.hpp"
#include "tune/text/text.hpp"
#include "tune/text_plot_case.hpp"

namespace text_plots {

void PrintTo(const plot_case& c, std::ostream* out) {
    *out << c.name;
}

} // namespace text_plots

namespace text_plot_test {

using namespace sweep_texts;
using namespace text_plots;

class TextPlot : public testing::TestWithParam<plot_case> {};

TEST_P(TextPlot, IsAsTheRowDrawsIt) {
    const plot_case& row = GetParam();
    const knobs all;
    sweep_results results = results_in(all, row.logs.front(), "log1");
    for (std::size_t i = 1; i < row.logs.size(); ++i) {
        merge(results, results_in(all, row.logs[i], "log" + std::to_string(i + 1)));
    }
    EXPECT_EQ("\n" + plot_text(results, row.on), row.picture);
}

TEST(TextPlotOfAnyWidth, HasNoLineThatIsLonger) {
    const knobs all;
    const std::string voltage = "cpu_regulator::microvolts";
    const std::string word = "orlin-ddra0::scl"; // the longest values of all
    for (const std::string& log :
         {lane_log("xx****4t*H****n"), slice_log(), grid_log({"...xx*****xx....", "****"}),
          head_of(voltage + "=1000000..1009999 -- test", {voltage + "=1005000"}) +
              row_of(voltage + "=", 1005000, "***x"),
          head_of("mac-tx::delay " + word + "=0..2 -- test", {"mac-tx::delay=5", word + "=0"}) +
              "try mac-tx::delay=5 " + word + "=0x00000000\npass 1 s\n"}) {
        const sweep_results results = results_in(all, log, "log");
        for (std::size_t width = 20; width < 120; ++width) {
            const std::string picture = plot_text(results, {width, false, false});
            for (const std::string_view line : lines_of(picture)) {
                // But for a name with its value: a word is not broken.
                EXPECT_TRUE(line.size() <= width || line.find(' ') == std::string::npos) << line;
            }
        }
    }
}

TEST(TextPlotOfTwoLogs, SaysWhosePresentValueItShows) {
    const knobs all;
    sweep_results results = results_in(all, lane_log("x**x"), "log1");
    EXPECT_THAT(plot_text(results, {}), testing::Not(testing::HasSubstr("in the first log")));
    merge(results, results_in(all, lane_log("x**x"), "log2"));
    EXPECT_THAT(plot_text(results, {}), testing::HasSubstr("(present in the first log)"));
}

TEST(RowPicture, HasAColorForEachSign) {
    const knobs all;
    const sweep_results results = results_in(all, lane_log("xx****t4*H****u.."), "log");
    EXPECT_EQ(row_picture(results.grids.front(), 0, 1, {80, false, true}),
              "\033[0;31mxx\033[0;32m****\033[0;35mt\033[0;33m4\033[0;32m*\033[0;31;1mH"
              "\033[0;32m****\033[0;31;1mu\033[0;2m..\033[0m");
}

TEST(RowPicture, ShowsTheWorstOfSeveralPoints) {
    const knobs all;
    const sweep_results results = results_in(all, lane_log("*..*43*xnxt4uHx*."), "log");
    EXPECT_EQ(row_picture(results.grids.front(), 0, 2, {}), "**3xxtHx.");
    EXPECT_EQ(stride_for(17, 9), 2U);
    EXPECT_EQ(stride_for(18, 9), 2U);
    EXPECT_EQ(stride_for(19, 9), 3U);
}

const auto name_of = [](const auto& row) { return row.param.name; };
INSTANTIATE_TEST_SUITE_P(OfRows, TextPlot, testing::ValuesIn(row_plot_cases), name_of);
INSTANTIATE_TEST_SUITE_P(OfGrids, TextPlot, testing::ValuesIn(grid_plot_cases), name_of);

} // namespace text_plot_test

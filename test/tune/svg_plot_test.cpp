#include "tune/plot/svg_plot.hpp"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/text_file.hpp"
#include "tune/plot/drawing.hpp"
#include "tune/plot/html_plot.hpp"
#include "tune/sweep_text.hpp"
#include "tune/text/xml.hpp"

namespace svg_plot_test {

using namespace sweep_texts;

using testing::HasSubstr;
using testing::Not;

std::size_t count_of(const std::string& part, const std::string& text) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

const std::string delay = "mac-tx::delay";

/** The log of a sweep from 0 to 15. */
std::string plain_log(const std::string& signs) {
    return head_of("--repeat=5 " + delay + " -- test '<&>\"'", {delay + "=3"}) +
           row_of(delay + "=", 0, signs) + "end complete\n";
}

/** That a page is the one that was looked at in a browser. */
void expect_page(const std::string& page, const std::string& name) {
    const std::string looked_at = std::string(PICTURES "/") + name;
    const std::string today = testing::TempDir() + name;
    if (page != text_of(looked_at)) {
        write_text(today, page);
        ADD_FAILURE() << today << " is not " << looked_at
                      << ": look at both, and copy it there if it is as it should be";
    }
}

TEST(HtmlPlot, IsThePageThatWasLookedAt) {
    const knobs all;
    expect_page(plot_html(results_in(all, plain_log("x***tH4nu"), "log")), "row.html");
    expect_page(plot_html(results_in(all, grid_log({"x**", "***x", ".**H"}), "log")), "grid.html");
    sweep_results two = results_in(all, lane_log("xx****4xx"), "one");
    merge(two, results_in(all, lane_log("x*****xt."), "two"));
    expect_page(plot_html(two), "logs.html");
    const std::string two_lanes =
        head_of(slice + "=d-8..d+8 -- test", {slice + "={64,65,66,67,1,2,3,64}"}) +
        row_of(slice + "0=d", -8, "xxx****..") + row_of(slice + "5=d", -8, "*********4tx");
    expect_page(plot_html(results_in(all, two_lanes, "log")), "lanes.html");
    const std::string lanes =
        head_of("--together " + slice + "=d-2..d+2 -- test", {slice + "={64,65,66,67,1,2,3,64}"}) +
        row_of(slice + "=d", -2, "x***x");
    expect_page(plot_html(results_in(all, lanes, "log")), "together.html");
}

TEST(SvgPlot, HasACellForEachPoint) {
    const knobs all;
    const std::string svg = plot_svg(results_in(all, plain_log("x***tH4nu"), "log"));
    EXPECT_EQ(count_of("<rect ", svg), 1U + 16U + 8U); // the paper, the points, the legend
    for (const char* const cell :
         {"class=\"failed\"><title>delay 0: failed<", "class=\"passed\"><title>delay 1: passed<",
          "class=\"timed-out\"><title>delay 4: timed out<", "class=\"hung\"><title>delay 5: hung<",
          "class=\"part\"><title>delay 6: 4 of 5 passed<",
          "class=\"no-stick\"><title>delay 7: did not stick<",
          "class=\"unsound\"><title>delay 8: unsound<",
          "class=\"untried\"><title>delay 15: not tried<"}) {
        EXPECT_THAT(svg, HasSubstr(cell));
    }
    for (const char* const sign : {"x", "t", "H", "4", "n", "u"}) {
        EXPECT_THAT(svg, HasSubstr("class=\"sign\">" + std::string(sign) + "<"));
    }
    EXPECT_EQ(count_of("class=\"sign\"", svg), 13U + 7U); // no pass has one
    EXPECT_THAT(svg, HasSubstr(">columns: mac-tx::delay, [0-15]cycles, in cycles<"));
    EXPECT_THAT(svg,
                HasSubstr(">best: mac-tx::delay=2; window 1 to 3, 3 points, margins 1 and 1<"));
    EXPECT_THAT(svg, HasSubstr(">1 to 3  2       1 and 1<"));
    EXPECT_THAT(svg, HasSubstr(">mac-tx::delay: test '&lt;&amp;&gt;&quot;'<"));
    EXPECT_EQ(count_of("class=\"best\"", svg), 2U); // and in the legend
    EXPECT_EQ(count_of("class=\"present\"", svg), 2U);
}

TEST(SvgPlot, NeedsNothingElse) {
    const knobs all;
    const sweep_results results = results_in(all, plain_log("***"), "log");
    for (const std::string& picture : {plot_svg(results), plot_html(results)}) {
        EXPECT_THAT(picture, Not(HasSubstr("href")));
        EXPECT_THAT(picture, Not(HasSubstr("url(")));
        EXPECT_THAT(picture, Not(HasSubstr("<script")));
        EXPECT_THAT(picture, HasSubstr("prefers-color-scheme: dark"));
    }
}

TEST(SvgPlot, HasNoMarksWhereNothingPasses) {
    const knobs all;
    std::string log = plain_log("xxx");
    log.replace(log.find("=3\n"), 3, "=9\n");
    log.replace(log.find(delay + " --"), delay.size(), delay + "=0..7");
    const std::string svg = plot_svg(results_in(all, log, "log"));
    EXPECT_EQ(count_of("class=\"best\"", svg), 1U); // in the legend
    EXPECT_EQ(count_of("class=\"present\"", svg), 1U);
    EXPECT_THAT(svg, HasSubstr(">mac-tx::delay: nothing passes<"));
}

TEST(SvgPlot, HasASignInEachCellHoweverMany) {
    const knobs all;
    const std::string name = "cpu_regulator::microvolts";
    const std::string svg =
        plot_svg(results_in(all,
                            head_of(name + "=900000..900999 -- test", {name + "=900500"}) + "try " +
                                name + "=900500\nfail 1 s\n",
                            "log"));
    EXPECT_EQ(count_of(" width=\"8\" ", svg), 1000U);
    EXPECT_EQ(count_of("class=\"sign\"", svg), 1000U + 2U); // and in the legend
}

TEST(SvgPlot, OfTwoAxesHasTheLastRowOnTop) {
    const knobs all;
    const std::string rows = "mac-rx::delay";
    std::string log =
        head_of(delay + "=0..3 " + rows + "=4..6 -- test", {delay + "=3", rows + "=6"});
    log += row_of(delay + "=", 0, "xxxx", " " + rows + "=4");
    log += row_of(delay + "=", 0, "****", " " + rows + "=5");
    const std::string svg = plot_svg(results_in(all, log, "log"));
    EXPECT_LT(svg.find("<title>delay 0 with 6: not tried<"),
              svg.find("<title>delay 0 with 5: passed<"));
    EXPECT_LT(svg.find("<title>delay 0 with 5: passed<"),
              svg.find("<title>delay 0 with 4: failed<"));
    EXPECT_EQ(count_of("class=\"frame\"", svg), 1U);
    EXPECT_EQ(count_of(">&lt; present <", svg), 1U);
    EXPECT_EQ(count_of(">&lt; best<", svg), 1U);
    EXPECT_THAT(svg, HasSubstr(">rows: mac-rx::delay, [0-15]cycles, in cycles<"));
}

TEST(SvgPlot, OfTwoAxesMarksNothingThatIsNotThere) {
    const knobs all;
    const std::string rows = "mac-rx::delay";
    const std::string log =
        head_of(delay + "=0..3 " + rows + "=4..6 -- test", {delay + "=9", rows + "=9"}) +
        row_of(delay + "=", 0, "xxxx", " " + rows + "=4");
    const std::string svg = plot_svg(results_in(all, log, "log"));
    EXPECT_EQ(count_of("class=\"frame\"", svg), 0U);
    EXPECT_EQ(count_of("class=\"best\"", svg) + count_of("class=\"present\"", svg), 2U);
    EXPECT_THAT(svg, Not(HasSubstr(">&lt; ")));
}

TEST(SvgPlot, NamesTheOffsetsOfASet) {
    const knobs all;
    const std::string set = "orlin-ddra-read0::dq";
    const std::string svg = plot_svg(results_in(
        all, head_of("--together " + set + " -- test", {set + "={64,65,66,67,68,69,70,71}"}),
        "log"));
    EXPECT_THAT(svg,
                HasSubstr(">columns: " + set + ", offset to the delay of each lane, in steps<"));
    const std::string lane =
        plot_svg(results_in(all, head_of(set + "0 -- test", {set + "0=64"}), "log"));
    EXPECT_THAT(lane, HasSubstr(">columns: " + set + "0, delay of a DQ lane, in steps<"));
    const std::string volts = "cpu_regulator::microvolts";
    const std::string uv = plot_svg(
        results_in(all, head_of(volts + "=900000..900009 -- test", {volts + "=900000"}), "log"));
    EXPECT_THAT(uv, HasSubstr(">columns: " + volts + ", output voltage, in uV<"));
    const std::string rdqs =
        plot_svg(results_in(all, head_of("mmc::rdqs -- test", {"mmc::rdqs=40"}), "log"));
    EXPECT_THAT(rdqs, HasSubstr(">columns: mmc::rdqs, setting of the eMMC host<"));
}

TEST(HtmlPlot, HasThePictureAndATable) {
    const knobs all;
    const sweep_results results = results_in(all, plain_log(".***..."), "log");
    const std::string page = plot_html(results);
    EXPECT_THAT(page, HasSubstr(plot_svg(results)));
    EXPECT_THAT(page, HasSubstr("<tr><td>mac-tx::delay</td><td>1 to 3</td><td>2</td>"
                                "<td>1 and 1</td><td>best: mac-tx::delay=2; window 1 to 3, 3 "
                                "points, margins 1 and 1; 0 was not tried; 4 was not "
                                "tried</td></tr>\n"));
    EXPECT_THAT(page, HasSubstr("<title>mac-tx::delay: test '&lt;&amp;&gt;&quot;'</title>"));
}

TEST(Drawing, ReachesAsFarAsItsElements) {
    drawing d;
    d.cell(10, 20, 30, 40, "a", "<b>");
    d.text(100, 5, "12345", "c");
    d.text_around(300, 100, "x"); // has to be reached by something else
    d.path("e", "M0 0");
    EXPECT_EQ(d.svg("t", "s"),
              "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"156\" height=\"76\" viewBox=\"0 0 "
              "156 76\" role=\"img\">\n<title>t</title>\n<style>s</style>\n<rect width=\"156\" "
              "height=\"76\" class=\"paper\"/>\n<rect x=\"10\" y=\"20\" width=\"30\" height=\"40\" "
              "class=\"a\"><title>&lt;b&gt;</title></rect>\n<text x=\"100\" y=\"5\" "
              "class=\"c\">12345</text>\n<text text-anchor=\"middle\" x=\"300\" "
              "y=\"100\">x</text>\n<path class=\"e\" d=\"M0 0\"/>\n</svg>\n");
}

} // namespace svg_plot_test

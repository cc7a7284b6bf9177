#include "tune/plot/text_plot.hpp"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tune/plot/row_picture.hpp"
#include "tune/sweep_text.hpp"
#include "tune/text/text.hpp"

namespace text_plot_test {

using namespace sweep_texts;

const std::string set = "orlin-ddra-read0::dq";

/** Logs, and how they are drawn. */
struct plot_case {
    std::string name;
    std::vector<std::string> logs;
    canvas on;
    std::string picture;
};

void PrintTo(const plot_case& c, std::ostream* out) {
    *out << c.name;
}

std::string slice_log() {
    std::vector<std::string> before;
    std::string points;
    const std::vector<std::string> rows = {"xx*******x", "t********t", "..........", "xxxx**xx**",
                                           "*********H", "xxxxxxxxxx", "12344*4321", "n*********"};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        before.push_back(set + std::to_string(i) + "=" + std::to_string(60 + i));
        points += row_of(set + std::to_string(i) + "=d", -4, rows[i]);
    }
    return head_of("--repeat=5 " + set + " -- test", before) + points;
}

constexpr canvas ascii{80, false, false};
constexpr canvas utf8{80, true, false};

const plot_case cases[] = {
    {"OneLane", {lane_log("xx************xxx")}, utf8, R"(
orlin-ddra-read0::dq3: memtester 64M 1
Board (board1, armv7l), 2026-11-22 14:00:00 UTC

    |d-8  |d-2  |d+4   window      middle  margins
dq3 ××████████████×××  d-6 to d+5  d+0     6 and 5
            ◆

█ passed  × failed  │ present  ▲ best  ◆ both
)"},
    {"OneLaneInAscii", {lane_log("xx************xxx")}, ascii, R"(
orlin-ddra-read0::dq3: memtester 64M 1
Board (board1, armv7l), 2026-11-22 14:00:00 UTC

    |d-8  |d-2  |d+4   window      middle  margins
dq3 xx************xxx  d-6 to d+5  d+0     6 and 5
            @

* passed  x failed  | present  ^ best  @ both
)"},
    {"PresentValueBesideTheBest", {lane_log("..x*******x......", "1")}, utf8, R"(
orlin-ddra-read0::dq3: memtester 64M 1
Board (board1, armv7l), 2026-11-22 14:00:00 UTC

    |d-8  |d-2  |d+4   window      middle  margins
dq3 ··×███████×······  d-5 to d+1  d-2     3 and 3
          ▲│

· not tried  █ passed  × failed  │ present  ▲ best  ◆ both
)"},
    {"PresentValueThatIsNoPoint", {lane_log("..x*******x......", "10")}, ascii, R"(
orlin-ddra-read0::dq3: memtester 64M 1
Board (board1, armv7l), 2026-11-22 14:00:00 UTC

    |d-8  |d-2  |d+4   window      middle  margins
dq3 ..x*******x......  d-5 to d+1  d-2     3 and 3
          ^

. not tried  * passed  x failed  | present  ^ best  @ both
)"},
    {"HolesAndHangs", {lane_log("H**x****4**u*tnxH")}, ascii, R"(
orlin-ddra-read0::dq3: memtester 64M 1
Board (board1, armv7l), 2026-11-22 14:00:00 UTC

    |d-8  |d-2  |d+4   window      middle  margins
dq3 H**x****4**u*tnxH  d-4 to d-1  d-2     2 and 1
          ^ |

* passed  1-4 of 5 runs passed  n did not stick  x failed  t timed out
u unsound  H hung  | present  ^ best  @ both
)"},
    {"NothingPassed", {lane_log("xxxxxxxxxxxxxxxxx")}, ascii, R"(
orlin-ddra-read0::dq3: memtester 64M 1
Board (board1, armv7l), 2026-11-22 14:00:00 UTC

    |d-8  |d-2  |d+4   window          middle  margins
dq3 xxxxxxxxxxxxxxxxx  nothing passes
            |

x failed  | present  ^ best  @ both
)"},
    {"NothingTried", {lane_log("")}, ascii, R"(
orlin-ddra-read0::dq3: memtester 64M 1
Board (board1, armv7l), 2026-11-22 14:00:00 UTC

    |d-8  |d-2  |d+4   window     middle  margins
dq3 .................  not tried
            |

. not tried  | present  ^ best  @ both
)"},
    {"LogThatIsCutOff", {lane_log("...x****").substr(0, 415)}, ascii, R"(
orlin-ddra-read0::dq3: memtester 64M 1
Board (board1, armv7l), 2026-11-22 14:00:00 UTC, not complete

    |d-8  |d-2  |d+4   window      middle  margins
dq3 ...x***..........  d-4 to d-2  d-3     1 and 1
         ^  |

. not tried  * passed  x failed  | present  ^ best  @ both
)"},
    {"Slice", {slice_log()}, ascii, R"(
orlin-ddra-read0::dq: test
Board (board1, armv7l), 2026-11-22 14:00:00 UTC, not complete

    |d-63  |d-42  |d-21  |d+0   |d+21  |d+42     window          middle  margins
dq0 ...................xx*x....................  d-2 to d+4      d+1     3 and 3
     |                   ^
dq1 ...................t**t....................  d-3 to d+4      d+0     3 and 4
    |                    ^
dq2 ...........................................  not tried
    |
dq3 ...................xxxx....................  d+0 to d+1      d+0     0 and 1
    |                    ^
dq4 ...................***H....................  d-4 to d+4      d+0     4 and 4
                         @
dq5 ...................xxxx....................  nothing passes
                         |
dq6 ...................1241....................  d+1             d+1     0 and 0
                         @
dq7 ...................n***....................  d-3 to d+5      d+1     4 and 4
                         ^|
each sign: the worst of 3 points

. not tried  * passed  1-4 of 5 runs passed  n did not stick  x failed
t timed out  H hung  | present  ^ best  @ both
)"},
    {"SliceInFortyColumns", {slice_log()}, {40, true, false}, R"(
orlin-ddra-read0::dq: test
Board (board1, armv7l), 2026-11-22 14...

    |d-63  |d-35  |d-7   |d+21
  window          middle  margins
dq0 ··············××█×··············
    │               ▲
  d-2 to d+4      d+1     3 and 3
dq1 ··············t██t··············
    │              ▲
  d-3 to d+4      d+0     3 and 4
dq2 ································
    │
  not tried
dq3 ··············×××█··············
    │              ▲
  d+0 to d+1      d+0     0 and 1
dq4 ··············███H··············
                   ◆
  d-4 to d+4      d+0     4 and 4
dq5 ··············××××··············
                    │
  nothing passes
dq6 ··············1221··············
                    ◆
  d+1             d+1     0 and 0
dq7 ··············n███··············
                    ◆
  d-3 to d+5      d+1     4 and 4
each sign: the worst of 4 points

· not tried  █ passed
1-4 of 5 runs passed  n did not stick
× failed  t timed out  H hung  │ present
▲ best  ◆ both
)"},
    {"SliceInAWideTerminal", {slice_log()}, {200, true, false}, R"(
orlin-ddra-read0::dq: test
Board (board1, armv7l), 2026-11-22 14:00:00 UTC, not complete

    |d-63  |d-56  |d-49  |d-42  |d-35  |d-28  |d-21  |d-14  |d-7   |d+0   |d+7   |d+14  |d+21  |d+28  |d+35  |d+42  |d+49  |d+56     window          middle  margins
dq0 ···························································××███████×··························································  d-2 to d+4      d+1     3 and 3
       │                                                            ▲
dq1 ···························································t████████t··························································  d-3 to d+4      d+0     3 and 4
      │                                                            ▲
dq2 ·······························································································································  not tried
     │
dq3 ···························································××××██××██··························································  d+0 to d+1      d+0     0 and 1
    │                                                              ▲
dq4 ···························································█████████H··························································  d-4 to d+4      d+0     4 and 4
                                                                   ◆
dq5 ···························································××××××××××··························································  nothing passes
                                                                    │
dq6 ···························································12344█4321··························································  d+1             d+1     0 and 0
                                                                    ▲│
dq7 ···························································n█████████··························································  d-3 to d+5      d+1     4 and 4
                                                                    ▲ │

· not tried  █ passed  1-4 of 5 runs passed  n did not stick  × failed  t timed out  H hung  │ present  ▲ best  ◆ both
)"},
    {"LaneInFiftyColumns", {lane_log("xx************xxx")}, {50, false, false}, R"(
orlin-ddra-read0::dq3: memtester 64M 1
Board (board1, armv7l), 2026-11-22 14:00:00 UTC

    |d-8  |d-2  |d+4   window      middle  margins
dq3 xx************xxx  d-6 to d+5  d+0     6 and 5
            @

* passed  x failed  | present  ^ best  @ both
)"},
    {"TwoAxes",
     {grid_log({"...xx*****xx....", "...x********x...", "....xx****xxx"})},
     utf8,
     R"(
mac-tx::delay and mac-rx::delay: test
Board (board1, armv7l), 2026-11-22 14:00:00 UTC

mac-rx::delay
4 ····××████×××···
3 ···×████████×··· ◆
2 ···××█████××····
       │ ▲
  |0   |5   |10
  mac-tx::delay
best: mac-tx::delay=7 mac-rx::delay=3; window 4 to 11, 8 points, margins 3 and
4; of mac-rx::delay 2 to 4, 3 rows, margins 1 and 1; its rows begin with the
range; its rows end with the range

· not tried  █ passed  × failed  │ present  ▲ best  ◆ both
)"},
    {"TwoAxesOnTheBestRow",
     {grid_log({"...xxxxxxxxx....", "...x****x***x...", "....xxxxxxxxx"})},
     ascii,
     R"(
mac-tx::delay and mac-rx::delay: test
Board (board1, armv7l), 2026-11-22 14:00:00 UTC

mac-rx::delay
4 ....xxxxxxxxx...
3 ...x****x***x... @
2 ...xxxxxxxxx....
       @
  |0   |5   |10
  mac-tx::delay
best: mac-tx::delay=5 mac-rx::delay=3; window 4 to 7, 4 points, margins 1 and 2;
of mac-rx::delay 3, 1 row, margins 0 and 0; also 9 to 11

. not tried  * passed  x failed  | present  ^ best  @ both
)"},
    {"TwoAxesWithoutAPass", {grid_log({"xxx", "xxx"}, "5", "9")}, ascii, R"(
mac-tx::delay and mac-rx::delay: test
Board (board1, armv7l), 2026-11-22 14:00:00 UTC

mac-rx::delay
4 ................
3 xxx.............
2 xxx.............
       |
  |0   |5   |10
  mac-tx::delay
mac-tx::delay: nothing passes

. not tried  x failed  | present  ^ best  @ both
)"},
    {"TwoAxesInTwentyColumns",
     {grid_log({"...xx*****xx....", "****************"})},
     {20, false, false},
     R"(
mac-tx::delay and...
Board (board1, ar...

mac-rx::delay
4 ................
3 **************** @
2 ...xx*****xx....
       | ^
  |0   |5   |10
  mac-tx::delay
best:
mac-tx::delay=7
mac-rx::delay=3;
window 0 to 15, 16
points, margins 7
and 8; of
mac-rx::delay 2 to
3, 2 rows, margins 1
and 0; begins with
the range; ends with
the range; its rows
begin with the
range;
mac-rx::delay=4 was
not tried

. not tried
* passed  x failed
| present  ^ best
@ both
)"},
    {"KeysOfAMappedField",
     {head_of("orlin-ddra::odt -- test", {"orlin-ddra::odt=60"}) +
      "try orlin-ddra::odt=60\npass 1 s\ntry orlin-ddra::odt=0\nfail 1 s\n"},
     ascii,
     R"(
orlin-ddra::odt: test
Board (board1, armv7l), 2026-11-22 14:00:00 UTC, not complete

    |40  |60  |120 |0  window  middle  margins
odt .    *    .    x   60      60      0 and 0
         @

. not tried  * passed  x failed  | present  ^ best  @ both
)"},
    {"KeysOfAMappedFieldInTwentyColumns",
     {head_of("orlin-ddra::odt -- test", {"orlin-ddra::odt=60"})},
     {20, false, false},
     R"(
orlin-ddra::odt: ...
Board (board1, ar...

    |40
  window     middle
  margins
odt ....
     |
  not tried

. not tried
| present  ^ best
@ both
)"},
    {"PointThatWasInterrupted", {lane_log("...***i")}, ascii, R"(
orlin-ddra-read0::dq3: memtester 64M 1
Board (board1, armv7l), 2026-11-22 14:00:00 UTC

    |d-8  |d-2  |d+4   window      middle  margins
dq3 ...***...........  d-5 to d-3  d-4     1 and 1
        ^   |

. not tried  * passed  | present  ^ best  @ both
)"},
    {"LogWithoutAMachine",
     {"brisel-tune sweep log, format 1\nrun sweep " + lane +
      "=d-8..d+8 -- test\nsession today, boot b\nbefore " + lane + "=64\norder o\n"},
     ascii,
     R"(
orlin-ddra-read0::dq3: test
today, not complete

    |d-8  |d-2  |d+4   window     middle  margins
dq3 .................  not tried
            |

. not tried  | present  ^ best  @ both
)"},
    {"SetTogether",
     {head_of("--together " + set + "=d-8..d+8 -- test", {set + "={64,65,66,67,68,69,70,71}"}) +
      row_of(set + "=d", -4, "xxx***x")},
     ascii,
     R"(
orlin-ddra-read0::dq: test
Board (board1, armv7l), 2026-11-22 14:00:00 UTC, not complete

   |d-8  |d-2  |d+4   window      middle  margins
dq ....xxx***x......  d-1 to d+1  d+0     1 and 1
           @

. not tried  * passed  x failed  | present  ^ best  @ both
)"},
    {"ThreeBoards",
     {lane_log("xx************xxx"), lane_log("....**********H.."),
      lane_log("..x*******xxxxx", "1")},
     ascii,
     R"(
orlin-ddra-read0::dq3: memtester 64M 1
log1: Board (board1, armv7l), 2026-11-22 14:00:00 UTC
log2: Board (board1, armv7l), 2026-11-22 14:00:00 UTC
log3: Board (board1, armv7l), 2026-11-22 14:00:00 UTC

    |d-8  |d-2  |d+4   window      middle  margins
dq3 xx12******2222Hxx  d-4 to d+1  d-1     3 and 2
           ^|

* passed  1-2 of 3 logs passed  x failed  H hung  | present  ^ best  @ both
(present in the first log)
)"},
};

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

INSTANTIATE_TEST_SUITE_P(Of, TextPlot, testing::ValuesIn(cases),
                         [](const auto& row) { return row.param.name; });

} // namespace text_plot_test

#include "tune/sweep_text.hpp"
#include "tune/text_plot_case.hpp"

namespace text_plots {

using namespace sweep_texts;

std::string slice_log() {
    std::vector<std::string> before;
    std::string points;
    const std::vector<std::string> rows = {"xx*******x", "t********t", "..........", "xxxx**xx**",
                                           "*********H", "xxxxxxxxxx", "12344*4321", "n*********"};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        before.push_back(slice + std::to_string(i) + "=" + std::to_string(60 + i));
        points += row_of(slice + std::to_string(i) + "=d", -4, rows[i]);
    }
    return head_of("--repeat=5 " + slice + " -- test", before) + points;
}

const std::vector<plot_case> row_plot_cases = {
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
     {head_of("--together " + slice + "=d-8..d+8 -- test", {slice + "={64,65,66,67,68,69,70,71}"}) +
      row_of(slice + "=d", -4, "xxx***x")},
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

} // namespace text_plots

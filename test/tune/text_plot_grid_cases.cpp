#include "tune/sweep_text.hpp"
#include "tune/text_plot_case.hpp"

namespace text_plots {

using namespace sweep_texts;

const std::vector<plot_case> grid_plot_cases = {
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
};

} // namespace text_plots

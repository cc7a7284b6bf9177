#include <regex>

#include "cli/texts.hpp"
#include "tune/tune_case.hpp"

namespace {

const std::string mounted = "mounted for writing: /dev/root on /\n";

/** A sweep whose log goes through a pipe, which is read at once. */
std::vector<std::string> sweep(std::vector<std::string> words) {
    words.insert(words.begin(), {"sweep", "--lead=0"});
    return words;
}

/** The head of a log: the words of the sweep, what the properties held, and the lines of the order.
 */
std::string head(const std::string& run, const std::string& before, const std::string& orders) {
    return "brisel-tune sweep log, format 1\nmachine M\nversion V\nrun sweep " + run +
           "\nsession S\n" + before +
           std::regex_replace(orders, std::regex("([^\n]+\n)"), "order $1");
}

const std::string tx_head = "before mac-tx::delay = 2\n";
const std::string tx_order = "mac-tx::delay: 3 points, 1 to 3, from 2 outwards\n";
const std::string not_put_back = "mac-tx::delay cannot be read: map /dev/zeb_mem for address "
                                 "0x10040004 failed: Operation not permitted # not put back to 2\n";
const std::string exit_unless_2 = "[ $BRISEL_VALUE = 2 ] || exit 1"; // of the present value
const std::string quoted_exit = "'[ $BRISEL_VALUE = 2 ] || exit 1'";

const std::string both_axes_told =
    "[ $BRISEL_NAME:$BRISEL_VALUE:$BRISEL_NAME_2:$BRISEL_VALUE_2:$BRISEL_DELAY = "
    "mac-rx::delay:6:mac-tx::delay:3: ]";
const std::string folder_for_lock = "rm -f $BRISEL_BOARD/root/tmp/brisel.lock; "
                                    "mkdir $BRISEL_BOARD/root/tmp/brisel.lock";

} // namespace

const std::vector<tune_case> sweep_cases = {
    {.name = "PointsAreSetReadBackAndPutBack",
     .args = sweep({"mac-tx::delay=1..3", "--", "true"}),
     .out = head("mac-tx::delay=1..3 -- true", tx_head, tx_order) +
            "try mac-tx::delay=2\npass\ntry mac-tx::delay=3\npass\ntry mac-tx::delay=1\npass\n"
            "end complete\n",
     .err = tx_order + mounted + "mac-tx::delay: 1 to 3 pass, 3 points tried\n",
     .accesses = {"read 0x10040004 0x00200001", "read 0x10040004 0x00200001",
                  // 3 is set and read back, ...
                  "read 0x10040004 0x00200001", "write 0x10040004 0x00300001",
                  "read 0x10040004 0x00300001", "read 0x10040004 0x00300001",
                  // ... is there still, and is put back
                  "read 0x10040004 0x00300001", "read 0x10040004 0x00300001",
                  "write 0x10040004 0x00200001", "read 0x10040004 0x00200001",
                  "read 0x10040004 0x00200001",
                  // the same with 1
                  "read 0x10040004 0x00200001", "write 0x10040004 0x00100001",
                  "read 0x10040004 0x00100001", "read 0x10040004 0x00100001",
                  "read 0x10040004 0x00100001", "read 0x10040004 0x00100001",
                  "write 0x10040004 0x00200001", "read 0x10040004 0x00200001",
                  "read 0x10040004 0x00200001"}},
    {.name = "WhatDoesNotPassIsLoggedWithItsOutput",
     .args = sweep(
         {"mac-tx::delay=1..3", "--", "sh", "-c", "printf 'a\\033b\\n\\nc'; " + exit_unless_2}),
     .out = head("mac-tx::delay=1..3 -- sh -c 'printf '\\''a\\033b\\n\\nc'\\''; " + exit_unless_2 +
                     "'",
                 tx_head, tx_order) +
            "try mac-tx::delay=2\npass\n"
            "try mac-tx::delay=3\nfail\n| a\\x1bb\n| \n| c\n"
            "try mac-tx::delay=1\nfail\n| a\\x1bb\n| \n| c\nend complete\n",
     .err = tx_order + mounted + "mac-tx::delay: 2 pass, 3 points tried\n",
     .accesses = any_accesses},
    {.name = "SeveralRunsAreCounted",
     .args = sweep({"--repeat", "3", "--no-control", "mac-tx::delay=2..4", "--", "sh", "-c",
                    "cd $BRISEL_BOARD; echo >>runs; [ $(wc -l <runs) -lt 6 ]"}),
     .out = head("--no-control --repeat=3 mac-tx::delay=2..4 -- sh -c 'cd $BRISEL_BOARD; echo "
                 ">>runs; [ $(wc -l <runs) -lt 6 ]'",
                 tx_head, "mac-tx::delay: 3 points, 2 to 4, from 2 outwards\n") +
            "try mac-tx::delay=2\npass\ntry mac-tx::delay=3\n2/3\ntry mac-tx::delay=4\nfail\n"
            "end complete\n",
     .err = "mac-tx::delay: 3 points, 2 to 4, from 2 outwards\n" + mounted +
            "mac-tx::delay: 2 pass, 3 points tried\n",
     .accesses = any_accesses},
    {.name = "TestThatTakesTooLong",
     .args = sweep({"--timeout=0.2", "mac-tx::delay=2..3", "--", "sh", "-c",
                    "[ $BRISEL_VALUE = 2 ] || sleep 1000"}),
     .out = head("--timeout=0.2 mac-tx::delay=2..3 -- sh -c '[ $BRISEL_VALUE = 2 ] || sleep "
                 "1000'",
                 tx_head, "mac-tx::delay: 2 points, 2 to 3, from 2 outwards\n") +
            "try mac-tx::delay=2\npass\ntry mac-tx::delay=3\ntimeout\nend complete\n",
     .err = "mac-tx::delay: 2 points, 2 to 3, from 2 outwards\n" + mounted +
            "mac-tx::delay: 2 pass, 2 points tried\n",
     .accesses = any_accesses},
    {.name = "ValueThatDoesNotStickIsNotTested",
     .args = sweep({"mac-tx::delay=2..3", "--", "true"}),
     .board = board_setup().fault("stuck mac-tx::delay 1"),
     .out = head("mac-tx::delay=2..3 -- true", tx_head,
                 "mac-tx::delay: 2 points, 2 to 3, from 2 outwards\n") +
            "try mac-tx::delay=2\npass\ntry mac-tx::delay=3\nno-stick\n"
            "| mac-tx::delay was set to 3 and holds 2\nend complete\n",
     .err = "mac-tx::delay: 2 points, 2 to 3, from 2 outwards\n" + mounted +
            "mac-tx::delay: 2 pass, 2 points tried\n",
     .accesses = any_accesses},
    {.name = "TestThatFailsWithTheValueBeforeEndsIt",
     .args = sweep({"mac-tx::delay=2..3", "--", "false"}),
     .out = head("mac-tx::delay=2..3 -- false", tx_head,
                 "mac-tx::delay: 2 points, 2 to 3, from 2 outwards\n") +
            "try mac-tx::delay=2\nfail\nunsound\nend unsound: the test does not pass with the "
            "values before, either; check the test, or reset the board and go on with --continue\n",
     .err = "mac-tx::delay: 2 points, 2 to 3, from 2 outwards\n" + mounted +
            "unsound: the test does not pass with the values before, either; check the test, or "
            "reset the board and "
            "go on with --continue\n",
     .status = 1,
     .accesses = any_accesses},
    {.name = "NothingThatPassesIsSaid",
     .args = sweep({"--no-control", "mac-tx::delay=2..3", "--", "false"}),
     .out = head("--no-control mac-tx::delay=2..3 -- false", tx_head,
                 "mac-tx::delay: 2 points, 2 to 3, from 2 outwards\n") +
            "try mac-tx::delay=2\nfail\ntry mac-tx::delay=3\nfail\nend complete\n",
     .err = "mac-tx::delay: 2 points, 2 to 3, from 2 outwards\n" + mounted +
            "mac-tx::delay: nothing passes, 2 points tried\n",
     .status = 1,
     .accesses = any_accesses},
    {.name = "TestMayUseBriselButNotChangeWhatIsTried",
     .args = sweep({"mac-tx::delay=3", "--", "sh", "-c", "brisel mac-tx::delay 7"}),
     .out = head("mac-tx::delay=3 -- sh -c 'brisel mac-tx::delay 7'", tx_head,
                 "mac-tx::delay: 1 point, 3, from 3 outwards\n") +
            "try mac-tx::delay=3\ninterrupted\nend somebody else has set mac-tx::delay: 3 was "
            "tried, and it holds 7, which is left there\n",
     .err = "mac-tx::delay: 1 point, 3, from 3 outwards\n" + mounted +
            "somebody else has set mac-tx::delay: 3 was tried, and it holds 7, which is left "
            "there\n",
     .status = 2,
     .accesses = any_accesses},
    {.name = "SecondAxisIsSetFirstAndPutBackLast",
     .args = sweep({"mac-rx::delay=6", "mac-tx::delay=3", "--", "sh", "-c", both_axes_told}),
     .out = head("mac-rx::delay=6 mac-tx::delay=3 -- sh -c '[ "
                 "$BRISEL_NAME:$BRISEL_VALUE:$BRISEL_NAME_2:$BRISEL_VALUE_2:$BRISEL_DELAY = "
                 "mac-rx::delay:6:mac-tx::delay:3: ]'",
                 "before mac-rx::delay = 5\n" + tx_head,
                 "mac-rx::delay: 1 point, 6, from 6 outwards\n"
                 "for each of mac-tx::delay: 1 point, 3, from 3 outwards\n") +
            "try mac-rx::delay=6 mac-tx::delay=3\npass\nend complete\n",
     .err = "mac-rx::delay: 1 point, 6, from 6 outwards\n"
            "for each of mac-tx::delay: 1 point, 3, from 3 outwards\n" +
            mounted + "mac-rx::delay with mac-tx::delay=3: 6 pass, 1 point tried\n",
     .accesses = {"read 0x10040008 0x00500001", "read 0x10040004 0x00200001",
                  "read 0x10040004 0x00200001", "write 0x10040004 0x00300001",
                  "read 0x10040004 0x00300001", "read 0x10040004 0x00300001",
                  "read 0x10040008 0x00500001", "write 0x10040008 0x00600001",
                  "read 0x10040008 0x00600001", "read 0x10040008 0x00600001",
                  "read 0x10040004 0x00300001", "read 0x10040008 0x00600001",
                  "read 0x10040008 0x00600001", "write 0x10040008 0x00500001",
                  "read 0x10040008 0x00500001", "read 0x10040008 0x00500001",
                  "read 0x10040004 0x00300001", "write 0x10040004 0x00200001",
                  "read 0x10040004 0x00200001", "read 0x10040004 0x00200001"}},
    {.name = "OffsetOfASetIsTold",
     .args = sweep({"--together", "--settle", "0.01", lanes + "=d-5", "--", "sh", "-c",
                    "[ \"$BRISEL_VALUE$BRISEL_DELAY\" = '{8,3,6,7,2,4,9,5}-5' ]"}),
     .out = head("--together --settle=0.01 " + lanes +
                     "=d-5 -- sh -c '[ \"$BRISEL_VALUE$BRISEL_DELAY\" = "
                     "'\\''{8,3,6,7,2,4,9,5}-5'\\'' ]'",
                 "before pelune-ddr-read1::dq0 = 3\nbefore pelune-ddr-read1::dq1 = 66\n"
                 "before pelune-ddr-read1::dq2 = 1\nbefore pelune-ddr-read1::dq3 = 2\n"
                 "before pelune-ddr-read1::dq4 = 67\nbefore pelune-ddr-read1::dq5 = 65\n"
                 "before pelune-ddr-read1::dq6 = 4\nbefore pelune-ddr-read1::dq7 = 64\n",
                 lanes + ": 1 point, d-5, from d-5 outwards\n") +
            "try pelune-ddr-read1::dq=d-5\npass\nend complete\n",
     .err = lanes + ": 1 point, d-5, from d-5 outwards\n" + mounted + lanes +
            ": d-5 pass, 1 point tried\n",
     .accesses = any_accesses},
    {.name = "WhatCannotBeReadIsNotSwept",
     .args = sweep({"mac-tx::delay", "--", "true"}),
     .board = board_setup().fault("no-map 0x10040004"),
     .err = "mac-tx::delay: map /dev/zeb_mem for address 0x10040004 failed: Operation not "
            "permitted\n",
     .status = 2},
    {.name = "WhatIsNotPutBackIsNamed",
     .args = sweep({"mac-tx::delay=3", "--", "true"}),
     .board = board_setup().fault("fail mmap 6+"),
     .out =
         head("mac-tx::delay=3 -- true", tx_head, "mac-tx::delay: 1 point, 3, from 3 outwards\n") +
         "try mac-tx::delay=3\ninterrupted\nend not everything could be put back:\n| " +
         not_put_back,
     .err = "mac-tx::delay: 1 point, 3, from 3 outwards\n" + mounted +
            "not everything could be put back:\n" + not_put_back,
     .status = 2,
     .accesses = any_accesses},
    {.name = "WhatIsNotPutBackWhenItDidNotStickIsNamed",
     .args = sweep({"mac-tx::delay=3", "--", "true"}),
     .board = board_setup().fault("fail mmap 3+"),
     .out =
         head("mac-tx::delay=3 -- true", tx_head, "mac-tx::delay: 1 point, 3, from 3 outwards\n") +
         "try mac-tx::delay=3\ninterrupted\n| mac-tx::delay: map /dev/zeb_mem for address "
         "0x10040004 failed: Operation not permitted\nend not everything could be put back:\n| " +
         not_put_back,
     .err = "mac-tx::delay: 1 point, 3, from 3 outwards\n" + mounted +
            "not everything could be put back:\n" + not_put_back,
     .status = 2,
     .accesses = any_accesses},
    {.name = "LockThatIsLostLeavesTheTriedValue",
     .args = sweep({"mac-tx::delay=3", "--", "sh", "-c", folder_for_lock}),
     .out = head("mac-tx::delay=3 -- sh -c 'rm -f $BRISEL_BOARD/root/tmp/brisel.lock; mkdir "
                 "$BRISEL_BOARD/root/tmp/brisel.lock'",
                 tx_head, "mac-tx::delay: 1 point, 3, from 3 outwards\n") +
            "try mac-tx::delay=3\ninterrupted\nend nothing could be put back: cannot open "
            "/tmp/brisel.lock: Is a directory\n",
     .err = "mac-tx::delay: 1 point, 3, from 3 outwards\n" + mounted +
            "nothing could be put back: cannot open /tmp/brisel.lock: Is a directory\n",
     .status = 2,
     .accesses = any_accesses},
    {.name = "LaneThatSomebodyMovesIsNamed",
     .args = sweep({"pelune-ddr-read1::dq0=d+1", "--no-control", "--", "brisel",
                    "pelune-ddr-read1::dq5", "70"}),
     .board = board_setup().word(0x1a419194, 0x507, 0x41),
     .out = head("--no-control pelune-ddr-read1::dq0=d+1 -- brisel pelune-ddr-read1::dq5 70",
                 "before pelune-ddr-read1::dq0 = 3\n",
                 "pelune-ddr-read1::dq0: 1 point, d+1, from d+1 outwards\n") +
            "try pelune-ddr-read1::dq0=d+1\npass\nnote pelune-ddr-read1::dq5 held d+1 and now "
            "holds d+6, though nobody set it\nend complete\n",
     .err = "pelune-ddr-read1::dq0: 1 point, d+1, from d+1 outwards\n" + mounted +
            "pelune-ddr-read1::dq5 held d+1 and now holds d+6, though nobody set it\n"
            "pelune-ddr-read1::dq0: d+1 pass, 1 point tried\n",
     .accesses = any_accesses},
    {.name = "LaneThatIsMovedBesideAnotherKnobOfItsPhyIsNamed",
     .args = sweep(
         {"--no-control", "pelune-ddr::odt=60", "--", "brisel", "pelune-ddr-read1::dq5", "70"}),
     .out =
         head("--no-control pelune-ddr::odt=60 -- brisel pelune-ddr-read1::dq5 70",
              "before pelune-ddr::odt = 40\n", "pelune-ddr::odt: 1 point, 60, from 60 outwards\n") +
         "try pelune-ddr::odt=60\npass\nnote pelune-ddr-read1::dq5 held d+1 and now holds d+6, "
         "though nobody set it\nend complete\n",
     .err = "pelune-ddr::odt: 1 point, 60, from 60 outwards\n" + mounted +
            "pelune-ddr-read1::dq5 held d+1 and now holds d+6, though nobody set it\n"
            "pelune-ddr::odt: 60 pass, 1 point tried\n",
     .accesses = any_accesses},
    {.name = "OutputOfATestIsNotLostWhenSomebodyElseSetWhatIsTried",
     .args =
         sweep({"mac-tx::delay=3", "--", "sh", "-c", "echo hello; brisel mac-tx::delay 7; false"}),
     .out = head("mac-tx::delay=3 -- sh -c 'echo hello; brisel mac-tx::delay 7; false'", tx_head,
                 "mac-tx::delay: 1 point, 3, from 3 outwards\n") +
            "try mac-tx::delay=3\ninterrupted\n| hello\n| BRISEL: set mac-tx::delay := 7\nend "
            "somebody else has set mac-tx::delay: 3 "
            "was tried, and it holds 7, which is left there\n",
     .err = "mac-tx::delay: 1 point, 3, from 3 outwards\n" + mounted +
            "somebody else has set mac-tx::delay: 3 was tried, and it holds 7, which is left "
            "there\n",
     .status = 2,
     .accesses = any_accesses},
    {.name = "SideEndsAfterOnePoint",
     .args = sweep({"--stop=1", "mac-tx::delay", "--", "sh", "-c", exit_unless_2}),
     .out = head("--stop=1 mac-tx::delay -- sh -c " + quoted_exit, tx_head,
                 "mac-tx::delay: 16 points, 0 to 15, from 2 outwards\n") +
            "try mac-tx::delay=2\npass\ntry mac-tx::delay=3\nfail\ntry mac-tx::delay=1\nfail\n"
            "end complete\n",
     .err = "mac-tx::delay: 16 points, 0 to 15, from 2 outwards\n" + mounted +
            "mac-tx::delay: 2 pass, 3 points tried\n",
     .accesses = any_accesses},
    {.name = "RowsWithoutAPassEndTheirSide",
     .args = sweep({"--stop=1", "mac-rx::delay=5", "mac-tx::delay", "--", "sh", "-c",
                    "[ $BRISEL_VALUE_2 = 2 ]"}),
     .out = head("--stop=1 mac-rx::delay=5 mac-tx::delay -- sh -c '[ $BRISEL_VALUE_2 = 2 ]'",
                 "before mac-rx::delay = 5\n" + tx_head,
                 "mac-rx::delay: 1 point, 5, from 5 outwards\n"
                 "for each of mac-tx::delay: 16 points, 0 to 15, from 2 outwards\n") +
            "try mac-rx::delay=5 mac-tx::delay=2\npass\ntry mac-rx::delay=5 mac-tx::delay=3\nfail\n"
            "try mac-rx::delay=5 mac-tx::delay=1\nfail\nend complete\n",
     .err = "mac-rx::delay: 1 point, 5, from 5 outwards\n"
            "for each of mac-tx::delay: 16 points, 0 to 15, from 2 outwards\n" +
            mounted +
            "mac-rx::delay with mac-tx::delay=2: 5 pass, 1 point tried\n"
            "mac-rx::delay with mac-tx::delay=3: nothing passes, 1 point tried\n"
            "mac-rx::delay with mac-tx::delay=1: nothing passes, 1 point tried\n",
     .accesses = any_accesses},
    {.name = "AllRowsAreTriedIfAsked",
     .args = sweep({"--all", "--no-control", "mac-rx::delay=5", "mac-tx::delay=1..4", "--", "sh",
                    "-c", "[ $BRISEL_VALUE_2 = 4 ]"}),
     .out = head("--all --no-control mac-rx::delay=5 mac-tx::delay=1..4 -- sh -c '[ "
                 "$BRISEL_VALUE_2 = 4 ]'",
                 "before mac-rx::delay = 5\n" + tx_head,
                 "mac-rx::delay: 1 point, 5, from 5 outwards, all\n"
                 "for each of mac-tx::delay: 4 points, 1 to 4, from 2 outwards\n") +
            "try mac-rx::delay=5 mac-tx::delay=2\nfail\ntry mac-rx::delay=5 mac-tx::delay=3\nfail\n"
            "try mac-rx::delay=5 mac-tx::delay=1\nfail\ntry mac-rx::delay=5 mac-tx::delay=4\npass\n"
            "end complete\n",
     .err = "mac-rx::delay: 1 point, 5, from 5 outwards, all\n"
            "for each of mac-tx::delay: 4 points, 1 to 4, from 2 outwards\n" +
            mounted +
            "mac-rx::delay with mac-tx::delay=2: nothing passes, 1 point tried\n"
            "mac-rx::delay with mac-tx::delay=3: nothing passes, 1 point tried\n"
            "mac-rx::delay with mac-tx::delay=1: nothing passes, 1 point tried\n"
            "mac-rx::delay with mac-tx::delay=4: 5 pass, 1 point tried\n",
     .accesses = any_accesses},
    {.name = "VoltagesAreWholeMicrovolts",
     .args = sweep({"cpu_regulator::microvolts=999999..1000001", "--", "true"}),
     .out =
         head("cpu_regulator::microvolts=999999..1000001 -- true",
              "before cpu_regulator::microvolts = 1000000\n",
              "cpu_regulator::microvolts: 3 points, 999999 to 1000001, from 1000000 outwards\n") +
         "try cpu_regulator::microvolts=1000000\npass\n"
         "try cpu_regulator::microvolts=1000001\npass\n"
         "try cpu_regulator::microvolts=999999\npass\nend complete\n",
     .err = "cpu_regulator::microvolts: 3 points, 999999 to 1000001, from 1000000 outwards\n" +
            mounted + "cpu_regulator::microvolts: 999999 to 1000001 pass, 3 points tried\n",
     .files = {{"/sys/class/regulator/regulator.1/microvolts", "1000000"}}},
    {.name = "ValuesOfAListAreSaid",
     .args = sweep({"mac-tx::delay=1,3", "--", "true"}),
     .out = head("mac-tx::delay=1,3 -- true", tx_head,
                 "mac-tx::delay: 2 points, 1, 3, from 1 outwards\n") +
            "try mac-tx::delay=1\npass\ntry mac-tx::delay=3\npass\nend complete\n",
     .err = "mac-tx::delay: 2 points, 1, 3, from 1 outwards\n" + mounted +
            "mac-tx::delay: 1 to 3 pass, 2 points tried\n",
     .accesses = any_accesses},
    {.name = "LockThatIsNotGotLeavesThePointUntried",
     .args = sweep({"mac-tx::delay=2..3", "--", "true"}),
     .board = board_setup().fault("fail flock 5"),
     .out = head("mac-tx::delay=2..3 -- true", tx_head,
                 "mac-tx::delay: 2 points, 2 to 3, from 2 outwards\n") +
            "try mac-tx::delay=2\npass\ntry mac-tx::delay=3\ninterrupted\n"
            "end cannot lock /tmp/brisel.lock: No locks available\n",
     .err = "mac-tx::delay: 2 points, 2 to 3, from 2 outwards\n" + mounted +
            "cannot lock /tmp/brisel.lock: No locks available\n",
     .status = 2,
     .accesses = any_accesses},
    {.name = "CompleteSweepWithoutAPassHasFailed",
     .args = {"sweep", "--continue", tuning_file},
     .tuning = "brisel-tune sweep log, format 1\nrun sweep mac-tx::delay=2 -- true\n"
               "session S, boot B\nbefore mac-tx::delay = 2\ntry mac-tx::delay=2\nfail 1 s\n"
               "end complete\n",
     .err = "the sweep is complete: there is nothing left to be tried\n",
     .status = 1},
};

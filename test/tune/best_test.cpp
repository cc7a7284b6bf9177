#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tune/swept_board.hpp"

namespace best_test {

using namespace swept_boards;

TEST(Best, OfSeveralLogsPassesInAll) {
    const swept_board b;
    const auto log_of = [&](const std::string& name, const std::vector<std::string>& axes,
                            const std::string& values) {
        std::string path = b.on_board().path("/tmp/" + name);
        std::vector<std::string> words = {"sweep", "-o", path, "--no-control", "--all"};
        words.insert(words.end(), axes.begin(), axes.end());
        const std::string test = "case $BRISEL_VALUE in " + values + ") exit 0;; esac; exit 1";
        words.insert(words.end(), {"--", "sh", "-c", test});
        run_tune(b.on_board(), words);
        return path;
    };
    const std::string axis = delay + "=1..6";
    const std::string one = log_of("one", {axis}, "1|2|3|4");
    const std::string two = log_of("two", {axis}, "2|3|4|5|6");
    const auto best = [&](const std::string& other) {
        return run_tune(b.on_board(), {"best", one, other});
    };
    EXPECT_EQ(best(two).out, delay + " = 3 # window 2 to 4, 3 points, margins 1 and 1\n");
    const run_result nothing = best(log_of("three", {axis}, "5|6"));
    EXPECT_EQ(nothing.out, "# " + delay + ": nothing passes\n");
    EXPECT_EQ(nothing.status, 1);
    const std::vector<std::vector<std::string>> others = {
        {delay + "=1..7"},
        {delay + "=2..7"},
        {"mac-rx::delay=1..6"},
        {axis, "mac-rx::delay=5"},
        {lane.substr(0, lane.size() - 1) + "=d+0"}};
    for (std::size_t i = 0; i < others.size(); ++i) {
        const std::string other = log_of("other" + std::to_string(i), others[i], "1");
        EXPECT_EQ(best(other).status, 2);
        EXPECT_EQ(best(other).err,
                  other + ":4: not the same properties and values as in " + one + "\n");
    }
    const std::string grid = log_of("grid", {axis, "mac-rx::delay=4..6"}, "1|2|3|4");
    const std::string other_grid = log_of("other-grid", {axis, "mac-rx::delay=5..6"}, "1|2|3|4");
    EXPECT_EQ(run_tune(b.on_board(), {"best", grid, other_grid}).status, 2);
    EXPECT_EQ(
        run_tune(b.on_board(), {"best", grid, grid}).out,
        "mac-rx::delay = 5\n" + delay +
            " = 2 # window 1 to 4, 4 points, margins 1 and 2; of mac-rx::delay 4 to 6, 3 rows, "
            "margins 1 and 1; begins with the range; its rows begin with the range; its rows end "
            "with the range\n");
}

TEST(Best, OfASetNamesTheLogWhoseDelaysItIsFor) {
    const swept_board b;
    const std::string lanes = lane.substr(0, lane.size() - 1);
    EXPECT_EQ(b.begin({"--together", lanes + "=d+0..d+1", "--", "true"}).status, 0);
    const std::string line = b.best();
    EXPECT_EQ(run_tune(b.on_board(), {"best", b.log_file(), b.log_file()}).out,
              line.substr(0, line.size() - 1) + "; for the delays in " + b.log_file() + "\n");
}

TEST(Best, DoesNotSayOfWhatWasNotTriedThatItFails) {
    const swept_board b;
    write_text(b.log_file(), "brisel-tune sweep log, format 1\nrun sweep " + lane +
                                 " -- true\nsession S, boot B\nbefore " + lane +
                                 " = 64\norder o\n");
    EXPECT_EQ(b.best(), "# " + lane + ": not tried\n");
}

TEST(Best, SaysWhatWasNotTried) {
    const swept_board b;
    write_text(b.log_file(), "brisel-tune sweep log, format 1\nrun sweep " + lane +
                                 "=d-3..d+3 -- true\nsession S, boot B\nbefore " + lane +
                                 " = 64\ntry " + lane + "=d+0\npass 1 s\ntry " + lane +
                                 "=d+1\nfail 1 s\nunsound 1 s\n");
    EXPECT_EQ(b.best(), lane + " = 64 # d+0, window d+0, 1 point, margins 0 and 0; d-1 was not "
                               "tried; d+1 was unsound\n");
}

} // namespace best_test

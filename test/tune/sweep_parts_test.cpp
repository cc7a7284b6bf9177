#include <optional>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tune/sweep/precautions.hpp"
#include "tune/text/mistake.hpp"
#include "tune/text/shell_words.hpp"
#include "tune/text/text.hpp"
#include "tune/window/outward_search.hpp"
#include "tune/window/sweep_log.hpp"
#include "tune/window/verdict.hpp"

// The parts of a sweep that need no board.

namespace sweep_parts_test {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::StartsWith;
using testing::ThrowsMessage;

/** Goes through a row of points, '.' for one that passes, 'x' that fails, '!' that hangs. */
std::string order_in(const std::string& row, std::size_t start, std::size_t stop) {
    outward_search search(row.size(), start, stop);
    std::string order;
    while (const auto next = search.next()) {
        order += std::to_string(*next) + " ";
        const char c = row[*next];
        search.note(c == '.' ? verdict::pass : c == 'x' ? verdict::fail : verdict::hang);
    }
    return order;
}

TEST(OutwardSearch, GoesOutwardsInTurn) {
    EXPECT_EQ(order_in(".....", 2, 3), "2 3 1 4 0 ");
    EXPECT_EQ(order_in(".....", 0, 3), "0 1 2 3 4 ");
    EXPECT_EQ(order_in(".....", 3, 3), "3 4 2 1 0 ");
    EXPECT_EQ(order_in(".", 0, 3), "0 ");
}

TEST(OutwardSearch, EndsASideAfterSomePointsInARow) {
    EXPECT_EQ(order_in("xxxx.xxxx", 4, 3), "4 5 3 6 2 7 1 ");
    EXPECT_EQ(order_in("xxx.xx.xxxx", 3, 3), "3 4 2 5 1 6 0 7 8 9 "); // a hole is gone through
    EXPECT_EQ(order_in("x.xx", 1, 1), "1 2 0 ");
}

TEST(OutwardSearch, EndsASideAtAHang) {
    EXPECT_EQ(order_in("..!.!..", 3, 3), "3 4 2 ");
    EXPECT_EQ(order_in("..!.!..", 3, 0), "3 4 2 5 1 6 0 "); // unless all are wanted
}

TEST(OutwardSearch, CountsFromTheFirstPass) {
    EXPECT_EQ(order_in("xxxxxxxx.x", 4, 2), "4 5 3 6 2 7 1 8 0 9 ");
    EXPECT_EQ(order_in("!xxx.", 1, 1), "1 2 0 3 4 "); // a hang at the start ends its side alone
}

TEST(OutwardSearch, GivesUpTenStepsAwayWithoutAPass) {
    const std::string nothing(41, 'x');
    EXPECT_EQ(order_in(nothing, 20, 3).substr(0, 12), "20 21 19 22 ");
    EXPECT_TRUE(order_in(nothing, 20, 3).ends_with(" 30 10 "));
    EXPECT_TRUE(order_in(nothing, 20, 0).ends_with(" 40 0 "));
}

TEST(OutwardSearch, FindsAllThatHangsTogether) {
    // In rows drawn at random: all passes from the first one on, across holes that are too narrow
    // to end a side, and at most the points behind that end it.
    constexpr std::size_t stop = 3;
    std::mt19937 random(1);
    for (int round = 0; round < 3000; ++round) {
        std::string row(1 + random() % 60, 'x');
        const std::size_t start = random() % row.size();
        for (char& c : row) {
            c = random() % 3 == 0 ? 'x' : '.';
        }
        outward_search search(row.size(), start, stop);
        std::string tried(row.size(), ' ');
        std::size_t first = row.size();
        while (const auto next = search.next()) {
            ASSERT_EQ(tried[*next], ' ');
            tried[*next] = row[*next];
            first = first == row.size() && row[*next] == '.' ? *next : first;
            search.note(row[*next] == '.' ? verdict::pass : verdict::fail);
        }
        if (first == row.size()) {
            continue;
        }
        for (const int way : {-1, 1}) {
            std::size_t misses = 0;
            for (std::size_t i = first; i < row.size() && misses < stop;
                 i += static_cast<std::size_t>(way)) {
                misses = row[i] == '.' ? 0 : misses + 1;
                ASSERT_EQ(tried[i], row[i]) << row << " from " << start;
            }
        }
    }
}

TEST(Verdict, IsReadAsItIsWritten) {
    for (const char* const word :
         {"pass", "fail", "timeout", "no-stick", "unsound", "interrupted", "1/2", "99/100"}) {
        const auto result = to_result(word);
        ASSERT_TRUE(result) << word;
        EXPECT_EQ(to_word(*result), word);
    }
    for (const char* const word : {"", "hang", "untried", "0/2", "2/2", "3/2", "1/", "/2", "1/2x",
                                   "x/2", "1/256", "-1/2", "passed"}) {
        EXPECT_FALSE(to_result(word)) << word;
    }
}

TEST(Verdict, IsSettledUnlessItIsToBeTriedAgain) {
    for (const verdict kind : {verdict::pass, verdict::part, verdict::fail, verdict::timeout,
                               verdict::no_stick, verdict::hang}) {
        EXPECT_TRUE(is_settled(kind));
    }
    for (const verdict kind : {verdict::untried, verdict::interrupted, verdict::unsound}) {
        EXPECT_FALSE(is_settled(kind));
    }
}

TEST(ShellWords, AreReadAsTheyAreWritten) {
    const std::vector<std::string> words = {"plain", "",  "two words", "it's", "$(x)",
                                            "a\nb",  "'", "\n",        "\\",   "ü"};
    EXPECT_EQ(from_shell(to_shell(words)), words);
    EXPECT_EQ(to_shell({"a", "", "b c", "d'e", "\n"}), "a '' 'b c' 'd'\\''e' ''$'\\n'''");
    EXPECT_THAT(from_shell("  a   'b c'd  "), ElementsAre("a", "b cd"));
    EXPECT_THAT(from_shell("it\\'s 2$'\\n'lines"), ElementsAre("it's", "2\nlines"));
    EXPECT_THAT([] { from_shell("a 'b"); }, ThrowsMessage<mistake>("a quote that is not closed"));
}

TEST(Text, IsMadePrintable) {
    EXPECT_EQ(printable(" ~\n\t\x7f\x1b\xfc"), " ~\n\\x09\\x7f\\x1b\\xfc");
}

TEST(Precautions, NameWhatIsMountedForWriting) {
    EXPECT_THAT(writable_mounts("/dev/root / ext4 rw,relatime 0 0\n"
                                "/dev/sda1 /mnt vfat rw 0 0\n"
                                "/dev/sda2 /boot vfat ro,rw2 0 0\n"
                                "proc /proc proc rw 0 0\n"
                                "tmpfs /dev/shm tmpfs rw 0 0\n"),
                ElementsAre("/dev/root on /", "/dev/sda1 on /mnt"));
}

const std::string head = "brisel-tune sweep log, format 1\nmachine m\nversion 1\n"
                         "run sweep a -- 'b c'\n";
const std::string session = "session today, boot b1\nbefore a = 1\norder a: all\n";

TEST(SweepLog, IsReadLineByLine) {
    const sweep_log log =
        parse_log(head + session +
                      "before b = 2\ntry a=1 b=2\npass 0.1 s\ntry a=2 b=2\n3/5 1 s\n"
                      "| text\n|\ntry a=3 b=2\nfail 1 s\nunsound\nnote x\n"
                      "end unsound\nsession tomorrow, boot b2\nbefore a = 5\n"
                      "try a=3 b=2\n",
                  "log");
    EXPECT_EQ(log.machine, "m");
    EXPECT_THAT(log.run, ElementsAre("sweep", "a", "--", "b c"));
    ASSERT_EQ(log.sessions.size(), 2U);
    EXPECT_EQ(log.sessions[0].date, "today");
    EXPECT_EQ(log.sessions[0].boot, "b1");
    EXPECT_EQ(log.sessions[0].before, "a = 1\nb = 2\n");
    EXPECT_EQ(log.sessions[1].before, "a = 5\n");
    ASSERT_EQ(log.points.size(), 4U);
    EXPECT_EQ(log.points[0].place, "a=1 b=2");
    EXPECT_EQ(log.points[0].result.kind, verdict::pass);
    EXPECT_EQ(log.points[1].result.passed, 3);
    EXPECT_EQ(log.points[2].result.kind, verdict::unsound);
    EXPECT_EQ(log.points[3].result.kind, verdict::hang);
    EXPECT_EQ(session_of(log, "b1"), &log.sessions[0]);
    EXPECT_EQ(session_of(log, "b3"), nullptr);
}

/** A log with another session behind it. */
std::string gone_on_with(const std::string& part) {
    const std::string mark = std::string(cut_mark) + "\n";
    return part + (part.ends_with('\n') ? "" : mark) + session;
}

TEST(SweepLog, MayBeCutAnywhere) {
    const std::string whole =
        head + session + "try a=1\npass 0.1 s\ntry a=12\nfail 1 s\n| x\nend complete\n";
    const std::size_t begin = (head + session).size();
    for (std::size_t size = begin; size <= whole.size(); ++size) {
        const std::string part = whole.substr(0, size);
        const sweep_log log = parse_log(part, "log");
        EXPECT_EQ(log.is_cut, !part.ends_with('\n'));
        // And once more, while the mark of that was written.
        for (std::size_t written = 0; written <= cut_mark.size(); ++written) {
            const std::string mark(cut_mark.substr(0, written));
            const sweep_log again = parse_log(gone_on_with(part + mark) + "try a=3\n", "log");
            EXPECT_EQ(again.sessions.size(), 2U);
            ASSERT_FALSE(again.points.empty());
            EXPECT_EQ(again.points.back().place, "a=3");
            EXPECT_EQ(again.points.size(), log.points.size() + 1) << part << mark;
        }
    }
}

TEST(SweepLog, MayBeCutBeforeItSaysWhatThereWas) {
    const std::string whole =
        head + "session today, boot b1\nbefore a = 2\nbefore b = 2\norder a: all";
    for (std::size_t size = head.size(); size <= whole.size(); ++size) {
        const std::string part = whole.substr(0, size);
        const sweep_log log = parse_log(part, "log");
        EXPECT_THAT([&] { last_begun(log); },
                    ThrowsMessage<mistake>(AllOf(
                        StartsWith("log:"), EndsWith(": the log ends before its first point"))))
            << part;
        const sweep_log again = parse_log(gone_on_with(part) + "try a=3\n", "log");
        EXPECT_EQ(last_begun(again).before, "a = 1\n") << part;
        EXPECT_EQ(&first_session(again), &again.sessions.back()) << part;
    }
}

TEST(SweepLog, HasAFirstSessionWithoutAPoint) {
    const std::string second = "session today, boot b2\nbefore a = 2\norder a: all\n";
    const sweep_log log = parse_log(gone_on_with(head + session) + second, "log");
    EXPECT_EQ(first_session(log).boot, "b1");
    EXPECT_EQ(last_begun(log).boot, "b1"); // of none that was begun
}

TEST(SweepLog, IsRefusedWithTheLine) {
    const auto refused = [](const std::string& text) { return [text] { parse_log(text, "log"); }; };
    const auto short_log = [](int line) {
        return "log:" + std::to_string(line) +
               ": the log ends before it says what the sweep is: nothing was tried";
    };
    EXPECT_THAT(refused("mac = 1\n"),
                ThrowsMessage<mistake>("log:1: not 'brisel-tune sweep log, format 1'"));
    EXPECT_THAT(refused("brisel-tune list"),
                ThrowsMessage<mistake>("log:1: not 'brisel-tune sweep log, format 1'"));
    EXPECT_THAT(refused(""), ThrowsMessage<mistake>(short_log(1)));
    EXPECT_THAT(refused("brisel-tune sweep"), ThrowsMessage<mistake>(short_log(1)));
    EXPECT_THAT(refused(head.substr(0, head.size() - 1)), ThrowsMessage<mistake>(short_log(4)));
    EXPECT_THAT(refused(head.substr(0, head.find("run")) + session),
                ThrowsMessage<mistake>("log:4: 'session today, boot b1' is no line of a log"));
    EXPECT_THAT(refused(head + "session today\n"),
                ThrowsMessage<mistake>("log:5: a session without its boot"));
    EXPECT_THAT(refused(head + "before a = 1\n"),
                ThrowsMessage<mistake>("log:5: 'before a = 1' is no line of a log"));
    EXPECT_THAT(refused(head + "order a: 1\n"),
                ThrowsMessage<mistake>("log:5: 'order a: 1' is no line of a log"));
    EXPECT_THAT(refused(head + session + "pass 1 s\n"),
                ThrowsMessage<mistake>("log:8: 'pass 1 s' is no line of a log"));
    EXPECT_THAT(refused(head + session + "try a=1\npas\n"),
                ThrowsMessage<mistake>("log:9: 'pas' is no line of a log"));
    EXPECT_THAT(refused(head + session + "tryst a=1\n"),
                ThrowsMessage<mistake>("log:8: 'tryst a=1' is no line of a log"));
    EXPECT_THAT(refused(head + session + "try 'a\n"),
                ThrowsMessage<mistake>("log:8: a quote that is not closed"));
}

} // namespace sweep_parts_test

#include "tune/sweep/trial.hpp"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/limited.hpp"
#include "support/open_files.hpp"
#include "support/temp_dir.hpp"
#include "support/text_file.hpp"
#include "tune/sweep/user_signals.hpp"
#include "tune/text/mistake.hpp"

// A run of a test, with the shell as the test.

namespace trial_test {

using testing::HasSubstr;
using testing::ThrowsMessage;

class Trial : public testing::Test {
protected:
    /** However these tests were started: what is ignored stays so. */
    class default_signals {
    public:
        default_signals() {
            for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
                std::signal(number, SIG_DFL);
            }
        }
    };

    /** A run of a script of the shell. */
    static trial shell(const std::string& script) {
        return trial({"sh", "-c", script}, {{"BRISEL_NAME", "mac"}, {"BRISEL_VALUE", "5"}});
    }

    /** Waits until a file is there. */
    static void wait_for(const std::string& path) {
        while (access(path.c_str(), F_OK) != 0) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    const default_signals m_default;
    const user_signals m_signals;
    const temp_dir m_folder;
};

TEST_F(Trial, PassesWithStatusNothing) {
    trial t = shell("exit 0");
    EXPECT_EQ(t.run({}), run_end::passed);
    EXPECT_EQ(t.output(), "");
}

TEST_F(Trial, FindsItsCommandAsTheShellDoes) {
    const std::string before = getenv("PATH");
    const std::string folder = m_folder.path().string();
    write_text(folder + "/a-test", "");
    const auto refused = [] { return [] { check_command("a-test"); }; };
    setenv("PATH", ("/no/folder:" + folder).c_str(), 1);
    EXPECT_THAT(refused(),
                ThrowsMessage<mistake>("cannot execute 'a-test': it is in no folder of PATH"));
    chmod((folder + "/a-test").c_str(), 0755);
    check_command("a-test");
    check_command(folder + "/a-test");
    // An empty one is the folder in which it is started.
    const std::filesystem::path here = std::filesystem::current_path();
    std::filesystem::current_path(folder);
    setenv("PATH", "/no/folder:", 1);
    check_command("a-test");
    std::filesystem::current_path(here);
    EXPECT_THAT(refused(), ThrowsMessage<mistake>(HasSubstr("in no folder")));
    unsetenv("PATH");
    check_command("sh"); // in /bin
    setenv("PATH", before.c_str(), 1);
}

TEST_F(Trial, FailsWithAnyOther) {
    EXPECT_EQ(shell("exit 1").run({}), run_end::failed);
    EXPECT_EQ(shell("exit 126").run({}), run_end::failed); // the shell's own
    EXPECT_EQ(shell("kill -9 $$").run({}), run_end::failed);
}

TEST_F(Trial, TellsTheTestWhatIsTried) {
    trial t = shell("echo $BRISEL_NAME $BRISEL_VALUE; read line || echo nothing to read >&2");
    EXPECT_EQ(t.run({}), run_end::passed);
    EXPECT_EQ(t.output(), "mac 5\nnothing to read\n");
}

TEST_F(Trial, LeavesNeitherAFileOpenNorACore) {
    const std::ptrdiff_t before = open_files();
    {
        trial t = shell("ulimit -S -c; ulimit -H -c");
        EXPECT_EQ(t.run({}), run_end::passed);
        EXPECT_EQ(t.output(), "0\n0\n");
    }
    EXPECT_EQ(open_files(), before);
}

TEST_F(Trial, MayCleanUpBehindATimeout) {
    const std::string file = m_folder.file("cleaned-up");
    trial t =
        shell("trap 'sleep 0.3; touch " + file + "; exit' TERM; while :; do sleep 0.05; done");
    EXPECT_EQ(t.run(0.2), run_end::timed_out);
    EXPECT_EQ(access(file.c_str(), F_OK), 0);
}

TEST_F(Trial, KeepsTheEndOfALongOutput) {
    trial t = shell("i=0; while [ $i -lt 2000 ]; do echo line $i; i=$((i + 1)); done");
    EXPECT_EQ(t.run({}), run_end::passed);
    EXPECT_EQ(t.output().size(), 4096U);
    EXPECT_TRUE(t.output().ends_with("line 1998\nline 1999\n"));
}

TEST_F(Trial, CannotExecuteWhatIsNotThere) {
    trial t({"/no/such/test"}, {});
    EXPECT_EQ(t.run({}), run_end::not_executed);
    EXPECT_EQ(t.output(), "cannot execute /no/such/test: No such file or directory");
    trial folder({"/tmp"}, {});
    EXPECT_EQ(folder.run({}), run_end::not_executed);
    EXPECT_EQ(folder.output(), "cannot execute /tmp: Permission denied");
}

TEST_F(Trial, DoesNothingBeforeItIsToldTo) {
    { const trial t = shell("touch " + m_folder.file("begun")); }
    EXPECT_NE(access((m_folder.file("begun")).c_str(), F_OK), 0);
}

TEST_F(Trial, EndsWithItsParentBeforeItIsToldToBegin) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t parent = fork();
    if (parent == 0) {
        const std::vector<std::unique_ptr<trial>> trials = [] {
            std::vector<std::unique_ptr<trial>> made(3);
            for (auto& each : made) {
                each = std::make_unique<trial>(std::vector<std::string>{"true"},
                                               std::vector<std::pair<std::string, std::string>>());
            }
            return made;
        }();
        std::_Exit(0);
    }
    close(ends[1]);
    waitpid(parent, nullptr, 0);
    char nothing = 0;
    EXPECT_EQ(read(ends[0], &nothing, 1), 0); // nobody is left who holds the other end
    close(ends[0]);
}

TEST_F(Trial, EndsAtItsTime) {
    trial t = shell("echo begun; sleep 1000");
    EXPECT_EQ(t.run(0.2), run_end::timed_out);
    EXPECT_EQ(t.output(), "begun\n");
}

TEST_F(Trial, IsKilledWhenItDoesNotEnd) {
    trial t = shell("trap '' TERM; echo begun; while :; do sleep 0.01; done");
    EXPECT_EQ(t.run(0.2), run_end::timed_out);
}

TEST_F(Trial, TakesItsWholeGroupAlong) {
    const std::string file = m_folder.file("process");
    trial t = shell("exec 3>" + file + "; sleep 1000 & echo $! >&3; exit 0");
    EXPECT_EQ(t.run({}), run_end::passed);
    const pid_t left = std::stoi(text_of(file));
    while (kill(left, 0) == 0) { // until its new parent has taken notice
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

TEST_F(Trial, WaitsForNothingThatIsClosed) {
    trial t = shell("exec >&- 2>&-; sleep 0.05; exit 3");
    EXPECT_EQ(t.run({}), run_end::failed);
}

TEST_F(Trial, IsInterruptedByTheUser) {
    trial t = shell("kill -INT " + std::to_string(getpid()) + "; sleep 1000");
    EXPECT_EQ(t.run({}), run_end::interrupted);
    EXPECT_EQ(user_signals::noted(), SIGINT);
}

TEST_F(Trial, IsNotStoppedByTheUsersStop) {
    trial t = shell("kill -TSTP " + std::to_string(getpid()) + "; sleep 0.05");
    EXPECT_EQ(t.run({}), run_end::passed);
    std::signal(SIGTSTP, SIG_IGN); // takes away the one that waits for the end of the sweep
    std::signal(SIGTSTP, SIG_DFL);
}

TEST_F(Trial, NeedsAProcess) {
    const auto with_files = [](rlim_t most) -> std::string {
        try {
            const limited files(RLIMIT_NOFILE, most);
            const trial t({"true"}, {});
        } catch (const mistake& problem) {
            return problem.what();
        }
        return "";
    };
    const int next = dup(STDIN_FILENO);
    close(next);
    const auto now_open = static_cast<rlim_t>(next);
    EXPECT_EQ(with_files(now_open), "no process for a test: Too many open files");     // no socket
    EXPECT_EQ(with_files(now_open + 2), "no process for a test: Too many open files"); // no pipe
}

TEST(UserSignals, NoteTheFirst) {
    const user_signals signals;
    EXPECT_EQ(user_signals::noted(), 0);
    raise(SIGTERM);
    raise(SIGHUP);
    EXPECT_EQ(user_signals::noted(), 0); // not yet
    user_signals::let_come();
    EXPECT_THAT(user_signals::noted(), testing::AnyOf(SIGTERM, SIGHUP));
    const auto begin = std::chrono::steady_clock::now();
    user_signals::wait_for(1000);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(100));
}

} // namespace trial_test

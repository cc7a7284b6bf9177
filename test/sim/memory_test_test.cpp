#include <fstream>
#include <optional>
#include <sstream>

#include <fcntl.h>
#include <unistd.h>

#include "cli/process.hpp"
#include "model/lane_eye.hpp"
#include "sim/board_fixture.hpp"

// The memory test on the board: it passes, it fails, or the board dies.

namespace memory_test_test {

namespace fs = std::filesystem;

constexpr int killed = -SIGKILL;

std::string text_of(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

/** A pipe; what is written to its second end comes out of its first. */
struct pipe_ends {
    explicit pipe_ends(std::array<int, 2> made = {})
        : read_end((pipe(made.data()), made[0])), write_end(made[1]) {}
    descriptor read_end;
    descriptor write_end;

    /** What comes out at once, at most one line of it. */
    std::string take() {
        std::array<char, 100> text{};
        const ssize_t size = read(read_end, text.data(), text.size());
        return {text.data(), size < 0 ? 0 : static_cast<std::size_t>(size)};
    }
};

/** A shell that says "ready" once it runs, and then waits for a line and ends with status 7. */
class waiting_shell {
public:
    explicit waiting_shell(std::vector<std::string> words, const std::string& folder) {
        for (const char* const word : {"/bin/sh", "-c", "echo ready; read line; exit 7"}) {
            words.push_back(word);
        }
        m_process =
            start({.words = words,
                   .environment = {{"BRISEL_BUILD", BRISEL_BUILD_DIR}, {"BRISEL_BOARD", folder}},
                   .in = m_in.read_end,
                   .out = m_out.write_end,
                   .err = STDERR_FILENO});
        EXPECT_EQ(m_out.take(), "ready\n");
    }

    /** Sends it a line, and gives its end. */
    int end() {
        EXPECT_EQ(write(m_in.write_end, "\n", 1), 1);
        return wait_for(m_process);
    }

private:
    pipe_ends m_in;
    pipe_ends m_out;
    pid_t m_process;
};

class MemoryTest : public board_fixture {
protected:
    void SetUp() override {
        board_fixture::SetUp();
        board("-r");
    }

    /** Runs a shell script on the board where a memory test lets it die; gives its end. */
    int let_die(const std::string& script, int out = -1) const {
        std::ofstream(state() / "eyes") << "eye orlin-ddra-read0::dq3 -50 -40\n";
        const descriptor none("/dev/null", O_RDWR);
        return wait_for(start({.words = {BOARD_LAUNCHER, "-b", state(), "-T", file("trace"),
                                         "/bin/sh", "-c", script, "script", file("data")},
                               .environment = {{"BRISEL_BUILD", BRISEL_BUILD_DIR}},
                               .in = none,
                               .out = out < 0 ? none : out,
                               .err = none}));
    }

    std::string file(const std::string& name) const { return state().parent_path() / name; }
    std::string data() const { return text_of(file("data")); }
    std::string boot() const { return text_of(state() / "root/proc/sys/kernel/random/boot_id"); }
    std::string rdqs() const { return text_of(state() / "root/sys/kernel/debug/mmc0/rdqs"); }
    std::string registers() const { return text_of(state() / "registers"); }
};

TEST_F(MemoryTest, PassesAtPowerOnByEitherName) {
    for (const char* const name : {"memory-test", "'" MEMORY_TEST "'"}) {
        const outcome run = board(name);
        EXPECT_EQ(run.output, "memory-test: 272 lanes pass\n");
        EXPECT_EQ(run.status, 0);
    }
}

TEST_F(MemoryTest, NamesTheLanesThatFail) {
    std::ofstream(state() / "eyes", std::ios::app) << "hole pelune-ddr-read3::dq7 -20 +20\n";
    const outcome run = board("-w 'orlin-ddra-read0::dq3 0x52' memory-test");
    EXPECT_EQ(run.output, "memory-test: orlin-ddra-read0::dq3 reads wrong bits\n"
                          "memory-test: pelune-ddr-read3::dq7 reads wrong bits\n");
    EXPECT_EQ(run.status, 1);
}

TEST_F(MemoryTest, LooksAtTheVoltageAndTheStrengthsOfTheBoard) {
    const std::string echo = "sh -c 'echo 960000 >/sys/class/regulator/regulator.4/microvolts'";
    EXPECT_EQ(board("-w 'orlin-ddra::odt 3' memory-test").status, 0);
    EXPECT_EQ(board("-w 'orlin-ddra::odt 2' memory-test").status, 1);
    EXPECT_EQ(board("-w 'orlin-ddra::odt 4' " + echo).status, 0);
    EXPECT_EQ(board("memory-test").status, 1);
}

TEST_F(MemoryTest, WhatMakesNoSenseIsRefusedWithStatusTwo) {
    EXPECT_EQ(board("memory-test now").output, "memory-test: takes no arguments\n");
    std::ofstream(state() / "eyes") << "edge 3\nedges 3\n";
    const outcome run = board("memory-test");
    EXPECT_EQ(run.output,
              "memory-test: " + (state() / "eyes").string() + ":2: 'edges' is no kind of line\n");
    EXPECT_EQ(run.status, 2);
    const std::string volts = "/sys/class/regulator/regulator.9/microvolts";
    std::ofstream(state() / "eyes") << "shift *::dq0 " << volts << " 900000 10000\n";
    EXPECT_EQ(board("memory-test").output, "memory-test: " + (state() / "root").string() + volts +
                                               ": No such file or directory\n");
    EXPECT_EQ(board("env -u BRISEL_BOARD -u LD_PRELOAD memory-test").output,
              "memory-test: not on a board: start it with sim/board\n");
}

TEST_F(MemoryTest, ABoardWithoutEyesHasThoseOfPowerOn) {
    fs::remove(state() / "eyes");
    EXPECT_EQ(board("memory-test").status, 0);
    EXPECT_EQ(board("-w 'orlin-ddra-read0::dq3 0x52' memory-test").status, 1);
}

TEST_F(MemoryTest, ABoardThatDiesTakesEveryProcessOnItAndNoOther) {
    waiting_shell on_it({BOARD_LAUNCHER}, state());
    waiting_shell on_another({BOARD_LAUNCHER}, file("another"));
    waiting_shell outside({}, state());
    EXPECT_EQ(let_die("memory-test; echo still alive >\"$1\""), killed);
    EXPECT_EQ(on_it.end(), killed);
    EXPECT_EQ(on_another.end(), 7);
    EXPECT_EQ(outside.end(), 7);
    EXPECT_FALSE(fs::exists(file("data")));
}

TEST_F(MemoryTest, TwoTestsAtOnceDieTogether) {
    EXPECT_EQ(let_die("memory-test & memory-test & wait; wait"), killed);
}

TEST_F(MemoryTest, AfterADeathTheBoardIsAsAtPowerOnInAnotherBoot) {
    const std::string power_on = registers();
    const std::string first_boot = boot();
    std::ofstream(state() / "faults", std::ios::app) << "# mine\n";
    board("-w 'orlin-ddra::odt 3' -w 'orlin-ddra-read0::dq3 1' "
          "sh -c 'echo 50 >/sys/kernel/debug/mmc0/rdqs'");
    std::ofstream(state() / "root/tmp/brisel.lock") << "left alone";
    EXPECT_NE(registers(), power_on);
    EXPECT_EQ(rdqs(), "50\n");
    EXPECT_EQ(let_die("exec 3>>/tmp/brisel.lock; memory-test"), killed);
    EXPECT_EQ(registers(), power_on);
    EXPECT_EQ(rdqs(), "40\n");
    EXPECT_EQ(text_of(state() / "root/tmp/brisel.lock"), "left alone");
    EXPECT_TRUE(text_of(state() / "faults").ends_with("# mine\n"));
    EXPECT_EQ(text_of(state() / "eyes"), "eye orlin-ddra-read0::dq3 -50 -40\n");
    EXPECT_FALSE(fs::exists(state() / "synced"));
    EXPECT_EQ(first_boot.substr(0, 9), "00000001-");
    EXPECT_EQ(boot().substr(0, 9), "00000002-");
    EXPECT_EQ(boot().size(), 37U);
    EXPECT_NE(boot().substr(9), first_boot.substr(9));
    board("-r");
    EXPECT_EQ(board("cat /proc/sys/kernel/random/boot_id").output, boot());
    EXPECT_EQ(boot().substr(0, 9), "00000003-");
}

TEST_F(MemoryTest, TrainingAfterADeathMovesDelaysAsTheBootsNumberSays) {
    std::istringstream before(registers());
    const register_table old_table = register_table::parse(before, "before");
    for (const char* const folder : {"state", "another"}) {
        board(std::string("-b ") + folder + " -r");
        std::ofstream(file(folder) + "/eyes") << "retrain 2\neye pelune-ddr-read3::dq7 30 40\n";
        fs::remove(file(folder) + "/root/proc/sys/kernel/random/boot_id");
        board(std::string("-b ") + folder + " memory-test");
    }
    EXPECT_EQ(registers(), text_of(file("another/registers")));
    std::istringstream after(registers());
    const register_table table = register_table::parse(after, "after");
    int moved = 0;
    table.for_each([&](const register_key& place, const register_entry& entry) {
        const std::uint32_t old_word = old_table.find(place)->word;
        const bool is_lane = entry.name.find("::dq") != std::string::npos;
        const int step = is_lane ? delay_of(entry.word) - delay_of(old_word) : 0;
        EXPECT_LE(std::abs(step), 2) << entry.name;
        EXPECT_EQ(is_lane ? with_delay(entry.word, 0) : entry.word,
                  is_lane ? with_delay(old_word, 0) : old_word);
        moved += step == 0 ? 0 : 1;
    });
    EXPECT_GT(moved, 136);
}

struct loss_row {
    const char* script; ///< $1 is a file that holds "old" and a line break
    const char* left;   ///< of it
};

TEST_F(MemoryTest, OnlyWhatWasSyncedIsLeftOfFilesThatWereOpen) {
    const loss_row rows[] = {
        {"exec 3>>\"$1\"; echo new >&3; memory-test", "old\n"},
        {"exec 3>>\"$1\"; echo new >&3; sync -d \"$1\"; echo lost >&3; memory-test", "old\nnew\n"},
        {"exec 3>>\"$1\"; echo new >&3; sync \"$1\"; echo lost >&3; memory-test", "old\nnew\n"},
        {"exec 3>\"$1\"; echo new >&3; memory-test", ""},
        {"sync \"$1\"; exec 3>\"$1\"; echo new >&3; memory-test", ""},
        {"echo new >>\"$1\"; exec 3>>\"$1\"; echo lost >&3; memory-test", "old\n"},
        {"echo new >>\"$1\"; memory-test", "old\nnew\n"},
        {"exec 3<\"$1\"; memory-test", "old\n"},
        {"(echo new; while ! grep -q new \"$1\"; do :; done; memory-test) |"
         " dd bs=9 oflag=dsync,append conv=notrunc of=\"$1\" status=none",
         "old\nnew\n"},
    };
    for (const loss_row& row : rows) {
        std::ofstream(file("data")) << "old\n";
        EXPECT_EQ(let_die(row.script), killed) << row.script;
        EXPECT_EQ(data(), row.left) << row.script;
    }
}

TEST_F(MemoryTest, OfAnOutputThatGoesToAFileTheRunsOwnPartIsLost) {
    std::ofstream(file("data")) << "old\n";
    const descriptor out(file("data"), O_WRONLY | O_APPEND);
    EXPECT_EQ(let_die("echo lost; memory-test", out), killed);
    EXPECT_EQ(data(), "old\n");
}

TEST_F(MemoryTest, TheTraceIsNoFileOfTheBoardAndStays) {
    EXPECT_EQ(let_die("cat /sys/kernel/debug/mmc0/rdqs; exec 3>>\"${1%data}trace\"; echo end >&3; "
                      "memory-test"),
              killed);
    const std::string trace = text_of(file("trace"));
    EXPECT_TRUE(trace.starts_with("open /sys/kernel/debug/mmc0/rdqs r\n")) << trace;
    EXPECT_TRUE(trace.ends_with("end\n")) << trace;
}

TEST_F(MemoryTest, WhatNobodyHasReadFromAPipeIsLost) {
    pipe_ends out;
    EXPECT_EQ(let_die("echo lost; memory-test", out.write_end), killed);
    out.write_end.close();
    EXPECT_EQ(out.take(), "");
}

} // namespace memory_test_test

#include <fstream>
#include <set>

#include "sim/board_fixture.hpp"

// The board's folder, its files and its faults, by way of the launcher.

namespace board_run_test {

namespace fs = std::filesystem;

class BoardRun : public board_fixture {};

TEST_F(BoardRun, WhatWasWrittenIsThereInTheNextRun) {
    probe("open map=0x18428000 write=0x1842812c:0x20e unmap map=0x18428000 "
          "write=0x18428194:0xc5 unmap");
    EXPECT_EQ(board("'" BOARD_PROBE "' open map=0x18428000 read=0x18428194 unmap").output,
              "0x000000c5\n");
}

TEST_F(BoardRun, ResetBringsBackPowerOn) {
    probe("open map=0x18428000 write=0x18428120:0 unmap");
    board("-r");
    EXPECT_EQ(board("'" BOARD_PROBE "' open map=0x18428000 read=0x18428120 unmap").output,
              "0x40eb02b4\n");
}

TEST_F(BoardRun, AChildOfTheProgramIsOnTheBoardToo) {
    const outcome run = board("'" BOARD_PROBE "' open fork map=0x18428000 read=0x18428120 unmap");
    EXPECT_EQ(run.output, "0x40eb02b4\n0x40eb02b4\n");
}

TEST_F(BoardRun, FaultsOfARunShowInItAndAreGoneAfterIt) {
    EXPECT_EQ(probe("open", "-f 'no-open /dev/zeb_mem EACCES'").output,
              "open /dev/zeb_mem rw failed: Permission denied\n"
              "open: Permission denied\n");
    EXPECT_EQ(probe("open map=0x18428000", "-f 'no-map 0x18428120'").output,
              "open /dev/zeb_mem rw\n"
              "map 0x18428000 failed: Operation not permitted\n"
              "mmap: Operation not permitted\n");
    EXPECT_EQ(board("-f 'stuck 0x18428120 0xf' -f 'reads-as 0x1842812c 7' '" BOARD_PROBE "' open "
                    "map=0x18428000 write=0x18428120:0 unmap map=0x18428000 read=0x18428120 unmap "
                    "map=0x18428000 read=0x1842812c unmap")
                  .output,
              "0x00000004\n0x00000007\n");
    EXPECT_EQ(probe("open").output, "open /dev/zeb_mem rw\n");
}

TEST_F(BoardRun, FilesOfTheBoardTakeThePlaceOfTheMachines) {
    EXPECT_EQ(board("-t cat /sys/kernel/debug/mmc0/rdqs").output,
              "open /sys/kernel/debug/mmc0/rdqs r\n"
              "40\n"
              "close /sys/kernel/debug/mmc0/rdqs\n");
    board("-f 'content /sys/kernel/debug/mmc0/rdqs 7' "
          "sh -c 'echo 41 >/sys/kernel/debug/mmc0/rdqs'");
    EXPECT_EQ(board("cat /sys/kernel/debug/mmc0/rdqs").output, "41\n");
    EXPECT_EQ(board("-f 'content /sys/kernel/debug/mmc0/rdqs what now' "
                    "cat /sys/kernel/debug/mmc0/rdqs")
                  .output,
              "what now\n");
    const outcome refused = board("-t -f 'no-write /sys/kernel/debug/mmc0/rdqs' "
                                  "sh -c 'echo 42 >/sys/kernel/debug/mmc0/rdqs'");
    EXPECT_EQ(first_lines(refused.output, 1),
              "open /sys/kernel/debug/mmc0/rdqs w failed: Permission denied\n");
    EXPECT_EQ(board("cat /sys/kernel/debug/mmc0/rdqs").output, "41\n");
}

TEST_F(BoardRun, ACallFailsByItsNumberAndIsTracedAsFailed) {
    const std::string twice = "open map=0x18428000 read=0x18428120 unmap close ";
    EXPECT_NE(probe(twice + twice, "-f 'fail open 2 EMFILE'")
                  .output.find("close /dev/zeb_mem\n"
                               "open /dev/zeb_mem rw failed: Too many open files\n"),
              std::string::npos);
    EXPECT_NE(probe(twice + twice, "-f 'fail mmap 2'")
                  .output.find("open /dev/zeb_mem rw\n"
                               "map 0x18428000 failed: Operation not permitted\n"),
              std::string::npos);
    EXPECT_NE(board("-t -f 'fail flock 2' brisel -i")
                  .output.find("\nunlock /tmp/brisel.lock failed: No locks available\n"),
              std::string::npos);
}

TEST_F(BoardRun, ASignalComesWithACallToTheWholeProcessGroup) {
    const outcome run = board("-t -f 'signal mmap 2 SIGTERM' setsid -w sh -c \"trap 'echo caught' "
                              "TERM; '" BOARD_PROBE "' open map=0x18428000 read=0x18428120 unmap "
                              "map=0x18428000 write=0x18428120:0 unmap; :\"");
    EXPECT_NE(run.output.find("unmap 0x18428000\nsignal SIGTERM\n"), std::string::npos)
        << run.output;
    EXPECT_TRUE(run.output.ends_with("\ncaught\n")) << run.output;
    EXPECT_EQ(run.output.find("write"), std::string::npos) << run.output;
}

TEST_F(BoardRun, TransfersOfTheBoardsFilesAloneAreCounted) {
    EXPECT_EQ(board("-t -f 'fail read 1 EISDIR' cat /dev/null /sys/kernel/debug/mmc0/rdqs").output,
              "open /sys/kernel/debug/mmc0/rdqs r\n"
              "read /sys/kernel/debug/mmc0/rdqs failed: Is a directory\n"
              "cat: /sys/kernel/debug/mmc0/rdqs: Is a directory\n"
              "close /sys/kernel/debug/mmc0/rdqs\n");
    EXPECT_EQ(board("-t -f 'fail write 1 ENOSPC' brisel mmc::rdqs 50").output,
              "open /sys/kernel/debug/mmc0/rdqs r\n"
              "close /sys/kernel/debug/mmc0/rdqs\n"
              "open /tmp/brisel.lock rw\n"
              "lock /tmp/brisel.lock\n"
              "open /sys/kernel/debug/mmc0/rdqs w\n"
              "write /sys/kernel/debug/mmc0/rdqs failed: No space left on device\n"
              "close /sys/kernel/debug/mmc0/rdqs\n"
              "BRISEL: set mmc::rdqs := 50\n"
              "unlock /tmp/brisel.lock\n");
}

TEST_F(BoardRun, ALockThatFailsIsTracedAsFailed) {
    const outcome run = board("-t -f 'no-lock /tmp/brisel.lock EINTR' brisel -h");
    EXPECT_NE(run.output.find("\nlock /tmp/brisel.lock failed: Interrupted system call\n"),
              std::string::npos)
        << run.output;
    EXPECT_EQ(run.status, 255);
}

TEST_F(BoardRun, ALineThatMakesNoSenseEndsTheRunBeforeItBegins) {
    board("-r");
    std::ofstream(state() / "registers", std::ios::app) << "0x18428120 - 1 rw again\n";
    const outcome bad_table = probe("open");
    EXPECT_EQ(bad_table.status, 2);
    EXPECT_NE(bad_table.output.find("/registers:"), std::string::npos) << bad_table.output;
    EXPECT_NE(bad_table.output.find(": this word is listed already\n"), std::string::npos)
        << bad_table.output;
    board("-r");
    const outcome bad_fault = probe("open", "-f broken");
    EXPECT_EQ(bad_fault.status, 2);
    EXPECT_EQ(bad_fault.output, "sim/board: -f:1: 'broken' is no kind of fault\n");
    const outcome misplaced = probe("open", "-f '#' -f 'stuck 0x18428124 1'");
    EXPECT_EQ(misplaced.status, 2);
    EXPECT_EQ(misplaced.output, "sim/board: -f:2: no register lies at 0x18428124\n");
}

TEST_F(BoardRun, WhatIsNoProgramIsRefused) {
    board("-r");
    const fs::path file = state() / "words";
    std::ofstream(file) << "not a program";
    fs::permissions(file, fs::perms::owner_all);
    const outcome run = board("state/words");
    EXPECT_NE(run.output.find("it is no dynamically linked program for this machine\n"),
              std::string::npos)
        << run.output;
    EXPECT_EQ(run.status, 2);
}

TEST_F(BoardRun, AScriptIsWhatItsInterpreterIs) {
    board("-r");
    const auto script_for = [this](const std::string& interpreter) {
        const fs::path script = state() / "script";
        std::ofstream(script) << "#! " << interpreter << "\ncat /sys/kernel/debug/mmc0/rdqs\n";
        fs::permissions(script, fs::perms::owner_all);
    };
    script_for("/bin/sh -e");
    EXPECT_EQ(board("state/script").output, "40\n");
    std::ofstream(state() / "words") << "not a program";
    script_for(state() / "words");
    EXPECT_EQ(board("state/script").status, 2);
}

TEST_F(BoardRun, AProgramThatChangesItsUserOrGroupIsRefused) {
    fs::create_directory(state().parent_path() / "bin");
    const fs::path program = state().parent_path() / "bin" / "program";
    fs::copy_file(BOARD_PROBE, program);
    EXPECT_EQ(board("bin/program").status, 0);
    for (const fs::perms change : {fs::perms::set_uid, fs::perms::set_gid}) {
        fs::permissions(program, fs::perms::owner_all | change);
        const outcome run = board("bin/program");
        EXPECT_NE(run.output.find("cannot run on a board: it changes its user or group\n"),
                  std::string::npos)
            << run.output;
        EXPECT_EQ(run.status, 2);
    }
}

TEST_F(BoardRun, AFolderThatHoldsSomethingElseIsLeftAlone) {
    fs::create_directory(state());
    std::ofstream(state() / "letter") << "dear";
    EXPECT_EQ(board("-r").status, 2);
    EXPECT_TRUE(fs::exists(state() / "letter"));
    EXPECT_FALSE(fs::exists(state() / "registers"));
}

TEST_F(BoardRun, NothingButTheBoardIsLeftInItsFolder) {
    probe("open map=0x18428000 write=0x18428120:0 unmap");
    std::set<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(state())) {
        names.insert(entry.path().filename());
    }
    EXPECT_EQ(names, (std::set<std::string>{"eyes", "faults", "registers", "root"}));
}

} // namespace board_run_test

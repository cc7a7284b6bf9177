#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "cli/board.hpp"
#include "cli/texts.hpp"

// The lock file that a run finds or makes. Those that it cannot open are rows of fault_cases.cpp.

namespace lock_file_test {

struct stat status_of(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    return status;
}

TEST(LockFile, OfSomeoneElseIsUsedAndLeftAsItIs) {
    const board on_board(board_setup().file(lock_file, "someone else's\n"));
    const std::string path = on_board.path(lock_file);
    if (geteuid() == 0) {
        ASSERT_EQ(chown(path.c_str(), 65534, 65534), 0);
    }
    ASSERT_EQ(chmod(path.c_str(), 0646), 0);
    const timespec long_ago[] = {{1000, 0}, {1000, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), long_ago, 0), 0);
    const struct stat before = status_of(path);
    EXPECT_EQ(on_board.run({sda, "5"}).status, 0);
    EXPECT_THAT(on_board.trace(), testing::Contains("lock /tmp/brisel.lock"));
    const struct stat after = status_of(path);
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_mtime, before.st_mtime);
    EXPECT_EQ(on_board.file(lock_file), "someone else's\n");
}

TEST(LockFile, BehindALinkIsUsedAndLeftAsItIs) {
    const board on_board(board_setup().file("/tmp/letter", "dear\n"));
    std::filesystem::create_symlink("letter", on_board.path(lock_file));
    EXPECT_EQ(on_board.run({sda, "5"}).status, 0);
    EXPECT_EQ(on_board.file("/tmp/letter"), "dear\n");
}

TEST(LockFile, IsCreatedForEveryoneThatTheUmaskLetsIn) {
    for (const mode_t mask : {mode_t{0}, mode_t{022}, mode_t{077}}) {
        const board on_board;
        const mode_t before = umask(mask);
        EXPECT_EQ(on_board.run({sda}).status, 0);
        umask(before);
        EXPECT_EQ(status_of(on_board.path(lock_file)).st_mode & 0777, 0666 & ~mask);
    }
}

} // namespace lock_file_test

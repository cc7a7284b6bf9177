#include "model/board_paths.hpp"

#include <gtest/gtest.h>

namespace board_paths_test {

TEST(BoardPaths, TheBoardsPlacesAndWhatLiesInThemAreTheBoards) {
    for (const char* const path :
         {"/dev/zeb_mem", "/tmp/brisel.lock", "/sys/class/regulator",
          "/sys/class/regulator/regulator.1/microvolts", "/sys/kernel/debug/mmc0/rdqs",
          "/proc/sys/kernel/random/boot_id", "/proc/mounts"}) {
        EXPECT_TRUE(is_board_path(path)) << path;
    }
}

TEST(BoardPaths, TheMachinesOwnFilesAreNot) {
    for (const char* const path :
         {"", "/", "/dev/null", "/dev/zeb_mem2", "/tmp/brisel.lock.old", "/sys/class",
          "/sys/class/regulators", "/proc/sys/kernel/random/uuid", "sys/class/regulator",
          "/home/sys/kernel/debug"}) {
        EXPECT_FALSE(is_board_path(path)) << path;
    }
}

} // namespace board_paths_test
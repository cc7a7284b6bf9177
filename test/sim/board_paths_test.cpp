#include "model/board_paths.hpp"

#include <gtest/gtest.h>

namespace sim {
namespace board_paths_test {

TEST(sim_board_paths, the_boards_places_and_what_lies_in_them_are_the_boards) {
    for (const char* const path :
         {"/dev/zeb_mem", "/tmp/brisel.lock", "/sys/class/regulator",
          "/sys/class/regulator/regulator.1/microvolts", "/sys/kernel/debug/mmc0/rdqs"}) {
        EXPECT_TRUE(is_board_path(path)) << path;
    }
}

TEST(sim_board_paths, the_machines_own_files_are_not) {
    for (const char* const path :
         {"", "/", "/dev/null", "/dev/zeb_mem2", "/tmp/brisel.lock.old", "/sys/class",
          "/sys/class/regulators", "sys/class/regulator", "/home/sys/kernel/debug"}) {
        EXPECT_FALSE(is_board_path(path)) << path;
    }
}

} // namespace board_paths_test
} // namespace sim

#include "sim/board_fixture.hpp"

#include <csignal>

// What the board makes of a program's accesses to the device node, right and wrong.

namespace board_access_test {

class sim_board_access : public board_fixture {};

TEST_F(sim_board_access, a_read_is_traced_with_everything_around_it) {
    const outcome run = probe("open map=0x18428000 read=0x18428120 unmap close");
    EXPECT_EQ(run.output, "open /dev/zeb_mem rw\n"
                          "map 0x18428000\n"
                          "read 0x18428120 0x40eb02b4 orlin-ddra i/o control\n"
                          "unmap 0x18428000\n"
                          "close /dev/zeb_mem\n"
                          "0x40eb02b4\n");
    EXPECT_EQ(run.status, 0);
}

TEST_F(sim_board_access, a_write_of_the_same_word_is_seen_as_a_write) {
    const outcome run = probe("open map=0x18428000 write=0x18428120:0x40eb02b4 unmap");
    EXPECT_NE(run.output.find("\nwrite 0x18428120 0x40eb02b4 orlin-ddra i/o control\n"),
              std::string::npos)
        << run.output;
}

TEST_F(sim_board_access, a_page_that_is_not_accessed_is_a_violation) {
    const outcome run = probe("open map=0x18428000 unmap");
    EXPECT_EQ(run.output, "open /dev/zeb_mem rw\n"
                          "map 0x18428000\n"
                          "violation page 0x18428000 was mapped for no access\n"
                          "sim/board: violation page 0x18428000 was mapped for no access\n");
    EXPECT_EQ(run.status, 128 + SIGABRT);
}

TEST_F(sim_board_access, a_second_access_in_a_mapping_is_a_violation) {
#if !defined(__x86_64__) && !defined(__i386__)
    GTEST_SKIP() << "only x86 stops a program after one access";
#endif
    for (const char* const steps : {
             "read=0x18428120 read=0x18428120",
             "read=0x18428120 read=0x1842812c",
             "read=0x18428120 write=0x18428120:1",
             "write=0x18428120:1 read=0x18428120",
             "write=0x18428120:1 write=0x18428120:1",
             "write=0x18428120:1 write=0x1842812c:1",
         }) {
        const outcome run = probe("open map=0x18428000 " + std::string(steps) + " unmap");
        EXPECT_NE(
            run.output.find("\nviolation page 0x18428000 was mapped for more than one access\n"),
            std::string::npos)
            << steps << '\n'
            << run.output;
        EXPECT_EQ(run.status, 128 + SIGABRT) << steps;
    }
}

TEST_F(sim_board_access, a_store_of_more_than_a_word_is_a_violation) {
    const outcome run = probe("open map=0x1170c000 write-two=0x1170c008 unmap");
    EXPECT_EQ(first_lines(run.output, 3),
              "open /dev/zeb_mem rw\nmap 0x1170c000\n"
              "violation word 0x1170c00c was written along with 0x1170c008\n");
    EXPECT_EQ(run.status, 128 + SIGABRT);
}

TEST_F(sim_board_access, a_fault_elsewhere_ends_the_program_as_ever) {
    setenv("ASAN_OPTIONS", "handle_segv=0", 1);
    EXPECT_EQ(probe("open map=0x18428000 crash").status, 128 + SIGSEGV);
    EXPECT_EQ(probe("open map=0x18428000 read=0x18428120 unmap crash").status, 128 + SIGSEGV);
}

TEST_F(sim_board_access, other_ways_to_open_and_map_than_the_hardwares_are_violations) {
    EXPECT_EQ(first_lines(probe("open-async").output, 1),
              "violation device node opened without O_RDWR | O_SYNC\n");
    EXPECT_EQ(first_lines(probe("open map-long=0x18428000").output, 2),
              "open /dev/zeb_mem rw\nviolation mapping of 8192 bytes, not of one page\n");
    EXPECT_EQ(first_lines(probe("open map=0x18428000 map=0x18428000").output, 3),
              "open /dev/zeb_mem rw\nmap 0x18428000\n"
              "violation mapping of a second page while one is mapped\n");
}

TEST_F(sim_board_access, an_access_where_no_register_lies_is_a_bus_error) {
    for (const char* const step : {"read=0x18428124", "write=0x18428124:1"}) {
        const outcome run = probe("open map=0x18428000 " + std::string(step) + " unmap");
        EXPECT_EQ(run.output, "open /dev/zeb_mem rw\n"
                              "map 0x18428000\n"
                              "bus-error 0x18428124\n"
                              "sim/board: bus-error 0x18428124\n");
        EXPECT_EQ(run.status, 128 + SIGBUS);
    }
}

TEST_F(sim_board_access, an_access_across_words_is_a_bus_error) {
    const outcome run = probe("open map=0x18428000 read-unaligned=0x1842812d unmap");
    EXPECT_EQ(first_lines(run.output, 3),
              "open /dev/zeb_mem rw\nmap 0x18428000\nbus-error 0x1842812d\n");
    EXPECT_EQ(run.status, 128 + SIGBUS);
}

TEST_F(sim_board_access, an_offset_that_is_no_page_cannot_be_mapped) {
    EXPECT_EQ(probe("open map=0x18428004").output, "open /dev/zeb_mem rw\n"
                                                   "map 0x18428004 failed: Invalid argument\n"
                                                   "mmap: Invalid argument\n");
}

} // namespace board_access_test

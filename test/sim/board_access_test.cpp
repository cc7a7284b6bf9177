#include <csignal>

#include "sim/board_fixture.hpp"

// What the board makes of a program's accesses to the device node, right and wrong.

namespace board_access_test {

class BoardAccess : public board_fixture {};

TEST_F(BoardAccess, AReadIsTracedWithEverythingAroundIt) {
    const outcome run = probe("open map=0x18428000 read=0x18428120 unmap close");
    EXPECT_EQ(run.output, "open /dev/zeb_mem rw\n"
                          "map 0x18428000\n"
                          "read 0x18428120 0x40eb02b4 orlin-ddra\n"
                          "unmap 0x18428000\n"
                          "close /dev/zeb_mem\n"
                          "0x40eb02b4\n");
    EXPECT_EQ(run.status, 0);
}

TEST_F(BoardAccess, AWriteOfTheSameWordIsSeenAsAWrite) {
    const outcome run = probe("open map=0x18428000 write=0x18428120:0x40eb02b4 unmap");
    EXPECT_NE(run.output.find("\nwrite 0x18428120 0x40eb02b4 orlin-ddra\n"), std::string::npos)
        << run.output;
}

TEST_F(BoardAccess, APageThatIsNotAccessedIsAViolation) {
    const outcome run = probe("open map=0x18428000 unmap");
    EXPECT_EQ(run.output, "open /dev/zeb_mem rw\n"
                          "map 0x18428000\n"
                          "violation page 0x18428000 was mapped for no access\n"
                          "sim/board: violation page 0x18428000 was mapped for no access\n");
    EXPECT_EQ(run.status, 128 + SIGABRT);
}

TEST_F(BoardAccess, ASecondAccessInAMappingIsAViolation) {
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

TEST_F(BoardAccess, AStoreOfMoreThanAWordIsAViolation) {
    const outcome run = probe("open map=0x1170c000 write-two=0x1170c008 unmap");
    EXPECT_EQ(first_lines(run.output, 3),
              "open /dev/zeb_mem rw\nmap 0x1170c000\n"
              "violation word 0x1170c00c was written along with 0x1170c008\n");
    EXPECT_EQ(run.status, 128 + SIGABRT);
}

TEST_F(BoardAccess, AFaultElsewhereEndsTheProgramAsEver) {
    setenv("ASAN_OPTIONS", "handle_segv=0", 1);
    EXPECT_EQ(probe("open map=0x18428000 crash").status, 128 + SIGSEGV);
    EXPECT_EQ(probe("open map=0x18428000 read=0x18428120 unmap crash").status, 128 + SIGSEGV);
}

TEST_F(BoardAccess, OtherWaysToOpenAndMapThanTheHardwaresAreViolations) {
    EXPECT_EQ(first_lines(probe("open-async").output, 1),
              "violation device node opened without O_RDWR | O_SYNC\n");
    EXPECT_EQ(first_lines(probe("open map-long=0x18428000").output, 2),
              "open /dev/zeb_mem rw\nviolation mapping of 8192 bytes, not of one page\n");
    EXPECT_EQ(first_lines(probe("open map=0x18428000 map=0x18428000").output, 3),
              "open /dev/zeb_mem rw\nmap 0x18428000\n"
              "violation mapping of a second page while one is mapped\n");
}

TEST_F(BoardAccess, AnAccessWhereNoRegisterLiesIsABusError) {
    for (const char* const step : {"read=0x18428124", "write=0x18428124:1"}) {
        const outcome run = probe("open map=0x18428000 " + std::string(step) + " unmap");
        EXPECT_EQ(run.output, "open /dev/zeb_mem rw\n"
                              "map 0x18428000\n"
                              "bus-error 0x18428124\n"
                              "sim/board: bus-error 0x18428124\n");
        EXPECT_EQ(run.status, 128 + SIGBUS);
    }
}

TEST_F(BoardAccess, AnAccessAcrossWordsIsABusError) {
    const outcome run = probe("open map=0x18428000 read-unaligned=0x1842812d unmap");
    EXPECT_EQ(first_lines(run.output, 3),
              "open /dev/zeb_mem rw\nmap 0x18428000\nbus-error 0x1842812d\n");
    EXPECT_EQ(run.status, 128 + SIGBUS);
}

TEST_F(BoardAccess, AnOffsetThatIsNoPageCannotBeMapped) {
    EXPECT_EQ(probe("open map=0x18428004").output, "open /dev/zeb_mem rw\n"
                                                   "map 0x18428004 failed: Invalid argument\n"
                                                   "mmap: Invalid argument\n");
}

} // namespace board_access_test

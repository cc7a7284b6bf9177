#include "model/fault_list.hpp"

#include <cerrno>
#include <csignal>
#include <sstream>

#include <gtest/gtest.h>

#include "model/text.hpp"

namespace fault_list_test {

constexpr const char* rdqs = "/sys/kernel/debug/mmc0/rdqs";

register_table registers() {
    std::istringstream text("0x18428120 - 0 rw orlin-ddra\n"
                            "0x1842812c - 0 rw orlin-ddra select\n"
                            "0x18428194 0x307 0 rw orlin-ddra-read1::dq3\n"
                            "0x10040008 - 0 rw mac-rx::delay\n"
                            "fields orlin-ddra odt=3..0 clkdrv=23..20\n"
                            "fields *::dq? 6..0\n"
                            "fields mac-* 23..20\n");
    return register_table::parse(text, "registers");
}

fault_list faults_of(const std::string& text) {
    fault_list faults;
    std::istringstream stream(text);
    faults.add_all(stream, "faults", registers());
    return faults;
}

std::string refusal_of(const std::string& line) {
    try {
        faults_of("# first\n\n" + line + "\n");
    } catch (const input_error& error) {
        return error.what();
    }
    return "no refusal";
}

TEST(FaultList, ABoardWithoutFaultsHasNone) {
    const fault_list faults = faults_of("# stuck 0x18428120 1\n\n  # no-open /dev/zeb_mem\n");
    EXPECT_EQ(faults.stuck_bits({0x18428120, std::nullopt}), 0U);
    EXPECT_EQ(faults.read_back({0x18428120, std::nullopt}, 5), 5U);
    EXPECT_EQ(faults.open_error("/dev/zeb_mem", true), std::nullopt);
    EXPECT_EQ(faults.map_error(0x18428120), std::nullopt);
    EXPECT_EQ(faults.lock_error("/tmp/brisel.lock"), std::nullopt);
    EXPECT_EQ(faults.content(rdqs), std::nullopt);
}

TEST(FaultList, StuckBitsOfOnePlaceAddUp) {
    const fault_list faults = faults_of("stuck 0x18428120 0x0f\nstuck 0x18428120 0xf00\n");
    EXPECT_EQ(faults.stuck_bits({0x18428120, std::nullopt}), 0xf0fU);
    EXPECT_EQ(faults.stuck_bits({0x10040008, std::nullopt}), 0U);
}

TEST(FaultList, ASelectorConfinesAFaultToOneBank) {
    const fault_list faults = faults_of("stuck 0x18428194/0x107 1\nreads-as 0x18428194 7\n"
                                        "reads-as 0x18428194/0x107 8\n");
    EXPECT_EQ(faults.stuck_bits({0x18428194, 0x107}), 1U);
    EXPECT_EQ(faults.stuck_bits({0x18428194, 0x207}), 0U);
    EXPECT_EQ(faults.read_back({0x18428194, 0x107}, 5), 8U);
    EXPECT_EQ(faults.read_back({0x18428194, 0x207}, 5), 7U);
}

TEST(FaultList, AFaultOfAPropertyIsAboutTheBitsOfItsField) {
    const fault_list faults = faults_of("stuck mac-rx::delay 3\nreads-as orlin-ddra::clkdrv 0xf\n"
                                        "reads-as orlin-ddra::odt 2\n"
                                        "stuck orlin-ddra-read1::dq3 0x7f\nno-map mac-rx::delay\n");
    EXPECT_EQ(faults.stuck_bits({0x10040008, std::nullopt}), 0x300000U);
    EXPECT_EQ(faults.read_back({0x18428120, std::nullopt}, 0x12345678), 0x12f45672U);
    EXPECT_EQ(faults.stuck_bits({0x18428194, 0x307}), 0x7fU);
    EXPECT_EQ(faults.stuck_bits({0x18428194, 0x207}), 0U);
    EXPECT_EQ(faults.map_error(0x10040000), EPERM);
}

TEST(FaultList, APathThatCannotBeOpenedTakesWhatLiesBelowWithIt) {
    const fault_list faults = faults_of("no-open /sys/class/regulator/regulator.2\n");
    EXPECT_EQ(faults.open_error("/sys/class/regulator/regulator.2", false), ENOENT);
    EXPECT_EQ(faults.open_error("/sys/class/regulator/regulator.2/microvolts", false), ENOENT);
    EXPECT_EQ(faults.open_error("/sys/class/regulator/regulator.1/microvolts", true), std::nullopt);
}

TEST(FaultList, APathThatCannotBeWrittenCanStillBeRead) {
    const fault_list faults = faults_of(std::string("no-write ") + rdqs + "\n");
    EXPECT_EQ(faults.open_error(rdqs, true), EACCES);
    EXPECT_EQ(faults.open_error(rdqs, false), std::nullopt);
}

TEST(FaultList, NotToBeOpenedAtAllGoesBeforeNotToBeWritten) {
    const fault_list faults = faults_of("no-write /dev/zeb_mem EROFS\nno-open /dev/zeb_mem EIO\n");
    EXPECT_EQ(faults.open_error("/dev/zeb_mem", true), EIO);
}

TEST(FaultList, ARefusedMappingConcernsTheWholePage) {
    const fault_list faults = faults_of("no-map 0x18428120\n");
    EXPECT_EQ(faults.map_error(0x18428000), EPERM);
    EXPECT_EQ(faults.map_error(0x18428ffc), EPERM);
    EXPECT_EQ(faults.map_error(0x18429000), std::nullopt);
}

TEST(FaultList, TheErrorCanBeNamedAndTheLastOneCounts) {
    const fault_list faults =
        faults_of("no-open /dev/zeb_mem EACCES\nno-open /dev/zeb_mem ENXIO\n"
                  "no-map 0x18428000 EINVAL\n"
                  "no-lock /tmp/brisel.lock\nno-lock /tmp/brisel.lock EINTR\n");
    EXPECT_EQ(faults.open_error("/dev/zeb_mem", true), ENXIO);
    EXPECT_EQ(faults.map_error(0x18428000), EINVAL);
    EXPECT_EQ(faults.lock_error("/tmp/brisel.lock"), EINTR);
    EXPECT_EQ(faults_of("no-lock /tmp/brisel.lock").lock_error("/tmp/brisel.lock"), ENOLCK);
}

TEST(FaultList, ContentIsTheRestOfTheLineOrNothing) {
    EXPECT_EQ(faults_of(std::string("content ") + rdqs + "  not a number \n").content(rdqs),
              "not a number");
    EXPECT_EQ(faults_of(std::string("content ") + rdqs + "\n").content(rdqs), "");
}

TEST(FaultList, ACallFailsByItsNumberAlone) {
    const fault_list faults = faults_of("fail read 3\n");
    EXPECT_EQ(faults.call_error(failing_call::read, 2), std::nullopt);
    EXPECT_EQ(faults.call_error(failing_call::read, 3), EIO);
    EXPECT_EQ(faults.call_error(failing_call::read, 4), std::nullopt);
    EXPECT_EQ(faults.call_error(failing_call::write, 3), std::nullopt);
}

TEST(FaultList, APlusHasAllLaterCallsFailToo) {
    const fault_list faults = faults_of("fail open 3+\nfail open 5 EAGAIN\n");
    EXPECT_EQ(faults.call_error(failing_call::open, 2), std::nullopt);
    EXPECT_EQ(faults.call_error(failing_call::open, 3), ENOENT);
    EXPECT_EQ(faults.call_error(failing_call::open, 4), ENOENT);
    EXPECT_EQ(faults.call_error(failing_call::open, 5), EAGAIN);
    EXPECT_EQ(faults.call_error(failing_call::open, 6), ENOENT);
}

TEST(FaultList, EveryCallHasAnErrorOfItsOwn) {
    const fault_list faults = faults_of("fail open 1\nfail mmap 1\nfail flock 1\nfail read 1\n"
                                        "fail write 1\n");
    EXPECT_EQ(faults.call_error(failing_call::open, 1), ENOENT);
    EXPECT_EQ(faults.call_error(failing_call::mmap, 1), EPERM);
    EXPECT_EQ(faults.call_error(failing_call::flock, 1), ENOLCK);
    EXPECT_EQ(faults.call_error(failing_call::read, 1), EIO);
    EXPECT_EQ(faults.call_error(failing_call::write, 1), EIO);
    EXPECT_EQ(faults_of("fail open 1 EMFILE").call_error(failing_call::open, 1), EMFILE);
}

TEST(FaultList, ASignalComesWithACallByItsNumber) {
    const fault_list faults = faults_of("signal mmap 3 SIGTERM\nsignal mmap 4+ SIGHUP\n");
    EXPECT_EQ(faults.call_signal(failing_call::mmap, 2), std::nullopt);
    EXPECT_EQ(faults.call_signal(failing_call::mmap, 3), SIGTERM);
    EXPECT_EQ(faults.call_signal(failing_call::mmap, 9), SIGHUP);
    EXPECT_EQ(faults.call_signal(failing_call::open, 3), std::nullopt);
    EXPECT_EQ(faults.call_error(failing_call::mmap, 3), std::nullopt);
}

TEST(FaultList, ALineThatMakesNoSenseIsRefusedWithItsPlace) {
    const struct {
        const char* line;
        const char* message;
    } rows[] = {
        {"broken", "'broken' is no kind of fault"},
        {"stuck", "the address is missing"},
        {"stuck 0x18428120", "the mask is missing"},
        {"stuck 0x18428120 0xfg", "'0xfg' is no mask"},
        {"stuck 0x18428120 1 2", "'2' is too much"},
        {"stuck 0x18428120/0x107 1", "the register at 0x18428120 is not banked"},
        {"stuck 0x18428194/ 1", "the selector is missing"},
        {"reads-as 0x18428120 red", "'red' is no word"},
        {"stuck 0x18428124 1", "no register lies at 0x18428124"},
        {"stuck mac-tx::delay 1", "no such property: 'mac-tx::delay'"},
        {"stuck mac-rx::delay 16", "'16' has more bits than the field"},
        {"no-open", "'' is no path of the board"},
        {"no-open /etc/passwd", "'/etc/passwd' is no path of the board"},
        {"no-open /dev/zeb_mem ENOSUCH", "'ENOSUCH' is no errno name"},
        {"no-write /dev/zeb_mem EIO now", "'now' is too much"},
        {"no-map zeb", "'zeb' is no address"},
        {"content /tmp/other 1", "'/tmp/other' is no path of the board"},
        {"fail", "'' is no call that can fail"},
        {"fail close 1", "'close' is no call that can fail"},
        {"fail read", "the number is missing"},
        {"fail read +", "the number is missing"},
        {"fail read -1", "'-1' is no number"},
        {"fail read 0", "calls are counted from 1"},
        {"fail read 1 + EIO", "'EIO' is too much"},
        {"fail read 1 EOF", "'EOF' is no errno name"},
        {"signal close 1 SIGHUP", "'close' is no call that can fail"},
        {"signal read 0 SIGHUP", "calls are counted from 1"},
        {"signal read 1", "the signal is missing"},
        {"signal read 1 HUP", "'HUP' is no signal"},
        {"signal read 1 SIGHUP 2", "'2' is too much"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(refusal_of(row.line), std::string("faults:3: ") + row.message);
    }
}

} // namespace fault_list_test
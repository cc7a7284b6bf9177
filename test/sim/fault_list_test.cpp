#include "model/fault_list.hpp"

#include "model/text.hpp"

#include <cerrno>
#include <sstream>

#include <gtest/gtest.h>

namespace sim {
namespace fault_list_test {

constexpr const char* rdqs = "/sys/kernel/debug/mmc0/rdqs";

fault_list faults_of(const std::string& text) {
    fault_list faults;
    std::istringstream stream(text);
    faults.add_all(stream, "faults");
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

TEST(sim_fault_list, a_board_without_faults_has_none) {
    const fault_list faults = faults_of("# stuck 0x18428120 1\n\n  # no-open /dev/zeb_mem\n");
    EXPECT_EQ(faults.stuck_bits({0x18428120, std::nullopt}), 0u);
    EXPECT_EQ(faults.read_back({0x18428120, std::nullopt}), std::nullopt);
    EXPECT_EQ(faults.open_error("/dev/zeb_mem", true), std::nullopt);
    EXPECT_EQ(faults.map_error(0x18428120), std::nullopt);
    EXPECT_EQ(faults.lock_error("/tmp/brisel.lock"), std::nullopt);
    EXPECT_EQ(faults.content(rdqs), std::nullopt);
}

TEST(sim_fault_list, stuck_bits_of_one_place_add_up) {
    const fault_list faults = faults_of("stuck 0x18428120 0x0f\nstuck 0x18428120 0xf00\n");
    EXPECT_EQ(faults.stuck_bits({0x18428120, std::nullopt}), 0xf0fu);
    EXPECT_EQ(faults.stuck_bits({0x18448120, std::nullopt}), 0u);
}

TEST(sim_fault_list, a_selector_confines_a_fault_to_one_bank) {
    const fault_list faults = faults_of("stuck 0x18428194/0x107 1\nreads-as 0x18428194 7\n"
                                        "reads-as 0x18428194/0x107 8\n");
    EXPECT_EQ(faults.stuck_bits({0x18428194, 0x107}), 1u);
    EXPECT_EQ(faults.stuck_bits({0x18428194, 0x207}), 0u);
    EXPECT_EQ(faults.read_back({0x18428194, 0x107}), 8u);
    EXPECT_EQ(faults.read_back({0x18428194, 0x207}), 7u);
}

TEST(sim_fault_list, a_path_that_cannot_be_opened_takes_what_lies_below_with_it) {
    const fault_list faults = faults_of("no-open /sys/class/regulator/regulator.2\n");
    EXPECT_EQ(faults.open_error("/sys/class/regulator/regulator.2", false), ENOENT);
    EXPECT_EQ(faults.open_error("/sys/class/regulator/regulator.2/microvolts", false), ENOENT);
    EXPECT_EQ(faults.open_error("/sys/class/regulator/regulator.1/microvolts", true), std::nullopt);
}

TEST(sim_fault_list, a_path_that_cannot_be_written_can_still_be_read) {
    const fault_list faults = faults_of(std::string("no-write ") + rdqs + "\n");
    EXPECT_EQ(faults.open_error(rdqs, true), EACCES);
    EXPECT_EQ(faults.open_error(rdqs, false), std::nullopt);
}

TEST(sim_fault_list, not_to_be_opened_at_all_goes_before_not_to_be_written) {
    const fault_list faults = faults_of("no-write /dev/zeb_mem EROFS\nno-open /dev/zeb_mem EIO\n");
    EXPECT_EQ(faults.open_error("/dev/zeb_mem", true), EIO);
}

TEST(sim_fault_list, a_refused_mapping_concerns_the_whole_page) {
    const fault_list faults = faults_of("no-map 0x18428120\n");
    EXPECT_EQ(faults.map_error(0x18428000), EPERM);
    EXPECT_EQ(faults.map_error(0x18428ffc), EPERM);
    EXPECT_EQ(faults.map_error(0x18429000), std::nullopt);
}

TEST(sim_fault_list, the_error_can_be_named_and_the_last_one_counts) {
    const fault_list faults =
        faults_of("no-open /dev/zeb_mem EACCES\nno-open /dev/zeb_mem ENXIO\n"
                  "no-map 0x18428000 EINVAL\n"
                  "no-lock /tmp/brisel.lock\nno-lock /tmp/brisel.lock EINTR\n");
    EXPECT_EQ(faults.open_error("/dev/zeb_mem", true), ENXIO);
    EXPECT_EQ(faults.map_error(0x18428000), EINVAL);
    EXPECT_EQ(faults.lock_error("/tmp/brisel.lock"), EINTR);
    EXPECT_EQ(faults_of("no-lock /tmp/brisel.lock").lock_error("/tmp/brisel.lock"), ENOLCK);
}

TEST(sim_fault_list, content_is_the_rest_of_the_line_or_nothing) {
    EXPECT_EQ(faults_of(std::string("content ") + rdqs + "  not a number \n").content(rdqs),
              "not a number");
    EXPECT_EQ(faults_of(std::string("content ") + rdqs + "\n").content(rdqs), "");
}

TEST(sim_fault_list, a_call_fails_by_its_number_alone) {
    const fault_list faults = faults_of("fail read 3\n");
    EXPECT_EQ(faults.call_error(failing_call::read, 2), std::nullopt);
    EXPECT_EQ(faults.call_error(failing_call::read, 3), EIO);
    EXPECT_EQ(faults.call_error(failing_call::read, 4), std::nullopt);
    EXPECT_EQ(faults.call_error(failing_call::write, 3), std::nullopt);
}

TEST(sim_fault_list, a_plus_has_all_later_calls_fail_too) {
    const fault_list faults = faults_of("fail memory 3+\nfail memory 5 EAGAIN\n");
    EXPECT_EQ(faults.call_error(failing_call::memory, 2), std::nullopt);
    EXPECT_EQ(faults.call_error(failing_call::memory, 3), ENOMEM);
    EXPECT_EQ(faults.call_error(failing_call::memory, 4), ENOMEM);
    EXPECT_EQ(faults.call_error(failing_call::memory, 5), EAGAIN);
    EXPECT_EQ(faults.call_error(failing_call::memory, 6), ENOMEM);
}

TEST(sim_fault_list, every_call_has_an_error_of_its_own) {
    const fault_list faults = faults_of("fail open 1\nfail mmap 1\nfail flock 1\nfail read 1\n"
                                        "fail write 1\nfail memory 1\n");
    EXPECT_EQ(faults.call_error(failing_call::open, 1), ENOENT);
    EXPECT_EQ(faults.call_error(failing_call::mmap, 1), EPERM);
    EXPECT_EQ(faults.call_error(failing_call::flock, 1), ENOLCK);
    EXPECT_EQ(faults.call_error(failing_call::read, 1), EIO);
    EXPECT_EQ(faults.call_error(failing_call::write, 1), EIO);
    EXPECT_EQ(faults.call_error(failing_call::memory, 1), ENOMEM);
    EXPECT_EQ(faults_of("fail open 1 EMFILE").call_error(failing_call::open, 1), EMFILE);
}

TEST(sim_fault_list, a_line_that_makes_no_sense_is_refused_with_its_place) {
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
    };
    for (const auto& row : rows) {
        EXPECT_EQ(refusal_of(row.line), std::string("faults:3: ") + row.message);
    }
}

TEST(sim_fault_list, a_fault_of_a_register_that_is_not_there_is_refused_with_its_place) {
    std::istringstream text("0x1842812c - 0 rw select\n");
    const register_table registers = register_table::parse(text, "registers");
    EXPECT_NO_THROW(faults_of("stuck 0x1842812c 1\nstuck 0x18428194/5 1").check_places(registers));
    try {
        faults_of("stuck 0x1842812c 1\nreads-as 0x18428120 1\n").check_places(registers);
        FAIL() << "no refusal";
    } catch (const input_error& error) {
        EXPECT_STREQ(error.what(), "faults:2: no register lies at 0x18428120");
    }
}

} // namespace fault_list_test
} // namespace sim

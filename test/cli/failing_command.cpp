#include "cli/failing_command.hpp"

#include <algorithm>

#include <fcntl.h>
#include <sys/file.h>

#include "cli/texts.hpp"

namespace {

bool takes_lock(const std::string& path) {
    const descriptor lock(path, O_RDWR | O_CREAT);
    return flock(lock, LOCK_EX | LOCK_NB) == 0;
}

} // namespace

const std::vector<failing_command> failing_commands = {
    {.name = "ReadOfARegister", .args = {sda}},
    {.name = "WriteOfARegister", .args = {sda, "5"}},
    {.name = "WriteOfADqSet", .args = {"pelune-ddr-read1::dq", "{1,2,3,4,5,6,7,8}"}},
    {.name = "ReadOfARegulator",
     .args = {"cpu_regulator::microvolts"},
     .file = "/sys/class/regulator/regulator.1/microvolts"},
    {.name = "WriteOfARegulator",
     .args = {"cpu_regulator::microvolts", "95%"},
     .file = "/sys/class/regulator/regulator.1/microvolts"},
    {.name = "ReadOfRdqs", .args = {"mmc::rdqs"}, .file = "/sys/kernel/debug/mmc0/rdqs"},
    {.name = "WriteOfRdqs", .args = {"mmc::rdqs", "+10"}, .file = "/sys/kernel/debug/mmc0/rdqs"},
    {.name = "List", .args = {"-l"}},
};

failing_run::failing_run(const failing_command& command, const std::string& fault) {
    const board on_board;
    const auto contents = [&] { return on_board.file(command.file).value_or("missing"); };
    file_before = contents();
    result = on_board.capture(on_board.launch_bare(command.args, fault));
    trace = on_board.trace();
    accesses = on_board.accesses();
    file = contents();
    lock_is_free = takes_lock(on_board.path(lock_file));
    const auto failed = std::find_if(trace.begin(), trace.end(), [](const std::string& line) {
        return line.find(" failed: ") != std::string::npos;
    });
    failed_line = failed == trace.end() ? "" : *failed;
}

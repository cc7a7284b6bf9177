#include "memory/stopped_board.hpp"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>
#include <system_error>

#include <unistd.h>

namespace fs = std::filesystem;

namespace {

std::string content_of(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

bool names_folder(const std::string& environment, const std::string& folder) {
    constexpr std::string_view name = "BRISEL_BOARD=";
    std::istringstream variables(environment);
    for (std::string variable; std::getline(variables, variable, '\0');) {
        std::error_code none;
        if (variable.starts_with(name) &&
            fs::equivalent(variable.substr(name.size()), folder, none)) {
            return true;
        }
    }
    return false;
}

bool is_on_board(const fs::path& process, const std::string& folder) {
    constexpr const char* library = "libbrisel-board.so";
    const std::string environment = content_of(process / "environ");
    if (!names_folder(environment, folder)) {
        return false;
    }
    // One that has only just begun will load it; an emulator has it, but not in its environment.
    return environment.find(library) != std::string::npos ||
           content_of(process / "maps").find(library) != std::string::npos;
}

/** Waits until the process has taken the signal, but not for one that the kernel holds. */
void wait_until_stopped(pid_t process) {
    for (int tries = 0; tries < 1000; ++tries) {
        const std::string status = content_of("/proc/" + std::to_string(process) + "/stat");
        const std::size_t state = status.rfind(") ");
        if (state == std::string::npos ||
            std::string_view("TtZX").find(status[state + 2]) != std::string_view::npos) {
            return;
        }
        usleep(100);
    }
}

} // namespace

stopped_board::stopped_board(const std::string& folder) {
    while (stop_more(folder)) { // one that ran until now may have started another
    }
}

bool stopped_board::stop_more(const std::string& folder) {
    const std::size_t known = m_processes.size();
    for (const fs::directory_entry& entry : fs::directory_iterator("/proc")) {
        const pid_t id = std::atoi(entry.path().filename().c_str()); // 0 for what is no process
        const auto end = m_processes.end();
        const bool is_other = id > 0 && id != getpid();
        if (is_other && std::find(m_processes.begin(), end, id) == end &&
            is_on_board(entry.path(), folder) && kill(id, SIGSTOP) == 0) {
            wait_until_stopped(id);
            m_processes.push_back(id);
        }
    }
    return m_processes.size() > known;
}

stopped_board::~stopped_board() {
    for (const pid_t process : m_processes) {
        kill(process, SIGKILL);
    }
}

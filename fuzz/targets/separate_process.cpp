#include "targets/separate_process.hpp"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <sstream>
#include <stdexcept>
#include <string>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

// Where the linker puts the coverage counters, if the compiler made any.
extern "C" {
extern char counters_begin[] __asm__("__start___sancov_cntrs") __attribute__((weak));
extern char counters_end[] __asm__("__stop___sancov_cntrs") __attribute__((weak));
}

namespace fuzz {
namespace {

constexpr unsigned int longest_run = 10; // seconds

/** The coverage counters, in memory that a process and its copy share. */
class shared_counters {
public:
    shared_counters()
        : m_size(static_cast<std::size_t>(counters_end - counters_begin)),
          m_shared(map(m_size + 1)) {}
    ~shared_counters() { munmap(m_shared, m_size + 1); }
    shared_counters(const shared_counters&) = delete;
    shared_counters& operator=(const shared_counters&) = delete;

    void save() { std::copy_n(counters_begin, m_size, m_shared); }
    void restore() const { std::copy_n(m_shared, m_size, counters_begin); }

private:
    static char* map(std::size_t size) {
        void* const memory =
            mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED) {
            throw std::runtime_error("no memory for the coverage counters");
        }
        return static_cast<char*>(memory);
    }

    std::size_t m_size;
    char* m_shared; ///< one byte more: a mapping cannot be empty
};

[[noreturn]] void report_and_end(const findings& found, int out) {
    std::string text;
    for (const std::string& line : found) {
        text += line + "\n";
    }
    const bool done = write(out, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    _exit(done ? 0 : 1);
}

findings read_report(int in) {
    std::string text;
    char piece[4096];
    ssize_t size = 0;
    while ((size = read(in, piece, sizeof piece)) > 0 || (size < 0 && errno == EINTR)) {
        text.append(piece, size > 0 ? static_cast<std::size_t>(size) : 0);
    }
    findings found;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        found.push_back(line);
    }
    return found;
}

int status_of(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

} // namespace

findings in_separate_process(const std::function<findings()>& run) {
    static shared_counters counters;
    int channel[2];
    if (pipe(channel) != 0) {
        throw std::runtime_error("no pipe");
    }
    const pid_t process = fork();
    if (process == 0) {
        close(channel[0]);
        std::signal(SIGALRM, SIG_DFL);
        alarm(longest_run);
        const findings found = run();
        counters.save();
        report_and_end(found, channel[1]);
    }
    close(channel[1]);
    findings found = read_report(channel[0]);
    close(channel[0]);
    const int status = process < 0 ? -1 : status_of(process);
    if (status == 0) {
        counters.restore();
    } else {
        found.push_back("the run ended abnormally, wait status " + std::to_string(status));
    }
    return found;
}

} // namespace fuzz

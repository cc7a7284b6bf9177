#include "tune/board/lock.hpp"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/time.h>
#include <unistd.h>

#include "process/instance_lock.hpp"
#include "tune/text/console.hpp"
#include "tune/text/mistake.hpp"
#include "tune/text/read_text.hpp"

namespace {

using std::chrono::steady_clock;

int lock_fd = -1;

[[noreturn]] void fail(const std::string& what) {
    throw mistake(what + " " + instance_lock_path + ": " + std::strerror(errno));
}

/** While it lives, a blocking call is interrupted every 50 ms. */
class interrupting_timer {
public:
    interrupting_timer() {
        struct sigaction action {};
        action.sa_handler = [](int) {};
        sigaction(SIGALRM, &action, &m_action_before);
        const itimerval often{{0, 50000}, {0, 50000}};
        setitimer(ITIMER_REAL, &often, nullptr);
    }
    ~interrupting_timer() {
        const itimerval never{};
        setitimer(ITIMER_REAL, &never, nullptr);
        sigaction(SIGALRM, &m_action_before, nullptr);
    }
    interrupting_timer(const interrupting_timer&) = delete;
    interrupting_timer& operator=(const interrupting_timer&) = delete;

private:
    struct sigaction m_action_before {};
};

/** Takes the lock, or waits for it until a point in time. @return whether it was taken */
bool lock_until(steady_clock::time_point end) {
    const interrupting_timer timer;
    while (flock(lock_fd, LOCK_EX) != 0) {
        if (errno != EINTR) {
            fail("cannot lock");
        }
        if (steady_clock::now() >= end) {
            return false;
        }
    }
    return true;
}

} // namespace

std::string lock_holder(const std::string& locks, const struct stat& file) {
    char name[64]; // " MAJOR:MINOR:INODE 0 EOF", the device in hexadecimal
    std::snprintf(name, sizeof name, " %02x:%02x:%ju 0 EOF", major(file.st_dev), minor(file.st_dev),
                  static_cast<std::uintmax_t>(file.st_ino));
    const std::size_t place = locks.find(name);
    if (place == std::string::npos) {
        return "";
    }
    const std::size_t process = locks.rfind(' ', place - 1) + 1;
    return ", process " + locks.substr(process, place - process);
}

void take_lock(std::optional<double> seconds, bool quiet) {
    constexpr double patience = 0.5;
    constexpr double forever = 1e9;
    lock_fd = open(instance_lock_path, O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (lock_fd == -1) {
        fail("cannot open");
    }
    const steady_clock::time_point begin = steady_clock::now();
    const auto after = [begin](double wait) {
        return begin + std::chrono::duration_cast<steady_clock::duration>(
                           std::chrono::duration<double>(wait));
    };
    const double most = seconds.value_or(forever);
    if (lock_until(after(quiet ? most : std::min(patience, most)))) {
        return;
    }
    struct stat file {};
    fstat(lock_fd, &file);
    const std::string by = lock_holder(read_text("/proc/locks", ""), file);
    if (most > patience) {
        say("waiting for another instance" + by);
        if (lock_until(after(most))) {
            return;
        }
    }
    throw mistake("another instance works" + by + "; nothing was done");
}

void release_lock() {
    close(lock_fd);
    lock_fd = -1;
}

void close_lock() {
    close(lock_fd);
}

#include "tune/sweep/user_signals.hpp"

#include <chrono>
#include <cmath>
#include <csignal>
#include <ctime>
#include <iterator>

#include <poll.h>

namespace {

volatile std::sig_atomic_t first_signal = 0;

constexpr int noted_signals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGCHLD};

struct sigaction actions_before[std::size(noted_signals)];

void note(int number) {
    if (first_signal == 0 && number != SIGCHLD) {
        first_signal = number;
    }
}

sigset_t all_of_them() {
    sigset_t all;
    sigemptyset(&all);
    for (const int number : noted_signals) {
        sigaddset(&all, number);
    }
    sigaddset(&all, SIGTSTP);
    return all;
}

} // namespace

user_signals::user_signals() {
    const sigset_t all = all_of_them();
    sigprocmask(SIG_BLOCK, &all, nullptr);
    first_signal = 0;
    struct sigaction action {};
    action.sa_handler = note;
    for (std::size_t i = 0; i < std::size(noted_signals); ++i) {
        sigaction(noted_signals[i], &action, &actions_before[i]);
        if (actions_before[i].sa_handler == SIG_IGN) {
            std::signal(noted_signals[i], SIG_IGN); // as nohup wants it
        }
    }
    sigaction(SIGCHLD, &action, nullptr); // in any case: it ends a wait
}

user_signals::~user_signals() {
    for (std::size_t i = 0; i < std::size(noted_signals); ++i) {
        sigaction(noted_signals[i], &actions_before[i], nullptr);
    }
    const sigset_t all = all_of_them();
    sigprocmask(SIG_UNBLOCK, &all, nullptr);
}

int user_signals::noted() {
    return first_signal;
}

void user_signals::let_come() {
    const sigset_t all = all_of_them();
    sigprocmask(SIG_UNBLOCK, &all, nullptr);
    sigprocmask(SIG_BLOCK, &all, nullptr);
}

void user_signals::wait(int fd, double seconds) {
    sigset_t mask;
    sigprocmask(SIG_BLOCK, nullptr, &mask);
    for (const int number : noted_signals) {
        sigdelset(&mask, number);
    }
    pollfd readable{fd, POLLIN, 0};
    const double whole = std::floor(seconds);
    timespec time{};
    time.tv_sec = static_cast<time_t>(whole);
    time.tv_nsec = static_cast<long>((seconds - whole) * 1e9);
    ppoll(&readable, 1, &time, &mask);
}

void user_signals::wait_for(double seconds) {
    const auto start = std::chrono::steady_clock::now();
    for (double left = seconds; left > 0 && noted() == 0;) {
        wait(-1, left);
        const std::chrono::duration<double> gone = std::chrono::steady_clock::now() - start;
        left = seconds - gone.count();
    }
}

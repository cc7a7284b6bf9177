#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>

/*
 * launch ROUNDS OUTPUT COMMAND...
 *
 * Runs every command ROUNDS times with an empty environment and its output in the file OUTPUT: all
 * of them once, then all of them again in another order, so that a slow moment of the machine meets
 * each alike. A command is one argument, a program's path and its words with single blanks between
 * them.
 *
 * Prints a line per command: the median of its wall times in nanoseconds, its peak resident memory
 * in KiB, and its page faults as getrusage counts them. A command that cannot start or is killed
 * ends everything with status 1.
 *
 * The kernel counts what this process holds at the start of a child as the child's. So this is to
 * be linked statically and stays small: no streams here.
 */

namespace {

struct command {
    const char* text = nullptr;
    std::vector<char*> words; // with a null at the end
    std::vector<long long> nanoseconds;
    long peak_kib = 0;
    long page_faults = 0; // the fewest of all runs
};

command parse(char* text) {
    command result;
    result.text = strdup(text);
    for (char* word = std::strtok(text, " "); word != nullptr; word = std::strtok(nullptr, " ")) {
        result.words.push_back(word);
    }
    result.words.push_back(nullptr);
    return result;
}

long long now() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * 1000000000LL + time.tv_nsec;
}

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "launch: %s\n", what);
    std::exit(1);
}

void run(command& c, const posix_spawn_file_actions_t& output) {
    char* no_environment[] = {nullptr};
    pid_t child = 0;
    int status = 0;
    rusage usage{};
    const long long begin = now();
    if (c.words.front() == nullptr ||
        posix_spawn(&child, c.words.front(), &output, nullptr, c.words.data(), no_environment) !=
            0 ||
        wait4(child, &status, 0, &usage) != child || !WIFEXITED(status)) {
        fail(c.text);
    }
    c.nanoseconds.push_back(now() - begin);
    const long faults = usage.ru_minflt + usage.ru_majflt;
    c.page_faults = c.nanoseconds.size() == 1 ? faults : std::min(c.page_faults, faults);
    c.peak_kib = std::max(c.peak_kib, usage.ru_maxrss);
}

void report(command& c) {
    const auto median = c.nanoseconds.begin() + std::ssize(c.nanoseconds) / 2;
    std::nth_element(c.nanoseconds.begin(), median, c.nanoseconds.end());
    std::printf("%lld %ld %ld\n", *median, c.peak_kib, c.page_faults);
}

} // namespace

int main(int argc, char* argv[]) {
    const int rounds = argc > 3 ? std::atoi(argv[1]) : 0;
    if (rounds < 1) {
        fail("launch ROUNDS OUTPUT COMMAND...");
    }
    posix_spawn_file_actions_t output;
    posix_spawn_file_actions_init(&output);
    posix_spawn_file_actions_addopen(&output, 1, argv[2], O_WRONLY | O_CREAT | O_TRUNC, 0666);
    posix_spawn_file_actions_adddup2(&output, 1, 2);

    std::vector<command> commands;
    for (int i = 3; i < argc; ++i) {
        commands.push_back(parse(argv[i]));
    }
    std::vector<command*> order;
    for (command& c : commands) {
        order.push_back(&c);
    }
    std::minstd_rand random;
    for (int round = 0; round < rounds; ++round) {
        // A command finds in the caches what the one before has left there: that must not be
        // the same one each time.
        std::shuffle(order.begin(), order.end(), random);
        for (command* c : order) {
            run(*c, output);
        }
    }
    for (command& c : commands) {
        report(c);
    }
    posix_spawn_file_actions_destroy(&output);
    return 0;
}

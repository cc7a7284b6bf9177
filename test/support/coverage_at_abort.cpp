#include <csignal>

#include <sys/syscall.h>
#include <unistd.h>

/*
 * Counts are written when a process exits, which one that ends through abort() or _Exit() never
 * does. Linked into every program of a coverage build, this has them written first.
 */

extern "C" void __gcov_dump();

namespace {

void write_counts(int) {
    __gcov_dump();
    // Returning lets abort() end the process.
}

[[maybe_unused]] const auto previous = std::signal(SIGABRT, write_counts);

} // namespace

extern "C" [[noreturn]] void _Exit(int status) noexcept {
    __gcov_dump();
    syscall(SYS_exit_group, status);
    __builtin_unreachable();
}

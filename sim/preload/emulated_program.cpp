#undef _FORTIFY_SOURCE // with it the headers define some of these functions themselves

#include "preload/emulated_program.hpp"

#include "preload/next_call.hpp"
#include "preload/report.hpp"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <link.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <ucontext.h>

namespace {

/** The signal that tells of a stopped call is not the program's, nor the emulator's. */
bool is_serving = false;

} // namespace

BOARD_CALL int sigaction(int signal, const struct sigaction* action,
                         struct sigaction* earlier) noexcept {
    static auto* const real = sim::next_call<decltype(::sigaction)>("sigaction");
    return real(signal, is_serving && signal == SIGSYS ? nullptr : action, earlier);
}

// What the emulator has to say when a signal ends its program, the program itself would not say.
BOARD_CALL int __fprintf_chk(FILE* stream, int, const char* format, ...) {
    if (is_serving && std::string_view(format).starts_with("qemu: uncaught target signal")) {
        return 0;
    }
    va_list arguments;
    va_start(arguments, format);
    const int written = std::vfprintf(stream, format, arguments);
    va_end(arguments);
    return written;
}

#ifdef __x86_64__

namespace sim {
namespace {

struct code_range {
    std::uint64_t begin;
    std::uint64_t end;
};

/** The machine code of the emulator itself, without its libraries. */
code_range code_of_emulator() {
    code_range range{};
    dl_iterate_phdr(
        [](dl_phdr_info* object, std::size_t, void* found) {
            for (int index = 0; index < object->dlpi_phnum; ++index) {
                const auto& part = object->dlpi_phdr[index];
                if (part.p_type == PT_LOAD && (part.p_flags & PF_X) != 0) {
                    const std::uint64_t begin = object->dlpi_addr + part.p_vaddr;
                    *static_cast<code_range*>(found) = {begin, begin + part.p_memsz};
                }
            }
            return 1; // the first object is the program; no more
        },
        &range);
    return range;
}

void on_call(int, siginfo_t* info, void* context) {
    greg_t* const registers = static_cast<ucontext_t*>(context)->uc_mcontext.gregs;
    const int error = errno;
    const auto descriptor = static_cast<int>(registers[REG_RDI]);
    int result = 0;
    if (info->si_syscall == SYS_flock) {
        result = flock(descriptor, static_cast<int>(registers[REG_RSI]));
    } else {
        result =
            openat(descriptor, reinterpret_cast<const char*>(registers[REG_RSI]),
                   static_cast<int>(registers[REG_RDX]), static_cast<mode_t>(registers[REG_R10]));
    }
    registers[REG_RAX] = result < 0 ? -errno : result;
    errno = error;
}

constexpr auto low = [](std::uint64_t address) { return static_cast<std::uint32_t>(address); };
constexpr auto high = [](std::uint64_t address) { return low(address >> 32); };

/** Has the kernel send SIGSYS for openat and flock from this code, and let everything else pass. */
bool stop_calls_from(code_range code) {
    constexpr std::uint32_t pc_low = offsetof(seccomp_data, instruction_pointer);
    constexpr std::uint32_t pc_high = pc_low + 4;
    constexpr std::uint16_t load = BPF_LD | BPF_W | BPF_ABS;
    constexpr std::uint16_t equal = BPF_JMP | BPF_JEQ | BPF_K;
    constexpr std::uint16_t greater = BPF_JMP | BPF_JGT | BPF_K;
    constexpr std::uint16_t not_less = BPF_JMP | BPF_JGE | BPF_K;
    constexpr std::uint16_t answer = BPF_RET | BPF_K;
    // The two numbers before the last are how many instructions to skip if so, and if not.
    std::array<sock_filter, 17> filter = {{
        {load, 0, 0, offsetof(seccomp_data, arch)},
        {equal, 0, 13, AUDIT_ARCH_X86_64},
        {load, 0, 0, offsetof(seccomp_data, nr)},
        {equal, 1, 0, SYS_openat},
        {equal, 0, 10, SYS_flock},
        {load, 0, 0, pc_high},
        {greater, 3, 0, high(code.begin)},
        {equal, 0, 7, high(code.begin)},
        {load, 0, 0, pc_low},
        {not_less, 0, 5, low(code.begin)},
        {load, 0, 0, pc_high},
        {greater, 3, 0, high(code.end)},
        {equal, 0, 3, high(code.end)},
        {load, 0, 0, pc_low},
        {not_less, 0, 1, low(code.end)},
        {answer, 0, 0, SECCOMP_RET_ALLOW},
        {answer, 0, 0, SECCOMP_RET_TRAP},
    }};
    const sock_fprog program = {static_cast<unsigned short>(filter.size()), filter.data()};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

} // namespace

void serve_emulated_program() {
    struct sigaction action {};
    action.sa_sigaction = on_call;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigaction(SIGSYS, &action, nullptr);
    is_serving = true;
    if (!stop_calls_from(code_of_emulator())) {
        refuse(std::string("cannot watch the calls of an emulated program: ") +
               std::strerror(errno));
    }
}

} // namespace sim

#else

void sim::serve_emulated_program() {
    refuse("only on x86-64 can a program of another processor, or a static one, run on a board");
}

#endif

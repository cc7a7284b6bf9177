#include "preload/single_step.hpp"

#include <fstream>
#include <string>

#include <ucontext.h>

void set_single_step([[maybe_unused]] void* context, [[maybe_unused]] bool on) noexcept {
#if defined(__x86_64__) || defined(__i386__)
    constexpr greg_t trap_flag = 0x100;
    greg_t& flags = static_cast<ucontext_t*>(context)->uc_mcontext.gregs[REG_EFL];
    flags = on ? flags | trap_flag : flags & ~trap_flag;
#endif
}

bool is_debugged() {
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word) {
        if (word == "TracerPid:") {
            return status >> word && word != "0";
        }
    }
    return false;
}

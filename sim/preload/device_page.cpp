#include "preload/device_page.hpp"

#include <csignal>
#include <cstddef>
#include <cstring>
#include <string_view>

#include <sys/mman.h>

#include "model/text.hpp"
#include "preload/board_session.hpp"
#include "preload/next_call.hpp"
#include "preload/report.hpp"
#include "preload/single_step.hpp"

namespace {

enum class page_state { untouched, read, written, closed };

struct watched_page {
    std::byte* start = nullptr; ///< null when none is mapped
    std::uint32_t page = 0;
    std::array<std::uint32_t, page_words> before{};
    std::array<bool, page_words> present{};
    page_state state = page_state::untouched;
    access_kind kind = access_kind::none;
    std::size_t offset = 0; ///< of the first access
    bool too_many = false;
    bool stepping = false; ///< stop after the access, to close the page again
    struct sigaction earlier_fault_action {};
    struct sigaction earlier_trap_action {};
};

// What an address without a register seems to hold, should a program get to see it.
constexpr std::uint32_t nothing_here = 0xdeadbeef;

watched_page watched;

void allow(int protection) {
    mprotect(watched.start, page_bytes, protection);
}

[[noreturn]] void end_by_bus_error(std::uint32_t address) {
    char text[] = "bus-error 0x00000000";
    put_hex(text + sizeof text - 1 - hex_length, address);
    const std::string_view event(text, sizeof text - 1);
    current_session()->trace().line(event);
    say(event);
    struct sigaction usual {};
    sigaction(SIGBUS, &usual, nullptr);
    raise(SIGBUS);
    _exit(128 + SIGBUS);
}

void pass_on(const struct sigaction& earlier, int signal, siginfo_t* info, void* context) {
    if ((earlier.sa_flags & SA_SIGINFO) != 0) {
        earlier.sa_sigaction(signal, info, context);
    } else if (earlier.sa_handler == SIG_DFL || earlier.sa_handler == SIG_IGN) {
        sigaction(signal, &earlier, nullptr);
        raise(signal);
    } else {
        earlier.sa_handler(signal);
    }
}

void on_fault(int signal, siginfo_t* info, void* context) {
    const std::size_t offset = reinterpret_cast<std::uintptr_t>(info->si_addr) -
                               reinterpret_cast<std::uintptr_t>(watched.start);
    if (offset >= page_bytes) {
        pass_on(watched.earlier_fault_action, signal, info, context);
        return;
    }
    if (offset % 4 != 0 || !watched.present[offset / 4]) {
        end_by_bus_error(watched.page + static_cast<std::uint32_t>(offset));
    }
    if (watched.state == page_state::untouched) {
        watched.state = page_state::read;
        watched.kind = access_kind::read;
        watched.offset = offset;
        allow(PROT_READ);
    } else {
        const bool same_access = watched.state == page_state::read && offset == watched.offset;
        watched.too_many = watched.too_many || !same_access;
        watched.state = page_state::written;
        watched.kind = access_kind::write;
        allow(PROT_READ | PROT_WRITE);
    }
    set_single_step(context, watched.stepping);
}

void on_step(int signal, siginfo_t* info, void* context) {
    if (!watched.stepping || watched.state == page_state::untouched) {
        pass_on(watched.earlier_trap_action, signal, info, context);
        return;
    }
    watched.stepping = false;
    watched.state = page_state::closed;
    allow(PROT_NONE);
    set_single_step(context, false);
}

void take_signal(int signal, void (*handler)(int, siginfo_t*, void*), struct sigaction& earlier) {
    struct sigaction action {};
    action.sa_sigaction = handler;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigaction(signal, &action, &earlier);
}

std::uint32_t word_at(std::size_t index) {
    std::uint32_t word = 0;
    std::memcpy(&word, watched.start + index * 4, sizeof word);
    return word;
}

std::uint32_t address_of(std::size_t index) {
    return watched.page + static_cast<std::uint32_t>(index * 4);
}

std::string find_violation() {
    if (watched.kind == access_kind::none) {
        return "page " + hex_text(watched.page) + " was mapped for no access";
    }
    if (watched.too_many) {
        return "page " + hex_text(watched.page) + " was mapped for more than one access";
    }
    for (std::size_t index = 0; index < page_words; ++index) {
        if (index != watched.offset / 4 && word_at(index) != watched.before[index]) {
            return "word " + hex_text(address_of(index)) + " was written along with " +
                   hex_text(address_of(watched.offset / 4));
        }
    }
    return {};
}

} // namespace

void* map_device_page(std::uint32_t page, const page_content& content) {
    static auto* const real = next_call<decltype(::mmap)>("mmap");
    void* const start =
        real(nullptr, page_bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (start == MAP_FAILED) {
        return start;
    }
    static const bool debugged = is_debugged();
    watched = {};
    watched.stepping = !debugged;
    watched.start = static_cast<std::byte*>(start);
    watched.page = page;
    for (std::size_t index = 0; index < page_words; ++index) {
        watched.present[index] = content[index].has_value();
        watched.before[index] = content[index].value_or(nothing_here);
    }
    std::memcpy(start, watched.before.data(), page_bytes);
    take_signal(SIGSEGV, on_fault, watched.earlier_fault_action);
    take_signal(SIGTRAP, on_step, watched.earlier_trap_action);
    allow(PROT_NONE);
    return start;
}

bool is_device_page(const void* address) {
    return is_device_page_mapped() && address == watched.start;
}

bool is_device_page_mapped() {
    return watched.start != nullptr;
}

page_use unmap_device_page() {
    static auto* const real = next_call<decltype(::munmap)>("munmap");
    allow(PROT_READ);
    page_use use{watched.kind, address_of(watched.offset / 4), word_at(watched.offset / 4),
                 find_violation()};
    sigaction(SIGTRAP, &watched.earlier_trap_action, nullptr);
    sigaction(SIGSEGV, &watched.earlier_fault_action, nullptr);
    real(watched.start, page_bytes);
    watched.start = nullptr;
    return use;
}

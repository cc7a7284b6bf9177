// The C library's malloc, as the program on the board reaches it, and with it the operator new.

#include "preload/board_work.hpp"
#include "preload/next_call.hpp"

#include <cstddef>

// What malloc does, by a name that needs no looking up: that could ask for memory itself.
extern "C" void* __libc_malloc(size_t size);

BOARD_CALL void* malloc(size_t size) noexcept {
    return sim::memory_runs_out() ? nullptr : __libc_malloc(size);
}

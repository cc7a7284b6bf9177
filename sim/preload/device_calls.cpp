// The C library's calls on mappings, as the program on the board reaches them. A mapping of the
// device node is the board's; everything else goes on to the C library as it came.

#include "model/board_paths.hpp"
#include "preload/device_node.hpp"
#include "preload/device_page.hpp"
#include "preload/next_call.hpp"

#include <string>
#include <sys/mman.h>

namespace {

using sim::board_session;
using sim::next_call;

/** The board, if the descriptor is open on its device node. */
board_session* board_of_node(int descriptor) {
    board_session* const board = sim::current_session();
    const std::string* const path = board == nullptr ? nullptr : board->files().path_of(descriptor);
    return path != nullptr && *path == sim::device_node ? board : nullptr;
}

} // namespace

BOARD_CALL void* mmap(void* hint, size_t length, int protection, int flags, int descriptor,
                      off_t offset) noexcept {
    static auto* const real = next_call<decltype(::mmap)>("mmap");
    board_session* const board = board_of_node(descriptor);
    return board == nullptr ? real(hint, length, protection, flags, descriptor, offset)
                            : sim::map_device_node(*board, {length, protection, flags,
                                                            static_cast<std::uint64_t>(offset)});
}

BOARD_CALL void* mmap64(void* hint, size_t length, int protection, int flags, int descriptor,
                        off64_t offset) noexcept {
    static auto* const real = next_call<decltype(::mmap64)>("mmap64");
    board_session* const board = board_of_node(descriptor);
    return board == nullptr ? real(hint, length, protection, flags, descriptor, offset)
                            : sim::map_device_node(*board, {length, protection, flags,
                                                            static_cast<std::uint64_t>(offset)});
}

BOARD_CALL int munmap(void* start, size_t length) noexcept {
    static auto* const real = next_call<decltype(::munmap)>("munmap");
    board_session* const board = sim::current_session();
    if (board == nullptr || !sim::is_device_page(start)) {
        return real(start, length);
    }
    sim::unmap_device_node(*board, length);
    return 0;
}

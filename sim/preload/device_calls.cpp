// The C library's calls on mappings, as the program on the board reaches them. A mapping of the
// device node is the board's; everything else goes on to the C library as it came.

#include <string>

#include <sys/mman.h>

#include "model/board_paths.hpp"
#include "preload/device_node.hpp"
#include "preload/device_page.hpp"
#include "preload/next_call.hpp"

namespace {

/** The board, if the descriptor is open on its device node. */
board_session* board_of_node(int descriptor) {
    board_session* const board = current_session();
    const board_file* const file = board == nullptr ? nullptr : board->files().find(descriptor);
    return file != nullptr && file->path == device_node ? board : nullptr;
}

/** A mapping of the device node, or by way of `real` one of something else. */
template <typename Map>
void* map_file(const map_request& request, int descriptor, Map real) {
    board_session* const board = board_of_node(descriptor);
    return board == nullptr ? real() : map_device_node(*board, request);
}

} // namespace

BOARD_CALL void* mmap(void* hint, size_t length, int protection, int flags, int descriptor,
                      off_t offset) noexcept {
    static auto* const real = next_call<decltype(::mmap)>("mmap");
    return map_file({length, protection, flags, static_cast<std::uint64_t>(offset)}, descriptor,
                    [&] { return real(hint, length, protection, flags, descriptor, offset); });
}

BOARD_CALL void* mmap64(void* hint, size_t length, int protection, int flags, int descriptor,
                        off64_t offset) noexcept {
    static auto* const real = next_call<decltype(::mmap64)>("mmap64");
    return map_file({length, protection, flags, static_cast<std::uint64_t>(offset)}, descriptor,
                    [&] { return real(hint, length, protection, flags, descriptor, offset); });
}

BOARD_CALL int munmap(void* start, size_t length) noexcept {
    static auto* const real = next_call<decltype(::munmap)>("munmap");
    board_session* const board = current_session();
    if (board == nullptr || !is_device_page(start)) {
        return real(start, length);
    }
    unmap_device_node(*board, length);
    return 0;
}

// The C library's calls on mappings, as the program on the board reaches them. A mapping of the
// device node is the board's; everything else goes on to the C library as it came.

#include "model/board_paths.hpp"
#include "preload/board_work.hpp"
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

/** A mapping of the device node, or by way of `real` one of something else. */
template <typename Map>
void* map_file(void* hint, const sim::map_request& request, int descriptor, Map real) {
    if (board_session* const board = board_of_node(descriptor)) {
        return sim::map_device_node(*board, request);
    }
    // An emulator keeps the address for its program, by a mapping that takes the page's place.
    if (request.place != nullptr && sim::is_device_page(hint)) {
        sim::unmap_device_node(*sim::current_session(), request.length);
    }
    if ((request.flags & MAP_ANONYMOUS) != 0 && sim::memory_runs_out()) {
        return MAP_FAILED;
    }
    return real();
}

sim::map_request request_of(void* hint, size_t length, int protection, int flags, off64_t offset) {
    return {length, protection, flags, static_cast<std::uint64_t>(offset),
            (flags & MAP_FIXED) == 0 ? nullptr : hint};
}

} // namespace

BOARD_CALL void* mmap(void* hint, size_t length, int protection, int flags, int descriptor,
                      off_t offset) noexcept {
    static auto* const real = next_call<decltype(::mmap)>("mmap");
    return map_file(hint, request_of(hint, length, protection, flags, offset), descriptor,
                    [&] { return real(hint, length, protection, flags, descriptor, offset); });
}

BOARD_CALL void* mmap64(void* hint, size_t length, int protection, int flags, int descriptor,
                        off64_t offset) noexcept {
    static auto* const real = next_call<decltype(::mmap64)>("mmap64");
    return map_file(hint, request_of(hint, length, protection, flags, offset), descriptor,
                    [&] { return real(hint, length, protection, flags, descriptor, offset); });
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

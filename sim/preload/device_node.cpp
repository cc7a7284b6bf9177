#include "preload/device_node.hpp"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/mman.h>

#include "model/text.hpp"
#include "preload/device_page.hpp"
#include "preload/report.hpp"

namespace {

page_content content_of(const board_model& model, std::uint32_t page) {
    page_content content;
    for (std::uint32_t index = 0; index < page_words; ++index) {
        content[index] = model.read(page + index * 4);
    }
    return content;
}

void check_request(const board_session& board, const map_request& request) {
    if (request.length != page_bytes) {
        board.violation("mapping of " + std::to_string(request.length) + " bytes, not of one page");
    }
    if (request.protection != (PROT_READ | PROT_WRITE) || (request.flags & MAP_SHARED) == 0) {
        board.violation("mapping that is not readable, writable and shared");
    }
    if (is_device_page_mapped()) {
        board.violation("mapping of a second page while one is mapped");
    }
}

} // namespace

int open_device_node(board_session& board, int flags) {
    if ((flags & O_ACCMODE) != O_RDWR || (flags & O_SYNC) != O_SYNC) {
        board.violation("device node opened without O_RDWR | O_SYNC");
    }
    try {
        board.load_model();
    } catch (const std::exception& error) {
        refuse(error.what());
    }
    return open("/dev/null", O_RDWR | (flags & O_CLOEXEC));
}

void* map_device_node(board_session& board, const map_request& request) {
    check_request(board, request);
    const auto page = static_cast<std::uint32_t>(request.offset);
    const std::string event = "map " + hex_text(page);
    if (board.next_call_fails(failing_call::mmap, event)) {
        return MAP_FAILED;
    }
    void* start = MAP_FAILED;
    if (page != request.offset || page != page_of(page)) {
        errno = EINVAL;
    } else if (const std::optional<int> error = board.faults().map_error(page)) {
        errno = *error;
    } else {
        start = map_device_page(page, content_of(board.model(), page));
    }
    board.trace().line(start == MAP_FAILED ? event + " failed: " + std::strerror(errno) : event);
    return start;
}

void unmap_device_node(board_session& board, std::size_t length) {
    const page_use use = unmap_device_page();
    if (!use.violation.empty()) {
        board.violation(use.violation);
    }
    if (length != page_bytes) {
        board.violation("unmapping of " + std::to_string(length) + " bytes, not of one page");
    }
    board.trace().line((use.kind == access_kind::read ? "read " : "write ") +
                       hex_text(use.address) + " " + hex_text(use.word) + " " +
                       board.model().name_of(use.address));
    if (use.kind == access_kind::write) {
        board.model().write(use.address, use.word);
        board.save_model();
    }
    board.trace().line("unmap " + hex_text(page_of(use.address)));
}

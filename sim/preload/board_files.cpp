#include "preload/board_files.hpp"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string_view>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <unistd.h>

#include "model/board_paths.hpp"
#include "preload/device_node.hpp"
#include "preload/next_call.hpp"

namespace {

/** Traces how a call ended, and gives back its result with errno as it was. */
int traced(const board_session& board, std::string event, int result) {
    const int error = errno;
    if (result < 0) {
        event.append(" failed: ").append(std::strerror(error));
    }
    board.trace().line(event);
    errno = error;
    return result;
}

int fail_with(int error) {
    errno = error;
    return -1;
}

int open_text(const std::string& text) {
    const int descriptor = memfd_create("content", MFD_CLOEXEC);
    if (descriptor >= 0 && !text.empty()) {
        dprintf(descriptor, "%s\n", text.c_str());
        lseek(descriptor, 0, SEEK_SET);
    }
    return descriptor;
}

/** What a file holds; nothing for one that is not there. */
std::string content_of(const std::string& file) {
    std::ostringstream content;
    content << std::ifstream(file).rdbuf();
    return content.str();
}

int open_kept(board_session& board, const std::string& path, int flags, mode_t mode) {
    const bool for_writing = (flags & O_ACCMODE) != O_RDONLY;
    if (const std::optional<int> error = board.faults().open_error(path, for_writing)) {
        return fail_with(*error);
    }
    if (path == device_node) {
        return open_device_node(board, flags);
    }
    const std::optional<std::string> content = board.faults().content(path);
    if (content && !for_writing) {
        return open_text(*content);
    }
    static auto* const real = next_call<decltype(::open64)>("open64");
    return real(board.kept_at(path).c_str(), flags, mode);
}

std::string_view access_of(int flags) {
    switch (flags & O_ACCMODE) {
    case O_RDONLY:
        return " r";
    case O_WRONLY:
        return " w";
    default:
        return " rw";
    }
}

} // namespace

int open_on_board(board_session& board, const std::string& path, int flags, mode_t mode) {
    const std::string event = std::string("open ").append(path).append(access_of(flags));
    if (board.next_call_fails(failing_call::open, event)) {
        return -1;
    }
    const bool for_writing = (flags & O_ACCMODE) != O_RDONLY;
    const std::string before = for_writing ? content_of(board.kept_at(path)) : "";
    int descriptor = open_kept(board, path, flags, mode);
    if (descriptor >= 0 && !board.files().remember(descriptor, {path, before})) {
        close(descriptor);
        descriptor = fail_with(EMFILE);
    }
    return traced(board, event, descriptor);
}

int flags_of_mode(const char* mode) {
    const std::string_view text(mode);
    const bool both = text.find('+') != std::string_view::npos;
    int flags = O_RDONLY;
    if (text.starts_with('r')) {
        flags = both ? O_RDWR : O_RDONLY;
    } else {
        flags = (both ? O_RDWR : O_WRONLY) | O_CREAT | (text.starts_with('a') ? O_APPEND : O_TRUNC);
    }
    return text.find('e') == std::string_view::npos ? flags : flags | O_CLOEXEC;
}

int lock_on_board(board_session& board, int descriptor, int operation) {
    static auto* const real = next_call<decltype(::flock)>("flock");
    const std::string path = board.files().find(descriptor)->path;
    const bool unlock = (operation & LOCK_UN) != 0;
    const std::string event = (unlock ? "unlock " : "lock ") + path;
    if (board.next_call_fails(failing_call::flock, event)) {
        return -1;
    }
    const std::optional<int> error = board.faults().lock_error(path);
    const int result = error && !unlock ? fail_with(*error) : real(descriptor, operation);
    return traced(board, event, result);
}

bool transfer_fails(board_session& board, failing_call call, int descriptor) {
    const bool read = call == failing_call::read;
    const board_file& file = *board.files().find(descriptor);
    const bool fails = board.next_call_fails(call, (read ? "read " : "write ") + file.path);
    if (!read && fails) { // to open it has emptied the file, as it would not empty an attribute
        const int error = errno;
        std::ofstream(board.kept_at(file.path)) << file.before;
        errno = error;
    } else if (!read && lseek(descriptor, 0, SEEK_CUR) == 0) {
        [[maybe_unused]] const int cut = ftruncate(descriptor, 0); // after one that failed
    }
    return fails;
}

void trace_close(const board_session& board, const std::string& path) {
    traced(board, "close " + path, 0);
}

// The C library's calls on files, as the program on the board reaches them. A path of the board
// goes to the board; everything else goes on to the C library as it came.

#undef _FORTIFY_SOURCE // with it the headers define some of these functions themselves

#include <cerrno>
#include <cstdarg>
#include <cstdio>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/uio.h>
#include <unistd.h>

#include "model/board_paths.hpp"
#include "model/failing_call.hpp"
#include "preload/board_files.hpp"
#include "preload/next_call.hpp"

namespace {

/** The board, if the path is the board's. */
board_session* board_of(const char* path) {
    return is_board_path(path) ? current_session() : nullptr;
}

/** The board, if the descriptor is open on it. */
board_session* board_of(int descriptor) {
    board_session* const board = current_session();
    return board != nullptr && board->files().find(descriptor) != nullptr ? board : nullptr;
}

/** The argument after the flags, which only calls that may create a file have. */
mode_t take_mode(int flags, va_list& arguments) {
    const bool creates = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    return creates ? va_arg(arguments, mode_t) : 0;
}

using open_call = int(const char*, int, ...);
using openat_call = int(int, const char*, int, ...);
using fopen_call = FILE*(const char*, const char*);

/** What was opened elsewhere: its size is noted if it is open for writing. */
int noted(const char* path, int flags, int descriptor) {
    const board_session* const board = current_session();
    if (descriptor >= 0 && (flags & O_ACCMODE) != O_RDONLY && board != nullptr &&
        !board->is_in_folder(path)) {
        board->sizes().opened(descriptor);
    }
    return descriptor;
}

int open_file(open_call* real, const char* path, int flags, mode_t mode) {
    board_session* const board = board_of(path);
    return board == nullptr ? noted(path, flags, real(path, flags, mode))
                            : open_on_board(*board, path, flags, mode);
}

int open_file_at(openat_call* real, int directory, const char* path, int flags, mode_t mode) {
    board_session* const board = board_of(path);
    return board == nullptr ? noted(path, flags, real(directory, path, flags, mode))
                            : open_on_board(*board, path, flags, mode);
}

FILE* open_stream(fopen_call* real, const char* path, const char* mode) {
    board_session* const board = board_of(path);
    if (board == nullptr) {
        FILE* const elsewhere = real(path, mode);
        if (elsewhere != nullptr) {
            noted(path, flags_of_mode(mode), fileno(elsewhere));
        }
        return elsewhere;
    }
    const int descriptor = open_on_board(*board, path, flags_of_mode(mode), 0666);
    FILE* const stream = descriptor < 0 ? nullptr : fdopen(descriptor, mode);
    if (stream == nullptr && descriptor >= 0) { // no memory for a stream
        close(descriptor);
        errno = ENOMEM;
    }
    return stream;
}

/** Whether a transfer by this call is to fail. */
bool fails(failing_call call, int descriptor) {
    board_session* const board = board_of(descriptor);
    return board != nullptr && transfer_fails(*board, call, descriptor);
}

/** Puts a file on the disk by way of `real`. */
int sync_file(int descriptor, int (*real)(int)) {
    const board_session* const board = current_session();
    return board == nullptr ? real(descriptor) : board->sizes().synced(descriptor, real);
}

/** Closes by way of `real`, which is given the board's descriptor or something that holds it. */
template <typename Close>
int close_file(int descriptor, Close real) {
    board_session* const board = board_of(descriptor);
    if (board == nullptr) {
        return real();
    }
    const std::unique_ptr<board_file> file = board->files().forget(descriptor);
    const int result = real();
    trace_close(*board, file->path);
    return result;
}

} // namespace

BOARD_CALL int open(const char* path, int flags, ...) {
    static auto* const real = next_call<open_call>("open");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = take_mode(flags, arguments);
    va_end(arguments);
    return open_file(real, path, flags, mode);
}

BOARD_CALL int open64(const char* path, int flags, ...) {
    static auto* const real = next_call<open_call>("open64");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = take_mode(flags, arguments);
    va_end(arguments);
    return open_file(real, path, flags, mode);
}

// The next two are what open and open64 become where _FORTIFY_SOURCE is on and no mode is given.
BOARD_CALL int __open_2(const char* path, int flags) {
    static auto* const real = next_call<open_call>("open");
    return open_file(real, path, flags, 0);
}

BOARD_CALL int __open64_2(const char* path, int flags) {
    static auto* const real = next_call<open_call>("open64");
    return open_file(real, path, flags, 0);
}

BOARD_CALL int openat(int directory, const char* path, int flags, ...) {
    static auto* const real = next_call<openat_call>("openat");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = take_mode(flags, arguments);
    va_end(arguments);
    return open_file_at(real, directory, path, flags, mode);
}

BOARD_CALL int openat64(int directory, const char* path, int flags, ...) {
    static auto* const real = next_call<openat_call>("openat64");
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = take_mode(flags, arguments);
    va_end(arguments);
    return open_file_at(real, directory, path, flags, mode);
}

BOARD_CALL FILE* fopen(const char* path, const char* mode) {
    static auto* const real = next_call<fopen_call>("fopen");
    return open_stream(real, path, mode);
}

BOARD_CALL FILE* fopen64(const char* path, const char* mode) {
    static auto* const real = next_call<fopen_call>("fopen64");
    return open_stream(real, path, mode);
}

BOARD_CALL int close(int descriptor) {
    static auto* const real = next_call<int(int)>("close");
    return close_file(descriptor, [&] { return real(descriptor); });
}

BOARD_CALL int fclose(FILE* stream) {
    static auto* const real = next_call<int(FILE*)>("fclose");
    return close_file(fileno(stream), [&] { return real(stream); });
}

BOARD_CALL ssize_t read(int descriptor, void* buffer, size_t size) {
    static auto* const real = next_call<ssize_t(int, void*, size_t)>("read");
    return fails(failing_call::read, descriptor) ? -1 : real(descriptor, buffer, size);
}

BOARD_CALL ssize_t write(int descriptor, const void* buffer, size_t size) {
    static auto* const real = next_call<ssize_t(int, const void*, size_t)>("write");
    return fails(failing_call::write, descriptor) ? -1 : real(descriptor, buffer, size);
}

BOARD_CALL ssize_t writev(int descriptor, const iovec* parts, int count) {
    static auto* const real = next_call<ssize_t(int, const iovec*, int)>("writev");
    return fails(failing_call::write, descriptor) ? -1 : real(descriptor, parts, count);
}

BOARD_CALL int fsync(int descriptor) {
    static auto* const real = next_call<int(int)>("fsync");
    return sync_file(descriptor, real);
}

BOARD_CALL int fdatasync(int descriptor) {
    static auto* const real = next_call<int(int)>("fdatasync");
    return sync_file(descriptor, real);
}

BOARD_CALL int flock(int descriptor, int operation) noexcept {
    static auto* const real = next_call<int(int, int)>("flock");
    board_session* const board = board_of(descriptor);
    return board == nullptr ? real(descriptor, operation)
                            : lock_on_board(*board, descriptor, operation);
}

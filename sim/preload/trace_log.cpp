#include "preload/trace_log.hpp"

#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

#include "preload/next_call.hpp"
#include "preload/report.hpp"

trace_log::trace_log(std::string target) : m_target(std::move(target)) {
    if (m_target.empty() || m_target == "-") {
        return;
    }
    const int descriptor = open_file();
    if (descriptor < 0) {
        refuse("cannot write the trace to " + m_target + ": " + std::strerror(errno));
    }
    close(descriptor);
}

void trace_log::line(std::string_view text) const noexcept {
    const int error = errno;
    if (m_target == "-") {
        write_line(STDERR_FILENO, "", text);
    } else if (!m_target.empty()) {
        const int descriptor = open_file();
        write_line(descriptor, "", text);
        close(descriptor);
    }
    errno = error;
}

int trace_log::open_file() const noexcept {
    // Not the board's own open: the trace is no file of a program on the board.
    static auto* const real = next_call<int(const char*, int, ...)>("open64");
    return real(m_target.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
}

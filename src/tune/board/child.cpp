#include "tune/board/child.hpp"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <string_view>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/output_stream.hpp"
#include "tune/board/lock.hpp"

namespace {

/** In a child, where to say what: a pipe to the parent. */
int to_parent = -1;

[[noreturn]] void be_child(const std::function<void()>& work) {
    close_lock();
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    try {
        work();
    } catch (const std::exception& problem) {
        write_standard_stream(standard_stream::error, problem.what());
        std::_Exit(EXIT_FAILURE);
    }
    std::_Exit(EXIT_SUCCESS);
}

std::string read_to_end(int fd) {
    std::string text;
    char buffer[512];
    for (ssize_t size = 0; (size = read(fd, buffer, sizeof buffer)) > 0;) {
        text.append(buffer, static_cast<std::size_t>(size));
    }
    return text;
}

std::string reason(int status, std::string said) {
    while (said.ends_with('\n')) {
        said.pop_back();
    }
    if (!said.empty()) {
        return said;
    }
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGBUS) {
        return "no register answers there (bus error)";
    }
    return "it ended with status " + std::to_string(status);
}

} // namespace

/**
 * In place of the one that writes to the standard streams. What the library says to a child is the
 * parent's to report; what it says to the parent, before main, concerns one property alone, which
 * is read anew when it is asked for.
 */
bool write_standard_stream(standard_stream, std::string_view text) {
    if (to_parent == -1) {
        return true;
    }
    return write(to_parent, text.data(), text.size()) >= 0;
}

std::optional<std::string> run_in_child(const std::function<void()>& work) {
    int ends[2] = {-1, -1};
    const pid_t child = pipe2(ends, O_CLOEXEC) == -1 ? -1 : fork();
    const int error = errno;
    if (child == 0) {
        to_parent = ends[1];
        be_child(work);
    }
    close(ends[1]);
    const std::string said = read_to_end(ends[0]);
    close(ends[0]);
    if (child == -1) {
        return std::string("no child process: ") + std::strerror(error);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (status == 0) {
        return std::nullopt;
    }
    return reason(status, said);
}

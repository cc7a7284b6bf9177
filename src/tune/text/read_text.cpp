#include "tune/text/read_text.hpp"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

#include "tune/text/mistake.hpp"

namespace {

[[noreturn]] void refuse_file(const std::string& path) {
    throw mistake(path + ": " + std::strerror(errno));
}

} // namespace

std::string read_text(const std::string& path) {
    const int fd = path == "-" ? STDIN_FILENO : open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd == -1) {
        refuse_file(path);
    }
    std::string text;
    char buffer[4096];
    ssize_t size = 0;
    while ((size = read(fd, buffer, sizeof buffer)) > 0) {
        text.append(buffer, static_cast<std::size_t>(size));
    }
    if (size < 0) {
        refuse_file(path);
    }
    if (fd != STDIN_FILENO) {
        close(fd); // or else the next file would be standard input
    }
    return text;
}

std::string read_text(const std::string& path, const std::string& otherwise) {
    try {
        return read_text(path);
    } catch (const mistake&) {
        return otherwise;
    }
}

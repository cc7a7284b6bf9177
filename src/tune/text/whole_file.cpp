#include "tune/text/whole_file.hpp"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tune/text/mistake.hpp"

namespace {

/** The permissions that new files do not get. */
mode_t file_mask() {
    const mode_t mask = umask(0); // which is only told by setting it
    umask(mask);
    return mask;
}

} // namespace

int write_all(int fd, std::string_view text) {
    while (!text.empty()) {
        const ssize_t size = write(fd, text.data(), text.size());
        if (size < 0) {
            return -1;
        }
        text.remove_prefix(static_cast<std::size_t>(size));
    }
    return 0;
}

void write_whole(const std::string& path, const std::string& text) {
    std::string target = path;
    mode_t mode = 0666 & ~file_mask();
    struct stat existing {};
    if (stat(path.c_str(), &existing) == 0) {
        if (!S_ISREG(existing.st_mode)) {
            throw mistake(path + ": not a regular file");
        }
        const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr),
                                                               &std::free);
        if (!real) {
            throw mistake(path + ": " + std::strerror(errno));
        }
        target = real.get(); // a link stays one
        mode = existing.st_mode & 07777;
    }
    std::string beside = target + ".XXXXXX";
    const int fd = mkostemp(beside.data(), O_CLOEXEC);
    if (fd == -1) {
        throw mistake(path + ": " + std::strerror(errno));
    }
    int failure = write_all(fd, text);
    failure |= fchmod(fd, mode);
    failure |= fsync(fd);
    if (failure == 0) {
        failure = std::rename(beside.c_str(), target.c_str());
    }
    const int error = errno;
    close(fd);
    if (failure != 0) {
        unlink(beside.c_str());
        throw mistake(path + ": " + std::strerror(error));
    }
}

#include "preload/size_log.hpp"

#include <cerrno>
#include <cstdint>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "preload/next_call.hpp"
#include "preload/report.hpp"

size_log::size_log(const std::string& folder) : m_file(folder + "/synced") {
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        opened(standard);
    }
}

void size_log::opened(int descriptor) const noexcept {
    const int error = errno;
    if ((fcntl(descriptor, F_GETFL) & O_ACCMODE) != O_RDONLY) {
        add(line_for("open", descriptor));
    }
    errno = error;
}

std::string size_log::line_for(const char* event, int descriptor) {
    struct stat64 file {};
    if (fstat64(descriptor, &file) != 0 || !S_ISREG(file.st_mode)) {
        return {};
    }
    std::string line(event);
    for (const auto number :
         {static_cast<std::uint64_t>(file.st_dev), static_cast<std::uint64_t>(file.st_ino),
          static_cast<std::uint64_t>(file.st_size)}) {
        line.append(" ").append(std::to_string(number));
    }
    return line;
}

void size_log::add(const std::string& line) const {
    if (line.empty()) {
        return;
    }
    static auto* const real = next_call<int(const char*, int, ...)>("open64");
    const int log = real(m_file.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
    write_line(log, "", line);
    close(log);
}

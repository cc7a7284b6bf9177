#include "tune/sweep/log_writer.hpp"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

#include "tune/sweep/user_signals.hpp"
#include "tune/text/mistake.hpp"
#include "tune/text/whole_file.hpp"

namespace {

[[noreturn]] void give_up(const std::string& path) {
    std::string name = path;
    if (path == "-") {
        name = "standard output";
    }
    throw mistake(name + ": " + std::strerror(errno));
}

/** Has the folder of a new file written to the disk. */
void sync_folder(const std::string& path) {
    const std::string folder = path.substr(0, path.rfind('/') + 1) + ".";
    const int fd = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    fsync(fd);
    close(fd);
}

} // namespace

log_writer::log_writer(const std::string& path, bool continued, double lead)
    : m_name(path), m_lead(lead), m_fd(STDOUT_FILENO) {
    if (path != "-") {
        const int creation = continued ? 0 : O_CREAT | O_EXCL;
        m_fd = open(path.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC | creation, 0666);
        if (m_fd == -1 && errno == EEXIST) {
            throw mistake(path + " exists; --continue goes on with a log");
        }
        if (m_fd == -1) {
            give_up(m_name);
        }
        sync_folder(path);
    } else if (isatty(STDOUT_FILENO) == 1) {
        throw mistake("the log goes to a file, -o FILE, or into a pipe: not to a terminal");
    }
}

log_writer::~log_writer() {
    if (m_fd != STDOUT_FILENO) {
        close(m_fd);
    }
}

void log_writer::write(const std::string& lines) {
    const int result = write_all(m_fd, lines) == -1 ? -1 : fdatasync(m_fd);
    m_has_disk = result == 0;
    if (!m_has_disk && errno != EINVAL) { // which says that this is no file on a disk
        give_up(m_name);
    }
}

void log_writer::write_before_a_risk(const std::string& lines) {
    write(lines);
    if (!m_has_disk) {
        user_signals::wait_for(m_lead);
    }
}

#include "process/instance_lock.hpp"

#include <string>

#include <fcntl.h>
#include <sys/file.h>

#include "base/output_stream.hpp"

namespace {

constexpr int no_file = -1; // what open returns on failure

int lock_fd = no_file;

} // namespace

bool take_instance_lock() {
    lock_fd = open(instance_lock_path, O_RDWR | O_CREAT, 0666);
    if (lock_fd == no_file) {
        standard_error.print_line(std::string("Failed to open ") + instance_lock_path);
    }
    if (lock_fd == no_file || flock(lock_fd, LOCK_EX) != 0) {
        standard_error.print_line("Failed to lock!");
        return false;
    }
    return true;
}

void release_instance_lock() {
    if (lock_fd != no_file) {
        flock(lock_fd, LOCK_UN);
    }
}

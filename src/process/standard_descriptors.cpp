#include "process/standard_descriptors.hpp"

#include <initializer_list>

#include <fcntl.h>
#include <unistd.h>

void open_closed_standard_descriptors() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(descriptor, F_GETFD) == -1) {
            open("/dev/null", O_RDWR); // takes the lowest free number: this one
        }
    }
}

#include "cli/standard_streams.hpp"

#include <initializer_list>

#include <fcntl.h>
#include <unistd.h>

void occupy_closed_standard_streams() {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) == -1) {
            open("/dev/null", O_RDWR); // takes the lowest number that is free: this one
        }
    }
}

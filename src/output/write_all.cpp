#include "output/write_all.hpp"

#include <cerrno>
#include <cstddef>

#include <unistd.h>

bool write_all(int descriptor, std::string_view text) {
    while (!text.empty()) {
        errno = 0; // as a call leaves it that writes nothing
        const ssize_t size = write(descriptor, text.data(), text.size());
        if (size > 0) {
            text.remove_prefix(static_cast<std::size_t>(size));
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

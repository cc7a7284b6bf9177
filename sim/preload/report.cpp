#include "preload/report.hpp"

#include <sys/uio.h>
#include <unistd.h>

namespace {

iovec part(std::string_view text) {
    return {const_cast<char*>(text.data()), text.size()};
}

} // namespace

void write_line(int descriptor, std::string_view front, std::string_view text) noexcept {
    const iovec parts[] = {part(front), part(text), part("\n")};
    [[maybe_unused]] const auto written = writev(descriptor, parts, 3);
}

void say(std::string_view message) noexcept {
    write_line(STDERR_FILENO, "sim/board: ", message);
}

void refuse(std::string_view message) noexcept {
    say(message);
    _exit(2);
}

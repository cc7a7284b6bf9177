#include "tune/text/console.hpp"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "tune/text/mistake.hpp"
#include "tune/text/text.hpp"

namespace {

bool line_is_open = false;

} // namespace

void say_in_place(const std::string& line) {
    std::fprintf(stderr, "\r\033[K%s", line.c_str()); // to its start, and erase what is there
    line_is_open = true;
}

void say_in_place_at_last(const std::string& line) {
    say_in_place(line + "\n");
    line_is_open = false;
}

void say(const std::string& text) {
    if (line_is_open) {
        std::fputc('\n', stderr);
        line_is_open = false;
    }
    for (const std::string_view line : lines_of(text)) {
        std::fprintf(stderr, "brisel-tune: %s\n", printable(line).c_str());
    }
}

void show(const std::string& text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() ||
        std::fflush(stdout) != 0) {
        throw mistake(std::string("standard output: ") + std::strerror(errno));
    }
}

#include "tune/console.hpp"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "tune/mistake.hpp"
#include "tune/text.hpp"

void say(const std::string& text) {
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

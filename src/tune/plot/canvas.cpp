#include "tune/plot/canvas.hpp"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdlib>
#include <string>

#include <sys/ioctl.h>
#include <unistd.h>

namespace {

/** A variable of the environment; empty where it is not set. */
std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/** Whether the locale's name ends like "en_US.UTF-8": of these, the last that is set decides. */
bool has_utf8() {
    std::string locale;
    for (const char* const name : {"LANG", "LC_CTYPE", "LC_ALL"}) {
        if (const std::string value = variable(name); !value.empty()) {
            locale = value;
        }
    }
    std::transform(locale.begin(), locale.end(), locale.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return locale.find("utf-8") != std::string::npos || locale.find("utf8") != std::string::npos;
}

/** The width that the user or the terminal tells; 0 for none. */
std::size_t told_width(int fd) {
    const std::string text = variable("COLUMNS");
    unsigned short width = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), width);
    if (error == std::errc() && end == text.data() + text.size() && width != 0) {
        return width;
    }
    winsize size{};
    ioctl(fd, TIOCGWINSZ, &size); // which leaves the size as it is, if it is not known
    return size.ws_col;
}

} // namespace

bool can_redraw(int fd) {
    const std::string kind = variable("TERM");
    return isatty(fd) == 1 && !kind.empty() && kind != "dumb";
}

canvas canvas_of(int fd) {
    canvas result;
    if (const std::size_t width = told_width(fd); width != 0) {
        constexpr std::size_t least = 20;
        result.width = std::max(width, least);
    }
    result.utf8 = has_utf8();
    const bool is_refused = !variable("NO_COLOR").empty();
    result.color = can_redraw(fd) && !is_refused;
    return result;
}

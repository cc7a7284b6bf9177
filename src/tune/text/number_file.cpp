#include "tune/text/number_file.hpp"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <string_view>

#include <fcntl.h>
#include <unistd.h>

#include "tune/text/mistake.hpp"
#include "tune/text/read_text.hpp"
#include "tune/text/text.hpp"

std::uint32_t read_number(const std::string& path, std::uint32_t least, std::uint32_t most) {
    const std::string contents = read_text(path);
    const std::string_view word = without_blanks(contents);
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size() || number < least ||
        number > most) {
        throw mistake(path + " holds " + in_quotes(word) + ", which is not " +
                      std::to_string(least) + " to " + std::to_string(most));
    }
    return number;
}

void write_number(const std::string& path, std::uint32_t number) {
    const std::string digits = std::to_string(number);
    const int fd = open(path.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
    // The driver sees each write as a value of its own: there is no writing on after a part.
    if (fd == -1 || write(fd, digits.data(), digits.size()) == -1) {
        throw mistake(path + ": " + std::strerror(errno));
    }
    close(fd);
}

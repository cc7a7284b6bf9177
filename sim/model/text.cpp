#include "model/text.hpp"

#include <charconv>
#include <system_error>

namespace {

constexpr std::string_view blanks = " \t\r";

} // namespace

std::string_view take_word(std::string_view& text) {
    const std::string_view rest = trimmed(text);
    const std::string_view word = rest.substr(0, rest.find_first_of(blanks));
    text = rest.substr(word.size());
    return word;
}

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return text.substr(text.size());
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string quoted(std::string_view text) {
    return std::string("'").append(text).append("'");
}

std::optional<std::uint32_t> parse_number(std::string_view word) {
    const bool hexadecimal = word.starts_with("0x");
    const std::string_view digits = hexadecimal ? word.substr(2) : word;
    const char* const end = digits.data() + digits.size();
    std::uint32_t number = 0;
    const auto result = std::from_chars(digits.data(), end, number, hexadecimal ? 16 : 10);
    if (result.ec != std::errc{} || result.ptr != end) {
        return std::nullopt;
    }
    return number;
}

std::string not_a_number(std::string_view word, std::string_view what) {
    return word.empty() ? std::string("the ").append(what).append(" is missing")
                        : quoted(word).append(" is no ").append(what);
}

void put_hex(char* out, std::uint32_t word) noexcept {
    *out++ = '0';
    *out++ = 'x';
    for (int shift = 28; shift >= 0; shift -= 4) {
        *out++ = "0123456789abcdef"[(word >> shift) & 0xf];
    }
}

std::string hex_text(std::uint32_t word) {
    std::string text(hex_length, ' ');
    put_hex(text.data(), word);
    return text;
}

#include "tune/text/text.hpp"

#include <algorithm>

std::string_view without_blanks(std::string_view text) {
    constexpr const char* blanks = " \t\r\n";
    const std::size_t begin = std::min(text.find_first_not_of(blanks), text.size());
    return text.substr(begin, text.find_last_not_of(blanks) + 1 - begin);
}

std::string in_quotes(std::string_view text) {
    constexpr std::size_t most = 40;
    std::string result = "'";
    result += text.substr(0, most);
    return result + (text.size() > most ? "...'" : "'");
}

std::string printable(std::string_view text) {
    constexpr const char* digits = "0123456789abcdef";
    std::string result;
    for (const char c : text) {
        if ((c >= ' ' && c <= '~') || c == '\n') {
            result += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            result.append("\\x").append(1, digits[byte >> 4]).append(1, digits[byte & 0xf]);
        }
    }
    return result;
}

std::string joined(const std::vector<std::string>& pieces, const char* between) {
    std::string text;
    for (const std::string& piece : pieces) {
        text += (text.empty() ? "" : between) + piece;
    }
    return text;
}

std::vector<std::string> in_lines(std::string_view text, std::size_t width) {
    std::vector<std::string> lines(1);
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(word.size() + 1, text.size()));
        std::string* line = &lines.back();
        if (!line->empty() && line->size() + 1 + word.size() > width) {
            line = &lines.emplace_back();
        }
        line->append(line->empty() ? "" : " ").append(word);
    }
    return lines;
}

std::string counted(std::size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::vector<std::string_view> lines_of(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        lines.push_back(text.substr(0, text.find('\n')));
        text.remove_prefix(std::min(lines.back().size() + 1, text.size()));
    }
    return lines;
}

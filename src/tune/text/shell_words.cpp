#include "tune/text/shell_words.hpp"

#include <algorithm>

#include "tune/text/mistake.hpp"
#include "tune/text/text.hpp"

namespace {

/** A word in single quotes, unless it is one without. A line end becomes $'\n', so that a line
 * stays one. */
std::string in_shell_quotes(const std::string& word) {
    constexpr const char* plain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"
                                  "%+,-./:=@_^";
    if (!word.empty() && word.find_first_not_of(plain) == std::string::npos) {
        return word;
    }
    std::string result = "'";
    for (const char c : word) {
        if (c == '\'') {
            result += "'\\''";
        } else if (c == '\n') {
            result += "'$'\\n''";
        } else {
            result += c;
        }
    }
    return result + "'";
}

} // namespace

std::string to_shell(const std::vector<std::string>& words) {
    std::vector<std::string> quoted_words;
    quoted_words.reserve(words.size());
    for (const std::string& word : words) {
        quoted_words.push_back(in_shell_quotes(word));
    }
    return joined(quoted_words, " ");
}

std::vector<std::string> from_shell(std::string_view line) {
    constexpr std::string_view line_end = "$'\\n'";
    std::vector<std::string> words;
    bool in_word = false;
    while (!line.empty()) {
        std::size_t used = 1;
        if (line.front() == ' ') {
            in_word = false;
            line.remove_prefix(used);
            continue;
        }
        if (!in_word) {
            words.emplace_back();
            in_word = true;
        }
        if (line.starts_with(line_end)) {
            words.back() += '\n';
            used = line_end.size();
        } else if (line.starts_with("\\'")) {
            words.back() += '\'';
            used = 2;
        } else if (line.front() == '\'') {
            const std::size_t close = line.find('\'', 1);
            if (close == std::string_view::npos) {
                throw mistake("a quote that is not closed");
            }
            words.back() += line.substr(1, close - 1);
            used = close + 1;
        } else {
            used = std::min(line.find_first_of(" '$\\", 1), line.size());
            words.back() += line.substr(0, used);
        }
        line.remove_prefix(used);
    }
    return words;
}

#include "tune/window/verdict.hpp"

#include <charconv>
#include <utility>

namespace {

constexpr std::pair<verdict, std::string_view> words[] = {
    {verdict::pass, "pass"},       {verdict::fail, "fail"},
    {verdict::timeout, "timeout"}, {verdict::no_stick, "no-stick"},
    {verdict::unsound, "unsound"}, {verdict::interrupted, "interrupted"},
};

/** A number of 8 bits; 0, which is in no log, for another text. */
std::uint8_t to_count(std::string_view text) {
    std::uint8_t count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    return error == std::errc() && end == text.data() + text.size() ? count : 0;
}

} // namespace

std::string to_word(const point_result& result) {
    for (const auto& [kind, word] : words) {
        if (kind == result.kind) {
            return std::string(word);
        }
    }
    return std::to_string(result.passed) + "/" + std::to_string(result.runs);
}

std::optional<point_result> to_result(std::string_view text) {
    for (const auto& [kind, word] : words) {
        if (word == text) {
            return point_result{kind, 0, 0};
        }
    }
    const std::size_t slash = text.find('/');
    if (slash == std::string_view::npos) {
        return std::nullopt;
    }
    const point_result result{verdict::part, to_count(text.substr(0, slash)),
                              to_count(text.substr(slash + 1))};
    return result.passed != 0 && result.passed < result.runs ? std::optional(result) : std::nullopt;
}

bool is_settled(verdict kind) {
    return kind != verdict::untried && kind != verdict::interrupted && kind != verdict::unsound;
}

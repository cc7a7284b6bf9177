#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

/** A line of the board's text that makes no sense. what() begins with the place, "FILE:LINE: ". */
class input_error : public std::runtime_error {
public:
    /** `where` names the place as a person finds it: a file and a line number, or an option. */
    input_error(const std::string& where, const std::string& message)
        : std::runtime_error(where + ": " + message) {}
};

/**
 * Takes the first blank-delimited word off the front of `text` and returns it; empty when none is
 * left. The result points into the same storage as `text`.
 */
std::string_view take_word(std::string_view& text);

/** `text` without the blanks, tabs and carriage returns around it. */
std::string_view trimmed(std::string_view text);

/** The text between apostrophes, for messages. */
std::string quoted(std::string_view text);

/**
 * A whole word as an unsigned 32-bit number: decimal, or hexadecimal after "0x".
 * Empty for anything else, and for a number of more than 32 bits.
 */
std::optional<std::uint32_t> parse_number(std::string_view word);

/** Says that `word` should have been the number of a `what` and is none, or is not there. */
std::string not_a_number(std::string_view word, std::string_view what);

/** Length of what `put_hex` writes. */
constexpr std::size_t hex_length = 10;

/** Writes "0x" and eight lower-case digits, no terminator. Usable in a signal handler. */
void put_hex(char* out, std::uint32_t word) noexcept;

/** The same as a text: 0x00000000 to 0xffffffff. Addresses and words are always shown like this. */
std::string hex_text(std::uint32_t word);

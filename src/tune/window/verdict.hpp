#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/** What became of a point of a sweep; of what was tried, what is worse comes later. */
enum class verdict : std::uint8_t {
    untried,
    interrupted, ///< by the user
    pass,
    part,     ///< some runs passed
    no_stick, ///< the hardware did not take the value: nothing was run
    fail,
    timeout,
    unsound, ///< afterwards the test failed with the value before as well
    hang,    ///< tried, and nothing is known of it since
};

/** A verdict, and of several runs how many passed. */
struct point_result {
    verdict kind = verdict::untried;
    std::uint8_t passed = 0; ///< of a part; of several logs those that passed
    std::uint8_t runs = 0;   ///< likewise, of how many
};

/** The word for it in a log: "pass", "no-stick", "3/5". */
std::string to_word(const point_result& result);

/** What a word of a log stands for; nothing for another word. "hang" and "untried" are no such
 * words. */
std::optional<point_result> to_result(std::string_view word);

/** Whether a point is done with: neither untried nor to be tried again. */
bool is_settled(verdict kind);

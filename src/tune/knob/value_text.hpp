#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tune/knob/knob.hpp"

/*
 * The texts of values: the one place that reads and writes them. Strict: the whole text counts, and
 * it is in range.
 *
 *     60   0x3c      a number; a mapped field's is its key
 *     d+5  d-12      a lane's delay, 0 to 63
 *     raw:3          a mapped field's code that no key stands for
 *     {65,2,...}     a set, one value per lane
 */

/**
 * The codes that a text stands for: one for each part of the knob (see `knob::parts`).
 * @throw mistake that says what would be legal
 */
std::vector<std::uint32_t> parse_value(const knob& k, std::string_view text);

/** A code as `parse_value` takes it: decimal, a whole word hexadecimal. */
std::string to_text(const knob& k, std::uint32_t code);

/** The same for all parts of a knob. */
std::string to_text(const knob& k, const std::vector<std::uint32_t>& codes);

/** A lane's delay for a reader: "d+5". */
std::string to_delay(std::uint32_t code);

/** A code for a reader: as `to_text`, and of a lane its delay alone. */
std::string to_reading(const knob& k, std::uint32_t code);

/** A whole line: name, value, and lanes' delays behind it as a comment. */
std::string to_line(const knob& k, const std::vector<std::uint32_t>& codes);

/** What may be set, for a reader: "0 to 15", "0, 40, 60, 120". */
std::string legal_values(const knob& k);

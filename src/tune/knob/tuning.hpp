#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tune/knob/knobs.hpp"

/** A line of a tuning: a property and its value. */
struct tuning_line {
    const knob* target;
    std::vector<std::uint32_t> codes; ///< one for each of the target's parts
    std::string where;                ///< "FILE:LINE", for messages
};

/**
 * Understands a tuning: lines of NAME = VALUE, with comments from # to the end of a line.
 * @param where the file's name, for messages
 * @throw mistake that names each line that is wrong; also where two are about the same bits
 */
std::vector<tuning_line> parse_tuning(const knobs& all, const std::string& text,
                                      const std::string& where);

/** Throws these mistakes as one, a line each, unless there are none. */
void refuse(std::vector<std::string> mistakes);

/** Whether two knobs with codes share bits; every lane of a register has a word of its own. */
bool share_bits(const knob& a, const knob& b);

/** The settings of all lines, one for each part, in their order. */
std::vector<setting> settings_of(const std::vector<tuning_line>& lines);

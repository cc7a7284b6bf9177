#pragma once

#include <string>
#include <vector>

#include "tune/text/command_line.hpp"

/** What the words of a command line say. */
struct parsed_words {
    command_line words;  ///< its operands begin with the command
    std::string options; ///< the letters of those given, but --wait's
};

/**
 * Takes in the words behind the program's name: options may stand anywhere before "--", whatever
 * POSIXLY_CORRECT says, and words behind it are no options.
 * @throw mistake for an option that there is not, or a number that it does not take
 */
parsed_words parse_words(const std::vector<std::string>& words);

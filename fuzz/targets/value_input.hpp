#pragma once

#include <string>
#include <vector>

/** The lines of a text, without their ends; a text that ends with a newline has no empty last one.
 */
std::vector<std::string> lines_of(const std::string& text);

/** The input of a value target: see targets.hpp. */
struct value_input {
    explicit value_input(const std::string& text);

    bool hexadecimal = false;
    std::vector<std::string> start; ///< the words of the first line after the mode
    std::vector<std::string> values;

    /** One of the words as a number, decimal or with "0x"; the low 32 bits, or 0. */
    unsigned int number(std::size_t index) const;
};

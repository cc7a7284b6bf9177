#pragma once

#include <string>
#include <string_view>
#include <vector>

/** A line of words that the shell would take as these again. */
std::string to_shell(const std::vector<std::string>& words);

/**
 * The words of such a line.
 * @throw mistake for a quote that is not closed
 */
std::vector<std::string> from_shell(std::string_view line);

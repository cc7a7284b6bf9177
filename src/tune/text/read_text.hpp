#pragma once

#include <string>

/**
 * Reads a file to its end; "-" is standard input.
 * @throw mistake when it cannot be read
 */
std::string read_text(const std::string& path);

/** The same, but where it cannot be read this text instead. */
std::string read_text(const std::string& path, const std::string& otherwise);

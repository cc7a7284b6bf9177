#pragma once

#include <cstdint>
#include <string>

/*
 * Files of sysfs and debugfs that hold one number. The library's properties go through the same
 * files, but keep what they read, and do not tell why a file could not be read or written.
 */

/**
 * The number in a file: decimal, with nothing but blanks around it.
 * @param least, most what it may be
 * @throw mistake with the file and the reason
 */
std::uint32_t read_number(const std::string& path, std::uint32_t least, std::uint32_t most);

/**
 * Replaces the number in a file, in one write.
 * @throw mistake with the file and the reason, also the driver's
 */
void write_number(const std::string& path, std::uint32_t number);

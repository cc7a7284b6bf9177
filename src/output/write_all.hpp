#pragma once

#include <string_view>

/**
 * Writes all of a text to a file descriptor; a call that a signal interrupts is made again.
 * @return false when a part of it could not be written
 */
bool write_all(int descriptor, std::string_view text);

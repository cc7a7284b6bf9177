#pragma once

#include <string_view>

/**
 * Writes `front`, `text` and a newline in one system call, so that the lines of several processes
 * do not mix. A failure is not reported: there is nowhere to. Usable in a signal handler.
 */
void write_line(int descriptor, std::string_view front, std::string_view text) noexcept;

/** Writes the line "sim/board: MESSAGE" on standard error. Usable in a signal handler. */
void say(std::string_view message) noexcept;

/** Says why the board cannot work, and ends the process at once with status 2. */
[[noreturn]] void refuse(std::string_view message) noexcept;

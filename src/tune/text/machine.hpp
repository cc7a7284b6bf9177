#pragma once

#include <string>

/** The board's model, the system's name, and the board's serial number, where the kernel knows
 * them. */
std::string machine();

/** The time, as "2026-11-22 14:00:00 UTC". */
std::string utc_time();

/** What the kernel calls this boot; another text at each one. */
std::string boot_id();

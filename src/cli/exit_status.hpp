#pragma once

/** What main returns; the process exit status is its low eight bits, in parentheses. */
enum class exit_status : int {
    success = 0,        // also for an unknown property name
    lock_failed = -1,   // (255) the lock file cannot be opened, or the lock cannot be taken
    usage_shown = -2,   // (254) for -h, or without arguments
    not_supported = -3, // (253) -i
    read_failed = -10,  // (246) a registered property could not be read
    write_failed = -11, // (245) a registered property refused the value
};

#pragma once

/** The exit status of the program. */
enum class tune_status : int {
    done = 0,      ///< done; what changed is shown
    differs = 1,   ///< a difference was found, a value cannot be read, or all was put back
    no_result = 2, ///< a mistake, no lock, no node, no room; or not everything could be put back
};

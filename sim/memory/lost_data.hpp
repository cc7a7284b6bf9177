#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

/**
 * Takes away what stopped processes of a board have written and nobody would have if the board
 * died.
 *
 * Of a regular file that one has open for writing only what was synced stays: what `synced` in the
 * board's folder says (see size_log), nothing where it says nothing, and all of a file opened with
 * O_SYNC or O_DSYNC. `spared` are paths, from the root, that are no files of the board's programs:
 * they and all below them stay as they are. So does all below /dev, /proc and /sys. A pipe that is
 * standard output or standard error is emptied.
 */
void lose_unsynced_data(const std::vector<pid_t>& processes, const std::string& folder,
                        const std::vector<std::string>& spared);

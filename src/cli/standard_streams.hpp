#pragma once

/**
 * Puts "/dev/null" in the place of every standard stream that is closed.
 *
 * Otherwise the next file that is opened takes its number, and what the tool has to say would be
 * written into it: into the lock file, or into physical memory.
 */
void occupy_closed_standard_streams();

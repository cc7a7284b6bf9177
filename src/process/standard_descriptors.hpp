#pragma once

/**
 * Opens /dev/null on every standard descriptor that is closed.
 *
 * Otherwise the next file that is opened takes its number, and what the tool has to say would be
 * written into it: into the lock file, or into physical memory.
 */
void open_closed_standard_descriptors();

#pragma once

/**
 * Opens /dev/null on every standard descriptor that is closed.
 *
 * Otherwise the next file to be opened would take its number, and the tool's output would be
 * written into that file: the lock file, or physical memory.
 */
void open_closed_standard_descriptors();

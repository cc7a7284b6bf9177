#pragma once

/**
 * Physical memory access: the only door to the hardware.
 *
 * Both functions reach one 32-bit word through the memory device node and keep nothing between
 * calls: every access opens the node, maps the one 4096-byte page that holds the word, makes a
 * single 32-bit load or store, unmaps and closes. The node is opened with O_SYNC, so the mapping
 * is uncached and the accesses reach the device in program order.
 *
 * They are ordinary external functions in a source file of their own: a test links a recording
 * fake in its place.
 *
 * When the node cannot be opened or the page cannot be mapped, one line on standard error names
 * the node, the address and the reason, and the process ends through abort(): the tool never
 * makes up a value or assumes that a write succeeded.
 */

static_assert(sizeof(unsigned int) == 4, "a register word is 32 bits wide");

/** Path of the memory device node, "/dev/zeb_mem". Nothing changes it after start-up. */
extern const char* fname;

/**
 * Reads the 32-bit word at a physical address.
 * @param address physical byte address, a multiple of 4 (not checked)
 */
unsigned int mmap_read(unsigned int address);

/**
 * Writes the 32-bit word at a physical address.
 * @param address physical byte address, a multiple of 4 (not checked)
 * @return always 0
 */
unsigned int mmap_write(unsigned int address, unsigned int value);

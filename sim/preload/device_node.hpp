#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "preload/board_session.hpp"

/** How a program asks for a mapping: the arguments of mmap that matter. */
struct map_request {
    std::size_t length;
    int protection;
    int flags;
    std::uint64_t offset; ///< the physical address
};

/**
 * Opens the device node: reads the registers from the board's folder and gives a descriptor that
 * serves no other purpose than to be mapped. -1 with errno set when the system has none.
 */
int open_device_node(board_session& board, int flags);

/**
 * Maps one page of registers, readable, writable and shared; anything else is a violation, and so
 * is a page while another is mapped. MAP_FAILED with errno set for a page that a fault refuses, or
 * an offset that is not the 32-bit address of a page.
 */
void* map_device_node(board_session& board, const map_request& request);

/** Ends the mapping, has the model take the write, if it was one, and keeps it in the folder. */
void unmap_device_node(board_session& board, std::size_t length);

#pragma once

#include <string>

#include <sys/types.h>

#include "model/failing_call.hpp"
#include "preload/board_session.hpp"

/**
 * Opens a path of the board as open(2) does, on what the board has in its place, and keeps the
 * descriptor in mind. -1 with errno set when it fails or a fault has it fail.
 */
int open_on_board(board_session& board, const std::string& path, int flags, mode_t mode);

/** The flags of open(2) for a mode of fopen such as "r", "w" or "r+e". */
int flags_of_mode(const char* mode);

/** flock(2) on an open file of the board. */
int lock_on_board(board_session& board, int descriptor, int operation);

/**
 * Whether read(2) or write(2) on an open file of the board is to fail instead; errno is then set.
 */
bool transfer_fails(board_session& board, failing_call call, int descriptor);

/** To be called with what board_session::files forgot, after the descriptor was closed. */
void trace_close(const board_session& board, const std::string& path);

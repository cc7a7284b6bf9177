#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/board.hpp"

/** What a reader on the other end of a stream got, and how the process ended. */
struct stream_result {
    /** One entry per read: where the stream keeps them apart, one per write of the process. */
    std::vector<std::string> parts;
    int status;

    /** All parts in one. */
    std::string text() const;
};

/** Runs the program with standard output and standard error on one pipe that keeps writes apart. */
stream_result run_into_pipe(program_start program);

/**
 * Runs the program with standard output and standard error on one terminal; nothing where this
 * machine has no pseudo-terminal.
 * @param columns the terminal's width; 0 where it does not know it
 */
std::optional<stream_result> run_in_terminal(program_start program, unsigned short columns = 0);

/** What a test says that needs one and is left out. */
inline const char* const no_terminal = "LEFT OUT: no pseudo-terminal, so nothing ran at a terminal";

/** Runs the program, its output and errors on pipes of their own, which nobody reads. */
int run_without_readers(program_start program);

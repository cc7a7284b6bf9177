#pragma once

namespace sim {

/**
 * For a process that is an emulator (qemu-user), to be called before it starts: leads what the
 * emulated program asks of the system to the board.
 *
 * The emulator maps and closes by way of the C library, but opens and locks for its program with
 * system calls of its own. From now on the kernel stops these (seccomp), and the handler makes the
 * call of the C library out of them that a program would have made. Nothing else is stopped,
 * neither the emulator's own files nor any other call of the program.
 *
 * Ends the process with a message where the system or the processor does not allow it.
 */
void serve_emulated_program();

} // namespace sim

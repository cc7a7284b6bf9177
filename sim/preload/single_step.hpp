#pragma once

/**
 * For signal handlers, on the context that they are given: whether the processor stops (SIGTRAP)
 * after each instruction once the handler has returned. Only x86 lets a program ask for that;
 * elsewhere, and under an emulator that does not know it, nothing happens.
 */
void set_single_step(void* context, bool on) noexcept;

/** True under a debugger, which takes every SIGTRAP for its own. */
bool is_debugged();

#pragma once

#include <functional>
#include <optional>
#include <string>

/*
 * Work on the hardware is done in child processes. A register keeps its word for the life of a
 * process, and an access that is impossible ends it: a child begins without words, and its end is
 * seen from outside.
 */

/**
 * Runs a piece of work in a child of this process, which holds no lock and leaves no core.
 * @return nothing when it was done; else why not: what the child threw or said, how it ended, or
 * why there was none
 */
std::optional<std::string> run_in_child(const std::function<void()>& work);

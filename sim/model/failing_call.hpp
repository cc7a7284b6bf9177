#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace sim {

/**
 * A call that a fault can have fail by its number: one on a path or a descriptor of the board, or a
 * request for memory.
 */
enum class failing_call : std::size_t { open, mmap, flock, read, write, memory };

/** How many of them there are. */
constexpr std::size_t failing_calls = 6;

/** The call of that name; empty for a name that is none of them. */
std::optional<failing_call> find_failing_call(std::string_view name);

/** The errno value with which the call fails where no other is named. */
int default_error(failing_call call);

} // namespace sim

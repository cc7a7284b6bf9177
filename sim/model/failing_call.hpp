#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

/** A call on a path or a descriptor of the board that a fault can have fail by its number. */
enum class failing_call : std::size_t { open, mmap, flock, read, write };

/** How many of them there are. */
constexpr std::size_t failing_calls = 5;

/** The call of that name; empty for a name that is none of them. */
std::optional<failing_call> find_failing_call(std::string_view name);

/** The errno value with which the call fails where no other is named. */
int default_error(failing_call call);

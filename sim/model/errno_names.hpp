#pragma once

#include <optional>
#include <string_view>

/** The errno value of a name such as "ENOENT"; empty for a name that is none. */
std::optional<int> errno_value(std::string_view name);

#include "model/errno_names.hpp"

#include <cstring>

std::optional<int> errno_value(std::string_view name) {
    constexpr int highest_on_any_architecture = 1200;
    for (int value = 1; value < highest_on_any_architecture; ++value) {
        const char* const candidate = strerrorname_np(value);
        if (candidate != nullptr && name == candidate) {
            return value;
        }
    }
    return std::nullopt;
}

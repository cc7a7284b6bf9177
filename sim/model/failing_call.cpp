#include "model/failing_call.hpp"

#include <array>
#include <cerrno>

namespace {

struct call_entry {
    std::string_view name;
    int usual_error;
};

/** In the order of the enumerators. */
constexpr std::array<call_entry, failing_calls> calls = {{
    {"open", ENOENT},
    {"mmap", EPERM},
    {"flock", ENOLCK},
    {"read", EIO},
    {"write", EIO},
}};

} // namespace

std::optional<failing_call> find_failing_call(std::string_view name) {
    for (std::size_t index = 0; index < calls.size(); ++index) {
        if (calls[index].name == name) {
            return static_cast<failing_call>(index);
        }
    }
    return std::nullopt;
}

int default_error(failing_call call) {
    return calls[static_cast<std::size_t>(call)].usual_error;
}

#include "model/board_paths.hpp"

#include <algorithm>
#include <array>

namespace {

constexpr std::array board_places = {
    device_node,
    lock_file,
    boot_id_file,
    mounts_file,
    std::string_view("/sys/class/regulator"),
    std::string_view("/sys/kernel/debug"),
};

} // namespace

bool is_at_or_below(std::string_view path, std::string_view directory) {
    return path.starts_with(directory) &&
           (path.size() == directory.size() || path[directory.size()] == '/');
}

bool is_board_path(std::string_view path) {
    return std::any_of(board_places.begin(), board_places.end(),
                       [path](std::string_view place) { return is_at_or_below(path, place); });
}

#pragma once

#include <string_view>

/** The memory device node: mapping it reaches the registers. */
constexpr std::string_view device_node = "/dev/zeb_mem";

/** The lock file of the tool; every board has its own. */
constexpr std::string_view lock_file = "/tmp/brisel.lock";

/** Names the boot: a UUID, another one after every reset of the board. */
constexpr std::string_view boot_id_file = "/proc/sys/kernel/random/boot_id";

/** What is mounted, so that a sweep warns of the same on every machine. */
constexpr std::string_view mounts_file = "/proc/mounts";

/** True for `directory` itself and for everything below it. Plain comparison of absolute paths. */
bool is_at_or_below(std::string_view path, std::string_view directory);

/**
 * True for a path that belongs to the board and not to the machine that simulates it: the device
 * node, the lock file, the boot's name, its mounts, and everything in /sys/class/regulator and
 * /sys/kernel/debug.
 */
bool is_board_path(std::string_view path);

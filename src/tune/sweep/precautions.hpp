#pragma once

#include <string>
#include <string_view>
#include <vector>

/**
 * Has everything written to the disks, keeps this process's memory from being swapped out, and lets
 * it be the last that the kernel ends for want of memory.
 */
void take_precautions();

/**
 * Says how soon the kernel is to end this process for want of memory.
 * @param score from "-1000", never, to "1000", first
 */
void set_oom_score(std::string_view score);

/**
 * The block devices that are mounted for writing, as "/dev/root on /": what a board that dies can
 * leave damaged.
 * @param mounts the text of /proc/mounts
 */
std::vector<std::string> writable_mounts(const std::string& mounts);

#pragma once

#include <optional>
#include <string>

#include <sys/stat.h>

/*
 * The lock that the instances of both programs share (see process/instance_lock.hpp), taken as this
 * one needs it: it says what it waits for, and may give up.
 */

/**
 * Takes the lock. After half a second of waiting it says so on standard error, with the process
 * that holds it.
 * @param seconds how long to wait at most
 * @param quiet   whether it says nothing: a value that is tried waits to be put back
 * @throw mistake when the file cannot be opened or locked, or the time is over
 */
void take_lock(std::optional<double> seconds, bool quiet = false);

/**
 * ", process 1234", with the one that holds a lock.
 * @param locks the text of /proc/locks: "1: FLOCK ADVISORY WRITE 1234 08:02:56 0 EOF" is a line of
 * it, with the process, the device and the inode; those that wait stand behind it
 * @param file  the lock's
 * @return empty text where there is no such line
 */
std::string lock_holder(const std::string& locks, const struct stat& file);

/** Releases the lock, in this process. */
void release_lock();

/** Closes the lock's file in a child, whose parent goes on holding it. */
void close_lock();

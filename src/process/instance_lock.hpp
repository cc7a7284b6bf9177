#pragma once

/** Path of the lock file, "/tmp/brisel.lock". */
inline constexpr const char* instance_lock_path = "/tmp/brisel.lock";

/**
 * The lock that lets only one instance of the tool run at a time: an exclusive advisory lock on
 * "/tmp/brisel.lock". The file is created when missing, and never written or removed.
 */

/**
 * Takes the lock, waiting for another instance to release it.
 * @return false, with the reason on standard error, when the file cannot be opened or locked
 */
bool take_instance_lock();

/** Releases the lock if the file was opened; the file stays open until the process ends. */
void release_instance_lock();

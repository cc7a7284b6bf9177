#pragma once

#include "checker/invariant_checker.hpp"
#include "targets/driver_run.hpp"

namespace fuzz {

/**
 * Compares what a run of the program said with what it did, and reports to the checker of its
 * board:
 *
 *  - A status line names a property that was read or set, as that property allows; without one
 *    nothing was touched, except by -r and by a run that an exception ended.
 *  - The status belongs to what was done: 0, -10 and -11 for reads and writes, -1 exactly when the
 *    lock was refused.
 *  - A read shows on standard output what it reports, a write shows nothing.
 *  - A run that comes to its end has released the lock.
 *
 * @param can_lock as given to `run_driver`
 */
void check_run(const driver_run& run, bool can_lock, invariant_checker& checker);

} // namespace fuzz

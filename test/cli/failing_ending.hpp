#pragma once

#include <string>
#include <vector>

#include "cli/failing_command.hpp"

/** A call in a run without failures: its line in the trace, and the register accesses before it. */
struct call_event {
    std::string line;
    std::size_t accesses;
};

/** The calls of one kind, as the fault `fail` names and counts them. */
std::vector<call_event> events_of(const std::string& call, const std::vector<std::string>& trace);

/** What a run is to come to. */
struct ending {
    run_result result;
    std::string file;
    bool stops; ///< where the call fails: no access follows it
};

/**
 * What the run comes to if the call of this event fails for the reason, and is not tried again.
 * `clean` is the same command without a failure.
 */
ending expected_ending(const failing_command& command, const failing_run& clean,
                       const call_event& event, const std::string& reason);

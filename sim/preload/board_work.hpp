#pragma once

namespace sim {

/**
 * While one lives, what its thread does is the board's own doing and not the program's: memory that
 * is asked for meanwhile does not count.
 */
class board_work {
public:
    board_work() noexcept { ++s_depth; }
    ~board_work() { --s_depth; }
    board_work(const board_work&) = delete;
    board_work& operator=(const board_work&) = delete;

    static bool is_going_on() noexcept { return s_depth != 0; }

private:
    // Reached without a call: asking for memory must not ask for memory.
    [[gnu::tls_model("initial-exec")]] static inline thread_local constinit int s_depth = 0;
};

/** Whether the program's request for memory that comes now is to fail; errno is then set. */
bool memory_runs_out() noexcept;

} // namespace sim

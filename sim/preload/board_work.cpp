#include "preload/board_work.hpp"

#include "preload/board_session.hpp"

namespace sim {

bool memory_runs_out() noexcept {
    board_session* const board = current_session();
    if (board == nullptr || board_work::is_going_on()) {
        return false;
    }
    const board_work work;
    return board->next_call_fails(failing_call::memory, "memory");
}

} // namespace sim

#pragma once

#include <optional>
#include <vector>

#include "tune/board/hardware.hpp"
#include "tune/board/held_signals.hpp"
#include "tune/board/lock.hpp"

/** Holds the lock for as long as it lives, for work on these knobs. Meanwhile SIGTSTP waits. */
class board_hold {
public:
    /** @throw mistake when there is no lock or no memory device node */
    board_hold(const std::vector<const knob*>& for_these, std::optional<double> wait_seconds)
        : board_hold(for_these, wait_seconds, false) {}

    /** Waits as long as it takes, and says nothing of it. */
    static board_hold quietly(const std::vector<const knob*>& for_these) {
        return board_hold(for_these, std::nullopt, true);
    }
    ~board_hold() { release_lock(); } // and then a stop may come
    board_hold(const board_hold&) = delete;
    board_hold& operator=(const board_hold&) = delete;

private:
    board_hold(const std::vector<const knob*>& for_these, std::optional<double> wait_seconds,
               bool quiet) {
        check_node(for_these);
        take_lock(wait_seconds, quiet);
        m_stops.emplace({SIGTSTP});
    }

    std::optional<held_signals> m_stops; // from when the lock is held
};

#pragma once

#include <array>
#include <atomic>
#include <cstdint>

#include "model/failing_call.hpp"

/** Counts of calls that a process shares with all that it forks. Ends the process where it gets no
 * memory. */
class shared_counts {
public:
    shared_counts();
    ~shared_counts();
    shared_counts(const shared_counts&) = delete;
    shared_counts& operator=(const shared_counts&) = delete;

    /** The number of one more call: 1 for the first. */
    std::uint32_t next(failing_call call) noexcept {
        return ++(*m_counts)[static_cast<std::size_t>(call)];
    }

private:
    using counts = std::array<std::atomic<std::uint32_t>, failing_calls>;

    counts* m_counts;
};

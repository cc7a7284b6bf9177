#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

/** A pipe that keeps each write apart: some hundred of them, of up to a page each. */
class pipe_of_writes {
public:
    pipe_of_writes() {
        EXPECT_EQ(pipe2(m_ends.data(), O_DIRECT | O_NONBLOCK | O_CLOEXEC), 0);
        EXPECT_GT(fcntl(m_ends[1], F_SETPIPE_SZ, 1 << 20), 0);
    }
    ~pipe_of_writes() {
        close(m_ends[0]);
        close(m_ends[1]);
    }
    pipe_of_writes(const pipe_of_writes&) = delete;
    pipe_of_writes& operator=(const pipe_of_writes&) = delete;

    /** The end to write to. */
    int descriptor() const { return m_ends[1]; }

    /** What was written since the last call. */
    std::vector<std::string> take() const {
        std::vector<std::string> writes;
        std::array<char, 4096> text;
        ssize_t size = 0;
        while ((size = read(m_ends[0], text.data(), text.size())) > 0) {
            writes.emplace_back(text.data(), static_cast<std::size_t>(size));
        }
        return writes;
    }

private:
    std::array<int, 2> m_ends = {-1, -1};
};

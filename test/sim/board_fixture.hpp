#pragma once

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include <sys/wait.h>

/** How a command on a board ended and what it said. */
struct outcome {
    std::string output; ///< standard output and standard error
    int status;         ///< as the shell gives it: 128 + the signal for a process that was ended
};

/** Runs programs on a simulated board in a folder of its own, which is removed after the test. */
class board_fixture : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = std::filesystem::temp_directory_path() / "sim board XXXXXX";
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        m_folder = pattern;
    }
    void TearDown() override { std::filesystem::remove_all(m_folder); }

    /** Runs sim/board on this test's board with `words`, as a shell would take them. */
    outcome board(const std::string& words) const {
        const std::string command = "cd '" + m_folder.string() +
                                    "' && export BRISEL_BUILD='" BRISEL_BUILD_DIR
                                    "' && exec '" BOARD_LAUNCHER "' -b state " +
                                    words + " 2>&1";
        FILE* const stream = popen(command.c_str(), "r");
        std::string output;
        for (std::array<char, 4096> part{}; std::fgets(part.data(), part.size(), stream);) {
            output += part.data();
        }
        const int status = pclose(stream);
        return {output, WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status)};
    }

    /** The probe's steps, traced. */
    outcome probe(const std::string& steps, const std::string& options = "") const {
        return board("-t " + options + " '" BOARD_PROBE "' " + steps);
    }

    std::filesystem::path state() const { return m_folder / "state"; }

private:
    std::filesystem::path m_folder;
};

/** The text up to and with its line break number `count`. */
inline std::string first_lines(const std::string& text, int count) {
    std::size_t end = 0;
    for (; count > 0; --count) {
        end = text.find('\n', end) + 1;
    }
    return text.substr(0, end);
}

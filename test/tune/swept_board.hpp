#pragma once

#include <csignal>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/text_file.hpp"
#include "tune/tune_case.hpp"

namespace swept_boards {

inline const std::string lane = "orlin-ddra-read0::dq3"; // 64, or d+0, at power-on
inline const std::string delay = "mac-tx::delay";        // 2

inline const std::string memory_test = BRISEL_BUILD_DIR "/memory-test";

inline int count_of(const std::string& part, const std::string& text) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        ++count;
    }
    return count;
}

/** A board, and the log of a sweep on it. */
class swept_board {
public:
    /** @param eyes which delays pass; the board dies a step outside of them */
    explicit swept_board(const std::string& eyes = "", const board_setup& setup = {})
        : m_board(setup), m_log(m_board.path("/tmp/log")) {
        write_text(m_board.path("/../eyes"), "edge 0\n" + eyes);
    }

    /** A sweep of the words, a log file for it given. */
    run_result begin(std::vector<std::string> words, const std::string& fault = "") const {
        words.insert(words.begin(), {"sweep", "-o", m_log});
        program_start program = m_board.launch_bare(words, fault, "brisel-tune");
        program.leads_group = true;
        return m_board.capture(std::move(program));
    }

    run_result go_on(std::vector<std::string> words = {}) const {
        words.insert(words.begin(), {"sweep", "--continue", m_log});
        return run_tune(m_board, words);
    }

    /** A sweep that goes on after each death of the board. @return how often it died */
    int sweep(const std::vector<std::string>& words) const {
        run_result run = begin(words);
        int deaths = 0;
        while (run.status == -SIGKILL && ++deaths < 10) {
            run = go_on();
        }
        EXPECT_EQ(run.status, 0) << run.err;
        return deaths;
    }

    std::string best() const { return run_tune(m_board, {"best", m_log}).out; }
    std::string held(const std::string& name) const { return run_tune(m_board, {"get", name}).out; }
    std::string log() const { return text_of(m_log); }
    const std::string& log_file() const { return m_log; }
    const board& on_board() const { return m_board; }

private:
    const board m_board;
    const std::string m_log;
};

} // namespace swept_boards

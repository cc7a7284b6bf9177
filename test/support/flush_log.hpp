#pragma once

#include <iostream>
#include <sstream>
#include <string>
#include <vector>

/**
 * Catches both standard streams in one sequence, cut where they are flushed.
 *
 * Standard error flushes itself after every insertion, and standard output before; both is off
 * while the object lives, so that only the flushes that the program asks for count.
 */
class flush_log : private std::stringbuf {
public:
    flush_log() : m_cout(std::cout.rdbuf(this)), m_cerr(std::cerr.rdbuf(this)) {
        std::cerr << std::nounitbuf;
        std::cerr.tie(nullptr);
    }
    ~flush_log() override {
        std::cerr.tie(&std::cout);
        std::cerr << std::unitbuf;
        std::cerr.rdbuf(m_cerr);
        std::cout.rdbuf(m_cout);
    }
    flush_log(const flush_log&) = delete;
    flush_log& operator=(const flush_log&) = delete;

    /** What was written up to each flush; what was never flushed is not in it. */
    const std::vector<std::string>& pieces() const { return m_pieces; }

private:
    int sync() override {
        m_pieces.push_back(str());
        str("");
        return 0;
    }

    std::streambuf* m_cout;
    std::streambuf* m_cerr;
    std::vector<std::string> m_pieces;
};

#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include <sys/types.h>

#include "output/output_stream.hpp"

/** Catches both standard streams in one sequence, cut where they are flushed. */
class flush_log {
public:
    flush_log()
        : m_file(fopencookie(this, "w", {nullptr, take_piece, nullptr, nullptr})),
          m_out(standard_output().redirect(m_file)), m_err(standard_error().redirect(m_file)) {}
    ~flush_log() {
        standard_error().redirect(m_err);
        standard_output().redirect(m_out);
        std::fclose(m_file);
    }
    flush_log(const flush_log&) = delete;
    flush_log& operator=(const flush_log&) = delete;

    /** What was written up to each flush; what was never flushed is not in it. */
    const std::vector<std::string>& pieces() const { return m_pieces; }

private:
    static ssize_t take_piece(void* log, const char* text, std::size_t size) {
        static_cast<flush_log*>(log)->m_pieces.emplace_back(text, size);
        return static_cast<ssize_t>(size);
    }

    std::vector<std::string> m_pieces;
    std::FILE* m_file; // with a buffer of its own, so that only flushes empty it
    std::FILE* m_out;
    std::FILE* m_err;
};

#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

#include "output/output_stream.hpp"

/** Catches what is written to a standard stream while the object lives. */
class captured_stream {
public:
    explicit captured_stream(output_stream& stream)
        : m_stream(stream), m_caught(open_memstream(&m_text, &m_size)),
          m_original(stream.redirect(m_caught)) {}
    ~captured_stream() {
        m_stream.redirect(m_original);
        std::fclose(m_caught);
        std::free(m_text);
    }
    captured_stream(const captured_stream&) = delete;
    captured_stream& operator=(const captured_stream&) = delete;

    std::string text() const {
        std::fflush(m_caught);
        return {m_text, m_size};
    }

private:
    output_stream& m_stream;
    // Of m_caught, which sets them when it is flushed.
    char* m_text = nullptr;
    std::size_t m_size = 0;
    std::FILE* m_caught;
    std::FILE* m_original;
};

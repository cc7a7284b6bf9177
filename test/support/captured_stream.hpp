#pragma once

#include <array>
#include <cstddef>
#include <string>

#include <sys/mman.h>
#include <unistd.h>

#include "output/output_stream.hpp"

/** Catches what is written to a standard stream while the object lives. */
class captured_stream {
public:
    explicit captured_stream(output_stream& stream)
        : m_stream(stream), m_caught(memfd_create("caught", MFD_CLOEXEC)),
          m_original(stream.redirect(m_caught)) {}
    ~captured_stream() {
        m_stream.redirect(m_original);
        close(m_caught);
    }
    captured_stream(const captured_stream&) = delete;
    captured_stream& operator=(const captured_stream&) = delete;

    std::string text() const {
        std::string all;
        std::array<char, 4096> piece;
        ssize_t size = 0;
        while ((size = pread(m_caught, piece.data(), piece.size(),
                             static_cast<off_t>(all.size()))) > 0) {
            all.append(piece.data(), static_cast<std::size_t>(size));
        }
        return all;
    }

private:
    output_stream& m_stream;
    int m_caught;
    int m_original;
};

#pragma once

#include <ostream>
#include <sstream>
#include <string>

/** Catches what is written to a standard stream, such as std::cerr, while the object lives. */
class captured_stream {
public:
    explicit captured_stream(std::ostream& stream)
        : m_stream(stream), m_original(stream.rdbuf(m_caught.rdbuf())) {}
    ~captured_stream() { m_stream.rdbuf(m_original); }
    captured_stream(const captured_stream&) = delete;
    captured_stream& operator=(const captured_stream&) = delete;

    std::string text() const { return m_caught.str(); }

private:
    std::ostringstream m_caught;
    std::ostream& m_stream;
    std::streambuf* m_original;
};

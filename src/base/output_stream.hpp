#pragma once

#include <string>
#include <string_view>

/** One of the two standard streams that the tool writes to. */
enum class standard_stream { output, error };

/**
 * Writes a text to one of the C library's streams, and flushes it.
 *
 * The only way to either stream, in a source file of its own: another program, such as a test, may
 * link its own function in place of this one.
 * @return false when part of the text could not be written
 */
bool write_standard_stream(standard_stream stream, std::string_view text);

/**
 * A standard stream, for texts and whole lines, each flushed at once.
 *
 * Used instead of std::ostream, whose locale would cost every run 48,000 instructions, and the
 * static program 590 KB. The C++ streams are synchronised with those of the C library, so output
 * through both stays in order.
 */
class output_stream {
public:
    constexpr explicit output_stream(standard_stream stream) : m_stream(stream) {}

    output_stream(const output_stream&) = delete;
    output_stream& operator=(const output_stream&) = delete;

    /** Writes a NUL-terminated text; a null pointer sets the bad bit. */
    void print(const char* text);

    /** Writes a line and a newline after it. */
    void print_line(std::string line);

    /** True once something could not be written; nothing has been written since. */
    bool bad() const { return m_bad; }

private:
    void write(std::string_view text);

    const standard_stream m_stream;
    bool m_bad = false;
};

// Constant-initialised, so that objects that are built before main can report something, too.
inline constinit output_stream standard_output(standard_stream::output);
inline constinit output_stream standard_error(standard_stream::error);

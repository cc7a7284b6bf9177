#pragma once

#include <string>
#include <string_view>

#include <unistd.h>

/**
 * One of the standard streams, for texts and whole lines. There is no buffer: what is printed is
 * written at once, and a line in one piece.
 *
 * In place of std::ostream: building the locale that every stream of the library stands on, with
 * its rules for dates, money and wide characters, would be 44,000 of the instructions of every run,
 * and linking it nearly half of the static program's file.
 */
class output_stream {
public:
    /** @param descriptor where the texts go; not owned, and open while the object is used */
    constexpr explicit output_stream(int descriptor) : m_descriptor(descriptor) {}

    output_stream(const output_stream&) = delete;
    output_stream& operator=(const output_stream&) = delete;

    /** Writes a NUL-terminated text; a null pointer sets the bad bit. */
    void print(const char* text);

    /** Writes a line, with a newline behind it. */
    void print_line(std::string line);

    /** True once something could not be written; nothing has been written since. */
    bool bad() const { return m_bad; }

    /** Takes the bad bit away. */
    void clear() { m_bad = false; }

    /**
     * Sends what follows to another descriptor.
     * @return the one that it went to before
     */
    int redirect(int descriptor);

private:
    void write(std::string_view text);

    int m_descriptor;
    bool m_bad = false;
};

// The process's own two. Constant-initialised, so that objects that are built before main may have
// something to report, too.
inline constinit output_stream standard_output(STDOUT_FILENO);
inline constinit output_stream standard_error(STDERR_FILENO);

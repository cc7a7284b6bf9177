#pragma once

#include <cstdio>
#include <string>

/**
 * One of the standard streams, for texts and whole lines.
 *
 * In place of std::ostream: the locale that every stream of the library stands on, with its rules
 * for dates, money and wide characters, costs a run as much as a hundred registers do, and half
 * of the program's file.
 */
class output_stream {
public:
    /** @param file where the texts go; not owned, and it outlives the object */
    explicit output_stream(std::FILE* file);

    /** Writes a NUL-terminated text, which may wait for the next line; a null pointer sets the bad
     * bit. */
    void print(const char* text);

    /** Writes a line, with a newline behind it, and flushes. */
    void print_line(std::string line);

    /** True once something could not be written; nothing has been written since. */
    bool bad() const { return m_bad; }

    /** Takes the bad bit away. */
    void clear() { m_bad = false; }

    /**
     * Sends what follows to another file.
     * @return the file that it went to before
     */
    std::FILE* redirect(std::FILE* file);

private:
    void write(const char* text, std::size_t size);

    std::FILE* m_file;
    bool m_bad = false;
};

// The process's own two, made when they are first asked for: objects that are built before main
// may have something to report, too.
output_stream& standard_output();
output_stream& standard_error();

#include "output/output_stream.hpp"

#include <cstring>
#include <utility>

output_stream::output_stream(std::FILE* file) : m_file(file) {}

void output_stream::print(const char* text) {
    if (text == nullptr) {
        m_bad = true;
        return;
    }
    write(text, std::strlen(text));
}

void output_stream::print_line(std::string line) {
    line += '\n';
    write(line.data(), line.size()); // in one piece, since standard error has no buffer
    if (!m_bad && std::fflush(m_file) != 0) {
        m_bad = true;
    }
}

std::FILE* output_stream::redirect(std::FILE* file) {
    return std::exchange(m_file, file);
}

void output_stream::write(const char* text, std::size_t size) {
    if (!m_bad && std::fwrite(text, 1, size, m_file) != size) {
        m_bad = true;
    }
}

output_stream& standard_output() {
    static output_stream stream(stdout);
    return stream;
}

output_stream& standard_error() {
    static output_stream stream(stderr);
    return stream;
}

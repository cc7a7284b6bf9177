#include "base/output_stream.hpp"

void output_stream::print(const char* text) {
    if (text == nullptr) {
        m_bad = true;
        return;
    }
    write(text);
}

void output_stream::print_line(std::string line) {
    write(line += '\n');
}

void output_stream::write(std::string_view text) {
    if (!m_bad) {
        m_bad = !write_standard_stream(m_stream, text);
    }
}

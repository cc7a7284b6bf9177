#include "output/output_stream.hpp"

#include <string_view>
#include <utility>

#include "output/write_all.hpp"

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

int output_stream::redirect(int descriptor) {
    return std::exchange(m_descriptor, descriptor);
}

void output_stream::write(std::string_view text) {
    if (!m_bad && !write_all(m_descriptor, text)) {
        m_bad = true;
    }
}

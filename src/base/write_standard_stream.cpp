#include <cstdio>

#include "base/output_stream.hpp"

bool write_standard_stream(standard_stream stream, std::string_view text) {
    std::FILE* const file = stream == standard_stream::output ? stdout : stderr;
    return std::fwrite(text.data(), 1, text.size(), file) == text.size() && std::fflush(file) == 0;
}

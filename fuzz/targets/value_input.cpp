#include "targets/value_input.hpp"

#include <cstddef>
#include <cstdlib>
#include <sstream>

std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

value_input::value_input(const std::string& text) : values(lines_of(text)) {
    if (values.empty()) {
        return;
    }
    std::istringstream first(values.front());
    values.erase(values.begin());
    std::string word;
    hexadecimal = first >> word && word == "x";
    while (first >> word) {
        start.push_back(word);
    }
}

unsigned int value_input::number(std::size_t index) const {
    return index < start.size()
               ? static_cast<unsigned int>(std::strtoull(start[index].c_str(), nullptr, 0))
               : 0;
}

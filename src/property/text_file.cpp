#include "property/text_file.hpp"

#include <fstream>

std::optional<std::string> first_word(const std::string& path) {
    std::ifstream file(path);
    if (!file.is_open()) {
        return std::nullopt;
    }
    std::string word;
    file >> word;
    return word;
}

bool replace_contents(const std::string& path, const std::string& text) {
    std::ofstream file(path);
    if (!file.is_open()) {
        return false;
    }
    file << text;
    return true;
}

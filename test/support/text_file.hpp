#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

/** Gives a file exactly these contents. */
inline void write_text(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

/** The exact contents of a file; empty when there is none. */
inline std::string text_of(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/** Puts a folder in a file's place, so that nobody, root included, opens it for writing. */
inline void make_unwritable(const std::string& path) {
    std::filesystem::remove(path);
    std::filesystem::create_directory(path);
}
